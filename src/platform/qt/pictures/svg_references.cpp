#include "platform/qt/pictures/svg_references.h"

#include <algorithm>
#include <array>
#include <string>

namespace Morvane {

namespace {

using namespace std::string_view_literals;

constexpr auto kSpaces = " \t\r\n"sv;

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return lower;
}

std::string LocalName(std::string_view name) {
  return Lower(name.substr(name.rfind(':') + 1));
}

// Readers go by an image's first bytes, whatever its type says, and an SVG image could refer outside in its
// turn.
bool IsInside(std::string_view reference) {
  constexpr std::array kInside = {"#"sv, "data:image/png;base64,iVBORw0KGgo"sv,
                                  "data:image/jpg;base64,/9j/"sv};
  return std::any_of(kInside.begin(), kInside.end(),
                     [&](auto start) { return reference.starts_with(start); });
}

// url(...) may stand in a style or in an attribute of its own (fill, clip-path, filter).
bool UrlsAreInside(std::string_view value) {
  const std::string text = Lower(value);
  if (text.find("@import") != std::string::npos) return false;
  for (size_t at = text.find("url"); at != std::string::npos; at = text.find("url", at + 3)) {
    const size_t open = text.find_first_not_of(kSpaces, at + 3);
    if (open == std::string::npos || text[open] != '(') continue;
    const size_t target = text.find_first_not_of(" \t\r\n'\"", open + 1);
    if (target == std::string::npos || text[target] != '#') return false;
  }
  return true;
}

bool IsAllowedElement(std::string_view name) {
  static constexpr std::array kRefused = {"style"sv, "script"sv, "foreignobject"sv, "handler"sv, "include"sv};
  return std::find(kRefused.begin(), kRefused.end(), LocalName(name)) == kRefused.end();
}

bool IsAllowedAttribute(std::string_view name, std::string_view value) {
  const std::string local = LocalName(name);
  // An entity or an escape could hide a reference from this look; no honest one needs them.
  if (local == "href" || local == "src" || local == "base") {
    return value.find('&') == std::string_view::npos && IsInside(value);
  }
  const bool hidden = value.find('&') != std::string_view::npos || value.find('\\') != std::string_view::npos;
  const bool mayRefer = local != "font-family";
  return (!hidden || !mayRefer) && UrlsAreInside(value);
}

// Walks over the text by the rules of XML; each step eats what it has judged.
class Walk {
 public:
  explicit Walk(std::string_view text) : rest_(text) {}

  bool IsClean() {
    while (true) {
      const size_t tag = rest_.find('<');
      if (tag == std::string_view::npos) return true;
      rest_.remove_prefix(tag);
      if (!Markup()) return false;
    }
  }

 private:
  bool Markup() {
    if (rest_.starts_with("<![CDATA[")) return SkipPast("]]>");
    if (rest_.starts_with("<!--")) return SkipPast("-->");
    if (rest_.starts_with("<?xml ") || rest_.starts_with("</")) return TagWithoutAttributes();
    if (rest_.starts_with("<!") || rest_.starts_with("<?")) return false;
    return Element();
  }

  bool SkipPast(std::string_view end) {
    const size_t at = rest_.find(end);
    if (at == std::string_view::npos) return false;
    rest_.remove_prefix(at + end.size());
    return true;
  }

  bool TagWithoutAttributes() {
    rest_.remove_prefix(1);
    Take("<>");
    return SkipIf(">");
  }

  bool Element() {
    rest_.remove_prefix(1);
    if (!IsAllowedElement(Take(" \t\r\n/><\"'="))) return false;
    while (true) {
      Take(kSpaces, true);
      if (SkipIf("/>") || SkipIf(">")) return true;
      if (!Attribute()) return false;
    }
  }

  bool Attribute() {
    const std::string_view name = Take(" \t\r\n/><\"'=");
    Take(kSpaces, true);
    if (name.empty() || !SkipIf("=")) return false;
    Take(kSpaces, true);
    if (rest_.empty() || (rest_[0] != '"' && rest_[0] != '\'')) return false;
    const size_t end = rest_.find(rest_[0], 1);
    if (end == std::string_view::npos) return false;
    const std::string_view value = rest_.substr(1, end - 1);
    rest_.remove_prefix(end + 1);
    return value.find('<') == std::string_view::npos && IsAllowedAttribute(name, value);
  }

  bool SkipIf(std::string_view text) {
    if (!rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }

  // Eats up to the first of the characters, or, when they are the ones to eat, up to the first other.
  std::string_view Take(std::string_view characters, bool these = false) {
    const size_t end = these ? rest_.find_first_not_of(characters) : rest_.find_first_of(characters);
    const std::string_view taken = rest_.substr(0, end);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

}  // namespace

bool RefersOnlyToItself(std::string_view svg) {
  return Walk(svg).IsClean();
}

}  // namespace Morvane
