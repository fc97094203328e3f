#include "core/settings_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "core/number_text.h"
#include "core/text.h"
#include "core/val.h"
#include "platform/resume_next.h"

namespace Morvane {

namespace {

constexpr const char* kFileName = "morvane.ini";

constexpr const char* kHeading =
    "; --------------------------------------------------\r\n"
    ";  File di inizializzazione per Morvane\r\n"
    ";   Il team di Morvane\r\n"
    ";   Non manomettere assolutamente queste righe!\r\n"
    "; --------------------------------------------------\r\n";

struct Setting {
  std::string_view key;
  std::variant<std::int16_t AppState::*, std::string AppState::*> field;
  std::string_view defaultValue;  // also of an empty value
};

constexpr Setting kSettings[] = {
    // key, typed place, default
    {"SpessoreBordo=", &AppState::SpessoreBordo, "0"},
    {"FileFolder=", &AppState::FileFolder, "c:\\"},
};

void Store(std::int16_t& field, std::string_view value) {
  ResumeNext([&] { field = ToInteger16(Val(value)); });
}

void Store(std::string& field, std::string_view value) {
  field = value;
}

// A blank in the place of the sign and one behind the digits.
std::string ValueText(std::int16_t field) {
  return (field < 0 ? "" : " ") + std::to_string(field) + " ";
}

std::string ValueText(const std::string& field) {
  return field;
}

void Take(AppState& state, const Setting& setting, std::string_view value) {
  const std::string_view given = value.empty() ? setting.defaultValue : value;
  std::visit([&](auto field) { Store(state.*field, given); }, setting.field);
}

void ReadLine(AppState& state, std::string_view line) {
  for (const Setting& setting : kSettings) {
    if (line.starts_with(setting.key)) Take(state, setting, Trim(line.substr(setting.key.size())));
  }
}

void ReadFile(AppState& state, const FileSystem& files, const std::string& path) {
  const std::unique_ptr<InputFile> file = files.OpenForInput(path);
  std::string line;
  while (file->ReadLine(line)) ReadLine(state, line);
}

}  // namespace

void ReadSettings(AppState& state, const FileSystem& files) {
  for (const Setting& setting : kSettings) Take(state, setting, setting.defaultValue);
  const std::string path = state.AppPath + kFileName;
  ResumeNext([&] {
    if (files.FileExists(path)) ReadFile(state, files, path);
  });
}

void SalvaImpostazioni(const AppState& state, FileSystem& files) {
  std::string text = kHeading;
  for (const Setting& setting : kSettings) {
    text += setting.key;
    text += std::visit([&](auto field) { return ValueText(state.*field); }, setting.field) + "\r\n";
  }
  ResumeNext([&] { files.WriteText(state.AppPath + kFileName, text); });
}

}  // namespace Morvane
