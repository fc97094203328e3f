#include "core/settings_file.h"

#include <memory>
#include <string>
#include <string_view>

#include "core/number_text.h"
#include "platform/resume_next.h"
#include "platform/text.h"

namespace Morvane {

namespace {

constexpr const char* kFileName = "morvane.ini";

constexpr const char* kHeading =
    "; --------------------------------------------------\r\n"
    ";  File di inizializzazione per Morvane\r\n"
    ";   Il team di Morvane\r\n"
    ";   Non manomettere assolutamente queste righe!\r\n"
    "; --------------------------------------------------\r\n";

constexpr std::string_view kSpessoreBordo = "SpessoreBordo=";
constexpr std::string_view kFileFolder = "FileFolder=";
constexpr std::string_view kDefaultFolder = "c:\\";

void ReadLine(AppState& state, std::string_view line) {
  if (line.starts_with(kSpessoreBordo)) {
    ResumeNext([&] { state.SpessoreBordo = ToInteger16(Val(line.substr(kSpessoreBordo.size()))); });
  } else if (line.starts_with(kFileFolder)) {
    const std::string_view folder = Trim(line.substr(kFileFolder.size()));
    state.FileFolder = folder.empty() ? kDefaultFolder : folder;
  }
}

void ReadFile(AppState& state, const FileSystem& files) {
  const std::unique_ptr<InputFile> file = files.OpenForInput(state.AppPath + kFileName);
  std::string line;
  while (file->ReadLine(line)) ReadLine(state, line);
}

}  // namespace

void ReadSettings(AppState& state, const FileSystem& files) {
  state.SpessoreBordo = 0;
  state.FileFolder = kDefaultFolder;
  ResumeNext([&] { ReadFile(state, files); });
}

void SalvaImpostazioni(const AppState& state, FileSystem& files) {
  std::string text = kHeading;
  // A blank in the place of the sign and one behind the digits.
  text += std::string(kSpessoreBordo) + (state.SpessoreBordo < 0 ? "" : " ");
  text += std::to_string(state.SpessoreBordo) + " \r\n";
  text += std::string(kFileFolder) + state.FileFolder + "\r\n";
  ResumeNext([&] { files.WriteText(state.AppPath + kFileName, text); });
}

}  // namespace Morvane
