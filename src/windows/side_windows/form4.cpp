#include "windows/side_windows/form4.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/web_addresses.h"
#include "platform/text.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow = {
    .name = "Form4", .caption = "Ricerca Copertine su Internet", .clientWidth = 5745, .clientHeight = 4125};

// name, caption, tool-tip, left, top, width, height, spoken name
constexpr std::array kControls = {
    ControlRow{"Picture1", "", "", 3120, 150, 1950, 1470},
    ControlRow{"Label2",
               "Con questa form è possibile effettuare la ricerca su Internet delle copertine da stampare, "
               "occorre avere una connessione attiva, inserire testo di ricerca e tipo di copertina da "
               "cercare:",
               "", 750, 90, 2355, 1545},
    ControlRow{"Label1", "Cerca:", "", 750, 1680, 1005, 255},
    ControlRow{"Text1", "", "", 750, 1920, 4215, 285, "Cerca"},
    ControlRow{"List1", "", "", 750, 2280, 4215, 1005, "Tipo di copertina"},
    ControlRow{"Command1", "OK", "", 3480, 3540, 1485, 405},
    ControlRow{"Command2", "Annulla", "", 750, 3540, 1485, 405},
};

constexpr std::array kKinds = {"AUDIO", "VIDEO", "PC", "CONSOLE"};

// Nothing of the term is escaped. An address with what a pasted text may hold besides words, such as a tab,
// opens no browser.
std::string SearchAddress(std::string terms, const std::string& kind) {
  std::replace_if(
      terms.begin(), terms.end(), [](unsigned char c) { return c < ' ' || c == 0x7f; }, ' ');
  return std::string(WebAddresses::kCoverSearchRoot) + "/search.php?terms=" + ToLower(Trim(terms)) +
         "&group=" + ToLower(kind);
}

}  // namespace

Form4::Form4(Platform& platform) : form(kWindow), platform_(platform) {
  form.LayOut(kControls);
  form.Load = [this] { Form_Load(); };
  Picture1.SetImageKey("form4_decoro");
  Label1.SetFont({.name = "Verdana", .size = 8, .bold = true});
  Command1.Default = true;
  Command1.Click = [this] { Command1_Click(); };
  Command2.Cancel = true;
  Command2.Click = [this] { Command2_Click(); };
}

void Form4::Form_Load() {
  form.CentreOn(platform_.screen);
  for (const char* kind : kKinds) List1.AddItem(kind);
  List1.SetListIndex(0);
}

void Form4::Command1_Click() {
  if (Text1.Text().empty()) {
    platform_.windows.MsgBox("Inserire prima un argomento di ricerca");
    Text1.SetFocus();
    return;
  }
  platform_.launcher.ShellExecute(SearchAddress(Text1.Text(), List1.Text()));
  form.UnloadForm();
}

}  // namespace Morvane
