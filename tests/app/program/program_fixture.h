#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QImage>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/desktop/qt_window_system.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "tests/support/test_machine.h"
#include "windows/main_window/program.h"

namespace Morvane {

inline const std::vector<std::string> kAllWindows = {"Form1",  "Dialog", "frmAbout", "FrmPreview",
                                                     "fONTEN", "Form2",  "Form3",    "Form4"};

// Every control of a window, containers before what they hold, with its widget; null for one that is not
// seen.
using Views = std::vector<std::pair<Control*, QWidget*>>;

// The whole program with its real windows, started, on a machine in a temporary folder.
class ProgramTest : public testing::Test {
 protected:
  using Look = std::function<void(Form& form, QWidget& window)>;

  TestMachine machine;
  QtWindowSystem windows{*machine.Files};
  const QtScreen screen{machine.TheScreen};
  QtPictureLoader pictures{*machine.Files, OldFormatDecoderPath()};
  const QtTextMetrics metrics{};
  const QtFontCatalog fonts{};
  Printer printer{machine.Device, metrics, fonts};
  Platform platform{windows, machine.TheScreen, *machine.Files,   pictures,     metrics,
                    fonts,   printer,           machine.Launches, machine.Http, machine.platform.app};
  Program program{platform, ','};

  void SetUp() override {
    namespace fs = std::filesystem;
    for (const auto& file : fs::directory_iterator(MORVANE_SOURCE_DIR "/data/layouts")) {
      fs::copy(file, machine.Files->ToNative("C:\\Morvane"));
    }
    fs::copy(MORVANE_SOURCE_DIR "/data/program_folder/morvane_fileid.txt",
             machine.Files->ToNative("C:\\Morvane"));
    for (const char* name : {"a.png", "b.png"}) {
      machine.MakeFolder("C:\\Foto");
      QImage photo(600, 400, QImage::Format_RGB32);
      photo.fill(name[0] == 'a' ? Qt::red : Qt::blue);
      ASSERT_TRUE(photo.save(QString::fromStdString(machine.Files->ToNative("C:\\Foto") + "/" + name)));
    }
    program.state.NomeLayout = "CD - Fronte e retro";
    program.Start();
    QApplication::processEvents();
  }

  // Opens a window by the program's own commands, looks at it, and closes it.
  void Open(const std::string& name, const Look& look) {
    if (name == "Form1") return look(program.form1.form, WindowOf(name));
    if (name != "fONTEN") {
      return WhileOpen(name, look, [&] { program.form1.Perform(OpenerOf(name)); });
    }
    const Look chooseFont = [&](Form& preview, QWidget&) {
      WhileOpen(name, look, [&] { ControlOf(preview, "Command4").PerformClick(); });
    };
    WhileOpen("FrmPreview", chooseFont, [&] { program.form1.Perform(Action::LeggiCD); });
  }

  static Control& ControlOf(Form& form, const std::string& name) {
    for (Control* const control : form.AllControls()) {
      if (control->Name() == name) return *control;
    }
    throw std::logic_error("no control " + name);
  }

  static Views ViewsOf(Form& form, QWidget& window) {
    Views views;
    Collect(form, *window.findChild<QScrollArea*>({}, Qt::FindDirectChildrenOnly)->widget(), views);
    return views;
  }

 private:
  static Action OpenerOf(const std::string& name) {
    if (name == "Dialog") return Action::ScegliLayout;
    if (name == "frmAbout") return Action::CaricaImmagine1;
    if (name == "FrmPreview") return Action::LeggiCD;
    if (name == "Form2") return Action::InformazioniPdf;
    return name == "Form3" ? Action::Informazioni : Action::RicercaOnline;
  }

  static QWidget& WindowOf(const std::string& name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->objectName().toStdString() == name && window->isVisible()) return *window;
    }
    throw std::logic_error("no window " + name);
  }

  // A message instead of the window, or over it, fails the test and is closed.
  void WhileOpen(const std::string& name, const Look& look, const std::function<void()>& open) {
    QTimer::singleShot(0, qApp, [&] {
      QApplication::processEvents();
      Form& form = *windows.TopForm();
      EXPECT_EQ(form.Name(), name);
      EXPECT_EQ(QApplication::activeModalWidget(), &WindowOf(form.Name()));
      if (form.Name() == name) look(form, WindowOf(name));
      windows.Dispatch([&] { form.UnloadForm(); });
      if (QWidget* const box = QApplication::activeModalWidget()) box->close();
    });
    windows.Dispatch(open);
    QApplication::processEvents();
  }

  static void Collect(Container& container, QWidget& parent, Views& views) {
    for (Control* const control : container.Children()) {
      QWidget* const widget =
          parent.findChild<QWidget*>(QString::fromStdString(control->Name()), Qt::FindDirectChildrenOnly);
      views.emplace_back(control, widget);
      if (auto* const inner = dynamic_cast<Container*>(control)) Collect(*inner, *widget, views);
    }
  }
};

}  // namespace Morvane
