#include "platform/files/name_order.h"

#include <algorithm>
#include <utility>

#include "platform/case_folding.h"
#include "platform/utf8.h"
#include "platform/windows_1252.h"

namespace Morvane {

namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// As CompareIgnoringCase, for names of ASCII only, which nearly all are.
int CompareAscii(std::string_view left, std::string_view right) {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = LowerAscii(left[i]) - LowerAscii(right[i]);
    if (difference != 0) return difference;
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

bool AsciiIsBefore(std::string_view left, std::string_view right) {
  const int order = CompareAscii(left, right);
  return order != 0 ? order < 0 : left > right;
}

}  // namespace

bool IsSameName(std::string_view onDisk, std::string_view name) {
  if (IsAscii(onDisk) && IsAscii(name))
    return onDisk.size() == name.size() && CompareAscii(onDisk, name) == 0;
  return CompareIgnoringCase(ReadableUtf8(onDisk), ReadableUtf8(name)) == 0;
}

bool NameIsBefore(std::string_view left, std::string_view right) {
  if (IsAscii(left) && IsAscii(right)) return AsciiIsBefore(left, right);
  const int order = CompareIgnoringCase(left, right);
  return order != 0 ? order < 0 : left > right;
}

void SortNames(std::vector<std::string>& names) {
  if (std::all_of(names.begin(), names.end(), [](const std::string& name) { return IsAscii(name); })) {
    std::sort(names.begin(), names.end(), AsciiIsBefore);
    return;
  }
  // The order of UTF-8 bytes is that of the characters.
  std::vector<std::pair<std::string, std::string>> keyed;
  keyed.reserve(names.size());
  for (std::string& name : names) {
    std::string key = ToLower(name);
    keyed.emplace_back(std::move(key), std::move(name));
  }
  std::sort(keyed.begin(), keyed.end(), [](const auto& left, const auto& right) {
    return left.first != right.first ? left.first < right.first : left.second > right.second;
  });
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
}

}  // namespace Morvane
