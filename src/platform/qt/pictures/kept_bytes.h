#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <cstddef>

namespace Morvane {

// A copy of a file's bytes, as long as its picture is there. It lies outside the heap: between the buffers
// that come and go while pictures are decoded, megabytes that stay would leave holes.
class KeptBytes {
 public:
  // std::bad_alloc when there is no memory.
  explicit KeptBytes(QByteArrayView bytes);
  ~KeptBytes();
  KeptBytes(const KeptBytes&) = delete;
  KeptBytes& operator=(const KeptBytes&) = delete;

  // Not a copy: valid as long as this object.
  QByteArray InPlace() const { return QByteArray::fromRawData(start_, static_cast<qsizetype>(size_)); }

 private:
  const std::size_t size_;
  char* start_;
};

}  // namespace Morvane
