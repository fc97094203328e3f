#pragma once

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/controls/simple_controls.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "tests/hand/hand.h"
#include "windows/main_window/program.h"

namespace Morvane {

inline const std::vector<std::string> kAllWindows = {"Form1",  "Dialog", "frmAbout", "FrmPreview",
                                                     "fONTEN", "Form2",  "Form3",    "Form4"};

// A person at the program, on a machine with two photos and a disc.
class Session : public testing::Test {
 protected:
  using Means = std::function<void()>;
  using Scene = std::function<void(Form& form)>;

  TestMachine machine;
  Hand hand{machine};
  QtPictureLoader pictures{*machine.Files, OldFormatDecoderPath()};
  const QtTextMetrics metrics{};
  const QtFontCatalog installed{};
  const FontCatalog& fonts;
  Printer printer{machine.Device, metrics, fonts};
  Platform platform{hand.windows, machine.TheScreen, *machine.Files,   pictures,     metrics,
                    fonts,        printer,           machine.Launches, machine.Http, machine.platform.app};
  Program program{platform, ','};

  enum class Fonts { Installed, Listed };
  explicit Session(Fonts which = Fonts::Installed)
      : fonts(which == Fonts::Listed ? static_cast<const FontCatalog&>(machine.Fonts) : installed) {
    QApplication::setCursorFlashTime(0);
  }

  void Copy(const std::string& data, const std::string& folder) const {
    std::filesystem::copy(MORVANE_SOURCE_DIR "/data/" + data, machine.Files->ToNative(folder));
  }

  void Ship() {
    Copy("layouts", "C:\\Morvane");
    Copy("program_folder", "C:\\Morvane");
    machine.MakeFolder("C:\\Foto");
    Copy("samples", "C:\\Foto");
    machine.WriteFile("C:\\mountinfo", "1 1 11:0 / /media/u/Musica ro - iso9660 /dev/sr0 ro\n");
    for (const std::string album : {"Colline", "Mare", "Neve", "Valle"}) {
      for (const char* track : {"01 Il sentiero", "02 Prima luce", "03 Vento", "04 Case bianche",
                                "05 La corriera", "06 Lucciole"})
        machine.WriteFile("C:\\media\\u\\Musica\\" + album + "\\" + track + ".mp3", "");
    }
  }

  Means ByTool(const char* key) {
    return [this, key] {
      QTest::mouseClick(Hand::See(program.form1.Toolbar1).findChild<QToolButton*>(key), Qt::LeftButton);
    };
  }

  // An entry of the menu bar or of a button's menu.
  static Means ByEntry(const char* text) {
    return [text] {
      for (const QWidget* const widget : QApplication::allWidgets()) {
        for (QAction* const action : widget->actions()) {
          if (action->text() == text) return action->trigger();
        }
      }
      FAIL() << text;
    };
  }

  // Plays in the window that `means` opens; what leaves it open leaves it to the title bar.
  void In(const std::string& window, const Means& means, const Scene& scene) {
    bool played = false;
    machine.Windows.Modal[window].push_back([&](Form& form) {
      QWidget& seen = Hand::See(form);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&seen) && QTest::qWaitForWindowExposed(&seen)) << window;
      scene(form);
      played = true;
      if (form.Visible()) seen.close();
    });
    means();
    EXPECT_TRUE(played) << window;
  }

  // The same for any window, by its button or entry of the main window.
  void Open(const std::string& window, const Scene& scene) {
    const std::map<std::string, Means> means = {
        {"Dialog", ByTool("Settaogg")},    {"frmAbout", ByTool("Front")},
        {"FrmPreview", ByTool("LeggiCD")}, {"Form4", ByTool("Cerca")},
        {"Form3", ByTool("Info")},         {"Form2", ByEntry("Informazioni su PDF Creator")}};
    if (window == "Form1") return scene(program.form1.form);
    if (window != "fONTEN") return In(window, means.at(window), scene);
    Open("FrmPreview", [&](Form& contents) {
      In(
          window, [&] { Press(contents, "Command4"); }, scene);
    });
  }

  static Control& The(const Form& form, const std::string& name) {
    for (Control* const control : form.AllControls()) {
      if (control->Name() == name) return *control;
    }
    throw std::logic_error("no control " + name);
  }

  static void Press(const Form& form, const char* button) { Hand::Press(The(form, button)); }

  static void Choose(const Form& form, const char* list, const char* row, int x = 5) {
    Hand::ClickRow(The(form, list), Hand::Row(The(form, list), row), x);
  }

  // Its preview is loaded and its folders are looked into when nothing else waits.
  static void WaitForPicker(const Form& form) {
    for (const char* const name : {"TimerAnteprima", "TimerCartelle"}) {
      const auto& timer = dynamic_cast<const Timer&>(The(form, name));
      EXPECT_TRUE(QTest::qWaitFor([&] { return !timer.Running(); })) << name;
    }
  }

  void PickPhotos() {
    In("frmAbout", ByTool("Front"), [](Form& form) {
      constexpr int kTriangle = -10;  // pixels
      Choose(form, "tvwdirtree", " (C:)", kTriangle);
      Choose(form, "tvwdirtree", "Foto");
      Choose(form, "List1", "fronte.jpg");
      Press(form, "Command1");
    });
    In("frmAbout", ByTool("Back"), [](Form& form) {
      Choose(form, "List1", "retro.jpg");
      Press(form, "Command1");
    });
  }

  // The scrolling text and the turning disc of Form3, stopped where they come to by themselves; twips.
  static void StandStill(const Form& form, double stripTop) {
    auto& scroll = dynamic_cast<Timer&>(The(form, "Timer1"));
    auto& turn = dynamic_cast<Timer&>(The(form, "TimerAnimazione"));
    while (The(form, "Picture5").Top() != stripTop) scroll.Tick();
    while (The(form, "Picture2").ImageKey() != "form3_animazione_1") turn.Tick();
    scroll.SetRunning(false);  // reading the text anew has started it
    turn.SetRunning(false);
  }

  void ReadDisc(const Form& contents) {
    machine.Windows.Folders.emplace_back("D:\\");
    Press(contents, "Command2");
    Hand::Type(The(contents, "Text1"), "Quattro dischi");
  }
};

}  // namespace Morvane
