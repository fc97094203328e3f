#include <QAbstractItemView>
#include <QBuffer>
#include <QExposeEvent>
#include <QKeySequence>
#include <QTimer>
#include <QWindow>
#include <filesystem>
#include <fstream>

#include "core/web_addresses.h"
#include "sight.h"
#include "tests/hand/golden.h"
#include "tests/hand/session.h"

namespace Morvane {
namespace {

constexpr const char* kScenes = "tests/transcripts/scenes/";

// The author's own, whose effects are in the scene already.
const QStringList kWorld = {"file", "picture", "layout", "files", "folder", "remove",
                            "lock", "unlock",  "mount",  "label", "ship"};

// A scene is a text: each line that begins with "> " is something that a person or the world does, the lines
// below it are what is then seen to have changed. The scene is played anew and must read the same.
class Transcript : public Session, public testing::WithParamInterface<std::string> {
 protected:
  Transcript() : Session(&machine.Fonts) {}

  using Deed = void (Transcript::*)(QString rest);
  static const std::map<QString, Deed> kDeeds;

  void Play() {
    std::ifstream scene(std::string(MORVANE_SOURCE_DIR "/") + kScenes + GetParam() + ".txt");
    for (std::string line; std::getline(scene, line);) {
      if (line.starts_with(">") || line.starts_with("#") || line.empty())
        lines.push_back(QString::fromStdString(line));
    }
    std::filesystem::current_path("/");
    around = LookAround(machine);
    PlayIn(nullptr);
    if (!lines.empty()) seen << "the windows are gone before the end";
    ExpectText(kScenes + GetParam() + ".txt", seen.join('\n') + '\n');
  }

 private:
  // Until the window is gone.
  void PlayIn(Form* form) {
    top = form;
    Report();
    while (!lines.empty() && (form == nullptr || form->Visible())) {
      const QString line = lines.takeFirst();
      seen << line;
      if (!line.startsWith("> ")) continue;
      Do(line.mid(2));
      top = form == nullptr && program.form1.form.Visible() ? &program.form1.form : form;
      Report();
    }
    if (form != nullptr && form->Unloaded()) windows.erase(form);
  }

  void Do(QString rest) {
    for (const std::string& window : kAllWindows)
      machine.Windows.Modal[window] = {[this](Form& form) {
        QWidget& shown = Hand::See(form);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown) && QTest::qWaitForWindowExposed(&shown))
            << form.Name();
        Form* const below = top;
        PlayIn(&form);
        top = below;
        if (form.Visible()) Hand::See(form).close();
      }};
    const QString verb = Take(rest);
    const auto deed = kDeeds.find(verb);
    if (deed == kDeeds.end()) throw std::logic_error("no deed " + verb.toStdString());
    try {
      if (ended) throw std::logic_error("the program has ended");
      (this->*deed->second)(rest);
      Hand::Settle();
    } catch (const std::exception& error) {
      seen << QString("  cannot be done: ") + error.what();
    }
    if (kWorld.contains(verb)) around = LookAround(machine);
  }

  // What changed since the last report, of the window on top and of the machine.
  void Report() {
    ReportTheWorld();
    const Sight now = LookAround(machine);
    seen << Changes(around, now);
    around = now;
    if (hand.windows.Ended() && !ended) seen << "  the program ends";
    ended = hand.windows.Ended();
    if (top == nullptr || !top->Visible() || ended) return;
    const Sight window = LookAt(*top);
    const QString name = QString::fromStdString(top->Name());
    if (name != reported) seen << "[" + name + "]";
    reported = name;
    const bool first = !windows.contains(top);
    seen << (first ? FirstSight(window) : Changes(windows[top], window));
    windows[top] = window;
  }

  void ReportTheWorld() {
    for (const auto& box : std::exchange(machine.Windows.Boxes, {})) Tell("box", box.text);
    for (const auto& asked : std::exchange(machine.Windows.Prompts, {}))
      Tell("asks", asked.title + " - " + asked.prompt + " [" + asked.defaultText + "]");
    for (const auto& target : std::exchange(machine.Launches.Opened, {})) Tell("opens", target);
    for (const auto& started : std::exchange(machine.Launches.Started, {})) Tell("starts", started);
    for (const auto& address : std::exchange(machine.Http.Fetched, {})) Tell("fetches", address);
    for (const auto& asked : std::exchange(machine.Device.Dialogs, {}))
      Tell("print dialog", asked.restricted ? "restricted" : "whole");
    for (const auto& job : std::exchange(machine.Device.Jobs, {})) {
      Sight sheet;
      const bool upright = job.orientation == PageOrientation::Portrait;
      sheet[QString("prints %1 \"%2\"").arg(upright ? "upright" : "across", job.title.c_str())] =
          ShapesAsText(job.page);
      seen << Changes({}, sheet);
    }
  }
  void Tell(const char* what, const std::string& text) {
    seen << QString("  %1: %2")
                .arg(what, QString::fromStdString(text).replace("\r\n", " / ").replace('\n', " / "));
  }

