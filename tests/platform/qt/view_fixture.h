#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/simple_controls.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "platform/qt/views/form_view.h"
#include "tests/support/test_machine.h"

namespace Morvane {

// A window of the real back-end, shown without a screen. A test makes its controls, then calls Show.
class ViewTest : public testing::Test {
 protected:
  TestMachine machine;
  QtWindowSystem windows{*machine.Files};
  Form form{{.name = "Form1", .caption = "Prova", .clientWidth = 6000, .clientHeight = 4500}};
  std::vector<std::string> log;

  // Controls are placed below each other, in the order in which they were made.
  void Show() {
    double top = 0;
    for (Control* const control : form.AllControls()) {
      if (control->Width() > 0) continue;
      control->SetTop(top);
      control->SetWidth(1500);
      control->SetHeight(450);
      top += 450;
    }
    windows.ShowMain(form);
    QApplication::processEvents();
  }

  std::function<void()> Log(const std::string& line) {
    return [this, line] { log.push_back(line); };
  }

  template <typename T>
  static T& Widget(const std::string& name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (T* const found = window->findChild<T*>(QString::fromStdString(name))) return *found;
    }
    throw std::logic_error("no widget " + name);
  }

  static void Click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton, QPoint place = {}) {
    QTest::mouseClick(&widget, button, {}, place);
    QApplication::processEvents();
  }

  // Plays the user once a box or window is open.
  void Later(const std::function<void()>& action) { QTimer::singleShot(20, qApp, action); }
};

}  // namespace Morvane
