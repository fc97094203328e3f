#include "platform/files/name_order.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "platform/windows_1252.h"

namespace Morvane {

bool IsSameName(std::string_view onDisk, std::string_view name) {
  return CompareIgnoringCase(ReadableUtf8(onDisk), ReadableUtf8(name)) == 0;
}

bool NameIsBefore(std::string_view left, std::string_view right) {
  const int order = CompareIgnoringCase(left, right);
  return order != 0 ? order < 0 : left > right;
}

void SortNames(std::vector<std::string>& names) {
  // The order of UTF-8 bytes is that of the characters, and whole texts are compared fastest.
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
