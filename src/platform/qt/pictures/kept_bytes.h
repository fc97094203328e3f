#pragma once

#include <QByteArray>
#include <cstddef>
#include <string>

namespace Morvane {

// The bytes of a file, as long as its picture is there. Those that stay get memory of their own: large pages
// as far as the file fills them, small ones for its end. The allocator would round a photo up by a tenth, in
// large pages, and return them to the system only later.
class KeptBytes {
 public:
  enum class Stay { Short, Long };

  // std::bad_alloc when there is no memory.
  KeptBytes(std::string bytes, Stay stay);
  ~KeptBytes();
  KeptBytes(const KeptBytes&) = delete;
  KeptBytes& operator=(const KeptBytes&) = delete;

  // Not a copy: valid as long as this object.
  QByteArray InPlace() const { return QByteArray::fromRawData(start_, static_cast<qsizetype>(size_)); }

 private:
  const std::size_t size_;
  const std::string asItCame_;  // empty when it stays
  void* mapped_ = nullptr;
  const char* start_ = nullptr;
};

}  // namespace Morvane
