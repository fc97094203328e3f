#pragma once

#include <QMimeData>
#include <QString>
#include <QStringList>
#include <map>
#include <stdexcept>

#include "sight.h"
#include "tests/hand/session.h"

namespace Morvane {

// What follows a deed's name.
struct Words {
  QString rest;

  QString Next();  // up to the next blank
  double Number() { return Next().toDouble(); }
  std::string Path() { return Next().toStdString(); }
  std::string All() const { return rest.toStdString(); }
};

// A scene is a text: each line that begins with "> " is a deed of a person or of the world, the lines below
// it are what is then seen to have changed. The scene is played anew and must read the same. A deed that
// opens a window goes on in it: the deeds below are done there until it is closed.
class Transcript : public Session, public testing::WithParamInterface<std::string> {
 public:
  Transcript() : Session(Fonts::Listed) {}

  void Play();

  // For the deeds.
  void Do(const QString& line);
  Form& Top() const { return top_ != nullptr ? *top_ : throw std::logic_error("no window is there yet"); }
  Control& Named(Words& words) const { return The(Top(), words.Path()); }
  void InMainWindow(const Means& means) const;
  void Show(const QString& line) { seen_ << line; }

  using Session::ByEntry;
  using Session::ByTool;
  using Session::hand;
  using Session::machine;
  using Session::program;

  QString Mounts;
  QMimeData Dragged;

 private:
  void PlayIn(Form* form);
  void PlayModal(Form& form);
  void Report();
  void ReportTheWorld();
  void ReportTheWindow();
  void Tell(const char* what, const std::string& text);

  QStringList lines_;
  QStringList seen_;
  Form* top_ = nullptr;
  QString reported_;
  bool ended_ = false;
  std::map<const Form*, Sight> windows_;
  Sight around_;
};

struct Deed {
  void (*act)(Transcript& scene, Words words);
  bool isOfTheWorld = false;  // its effect stands in the scene already
};
const std::map<QString, Deed>& Deeds();

}  // namespace Morvane
