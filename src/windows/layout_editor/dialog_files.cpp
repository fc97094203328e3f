#include "core/layout_files.h"
#include "core/layout_writer.h"
#include "platform/resume_next.h"
#include "platform/units.h"
#include "windows/layout_editor/dialog.h"

namespace Morvane {

namespace {

[[noreturn]] void Fail(const std::string& what, const RuntimeError& why) {
  throw RuntimeError(why.Number(), what + "\n" + why.what());
}

// The place is in inches and not divided by 10: the cover of a new layout lies 250 mm from both edges, off a
// portrait sheet, until the user gives it a place. Its shape stays what cover 1 had.
void InstallNewLayout(AppState& state) {
  state.NumCopertine = 1;
  state.CopCorrente = 1;
  state.Orientamento = 0;
  state.CopLarg[1] = 10;
  state.CopAlte[1] = 10;
  state.CopDistx[1] = 25 / kCentimetresPerInch;
  state.CopDisty[1] = 25 / kCentimetresPerInch;
}

}  // namespace

void Dialog::Command5_Click() {
  WriteLayout(state_, {Label4.Caption(), Text1.Text(), Text2.Text(), Text4.Text(), Text5.Text()},
              platform_.files, PathOf(state_.NomeLayout));
}

// The selection stays on the old entry while the window edits the new file: a click there leads back to it.
void Dialog::Command16_Click() {
  if (!TakeFileName("Immettere un nome file valido sul quale salvare questo layout di copertina.",
                    "Copertina Personalizzata")) {
    return;
  }
  Command5_Click();
}

// The row of measures still shows the previous layout when this saves. If that was its cover 1, the new file
// begins with the measures on show.
void Dialog::Command2_Click() {
  if (!TakeFileName("Immettere un nome file valido per il nuovo layout di copertine.", "Nuova Copertina")) {
    return;
  }
  const std::string name = state_.NomeLayout;
  InstallNewLayout(state_);
  Command5_Click();
  platform_.windows.DoEvents();
  if (form.Unloaded()) return;
  ResumeNext([&] { settacop(name); });
}

void Dialog::Command14_Click() {
  AskAboutChanges(", si desidera salvare le modifiche prima di rinominarlo?");
  const std::string entry = List1.Text();
  if (!entry.empty()) {
    // The prompt names the file being edited; the row that is renamed is the proposed name.
    const std::string name = platform_.windows.InputBox(
        "Digitare il nuovo nome del layout di copertine. Il nome attuale è : ' " + state_.NomeLayout + " '",
        "Rinomina un file di copertine", entry);
    if (name.empty()) return;
    try {
      platform_.files.Name(PathOf(entry), PathOf(name));
    } catch (const RuntimeError& error) {
      Fail("Impossibile rinominare il layout ' " + entry + " ' in ' " + name + " '.", error);
    }
    List1.SetList(List1.ListIndex(), name);
    state_.NomeLayout = name;
  }
  const int index = FindEntry(state_.NomeLayout);
  if (index >= 0) List1.SetListIndex(index);
}

void Dialog::Command1_Click() {
  const std::string name = List1.Text();
  const MsgBoxAnswer answer = platform_.windows.MsgBox(
      "Attenzione! - Eliminando un file di layout di copertine non sarà più possibile recuperarne il "
      "contenuto. Si vuole veramente eliminare DEFINITIVAMENTE il layout di copertine: " +
          name,
      MsgBoxButtons::OkCancel);
  if (answer != MsgBoxAnswer::Ok || List1.ListIndex() < 0) return;
  try {
    platform_.files.Kill(PathOf(name));
  } catch (const RuntimeError& error) {
    // A file that is gone already needs no deleting.
    if (error.Number() != ErrorNumber::FileNotFound) {
      Fail("Impossibile eliminare il layout ' " + name + " '.", error);
    }
  }
  List1.RemoveItem(List1.ListIndex());
  if (List1.ListCount() > 0) List1.SetListIndex(0);
}

// Asks for the name to save under. True when the user gave one: it is then the layout's name and in the list.
bool Dialog::TakeFileName(const std::string& prompt, const std::string& defaultName) {
  const std::string name = platform_.windows.InputBox(prompt, {}, defaultName);
  if (name.empty()) return false;
  bool exists = false;
  ResumeNext([&] { exists = platform_.files.FileExists(PathOf(name)); });
  if (exists && platform_.windows.MsgBox(
                    "Attenzione: La copertina '" + name + "' Esiste già, vuoi sovrascrivere il file?",
                    MsgBoxButtons::OkCancel) != MsgBoxAnswer::Ok) {
    return false;
  }
  state_.NomeLayout = name;
  if (!exists && FindEntry(name) < 0) List1.AddItem(name);
  return true;
}

std::string Dialog::PathOf(const std::string& name) const {
  return LayoutPath(CartellaApp_, name);
}

}  // namespace Morvane
