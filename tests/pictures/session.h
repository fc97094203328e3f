#pragma once

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <functional>
#include <string>

#include "golden.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "tests/hand/hand.h"
#include "windows/main_window/program.h"

namespace Morvane {

// A person at the program, on a machine with two photos and a disc.
class Session : public testing::Test {
 protected:
  using Means = std::function<void()>;
  using Scene = std::function<void(Form& form)>;

  TestMachine machine;
  Hand hand{machine};
  QtPictureLoader pictures{*machine.Files, OldFormatDecoderPath()};
  const QtTextMetrics metrics{};
  const QtFontCatalog fonts{};
  Printer printer{machine.Device, metrics, fonts};
  Platform platform{hand.windows, machine.TheScreen, *machine.Files,   pictures,     metrics,
                    fonts,        printer,           machine.Launches, machine.Http, machine.platform.app};
  Program program{platform, ','};

  void Ship() {
    for (const char* folder : {"layouts", "program_folder"}) {
      for (const auto& file :
           std::filesystem::directory_iterator(MORVANE_SOURCE_DIR "/data/" + std::string(folder)))
        std::filesystem::copy(file, Native("C:\\Morvane"));
    }
    machine.MakeFolder("C:\\Foto");
    for (const std::string photo : {"fronte.jpg", "retro.jpg"})
      std::filesystem::copy(MORVANE_SOURCE_DIR "/data/samples/" + photo, Native("C:\\Foto"));
    for (const char* folder : {"Album", "Archivio", "Battesimo", "Capodanno", "Compleanni", "Concerti",
                               "Cucina", "Danza", "Disegni", "Estate"})
      machine.MakeFolder("C:\\" + std::string(folder));
    machine.WriteFile("C:\\mountinfo", "1 1 11:0 / /media/u/Musica ro - iso9660 /dev/sr0 ro\n");
    for (const std::string album : {"Colline", "Mare", "Neve", "Valle"}) {
      for (const char* track : {"01 Il sentiero", "02 Prima luce", "03 Vento", "04 Case bianche",
                                "05 La corriera", "06 Lucciole"})
        machine.WriteFile("C:\\media\\u\\Musica\\" + album + "\\" + track + ".mp3", "");
    }
  }

  std::string Native(const std::string& path) const { return machine.Files->ToNative(path); }

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

  static Means ByButton(const Form& form, const char* name) {
    return [&form, name] { Hand::Press(The(form, name)); };
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

  static Control& The(const Form& form, const std::string& name) {
    for (Control* const control : form.AllControls()) {
      if (control->Name() == name) return *control;
    }
    throw std::logic_error("no control " + name);
  }

  void PickPhoto(
      const char* tool, int row, const Scene& look = [](Form&) {}) {
    In("frmAbout", ByTool(tool), [&](Form& form) {
      Control& tree = The(form, "tvwdirtree");
      if (Hand::See<QLabel>(The(form, "lblPath")).text().isEmpty()) {
        Hand::ClickRow(tree, Hand::Row(tree, " (C:)"), -10);
        Hand::ClickRow(tree, Hand::Row(tree, "Foto"));
      }
      Hand::ClickRow(The(form, "List1"), row);
      look(form);
      Hand::Press(The(form, "Command1"));
    });
  }

  void ReadDisc(Form& contents) {
    machine.Windows.Folders.emplace_back("D:\\");
    Hand::Press(The(contents, "Command2"));
    Hand::Type(The(contents, "Text1"), "Quattro dischi");
  }
};

}  // namespace Morvane
