#pragma once

#include <QMenu>
#include <QMessageBox>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/desktop/qt_window_system.h"

namespace Morvane {

// Real windows, boxes and menus, shown without a screen, with a person before them.
class HandWindows : public QtWindowSystem, public QObject {
 public:
  explicit HandWindows(FileSystem& files);

  // What the boxes, prompts, choosers and menus that ask for something are answered with, in turn: the
  // caption of a button or entry, a name, a folder. An empty one is Esc.
  std::deque<std::string> Answers;
  // What was read in them: what each was, and its text.
  std::vector<std::pair<std::string, std::string>> Read;
  std::function<void()> AtBox = [] {};             // what else happens while a box is open
  std::function<void(Form&)> Play = [](auto&) {};  // in each modal window

 protected:
  bool eventFilter(QObject* opened, QEvent* event) override;
  void RunModal(Form& form) override;

 private:
  void Reply(QWidget& open);
  void ReplyTo(const QMessageBox& box);
  void ReplyTo(QMenu& menu);
  void ReplyInLine(const QWidget& open);
  std::string Answer(const QString& what, const QString& text);

  FileSystem& files_;
};

namespace Hand {

// On the screen, by name.
QWidget& See(const Form& form);
QWidget& See(const Control& control);
// Lets waiting events run.
void Settle();

}  // namespace Hand

}  // namespace Morvane
