#include "transcript.h"

#include <QAccessible>
#include <QApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "shapes.h"
#include "telling.h"

namespace Morvane {

namespace {

const char* const kFirstSights = "first_sights";
const QString kRepeat = "> repeat";
const QString kSpoken = "  # ";
constexpr qsizetype kMostSpoken = 40;  // characters, of further controls half as many

bool HasHome(const std::string& scene) {
  return scene.ends_with("_windows") || scene == "image_picker/home";
}

QStringList HeldLines(const std::string& scene) {
  QStringList lines;
  std::ifstream file(MORVANE_SOURCE_DIR "/" + PathOf(scene));
  for (std::string line; std::getline(file, line);) lines << QString::fromStdString(line);
  return lines;
}

Control& The(const Form& form, const std::string& name) {
  for (Control* const control : form.AllControls()) {
    if (control->Name() == name) return *control;
  }
  throw std::logic_error("no control " + name);
}

// Its preview is loaded and its folders are looked into when nothing else waits.
void WaitForPicker(const Form& form) {
  const auto runs = [](const Timer* timer) { return timer->Running(); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::none_of(form.Timers.begin(), form.Timers.end(), runs); }));
  Hand::Settle();
}

// The scrolling text and the turning disc, stopped where they come to by themselves.
void StandStill(const Form& form) {
  constexpr double kStripTop = 925;  // twips
  Timer& scroll = *form.Timers.at(0);
  Timer& turn = *form.Timers.at(1);
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

std::string PathOf(const std::string& scene) {
  return "tests/transcripts/scenes/" + scene + ".txt";
}

Transcript::Transcript(std::string scene)
    : machine(HasHome(scene) ? UserHome{"/home/u", "anna"} : UserHome{}),
      fonts(scene.starts_with("pictures/") ? static_cast<const FontCatalog&>(installed) : machine.Fonts),
      scene_(std::move(scene)) {
  QApplication::setCursorFlashTime(0);
  QApplication::setPalette(QPalette());
  FollowDesktop(machine.TheScreen);
  if (scene_ != kFirstSights) LearnWhatIsUsual();
  windows.Play = [this](Form& form) { PlayModal(form); };
}

// What stands below the first words of each window, and what the start does beside them.
void Transcript::LearnWhatIsUsual() {
  QString of;
  for (const QString& line : HeldLines(kFirstSights)) {
    if (line.startsWith('>') || line.startsWith('['))
      of = usual_.contains(line) ? "what comes later" : line;
    else if (line.startsWith("    ") && !usual_[of].isEmpty())
      usual_[of].back() += '\n' + line;
    else if (line.startsWith(' '))
      usual_[of] << line;
  }
}

Control& Transcript::Named(Words& words, bool getsKeyboard) {
  Control& control = The(Top(), words.Path());
  const QString name = QAccessible::queryAccessibleInterface(&Hand::See(control))->text(QAccessible::Name);
  const bool isFurther = seen_.at(deed_).contains(kSpoken);
  const QString start = name.left(isFurther ? kMostSpoken / 2 : kMostSpoken).trimmed();
  if (!start.isEmpty() && !seen_.at(deed_).section(kSpoken, 1).contains(start))
    seen_[deed_] += (isFurther ? ", " : kSpoken) + start + (start == name ? "" : "...");
  if (getsKeyboard) windows_[Top().Name()]["keyboard"] = {QString::fromStdString(control.Name())};
  return control;
}

QStringList Transcript::Play() {
  for (const QString& line : HeldLines(scene_)) {
    if (line.startsWith('>') || line.startsWith('#')) lines_ << line.section(kSpoken, 0, 0);
  }
  std::filesystem::current_path("/");
  around_ = LookAround(machine);
  // A program that ends leaves no loop of the toolkit running but a new one.
  QTimer::singleShot(0, qApp, [this] {
    PlayIn(nullptr);
    QApplication::exit();
  });
  QApplication::exec();
  static const QRegularExpression row("(.)\\1{99,}");  // is told as "300*x"
  for (QString& line : seen_)
    for (auto found = row.match(line); found.hasMatch(); found = row.match(line))
      line.replace(found.captured(), QString("%1*%2").arg(found.capturedLength()).arg(found.captured(1)));
  return seen_;
}

// Until the window is gone; without one, in the main window as soon as it is there.
void Transcript::PlayIn(Form* form) {
  static const QRegularExpression ofMainWindow("(^>|\\|) (menu|tool|panel) ");
  top_ = form;
  Look();
  while (!lines_.empty() &&
         (form == nullptr || (form->Visible() && !ofMainWindow.match(lines_.front()).hasMatch()))) {
    const QString line = lines_.takeFirst();
    deed_ = seen_.size();
    seen_ << line;
    if (line.startsWith('#')) continue;
    for (const QString& deed : line.startsWith(kRepeat) ? QStringList(line) : line.split(" | "))
      Do(deed.startsWith("> ") ? deed.mid(2) : deed);
    for (const std::string& answer : std::exchange(windows.Answers, {})) Tell("nobody asks for", answer);
    top_ = form == nullptr && program.form1.form.Visible() ? &program.form1.form : form;
    Look();
  }
}

void Transcript::PlayModal(Form& form) {
  QWidget& window = Hand::See(form);
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window) && QTest::qWaitForWindowExposed(&window)) << form.Name();
  if (form.Name() == "Form3") StandStill(form);
  Form* const below = top_;
  if (!silent_) PlayIn(&form);
  top_ = below;
  cut_ = form.Visible() && !silent_ && lines_.empty();
  if (form.Visible() && !silent_ && !cut_) seen_ << "  is still open";
  if (form.Visible()) window.close();
}