  static QString Take(QString& rest) {
    const QString word = rest.section(' ', 0, 0);
    rest = rest.section(' ', 1);
    return word;
  }
  Control& Named(QString& rest) const { return The(*top, Take(rest).toStdString()); }
  static QPointF Place(const Control& control, QString& rest) {  // percent of the control
    const double x = Take(rest).toDouble();
    return {x / 100 * control.Width(), Take(rest).toDouble() / 100 * control.Height()};
  }

  // The machine before and meanwhile; lines of a file are parted by |.
  void File(QString rest) {
    const std::string path = Take(rest).toStdString();
    std::string bytes = rest.replace('|', "\r\n").toStdString();
    machine.WriteFile(path, bytes.empty() ? bytes : bytes + "\r\n");
  }
  void Picture(QString rest) {  // path, pixels
    const QString size = rest.section(' ', -1);
    QImage image(size.section('x', 0, 0).toInt(), size.section('x', 1).toInt(), QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    ASSERT_TRUE(image.save(&bytes, "BMP"));
    machine.WriteFile(rest.section(' ', 0, -2).toStdString(), bytes.data().toStdString());
  }
  // Covers as wide as told, in millimetres, each further right and down and higher than the one before it.
  void Layout(QString rest) {
    const QString name = Take(rest);
    QString text = "Pagina=0";
    const QStringList widths = rest.split(' ');
    for (int i = 0; i < widths.size(); ++i) {
      text += QString("|Copertina%1=0|Distx%1=%2|Disty%1=%3|Larg%1=%4|Alte%1=%5")
                  .arg(i + 1)
                  .arg(20 + i)
                  .arg(20 + 2 * i)
                  .arg(widths[i])
                  .arg(60 + i);
    }
    File("C:\\Morvane\\" + name + ".mvne " + text);
  }
  void Files(QString rest) {  // folder, how many, kind
    const std::string folder = Take(rest).toStdString();
    machine.MakeFolder(folder);
    const std::string native = machine.Files->ToNative(folder) + "/";
    const int count = Take(rest).toInt();
    for (int i = 0; i < count; ++i) std::ofstream(native + std::to_string(i) + "." + rest.toStdString());
  }
  void Folder(QString rest) { machine.MakeFolder(rest.toStdString()); }
  void Remove(QString rest) { std::filesystem::remove_all(machine.Files->ToNative(rest.toStdString())); }
  void Lock(QString rest) { Permit(rest, std::filesystem::perms::owner_read); }
  void Unlock(QString rest) { Permit(rest, std::filesystem::perms::owner_all); }
  void Permit(const QString& path, std::filesystem::perms perms) {
    std::filesystem::permissions(machine.Files->ToNative(path.toStdString()), perms);
  }
  void Mount(QString rest) {  // device, file system, folder
    const QString device = Take(rest);
    const QString fileSystem = Take(rest);
    machine.MakeFolder("C:" + rest.toStdString());
    mounts += QString("1 1 %1:0 / %2 rw - %3 %4 rw\n").arg(mounts.count('\n')).arg(rest, fileSystem, device);
    machine.WriteFile("C:\\mountinfo", mounts.toStdString());
  }
  void VolumeLabel(QString rest) {  // device, label
    machine.MakeFolder("C:\\by-label");
    const std::string device = Take(rest).toStdString();
    std::filesystem::create_symlink("../../" + device,
                                    machine.Root.Path() + "/by-label/" + rest.toStdString());
  }
  void ShipAll(QString) { Ship(); }
  void LowScreen(QString rest) { machine.TheScreen.Height = rest.toDouble(); }
  void Launches(QString rest) { machine.Launches.ShellFails = rest == "fail"; }
  void Serve(QString rest) {
    machine.Http.Bodies[std::string(WebAddresses::kUpdateFile)] = rest.toStdString() + '\n';
  }
  void Unprintable(QString rest) { machine.Fonts.NotForPrinting.push_back(rest.toStdString()); }
  void Separator(QString rest) { program.state.decimalSeparator = rest[0].toLatin1(); }
  void LayoutInUse(QString rest) { program.state.NomeLayout = rest.toStdString(); }

  // What the person will answer next.
  void Answer(QString rest) {
    const std::map<QString, MsgBoxAnswer> answers = {{"yes", MsgBoxAnswer::Yes},
                                                     {"no", MsgBoxAnswer::No},
                                                     {"ok", MsgBoxAnswer::Ok},
                                                     {"cancel", MsgBoxAnswer::Cancel}};
    machine.Windows.Answers.push_back(answers.at(rest));
  }
  void Input(QString rest) { machine.Windows.Inputs.push_back(rest.toStdString()); }
  void Browse(QString rest) { machine.Windows.Folders.push_back(rest.toStdString()); }
  // Does something else while the n-th box from now is open.
  void AtBox(QString rest) {
    machine.Windows.AfterBox = [this, n = Take(rest).toInt(), rest]() mutable {
      if (--n == 0) Do(rest);
    };
  }
  void ChooseNext(QString rest) { machine.Windows.MenuChoices.push_back(rest.toStdString()); }
  void Copies(QString rest) { machine.Device.Answers.push_back({rest != "none", rest.toInt()}); }
  void Printer(QString rest) {
    machine.Device.DialogFails = rest == "dialog-fails";
    machine.Device.Broken = rest == "broken";
  }

  // The hand.
  void Start(QString) { hand.Show(program.form1.form); }
  void Tool(QString rest) { InMainWindow(ByTool(rest.toUtf8())); }
  void InMainWindow(const Means& means) const {
    if (top != &program.form1.form) throw std::logic_error("another window waits for its answer");
    means();
  }
  void Panel(QString rest) {
    for (auto* const panel : Hand::See(program.form1.StatusBar1).findChildren<QToolButton*>()) {
      if (panel->text() == rest) panel->click();
    }
  }
  void Repeat(QString rest) {
    const int times = Take(rest).toInt();
    for (int i = 0; i < times; ++i) Do(rest);
  }
  void Menu(QString rest) { InMainWindow(ByEntry(rest.toUtf8())); }
  void PressIt(QString rest) { Hand::Press(Named(rest)); }
  void Click(QString rest) {  // control, place, button
    const std::map<QString, Qt::MouseButton> buttons = {{"", Qt::LeftButton},
                                                        {"right", Qt::RightButton},
                                                        {"middle", Qt::MiddleButton},
                                                        {"extra", Qt::ExtraButton1}};
    const Control& control = Named(rest);
    const QPointF place = Place(control, rest);
    Hand::Click(control, place.x(), place.y(), buttons.at(rest));
  }
  void PointAt(QString rest) {
    const Control& control = Named(rest);
    const QPointF place = Place(control, rest);
    Hand::Point(control, place.x(), place.y());
  }
  void TypeIn(QString rest) {
    const Control& box = Named(rest);
    Hand::Type(box, rest.toStdString());
  }
  void KeyPress(QString rest) {
    const QKeyCombination key = QKeySequence(rest)[0];
    Hand::Key(key.key(), key.keyboardModifiers());
  }
  void Hold(QString rest) { Hand::HoldDown(QKeySequence(rest)[0].key()); }
  void Row(QString rest) {
    const Control& list = Named(rest);
    Hand::ClickRow(list, Hand::Row(list, rest.toStdString()));
  }
  void RightRow(QString rest) {
    const Control& list = Named(rest);
    Hand::ClickRow(list, Hand::Row(list, rest.toStdString()), 5, Qt::RightButton);
  }
  // Pressed on one row, let go on another.
  void Slide(QString rest) {
    const Control& list = Named(rest);
    auto& view = Hand::See<QAbstractItemView>(list);
    const auto place = [&](const QString& row) {
      return view.visualRect(Hand::Row(list, row.toStdString())).center();
    };
    const QPoint from = place(rest.section(" > ", 0, 0));
    const QPoint to = place(rest.section(" > ", 1));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(view.viewport(), &move);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
  }
  void ControlRow(QString rest) {
    const Control& list = Named(rest);
    auto& view = Hand::See<QAbstractItemView>(list);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      view.visualRect(Hand::Row(list, rest.toStdString())).center());
  }
  void DoubleRow(QString rest) {
    const Control& list = Named(rest);
    auto& view = Hand::See<QAbstractItemView>(list);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       view.visualRect(Hand::Row(list, rest.toStdString())).center());
  }
  void Unfold(QString rest) {
    constexpr int kTriangle = -10;  // pixels
    const Control& tree = Named(rest);
    Hand::ClickRow(tree, Hand::Row(tree, rest.toStdString()), kTriangle);
  }
  void MoveIt(QString rest) {
    Hand::Move(*top, rest.section(' ', 0, 0).toDouble(), rest.section(' ', 1).toDouble());
  }
  void ResizeIt(QString rest) {
    Hand::Resize(*top, rest.section(' ', 0, 0).toDouble(), rest.section(' ', 1).toDouble());
  }
  void Uncover(QString) {  // another window was over this one
    QExposeEvent uncovered(QRegion(0, 0, 9, 9));
    QApplication::sendEvent(Hand::See(*top).windowHandle(), &uncovered);
  }
  void Close(QString) { Hand::See(*top).close(); }
  void LookInto(QString rest) {  // all lines
    const Sight window = LookAt(*top);
    for (const QString& line : window.at(rest)) seen << "    " + line;
  }

  QString mounts;
  QStringList lines;
  QStringList seen;
  Form* top = nullptr;
  QString reported;
  bool ended = false;
  std::map<const Form*, Sight> windows;
  Sight around;
};

