#pragma once

#include <cstdint>
#include <string>

#include "platform/old_formats/decoder.h"

namespace Morvane {

// Little-endian numbers of a file's bytes. Undecodable past the end.
class ByteReader {
 public:
  explicit ByteReader(const std::string& bytes) : bytes_(bytes) {}

  uint32_t Unsigned32(size_t offset) const { return Unsigned(offset, 4); }
  uint16_t Unsigned16(size_t offset) const { return static_cast<uint16_t>(Unsigned(offset, 2)); }
  int32_t Signed32(size_t offset) const { return static_cast<int32_t>(Unsigned32(offset)); }
  int16_t Signed16(size_t offset) const { return static_cast<int16_t>(Unsigned16(offset)); }
  size_t Size() const { return bytes_.size(); }

 private:
  uint32_t Unsigned(size_t offset, size_t size) const {
    if (offset > bytes_.size() || bytes_.size() - offset < size) throw Undecodable("truncated");
    uint32_t value = 0;
    for (size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes_[offset + i]);
    return value;
  }

  const std::string& bytes_;
};

}  // namespace Morvane
