#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "core/web_addresses.h"
#include "faults.h"
#include "windows/main_window/program.h"

namespace Morvane {

// A user who says yes to every question, types the one name that each prompt is for, and gives up with a
// machine that keeps refusing.
class UserWindows : public ScriptedWindows {
 public:
  std::map<std::string, std::function<void(Form&)>> Scenes;  // by the window's name; closed behind them

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) override {
    Boxes.push_back({text, buttons, title});
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("errore interno")));
    if (Boxes.size() > kPatience && text == Boxes[Boxes.size() - kPatience].text) {
      End();
    }
    return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Ok;
  }
  std::string InputBox(const std::string& prompt, const std::string& title, const std::string&) override {
    if (prompt.starts_with("Immettere un nome file valido per")) return "Nuovo";
    if (prompt.starts_with("Immettere")) return "Copia";
    return title == "Rinomina un file di immagine" ? "zeta.jpg" : "Rinominata";
  }
  std::string BrowseForFolder(const std::string&) override { return "C:\\Disco"; }
  void PopupMenu(const std::vector<MenuItem>& items) override {
    if (MenuChoices.empty()) return;  // opened again after a failure: Esc
    ScriptedWindows::PopupMenu(items);
  }

 protected:
  void RunModal(Form& form) override {
    UserEvent([&] { Scenes.at(form.Name())(form); });
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
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
      machine.WritePicture(std::string("C:\\Foto\\") + name, 2000, 1000);
    }
    machine.WriteFile("C:\\Foto\\Vacanze\\mare.txt", "");
    machine.WriteFile("C:\\Disco\\Musica\\uno.mp3", "");
    machine.WriteFile("C:\\Disco\\due.txt", "");
    machine.Http.Bodies[std::string(WebAddresses::kUpdateFile)] = "260\n";
    machine.Device.Turned = PageOrientation::Portrait;
    machine.Device.Answers.assign(kPrintings, {.accepted = true, .copies = 2});
    faults.TopWindow = [this] { return windows.TopForm() ? windows.TopForm()->Name() : ""; };
    windows.Scenes = {
        {"Dialog", [this](Form& form) { EditLayouts(form); }},
        {"frmAbout", [this](Form& form) { PickPicture(form); }},
        {"FrmPreview", [this](Form& form) { PrintContents(form); }},
        {"fONTEN", [this](Form& form) { ChooseFont(form); }},
        {"Form2", [](Form&) {}},
        {"Form3", [this](Form& form) { Do([&] { Find<Timer>(form, "Timer1").PerformTick(); }); }},
        {"Form4", [this](Form& form) {
           Do([&] { Find<TextBox>(form, "Text1").SetText("disco"); });
           Press(form, "Command1");
         }}};
    faults.Watch(machine);
  }

  // `afterStep` looks at the program whenever only the main window is open.
  void Run(const std::function<void(const std::string& step)>& afterStep) {
    program.Start();
    afterStep("start");
    for (const char* command :
         {"menudef", "MenuCarb", "ManuCarF", "MenuCarb", "MenuCarb", "menustcg", "menusta", "menustcg",
          "menustmpcrt", "menuabout", "menuonl", "pdfcreatinfo", "menudef"}) {
      ++visits[command];
      Do([&] { program.form1.form.Menu(command).Click(); });
      if (windows.Ended()) break;
      afterStep(command);
    }
    Do([&] { program.form1.form.Menu("menuesci").Click(); });
  }

  Faults faults;
  TestMachine machine;
  UserWindows windows;
  Platform platform{
      windows,       machine.TheScreen,  *machine.Files,   machine.Pictures, machine.Metrics,
      machine.Fonts, machine.ThePrinter, machine.Launches, machine.Http,     AppInfo{.path = "C:\\Morvane"}};
  Program program{platform, ','};
  std::map<std::string, int> visits;
  std::set<std::string> kept;  // what the files held that the program found

 private:
  static constexpr std::size_t kPrintings = 20;

  void Do(const std::function<void()>& event) { windows.UserEvent(event); }

  template <typename T>
  static T& Find(Form& form, const std::string& name) {
    for (Control* control : form.AllControls()) {
      if (control->Name() == name) return dynamic_cast<T&>(*control);
    }
    throw std::logic_error("no control " + name);
  }

  void Press(Form& form, const std::string& button) {
    if (form.Visible()) Do([&] { Find<CommandButton>(form, button).PerformClick(); });
  }
  void Select(Form& form, const std::string& list, const std::string& row) {
    ListBox& box = Find<ListBox>(form, list);
    for (int i = 0; i < box.ListCount(); ++i) {
      if (box.List(i) == row) return Do([&] { box.UserSelects(i); });
    }
  }

  void EditLayouts(Form& form) {
    Select(form, "List1", "Buste");
    Press(form, "Command7");  // wider
    Press(form, visits["menudef"] == 1 ? "Command16" : "Command5");
    Press(form, "Command2");  // new
    Press(form, "Command17");
    Select(form, "List1", "Album");
    if (Find<ListBox>(form, "List1").Text() == "Album") Press(form, "Command14");  // rename
    Select(form, "List1", "Cassetta");
    if (Find<ListBox>(form, "List1").Text() == "Cassetta") Press(form, "Command1");  // delete
    Select(form, "List1", "Buste");
    Press(form, visits["menudef"] == 1 ? "OKButton" : "CancelButton");
  }

  void PickPicture(Form& form) {
    TreeView& tree = Find<TreeView>(form, "tvwdirtree");
    for (const char* key : {"root", "C:", "C:\\Foto"}) {
      if (TreeNode* node = tree.Find(key)) Do([&] { tree.UserExpands(*node); });
    }
    if (TreeNode* node = tree.Find("C:\\Foto")) Do([&] { tree.UserClicks(*node); });
    const int visit = visits["MenuCarb"] + visits["ManuCarF"];
    if (visit == 2) {
      Select(form, "List1", "c.jpg");
      ChooseFromList(form, "MenuRinomina");
      Select(form, "List1", "b.jpg");
      ChooseFromList(form, "menuCancellaFile");
    }
    Select(form, "List1", "a.jpg");
    if (visit == 2) Select(form, "List1", "zeta.jpg");
    Press(form, visit == 4 ? "Command2" : "Command1");
  }
  void ChooseFromList(Form& form, const std::string& entry) {
    ListBox& list = Find<ListBox>(form, "List1");
    windows.MenuChoices = {entry};
    Do([&] { list.PerformMouseDown(MouseButton::Right, 0, 0); });
  }

  void PrintContents(Form& form) {
    Press(form, "Command2");  // read
    Press(form, "Command4");  // font
    Press(form, "Command3");  // print
    Press(form, "Command1");
  }
  void ChooseFont(Form& form) {
    Select(form, "LstFonts", "Tahoma");
    Press(form, "cmdOK");
  }

  void WriteKept(const std::string& path, const std::string& text) {
    machine.WriteFile(path, text);
    kept.insert(text);
  }
};

}  // namespace Morvane
