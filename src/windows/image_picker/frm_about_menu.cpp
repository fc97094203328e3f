#include <string>

#include "platform/runtime_error.h"
#include "windows/image_picker/frm_about.h"

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

}  // namespace

void frmAbout::BuildMenudestro() {
  Menudestro = {
      {.name = "menusele", .caption = "&Scegli immagine selezionata", .Click = [this] { Command1_Click(); }},
      {.name = "menumeno", .caption = "-"},
      {.name = "MenuRinomina",
       .caption = "&Rinomina immagine ...",
       .Click = [this] { MenuRinomina_Click(); }},
      {.name = "menuCancellaFile",
       .caption = "&Cancella immagine ...",
       .Click = [this] { menuCancellaFile_Click(); }},
  };
}

// When the chosen action fails the user is told and the menu opens again, until an action succeeds or the
// user leaves the menu.
void frmAbout::List1_MouseDown(MouseButton button) {
  while (button == MouseButton::Right && !platform_.windows.Ended()) {
    try {
      return platform_.windows.PopupMenu(Menudestro);
    } catch (const RuntimeError&) {
      platform_.windows.MsgBox(kRenameFailed);
    }
  }
}

// The row keeps its place.
void frmAbout::MenuRinomina_Click() {
  const std::string oldName = List1.Text();
  if (oldName.empty()) return;
  const std::string newName = platform_.windows.InputBox(kRenamePrompt, kRenameTitle, oldName);
  if (newName.empty()) return;
  platform_.files.Name(state_.CartellaImmagini + oldName, state_.CartellaImmagini + newName);
  List1.SetList(List1.ListIndex(), newName);
  List1_Click();
}

void frmAbout::menuCancellaFile_Click() {
  const std::string name = List1.Text();
  if (name.empty()) return;
  if (platform_.windows.MsgBox(DeleteQuestion(name), MsgBoxButtons::OkCancel) == MsgBoxAnswer::Cancel) return;
  if (!KillStubbornly(name)) return;
  // No row is selected then; the count, the preview and the chosen path stay until the next selection.
  List1.RemoveItem(List1.ListIndex());
}

// The file is tried again for as long as it can't be deleted: the user removes the cause, such as the program
// that holds the file, and confirms the message. A file that another program took away is as good as deleted.
// False when the message ended without being confirmed.
bool frmAbout::KillStubbornly(const std::string& name) {
  while (true) {
    try {
      platform_.files.Kill(state_.CartellaImmagini + name);
      return true;
    } catch (const RuntimeError& error) {
      if (IsGone(error)) return true;
      if (platform_.windows.Ended()) return false;
      if (platform_.windows.MsgBox(DeleteFailed(name)) != MsgBoxAnswer::Ok) return false;
    }
  }
}

}  // namespace Morvane
