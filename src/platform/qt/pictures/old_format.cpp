#include "platform/qt/pictures/old_format.h"

#include <string_view>

namespace Morvane {

namespace {

using namespace std::string_view_literals;

bool HasAt(const std::string& bytes, size_t offset, std::string_view text) {
  return bytes.size() >= offset + text.size() && bytes.compare(offset, text.size(), text) == 0;
}

bool IsEmf(const std::string& bytes) {
  return HasAt(bytes, 0, "\1\0\0\0"sv) && HasAt(bytes, 40, " EMF"sv);
}

bool IsWmf(const std::string& bytes) {
  const bool placeable = HasAt(bytes, 0, "\xD7\xCD\xC6\x9A"sv);
  const bool standard = HasAt(bytes, 0, "\1\0\x09\0"sv) || HasAt(bytes, 0, "\2\0\x09\0"sv);
  return placeable || (standard && (HasAt(bytes, 4, "\0\3"sv) || HasAt(bytes, 4, "\0\1"sv)));
}

bool IsIff(const std::string& bytes) {
  return HasAt(bytes, 0, "FORM"sv) && (HasAt(bytes, 8, "ILBM"sv) || HasAt(bytes, 8, "PBM "sv));
}

}  // namespace

std::optional<OldFormat> FormatOf(const std::string& bytes) {
  if (IsEmf(bytes)) return OldFormat::Emf;
  if (IsWmf(bytes)) return OldFormat::Wmf;
  if (IsIff(bytes)) return OldFormat::Iff;
  return std::nullopt;
}

}  // namespace Morvane