const std::map<QString, Transcript::Deed> Transcript::kDeeds = {
    {"file", &Transcript::File},           {"picture", &Transcript::Picture},
    {"layout", &Transcript::Layout},       {"files", &Transcript::Files},
    {"at-box", &Transcript::AtBox},        {"folder", &Transcript::Folder},
    {"remove", &Transcript::Remove},       {"lock", &Transcript::Lock},
    {"unlock", &Transcript::Unlock},       {"mount", &Transcript::Mount},
    {"label", &Transcript::VolumeLabel},   {"screen", &Transcript::LowScreen},
    {"launches", &Transcript::Launches},   {"panel", &Transcript::Panel},
    {"repeat", &Transcript::Repeat},       {"ship", &Transcript::ShipAll},
    {"serve", &Transcript::Serve},         {"unprintable", &Transcript::Unprintable},
    {"separator", &Transcript::Separator}, {"in-use", &Transcript::LayoutInUse},
    {"answer", &Transcript::Answer},       {"input", &Transcript::Input},
    {"browse", &Transcript::Browse},       {"choose", &Transcript::ChooseNext},
    {"copies", &Transcript::Copies},       {"printer", &Transcript::Printer},
    {"start", &Transcript::Start},         {"tool", &Transcript::Tool},
    {"menu", &Transcript::Menu},           {"press", &Transcript::PressIt},
    {"click", &Transcript::Click},         {"point", &Transcript::PointAt},
    {"type", &Transcript::TypeIn},         {"key", &Transcript::KeyPress},
    {"hold", &Transcript::Hold},           {"row", &Transcript::Row},
    {"right", &Transcript::RightRow},      {"double", &Transcript::DoubleRow},
    {"slide", &Transcript::Slide},         {"ctrl-row", &Transcript::ControlRow},
    {"unfold", &Transcript::Unfold},       {"move", &Transcript::MoveIt},
    {"resize", &Transcript::ResizeIt},     {"uncover", &Transcript::Uncover},
    {"close", &Transcript::Close},         {"look", &Transcript::LookInto},
};

TEST_P(Transcript, ReadsTheSame) {
  QTimer::singleShot(0, qApp, [this] {
    Play();
    QApplication::exit();
  });
  QApplication::exec();
}

std::vector<std::string> Scenes() {
  std::vector<std::string> scenes;
  const std::filesystem::path folder = std::string(MORVANE_SOURCE_DIR "/") + kScenes;
  for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
    if (file.is_regular_file())
      scenes.push_back(file.path().lexically_relative(folder).replace_extension().string());
  }
  return scenes;
}

INSTANTIATE_TEST_SUITE_P(Scenes, Transcript, testing::ValuesIn(Scenes()), [](const auto& scene) {
  std::string name = scene.param;
  for (char& c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  }
  return name;
});

}  // namespace
}  // namespace Morvane
