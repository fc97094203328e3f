#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/test_machine.h"
#include "windows/layout_editor/dialog.h"

namespace Morvane {

// The editor on a machine of its own; the program's folder is empty until the test fills it.
class DialogTest : public ::testing::Test {
 protected:
  DialogTest() {
    state.MaxCopertine = 100;
    state.NumCopertine = 2;
  }

  void WriteLayoutFile(const std::string& name, const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    machine.WriteFile(PathOf(name), text);
  }

  // A layout of one cover for each of the millimetres, which are its width.
  void WriteCovers(const std::string& name, const std::vector<int>& widths) {
    std::vector<std::string> lines = {"Pagina=0"};
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const std::string n = std::to_string(i + 1);
      lines.insert(lines.end(), {"Copertina" + n + "=0", "Distx" + n + "=20", "Disty" + n + "=20",
                                 "Larg" + n + "=" + std::to_string(widths[i]), "Alte" + n + "=60"});
    }
    WriteLayoutFile(name, lines);
  }

  void Open() {
    dialog = std::make_unique<Dialog>(state, machine.platform, slots, rnd);
    dialog->form.EnsureLoaded();
  }

  void Press(CommandButton& button) {
    machine.Windows.UserEvent([&] {
      button.SetFocus();
      button.PerformClick();
    });
  }
  void Press(CommandButton& button, MsgBoxAnswer answer) {
    machine.Windows.Answers.push_back(answer);
    Press(button);
  }
  void Press(CommandButton& button, const std::string& input) {
    machine.Windows.Inputs.push_back(input);
    Press(button);
  }
  void Select(int index) {
    machine.Windows.UserEvent([&] { dialog->List1.UserSelects(index); });
  }
  void Type(TextBox& box, const std::string& text) {
    machine.Windows.UserEvent([&] {
      box.SetFocus();
      box.SetText(text);
      dialog->List1.SetFocus();
    });
  }

  std::vector<std::string> Listed() const {
    std::vector<std::string> rows;
    for (int i = 0; i < dialog->List1.ListCount(); ++i) rows.push_back(dialog->List1.List(i));
    return rows;
  }
  bool FileHas(const std::string& name, const std::string& line) const {
    return machine.ReadFile(PathOf(name)).find(line + "\r\n") != std::string::npos;
  }
  static std::string PathOf(const std::string& name) { return "C:\\Morvane\\" + name + ".mvne"; }
  const std::string& LastBox() const { return machine.Windows.Boxes.back().text; }

  TestMachine machine;
  AppState state;
  CoverSlots slots;
  Rnd rnd;
  std::unique_ptr<Dialog> dialog;
};

using Rows = std::vector<std::string>;

}  // namespace Morvane
