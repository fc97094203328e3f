#include "transcript.h"

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "tests/hand/golden.h"

namespace Morvane {

namespace {

Control& The(const Form& form, const std::string& name) {
  for (Control* const control : form.AllControls()) {
    if (control->Name() == name) return *control;
  }
  throw std::logic_error("no control " + name);
}

// Its preview is loaded and its folders are looked into when nothing else waits.
void WaitForPicker(const Form& form) {
  for (const Control* const control : form.AllControls()) {
    const auto* const timer = dynamic_cast<const Timer*>(control);
    if (timer == nullptr) continue;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->Running(); })) << timer->Name();
  }
  Hand::Settle();
}

// The scrolling text and the turning disc, stopped where they come to by themselves.
void StandStill(const Form& form) {
  constexpr double kStripTop = 925;  // twips
  auto& scroll = dynamic_cast<Timer&>(The(form, "Timer1"));
  auto& turn = dynamic_cast<Timer&>(The(form, "TimerAnimazione"));
  while (The(form, "Picture5").Top() != kStripTop) scroll.Tick();
  while (The(form, "Picture2").ImageKey() != "form3_animazione_1") turn.Tick();
  scroll.SetRunning(false);  // reading the text anew has started it
  turn.SetRunning(false);
}

// What the screen shows of a window is what its views would paint now. At other scales the platform without a
// screen does not tell.
void ExpectShownAsItIs(const Form& form) {
  QWidget& window = Hand::See(form);
  if (window.devicePixelRatio() != 1) return;
  const QImage shown = window.screen()->grabWindow(window.winId()).toImage();
  const QImage fresh = window.grab().toImage();
  EXPECT_EQ(shown.convertToFormat(fresh.format()), fresh) << form.Name() << " shows what was";
}

}  // namespace

QString Words::Next() {
  const QString word = rest.section(' ', 0, 0);
  rest = rest.section(' ', 1);
  return word;
}

Transcript::Transcript()
    : machine(HasHome() ? UserHome{"/home/u", "anna"} : UserHome{}),
      fonts(GetParam().starts_with("pictures/") ? static_cast<const FontCatalog&>(installed)
                                                : machine.Fonts) {
  QApplication::setCursorFlashTime(0);
}

bool Transcript::HasHome() {
  return GetParam().ends_with("_windows") || GetParam() == "image_picker/home";
}

Control& Transcript::Named(Words& words) const {
  return The(Top(), words.Path());
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
}

void Transcript::PlayModal(Form& form) {
  QWidget& window = Hand::See(form);
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window) && QTest::qWaitForWindowExposed(&window)) << form.Name();
  if (form.Name() == "Form3") StandStill(form);
  Form* const below = top_;
  PlayIn(&form);
  top_ = below;
  if (form.Visible()) window.close();
  if (form.Unloaded()) windows_.erase(&form);
}

void Transcript::Do(const QString& line) {
  for (const char* const window : {"Dialog", "frmAbout", "FrmPreview", "fONTEN", "Form2", "Form3", "Form4"})
    machine.Windows.Modal[window] = {[this](Form& form) { PlayModal(form); }};
  Words words{line};
  try {
    if (ended_) throw std::logic_error("the program has ended");
    const QString name = words.Next();
    const bool isOfTheWorld = kDeedsOfTheWorld.contains(name);
    (isOfTheWorld ? kDeedsOfTheWorld : kDeedsOfTheHand).at(name)(*this, words);
    Hand::Settle();
    if (top_ != nullptr && top_->Name() == "frmAbout") WaitForPicker(*top_);
    if (isOfTheWorld) around_ = LookAround(machine);
  } catch (const std::exception& error) {
    seen_ << QString("  cannot be done: ") + error.what();
  }
}

// Windows that they open are closed at once. What is seen is told where it is not what was seen the time
// before.
void Transcript::Repeat(int times, const QStringList& deeds) {
  const QStringList further = std::exchange(lines_, {});
  QStringList last;
  for (int i = 0; i < times; ++i) {
    const qsizetype told = seen_.size();
    for (const QString& deed : deeds) Do(deed);
    const QStringList now = seen_.mid(told);
    if (now == std::exchange(last, now)) seen_.resize(told);
  }
  lines_ = further;
}

// What has changed since the last report.
void Transcript::Report() {
  ReportTheWorld();
  if (hand.windows.Ended() && !ended_) seen_ << "  the program ends";
  ended_ = hand.windows.Ended();
  if (top_ != nullptr && top_->Visible() && !ended_) ReportTheWindow();
}

void Transcript::ReportTheWorld() {
  for (const auto& [what, text] : std::exchange(hand.windows.Read, {})) Tell(what, text);
  for (const auto& target : std::exchange(machine.Launches.Opened, {})) Tell("opens", target);
  for (const auto& started : std::exchange(machine.Launches.Started, {})) Tell("starts", started);
  for (const auto& address : std::exchange(machine.Http.Fetched, {})) Tell("fetches", address);
  for (const auto& asked : std::exchange(machine.Device.Dialogs, {}))
    Tell("print dialog", asked.restricted ? "restricted" : "whole");
  for (const auto& job : std::exchange(machine.Device.Jobs, {})) {
    const char* const sheet = job.orientation == PageOrientation::Portrait ? "upright" : "across";
    const QString name = QString("prints %1 \"%2\"").arg(sheet, job.title.c_str());
    seen_ << Changes({}, {{name, ShapesAsText(job.page)}});
    Printed = job.page;
  }
  const Sight now = LookAround(machine);
  seen_ << Changes(std::exchange(around_, now), now);
}

void Transcript::ReportTheWindow() {
  const Sight now = LookAt(*top_);
  const QString name = QString::fromStdString(top_->Name());
  if (name != std::exchange(reported_, name)) seen_ << "[" + name + "]";
  const auto before = windows_.find(top_);
  const QStringList told = before == windows_.end() ? FirstSight(now) : Changes(before->second, now);
  if (!told.isEmpty()) ExpectShownAsItIs(*top_);
  seen_ << told;
  windows_[top_] = now;
}

void Transcript::Tell(const std::string& what, const std::string& text) {
  const QString line = QString::fromStdString(text).replace("\r\n", " / ").replace('\n', " / ");
  seen_ << QString("  %1: %2").arg(what.c_str(), line);
}

}  // namespace Morvane
