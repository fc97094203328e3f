#pragma once

#include <gmock/gmock.h>

#include <QMimeData>
#include <QString>
#include <QStringList>
#include <map>
#include <stdexcept>

#include "platform/qt/desktop/qt_screen.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "sight.h"
#include "tests/hand/hand.h"
#include "windows/main_window/program.h"

namespace Morvane {

// What follows a deed's name.
struct Words {
  QString rest;

  QString Next();  // up to the next blank
  double Number() { return Next().toDouble(); }
  std::string Path() { return Next().toStdString(); }
  std::string All() const { return rest.toStdString(); }
};

// A scene is a text: each line that begins with "> " is a deed of a person or of the world, or some with bars
// between them, and ends with what is spoken of the control that it names. The lines below it are what is
// then seen to have changed. The scene is played anew and must read the same. A deed that opens a window goes
// on in it: the deeds below are done there until it is closed, or until one of the main window's commands
// comes. The scene first_sights tells what each window shows at first on an empty machine; others tell only
// what is different there, and of a window that comes again only what is different from when it was seen
// last.
class Transcript {
 public:
  explicit Transcript(std::string scene);

  // What it reads when it is played.
  QStringList Play();
  // Looks at what has changed, behind each line.
  std::function<void()> Look = [this] { Report(); };

  // For the deeds.
  void Do(const QString& deed);
  void Perform(const QString& deed);  // at once, whatever comes of it
  void Repeat(int times, const QStringList& deeds);
  Form& Top() const { return top_ != nullptr ? *top_ : throw std::logic_error("no window is there yet"); }
  Control& Named(Words& words, bool getsKeyboard = true);
  void Show(const QString& line) { seen_ << line; }

  TestMachine machine;
  HandWindows windows{*machine.Files};
  QtPictureLoader pictures{*machine.Files, OldFormatDecoderPath()};
  const QtTextMetrics metrics{};
  const QtFontCatalog installed{};
  // Scenes of pictures show the fonts of the package list, all others a few by name.
  const FontCatalog& fonts;
  Printer printer{machine.Device, metrics, fonts};
  Platform platform{windows, machine.TheScreen, *machine.Files,   pictures,     metrics,
                    fonts,   printer,           machine.Launches, machine.Http, machine.platform.app};
  Program program{platform, ','};

  QMimeData Dragged;
  DrawingList Printed;  // last
  std::size_t Memory = ~std::size_t{};

 private:
  void LearnWhatIsUsual();
  void PlayIn(Form* form);
  void PlayModal(Form& form);
  void Report();
  void ReportTheWorld();
  void ReportTheWindow();
  void Tell(const std::string& what, const std::string& text);

  const std::string scene_;
  QStringList lines_;
  QStringList seen_;
  qsizetype deed_ = 0;  // the line of it in what is seen
  std::map<QString, QStringList> usual_;
  Form* top_ = nullptr;
  QString reported_;
  bool ended_ = false;
  bool cut_ = false;                      // by the end of the text, in an open window
  bool silent_ = false;                   // windows that open are closed at once
  std::map<std::string, Sight> windows_;  // as they were seen last
  Sight around_;
};

using Deed = void (*)(Transcript& scene, Words words);
extern const std::map<QString, Deed> kDeedsOfTheWorld;  // what they do stands in the scene already
extern const std::map<QString, Deed> kDeedsOfTheHand;
extern const std::map<QString, Deed> kDeedsOfTheEye;

void RunPrintProgram(Transcript& scene, Words words);
QByteArray PictureFile(const QString& size);  // width x height in pixels

// The path of a scene's text.
std::string PathOf(const std::string& scene);

}  // namespace Morvane
