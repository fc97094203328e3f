#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/test_machine.h"
#include "windows/main_window/program.h"

namespace Morvane {

// Counts what the program asks of a machine and lets chosen calls fail.
class Faults {
 public:
  static constexpr const char* kText = "Guasto di prova";

  int FirstToFail = 0;   // counted from 1; 0: none
  bool Lasting = false;  // every later call fails, too
  std::function<std::string()> TopWindow;

  int Calls() const { return calls_; }
  // The first call that failed, as "Name C:\\a.jpg @frmAbout"; empty when none did.
  const std::string& Failed() const { return failed_; }

  void Watch(TestMachine& machine) {
    machine.Files->BeforeCall = [this](const char* call, const std::string& path) {
      constexpr std::array kNumbers = {ErrorNumber::PermissionDenied, ErrorNumber::DiskNotReady,
                                       ErrorNumber::PathFileAccess};
      Call(call + (" " + path), kNumbers[static_cast<std::size_t>(FirstToFail) % kNumbers.size()]);
    };
    for (Hooked* device : std::initializer_list<Hooked*>{&machine.Fonts, &machine.Device, &machine.Pictures,
                                                         &machine.Launches, &machine.Http}) {
      device->BeforeCall = [this](const std::string& call, ErrorNumber number) { Call(call, number); };
    }
  }

 private:
  void Call(const std::string& what, ErrorNumber number) {
    ++calls_;
    const bool fails = Lasting ? calls_ >= FirstToFail : calls_ == FirstToFail;
    if (FirstToFail == 0 || !fails) return;
    if (failed_.empty()) failed_ = what + " @" + TopWindow();
    throw RuntimeError(number, kText);
  }

  int calls_ = 0;
  std::string failed_;
};

// A user who says yes to every question, types the one name that each prompt is for, and gives up with a
// machine that keeps refusing.
class UserWindows : public ScriptedWindows {
 public:
  std::function<void(Form&)> Play;  // in each window; it is closed behind it

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string&) override {
    Boxes.push_back({text, buttons});
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("errore interno")));
    if (Boxes.size() > kPatience && text == Boxes[Boxes.size() - kPatience].text) End();
    return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Ok;
  }
  std::string InputBox(const std::string& prompt, const std::string& title, const std::string&) override {
    if (prompt.starts_with("Immettere un nome file valido per")) return "Nuovo";
    if (prompt.starts_with("Immettere")) return "Copia";
    return title == "Rinomina un file di immagine" ? "zeta.jpg" : "Rinominata";
  }
  std::string BrowseForFolder(const std::string&) override { return "C:\\Disco"; }
  void PopupMenu(const std::vector<MenuItem>& items) override {
    if (!MenuChoices.empty()) ScriptedWindows::PopupMenu(items);  // opened again after a failure: Esc
  }

 protected:
  void RunModal(Form& form) override {
    Play(form);
    if (form.Visible()) UserEvent([&] { form.UnloadForm(); });
  }

 private:
  static constexpr std::size_t kPatience = 5;
};

// A user's whole visit on a machine that may fail. Every step is an event of its own, so that one that fails
// does not keep the user from the next.
class Session {
 public:
  Session() {
    for (const char* name : {"Album", "Buste", "Cassetta"}) {
      WriteKept(std::string("C:\\Morvane\\") + name + ".mvne",
                "Pagina=1\r\nCopertina1=0\r\nDistx1=20\r\nDisty1=20\r\nLarg1=120\r\nAlte1=121\r\n"
                "Copertina2=1\r\nDistx2=150\r\nDisty2=20\r\nLarg2=116\r\nAlte2=116\r\n");
    }
    WriteKept("C:\\Morvane\\morvane.ini", "SpessoreBordo= 3 \r\nFileFolder=C:\\Foto\r\n");
    WriteKept("C:\\Morvane\\morvane_fileid.txt", "Morvane\r\nGrazie\r\n");
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
      machine.WriteFile(std::string("C:\\Foto\\") + name, "PICTURE");
    for (const char* name : {"Foto\\Vacanze\\mare.txt", "Disco\\Musica\\uno.mp3", "Disco\\due.txt"})
      machine.WriteFile(std::string("C:\\") + name, "");
    machine.Http.Body = "260\n";
    machine.Device.Turned = PageOrientation::Portrait;
    machine.Device.Answers.assign(kPrintings, {.accepted = true, .copies = 2});
    faults.TopWindow = [this] { return windows.TopForm() ? windows.TopForm()->Name() : ""; };
    windows.Play = [this](Form& form) { Play(form); };
    faults.Watch(machine);
  }