void Transcript::Perform(const QString& deed) {
  Words words{deed};
  const QString name = words.Next();
  for (const auto* const deeds : {&kDeedsOfTheWorld, &kDeedsOfTheHand, &kDeedsOfTheEye})
    if (deeds->contains(name)) return deeds->at(name)(*this, words);
  throw std::logic_error("no such deed");
}

void Transcript::Do(const QString& deed) {
  try {
    if (ended_) throw std::logic_error("the program has ended");
    Perform(deed);
    Hand::Settle();
    if (top_ != nullptr && top_->Name() == "frmAbout") WaitForPicker(*top_);
    if (kDeedsOfTheWorld.contains(Words{deed}.Next())) around_ = LookAround(machine);
  } catch (const std::exception& error) {
    seen_ << QString("  cannot be done: ") + error.what();
  }
}

// Windows that they open are closed at once, unseen. What is told is told again where it is not what it was
// the time before.
void Transcript::Repeat(int times, const QStringList& deeds) {
  QStringList last;
  silent_ = true;
  for (int i = 0; i < times; ++i) {
    const qsizetype told = seen_.size();
    for (const QString& deed : deeds) Do(deed);
    const QStringList now = seen_.mid(told);
    if (now == std::exchange(last, now)) seen_.resize(told);
  }
  silent_ = false;
}

// What has changed since the last report.
void Transcript::Report() {
  try {
    ReportTheWorld();
    if (windows.Ended() && !ended_) seen_ << "  the program ends";
    ended_ = windows.Ended();
    if (top_ != nullptr && top_->Visible() && !ended_) ReportTheWindow();
  } catch (const std::exception& error) {
    seen_ << QString("  cannot be seen: ") + error.what();
  }
}

void Transcript::ReportTheWorld() {
  const qsizetype before = seen_.size();
  for (const auto& [what, text] : std::exchange(windows.Read, {})) Tell(what, text);
  for (const auto& target : std::exchange(machine.Launches.Opened, {})) Tell("opens", target);
  for (const auto& started : std::exchange(machine.Launches.Started, {})) Tell("starts", started);
  for (const auto& address : std::exchange(machine.Http.Fetched, {})) Tell("fetches", address);
  for (const auto& asked : std::exchange(machine.Device.Dialogs, {}))
    Tell("print dialog", asked.restricted ? "restricted" : "whole");
  for (const auto& job : std::exchange(machine.Device.Jobs, {})) {
    const char* const sheet = job.orientation == PageOrientation::Portrait ? "upright" : "across";
    const QString name = QString("prints %1 \"%2\"").arg(sheet, job.title.c_str());
    seen_ << "  " + name + ":" << InFull(ShapesAsText(job.page));
    Printed = job.page;
  }
  const Sight now = LookAround(machine);
  seen_ << Changes(std::exchange(around_, now), now);
  const QStringList told = BesideUsual(seen_.mid(before), usual_[seen_.value(before - 1)]);
  seen_.resize(before);
  seen_ << told;
}

void Transcript::ReportTheWindow() {
  const Sight now = LookAt(*top_);
  const QString name = "[" + QString::fromStdString(top_->Name()) + "]";
  const auto before = windows_.find(top_->Name());
  const QStringList told =
      before == windows_.end() ? BesideUsual(FirstSight(now), usual_[name]) : Changes(before->second, now);
  if (name != std::exchange(reported_, name) && !(cut_ && told.isEmpty())) seen_ << name;
  if (!told.isEmpty()) ExpectShownAsItIs(*top_);
  seen_ << (scene_ == kFirstSights ? told : Beside(told));
  windows_[top_->Name()] = now;
}

void Transcript::Tell(const std::string& what, const std::string& text) {
  QString line = QString::fromStdString(text).replace("\r\n", " / ").replace('\n', " / ");
  line.remove(QString::fromStdString(machine.Root.Path()));
  seen_ << QString("  %1: %2").arg(what.c_str(), Quoted(line));
}

}  // namespace Morvane
