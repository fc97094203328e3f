#include "platform/qt/pictures/kept_bytes.h"

#include <sys/mman.h>

#include <memory>
#include <new>
#include <utility>

namespace Morvane {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;

std::size_t MappedFor(std::size_t bytes) {
  return bytes + kLargePage;
}

}  // namespace

KeptBytes::KeptBytes(std::string bytes, Stay stay)
    : size_(bytes.size()),
      asItCame_(stay == Stay::Short ? std::move(bytes) : std::string()),
      start_(asItCame_.data()) {
  if (stay == Stay::Short) return;
  std::size_t room = MappedFor(size_);
  mapped_ = mmap(nullptr, room, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped_ == MAP_FAILED) throw std::bad_alloc();
  void* aligned = mapped_;
  auto* const start = static_cast<char*>(std::align(kLargePage, size_, aligned, room));
  const std::size_t filled = size_ / kLargePage * kLargePage;
  // Both are wishes; what becomes of them changes nothing but the memory that is held.
  madvise(start, filled, MADV_HUGEPAGE);
  madvise(start + filled, size_ - filled, MADV_NOHUGEPAGE);
  bytes.copy(start, size_);
  start_ = start;
}

KeptBytes::~KeptBytes() {
  if (mapped_ != nullptr) munmap(mapped_, MappedFor(size_));
}

}  // namespace Morvane