  // `afterStep` looks at the program whenever only the main window is open.
  void Run(const std::function<void(const std::string& step)>& afterStep) {
    program.Start();
    afterStep("start");
    for (const auto& [command, deeds] : kVisits) {
      deeds_ = deeds;
      MenuItem& entry = program.form1.form.Menu(command);
      windows.UserEvent([&] { entry.Click(); });
      if (windows.Ended()) return;
      afterStep(command);
    }
  }

  Faults faults;
  TestMachine machine;
  UserWindows windows;
  Platform platform{
      windows,       machine.TheScreen,  *machine.Files,   machine.Pictures, machine.Metrics,
      machine.Fonts, machine.ThePrinter, machine.Launches, machine.Http,     AppInfo{.path = "C:\\Morvane"}};
  Program program{platform, ','};
  std::set<std::string> kept;  // what the files held that the program found

 private:
  static constexpr std::size_t kPrintings = 20;

  // Entries of the main window, and what is done in the window that opens: a button is pressed, a row, a node
  // or a text is chosen, "!" an entry of the list's menu. What follows a row that is not there is left undone
  // until the next row.
  static constexpr const char* kOpenFoto = "tvwdirtree=root tvwdirtree=C: tvwdirtree=C:\\Foto ";
  const std::vector<std::pair<std::string, std::string>> kVisits = {
      {"menudef",
       "List1=Buste Command7 Command16 Command2 Command17 List1=Album Command14 List1=Cassetta "
       "Command1 List1=Buste OKButton"},
      {"MenuCarb", kOpenFoto + std::string("List1=a.jpg Command1")},
      {"ManuCarF", kOpenFoto + std::string("List1=c.jpg List1!MenuRinomina List1=b.jpg "
                                           "List1!menuCancellaFile List1=a.jpg List1=zeta.jpg Command1")},
      {"MenuCarb", kOpenFoto + std::string("List1=a.jpg Command1")},
      {"MenuCarb", kOpenFoto + std::string("List1=a.jpg Command2")},
      {"menustcg", "Command2 Command4 Command3 Command1"},
      {"menusta", ""},
      {"menustcg", "Command2 Command4 Command3 Command1"},
      {"menustmpcrt", ""},
      {"menuabout", "Timer1"},
      {"menuonl", "Text1=disco Command1"},
      {"pdfcreatinfo", ""},
      {"menudef", "List1=Buste Command7 Command5 Command2 Command17 List1=Buste CancelButton"},
      {"menuesci", ""}};

  void Play(Form& form) {
    std::istringstream deeds(form.Name() == "fONTEN" ? "LstFonts=Tahoma cmdOK" : deeds_);
    bool isThere = true;
    for (std::string deed; form.Visible() && deeds >> deed;) {
      const std::size_t end = deed.find_first_of("=!");
      const std::string value = end == std::string::npos ? "" : deed.substr(end + 1);
      if (deed == "Timer1") {
        windows.UserEvent(form.Timers.front()->Tick);
        continue;
      }
      const std::vector<Control*> controls = form.AllControls();
      Control* const control = *std::find_if(controls.begin(), controls.end(), [&](const Control* one) {
        return one->Name() == deed.substr(0, end);
      });
      auto* const list = dynamic_cast<ListBox*>(control);
      if (list != nullptr && deed[end] == '=')
        isThere = Choose(*list, value);
      else if (isThere)
        windows.UserEvent([&] { Do(*control, value); });
    }
  }

  bool Choose(ListBox& list, const std::string& row) {
    int i = 0;
    while (i < list.ListCount() && list.List(i) != row) ++i;
    windows.UserEvent([&] { list.UserSelects(i); });
    return list.Text() == row;
  }

  void Do(Control& control, const std::string& value) {
    if (auto* const box = dynamic_cast<TextBox*>(&control)) return box->SetText(value);
    if (auto* const button = dynamic_cast<CommandButton*>(&control)) return button->Click();
    if (dynamic_cast<ListBox*>(&control) != nullptr) {
      windows.MenuChoices = {value};
      return control.MouseDown(MouseButton::Right, 0, 0);
    }
    auto& tree = dynamic_cast<TreeView&>(control);
    TreeNode* const node = tree.Find(value);
    if (node == nullptr) return;
    tree.UserExpands(*node);
    tree.UserSelects(*node);
  }

  void WriteKept(const std::string& path, const std::string& text) {
    machine.WriteFile(path, text);
    kept.insert(text);
  }

  std::string deeds_;
};

}  // namespace Morvane
