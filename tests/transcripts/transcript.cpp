#include "transcript.h"

#include <filesystem>
#include <fstream>

#include "tests/hand/golden.h"

namespace Morvane {

QString Words::Next() {
  const QString word = rest.section(' ', 0, 0);
  rest = rest.section(' ', 1);
  return word;
}

void Transcript::Play() {
  const std::string path = "tests/transcripts/scenes/" + GetParam() + ".txt";
  std::ifstream scene(MORVANE_SOURCE_DIR "/" + path);
  for (std::string line; std::getline(scene, line);) {
    if (line.starts_with(">") || line.starts_with("#")) lines_.push_back(QString::fromStdString(line));
  }
  std::filesystem::current_path("/");
  around_ = LookAround(machine);
  PlayIn(nullptr);
  ExpectText(path, seen_.join('\n') + '\n');
}

// Until the window is gone; without one, in the main window as soon as it is there.
void Transcript::PlayIn(Form* form) {
  top_ = form;
  Report();
  while (!lines_.empty() && (form == nullptr || form->Visible())) {
    const QString line = lines_.takeFirst();
    seen_ << line;
    if (line.startsWith('#')) continue;
    Do(line.mid(2));
    top_ = form == nullptr && program.form1.form.Visible() ? &program.form1.form : form;
    Report();
  }
  if (form != nullptr && form->Unloaded()) windows_.erase(form);
}

void Transcript::PlayModal(Form& form) {
  QWidget& window = Hand::See(form);
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window) && QTest::qWaitForWindowExposed(&window)) << form.Name();
  if (form.Name() == "Form3") StandStill(form, 925);
  Form* const below = top_;
  PlayIn(&form);
  top_ = below;
  if (form.Visible()) window.close();
}

void Transcript::Do(const QString& line) {
  for (const std::string& window : kAllWindows) {
    machine.Windows.Modal[window] = {[this](Form& form) { PlayModal(form); }};
  }
  Words words{line};
  try {
    if (ended_) throw std::logic_error("the program has ended");
    const Deed& deed = Deeds().at(words.Next());
    deed.act(*this, words);
    Hand::Settle();
    if (top_ != nullptr && top_->Name() == "frmAbout") WaitForPicker(*top_);
    if (deed.isOfTheWorld) around_ = LookAround(machine);
  } catch (const std::exception& error) {
    seen_ << QString("  cannot be done: ") + error.what();
  }
}

void Transcript::InMainWindow(const Means& means) const {
  if (top_ != &program.form1.form) throw std::logic_error("another window waits for its answer");
  means();
}

// What has changed since the last report.
void Transcript::Report() {
  ReportTheWorld();
  if (hand.windows.Ended() && !ended_) seen_ << "  the program ends";
  ended_ = hand.windows.Ended();
  if (top_ != nullptr && top_->Visible() && !ended_) ReportTheWindow();
}

void Transcript::ReportTheWorld() {
  for (const auto& box : std::exchange(machine.Windows.Boxes, {})) Tell("box", box.text);
  for (const auto& asked : std::exchange(machine.Windows.Prompts, {}))
    Tell("asks", asked.title + " - " + asked.prompt + " [" + asked.defaultText + "]");
  for (const auto& target : std::exchange(machine.Launches.Opened, {})) Tell("opens", target);
  for (const auto& started : std::exchange(machine.Launches.Started, {})) Tell("starts", started);
  for (const auto& address : std::exchange(machine.Http.Fetched, {})) Tell("fetches", address);
  for (const auto& asked : std::exchange(machine.Device.Dialogs, {}))
    Tell("print dialog", asked.restricted ? "restricted" : "whole");
  for (const auto& job : std::exchange(machine.Device.Jobs, {})) {
    const char* const sheet = job.orientation == PageOrientation::Portrait ? "upright" : "across";
    const QString name = QString("prints %1 \"%2\"").arg(sheet, job.title.c_str());
    seen_ << Changes({}, {{name, ShapesAsText(job.page)}});
  }
  const Sight now = LookAround(machine);
  seen_ << Changes(std::exchange(around_, now), now);
}

void Transcript::ReportTheWindow() {
  const Sight now = LookAt(*top_);
  const QString name = QString::fromStdString(top_->Name());
  if (name != std::exchange(reported_, name)) seen_ << "[" + name + "]";
  const auto before = windows_.find(top_);
  seen_ << (before == windows_.end() ? FirstSight(now) : Changes(before->second, now));
  windows_[top_] = now;
}

void Transcript::Tell(const char* what, const std::string& text) {
  const QString line = QString::fromStdString(text).replace("\r\n", " / ").replace('\n', " / ");
  seen_ << QString("  %1: %2").arg(what, line);
}

}  // namespace Morvane
