#include "platform/qt/pictures/kept_bytes.h"

#include <sys/mman.h>

#include <algorithm>
#include <new>

namespace Morvane {

KeptBytes::KeptBytes(QByteArrayView bytes) : size_(static_cast<std::size_t>(bytes.size())) {
  void* const room = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (room == MAP_FAILED) throw std::bad_alloc();
  start_ = static_cast<char*>(room);
  std::copy(bytes.begin(), bytes.end(), start_);
}

KeptBytes::~KeptBytes() {
  munmap(start_, size_);
}

}  // namespace Morvane
