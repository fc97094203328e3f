#include "windows/image_picker/image_file_operations.h"

#include <string>

#include "platform/runtime_error.h"

namespace Morvane {

namespace {

constexpr const char* kRenamePrompt =
    "Digita il nuovo nome della foto, ricordando di non cancellare l'estensione (.jpg, .bmp ecc)";
constexpr const char* kRenameTitle = "Rinomina un file di immagine";
constexpr const char* kRenameFailed =
    "Si è verificato un errore durante il processo di ridenominazione del file, o è stato usato un nome di "
    "file errato oppure non è possibile scrivere sulla directory specificata (cd-rom, rete ecc.)";

std::string DeleteQuestion(const std::string& name) {
  return "Sei sicuro di vole cancellare il file " + name + " ?";
}

std::string DeleteFailed(const std::string& name) {
  return "Non è possibile cancellare il file " + name +
         " controllare che non si tratti di un file in sola lettura o una cartella di un CD-ROM o DVD-ROM";
}

bool IsGone(const RuntimeError& error) {
  return error.Number() == ErrorNumber::FileNotFound || error.Number() == ErrorNumber::PathNotFound;
}

// The file is tried again for as long as it can't be deleted: the user removes the cause, such as the program
// that holds the file, and confirms the message. A file that another program took away is as good as deleted.
// False when the message ended without being confirmed.
bool KillStubbornly(WindowSystem& windows, FileSystem& files, const std::string& folder,
                    const std::string& name) {
  while (true) {
    try {
      files.Kill(folder + name);
      return true;
    } catch (const RuntimeError& error) {
      if (IsGone(error)) return true;
      if (windows.Ended() || windows.MsgBox(DeleteFailed(name)) != MsgBoxAnswer::Ok) return false;
    }
  }
}

}  // namespace

void ApriMenudestro(WindowSystem& windows, const std::vector<MenuItem>& menu) {
  while (!windows.Ended()) {
    try {
      windows.PopupMenu(menu);
      return;
    } catch (const RuntimeError&) {
      windows.MsgBox(kRenameFailed);
    }
  }
}

bool RinominaImmagine(WindowSystem& windows, FileSystem& files, const AppState& state, ListBox& list) {
  const std::string oldName = list.Text();
  if (oldName.empty()) return false;
  const std::string newName = windows.InputBox(kRenamePrompt, kRenameTitle, oldName);
  if (newName.empty()) return false;
  files.Name(state.CartellaImmagini + oldName, state.CartellaImmagini + newName);
  list.SetList(list.ListIndex(), newName);
  return true;
}

void CancellaImmagine(WindowSystem& windows, FileSystem& files, const AppState& state, ListBox& list) {
  const std::string name = list.Text();
  if (name.empty()) return;
  if (windows.MsgBox(DeleteQuestion(name), MsgBoxButtons::OkCancel) == MsgBoxAnswer::Cancel) return;
  if (!KillStubbornly(windows, files, state.CartellaImmagini, name)) return;
  // No row is selected then; the count, the preview and the chosen path stay until the next selection.
  list.RemoveItem(list.ListIndex());
}

}  // namespace Morvane
