#pragma once

#include <QKeySequence>
#include <QModelIndex>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "tests/support/test_machine.h"
#include "windows/platform_services.h"

namespace Morvane {

// Real windows, boxes and menus, shown without a screen. The machine's script says how a person answers them,
// and plays the person in the modal windows that it knows, which it must hide or unload.
class HandWindows : public QtWindowSystem {
 public:
  HandWindows(FileSystem& files, ScriptedWindows& script)
      : QtWindowSystem(files), files_(files), script_(script) {}

  // What was read in boxes and menus: what each was, and its text.
  std::vector<std::pair<std::string, std::string>> Read;

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  void PopupMenu(const std::vector<MenuItem>& items) override;
  std::string BrowseForFolder(const std::string& title) override;

 protected:
  void RunModal(Form& form) override;

 private:
  FileSystem& files_;
  ScriptedWindows& script_;
};

// A person at the keyboard and mouse of a machine. Controls are found in the window on the screen, by name;
// places are twips from a control's corner.
class Hand {
 public:
  explicit Hand(TestMachine& machine);

  HandWindows windows;
  Platform platform;

  // The window as the program's first.
  void Show(Form& form);

  static void Press(const Control& control);
  static void Click(const Control& control, double x, double y, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers modifiers = {});
  // Clicks into the box and replaces its text.
  static void Type(const Control& box, const std::string& text);
  // To what has the keyboard, faster than anything answers.
  static void Key(const QKeySequence& keys);
  // By the edge of the window; twips of its inside.
  static void Resize(const Form& form, double width, double height);

  // The rows of a list, or of a tree below a row, as they are read.
  static std::vector<std::string> Rows(const Control& list, const QModelIndex& below = {});
  // The first row of this text, from the top.
  static QModelIndex Row(const Control& list, const std::string& text);
  // Pixels from the row's left edge; a tree's triangle lies before it.
  static void ClickRow(const Control& list, const QModelIndex& row, int x = 5,
                       Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {});

  template <typename Widget = QWidget>
  static Widget& See(const Control& control) {
    return dynamic_cast<Widget&>(Find(control));
  }
  static QWidget& See(const Form& form);
  // Lets waiting events run.
  static void Settle();

 private:
  static QWidget& Find(const Control& control);
};

}  // namespace Morvane
