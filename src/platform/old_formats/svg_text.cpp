#include "platform/old_formats/svg_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace Morvane {

namespace {

// XML has no way to write these; one of them would end the drawing where it stands.
bool IsForbidden(char c) {
  return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

}  // namespace

std::string SvgNumber(double value) {
  std::array<char, 400> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 4);
  return std::string(digits.data(), end.ptr);
}

std::string XmlText(std::string_view text) {
  std::string escaped;
  for (char c : text) {
    switch (c) {
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '&':
        escaped += "&amp;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string SvgDocument(double widthTwips, double heightTwips, const SvgBox& viewBox,
                        std::string_view drawing) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
      "xmlns:xlink=\"http://www.w3.org/1999/xlink\" preserveAspectRatio=\"none\" width=\"";
  text += SvgNumber(std::round(widthTwips)) + "\" height=\"" + SvgNumber(std::round(heightTwips)) +
          "\" viewBox=\"" + SvgNumber(viewBox.left) + ' ' + SvgNumber(viewBox.top) + ' ' +
          SvgNumber(viewBox.width) + ' ' + SvgNumber(viewBox.height) + "\">\n";
  const size_t start = text.size();
  text += drawing;
  std::replace_if(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), IsForbidden, ' ');
  text += "</svg>\n";
  return text;
}

}  // namespace Morvane
