#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/views/view_text.h"
#include "tests/hand/hand.h"
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

  // A layout of one cover for each of the millimetres, which are its width; each stands further right and
  // down and is higher than the one before it.
  void WriteCovers(const std::string& name, const std::vector<int>& widths) {
    std::vector<std::string> lines = {"Pagina=0"};
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const auto line = [&](const char* key, std::size_t value) {
        lines.push_back(key + std::to_string(i + 1) + "=" + std::to_string(value));
      };
      line("Copertina", 0);
      line("Distx", 20 + i);
      line("Disty", 20 + 2 * i);
      line("Larg", static_cast<std::size_t>(widths[i]));
      line("Alte", 60 + i);
    }
    WriteLayoutFile(name, lines);
  }

  // What an earlier window was closed with goes with it.
  void Open() {
    hand = std::make_unique<Hand>(machine);
    dialog = std::make_unique<Dialog>(state, hand->platform, slots, rnd);
    hand->Show(dialog->form);
  }

  void Press(const Control& control) { hand->Press(control); }
  void Press(const Control& control, MsgBoxAnswer answer) {
    machine.Windows.Answers.push_back(answer);
    Press(control);
  }
  void Press(const Control& control, const std::string& input) {
    machine.Windows.Inputs.push_back(input);
    Press(control);
  }
  void Select(int index) { Hand::ClickRow(dialog->List1, index); }
  // Types and leaves the box.
  void Enter(TextBox& box, const std::string& text) {
    hand->Type(box, text);
    hand->Key(Qt::Key_Return);
  }
  // In millimetres of the page.
  void ClickPage(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
    const double twipsPerMm = dialog->Picture1.Width() / (state.Orientamento == 1 ? 297 : 210);
    hand->Click(dialog->Picture1, x * twipsPerMm, y * twipsPerMm, button);
  }

  std::vector<std::string> Listed() const { return Hand::Rows(dialog->List1); }
  static std::string Shown(const TextBox& box) { return Hand::See<QLineEdit>(box).text().toStdString(); }
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
  std::unique_ptr<Hand> hand;  // goes first, with its windows
};

using Rows = std::vector<std::string>;

}  // namespace Morvane
