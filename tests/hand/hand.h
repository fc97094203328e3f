#pragma once

#include <QKeySequence>
#include <QModelIndex>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/desktop/qt_window_system.h"

namespace Morvane {

// Real windows, boxes and menus, shown without a screen, with a person before them.
class HandWindows : public QtWindowSystem {
 public:
  explicit HandWindows(FileSystem& files) : QtWindowSystem(files), files_(files) {}

  // What the boxes, prompts, choosers and menus that ask for something are answered with, in turn: the
  // caption of a button or entry, a name, a folder. An empty one is Esc.
  std::deque<std::string> Answers;
  // What was read in them: what each was, and its text.
  std::vector<std::pair<std::string, std::string>> Read;
  std::function<void()> AtBox = [] {};             // what else happens while a box is open
  std::function<void(Form&)> Play = [](auto&) {};  // in each modal window

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  void PopupMenu(const std::vector<MenuItem>& items) override;
  std::string BrowseForFolder(const std::string& title) override;

 protected:
  void RunModal(Form& form) override;

 private:
  std::string Answer(const QString& what, const QString& text);

  FileSystem& files_;
};

// At the keyboard and mouse. Controls are found in the window on the screen, by name; places are twips from
// a control's corner.
namespace Hand {

QWidget& See(const Form& form);
QWidget& Find(const Control& control);
template <typename Widget = QWidget>
Widget& See(const Control& control) {
  return dynamic_cast<Widget&>(Find(control));
}

void Click(const Control& control, double x, double y, Qt::MouseButton button = Qt::LeftButton);
void Press(const Control& control);
// Clicks into the box and replaces its text.
void Type(const Control& box, const QString& text);
// To what has the keyboard, faster than anything answers.
void Key(const QKeySequence& keys);
// The first row of this text, from the top.
QModelIndex Row(const Control& list, const QString& text);
// Pixels from the row's left edge; a tree's triangle lies before it.
void ClickRow(const Control& list, const QModelIndex& row, int x, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = {});
// Lets waiting events run.
void Settle();

}  // namespace Hand

}  // namespace Morvane
