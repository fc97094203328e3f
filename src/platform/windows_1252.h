#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Morvane {

// The character of a byte. The five bytes that Windows-1252 leaves undefined stand for the control characters
// of the same number, so that no byte is lost on the way to UTF-8 and back.
char32_t Windows1252Character(std::uint8_t byte);

std::string FromWindows1252(std::string_view bytes);

// A character outside Windows-1252 becomes "?". A byte that is no UTF-8 is kept as it is.
std::string ToWindows1252(std::string_view utf8);

// Text that should be UTF-8, each byte that is not read as its Windows-1252 meaning.
std::string ReadableUtf8(std::string_view text);

}  // namespace Morvane
