#include <malloc.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QBuffer>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QExposeEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeySequence>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <QWindow>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "platform/controls/timer.h"
#include "platform/controls/tree_view.h"
#include "platform/drawing/calibration_sheet.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/views/view_text.h"
#include "platform/units.h"
#include "telling.h"
#include "tests/hand/golden.h"
#include "transcript.h"

namespace Morvane {
namespace {

using Scene = Transcript;

void WriteLines(Scene& scene, const std::string& path, QString lines) {
  lines.replace('|', "\r\n");
  scene.machine.WriteFile(path, lines.isEmpty() ? "" : lines.toLatin1().toStdString() + "\r\n");
}

std::string Native(Scene& scene, const std::string& path) {
  return scene.machine.Files->ToNative(path);
}

// Covers as wide as told, in millimetres, each further right and down and higher than the one before it.
QString CoversOfWidths(const QStringList& widths) {
  QString text = "Pagina=0";
  for (int i = 0; i < widths.size(); ++i) {
    text += QString("|Copertina%1=0|Distx%1=%2|Disty%1=%3|Larg%1=%4|Alte%1=%5").arg(i + 1);
    text = text.arg(20 + i).arg(20 + 2 * i).arg(widths[i]).arg(60 + i);
  }
  return text;
}

QByteArray PictureFile(const QString& size, const char* format = "BMP") {  // widthxheight, in pixels
  QImage image(size.section('x', 0, 0).toInt(), size.section('x', 1).toInt(), QImage::Format_RGB32);
  image.fill(Qt::red);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  image.save(&bytes, format);
  return bytes.data();
}

}  // namespace

// The machine before and meanwhile.
const std::map<QString, Deed> kDeedsOfTheWorld = {
    // path, lines parted by |
    {"file", {[](Scene& s, Words w) {
       const std::string path = w.Path();
       WriteLines(s, path, w.rest);
     }}},
    {"layout", {[](Scene& s, Words w) {  // name, widths
       const QString name = w.Next();
       WriteLines(s, "C:\\Morvane\\" + name.toStdString() + ".mvne", CoversOfWidths(w.rest.split(' ')));
     }}},
    {"picture", {[](Scene& s, Words w) {  // path, size
       s.machine.WriteFile(w.rest.section(' ', 0, -2).toStdString(),
                           PictureFile(w.rest.section(' ', -1)).toStdString());
     }}},
    {"half-picture", {[](Scene& s, Words w) {
       s.machine.WriteFile(w.All(), PictureFile("30x30", "PNG").left(50).toStdString());
     }}},
    {"files", {[](Scene& s, Words w) {  // folder, how many, kind
       const std::string folder = w.Path();
       s.machine.MakeFolder(folder);
       const std::string native = Native(s, folder) + "/";
       const int count = w.Next().toInt();
       for (int i = 0; i < count; ++i) std::ofstream(native + std::to_string(i) + "." + w.All());
     }}},
    {"tell-reads", {[](Scene& s, Words) {  // of whole files and folders, from now on
       s.machine.Files->BeforeCall = [&s](const std::string& call, const std::string& path) {
         if (call == "ReadBytes" || call == "ReadFolder") s.Show("  reads " + QString::fromStdString(path));
       };
     }}},
    {"deny", {[](Scene& s, Words w) {
       s.machine.Files->BeforeCall = [denied = w.All()](const std::string&, const std::string& path) {
         if (path == denied) throw RuntimeError(ErrorNumber::PermissionDenied, "Accesso negato: " + path);
       };
     }}},
    {"take-out", {[](Scene& s, Words w) {  // just before it is looked for
       s.machine.Files->BeforeCall = [&s, folder = w.All()](const std::string& call,
                                                            const std::string& path) {
         if (call == "FolderExists" && path == folder) std::filesystem::remove_all(Native(s, folder));
       };
     }}},
    {"link", {[](Scene& s, Words w) {  // where, what
       const std::string where = Native(s, w.Path());
       std::filesystem::create_directory_symlink(Native(s, w.All()), where);
     }}},
    {"copy", {[](Scene& s, Words w) {  // what ships, where
       const QString what = w.Next();
       const std::filesystem::path data = MORVANE_SOURCE_DIR "/data/" + what.toStdString();
       std::filesystem::copy(data, Native(s, w.All()));
     }}},
    {"tracks", {[](Scene& s, Words w) {  // folder, names parted by |
       const std::string folder = w.Path() + "\\";
       for (const QString& name : w.rest.split('|'))
         s.machine.WriteFile(folder + name.toStdString() + ".mp3", "");
     }}},
    {"folder", {[](Scene& s, Words w) { s.machine.MakeFolder(w.All()); }}},
    {"shell", {[](Scene& s, Words w) {  // a command, in the machine's root
       RunProgram("{ cd '" + s.machine.Root.Path() + "'; " + w.All() + "; }", TemporaryFolder());
     }}},
    {"remove", {[](Scene& s, Words w) { std::filesystem::remove_all(Native(s, w.All())); }}},
    {"lock", {[](Scene& s, Words w) {
       std::filesystem::permissions(Native(s, w.All()), std::filesystem::perms::owner_read);
     }}},
    {"unlock", {[](Scene& s, Words w) {
       std::filesystem::permissions(Native(s, w.All()), std::filesystem::perms::owner_all);
     }}},
    {"mount", {[](Scene& s, Words w) {  // device, file system, folder
       const QString device = w.Next();
       const QString fileSystem = w.Next();
       s.machine.Root.MakeFolder(w.All().substr(1));
       s.Mounts +=
           QString("1 1 %1:0 / %2 rw - %3 %4 rw\n").arg(s.Mounts.count('\n')).arg(w.rest, fileSystem, device);
       s.machine.Root.Write("mountinfo", s.Mounts.toStdString());
     }}},
    {"label", {[](Scene& s, Words w) {  // device, label
       s.machine.Root.MakeFolder("by-label");
       const std::string device = "../../" + w.Path();
       std::filesystem::create_symlink(device, s.machine.Root.Path() + "/by-label/" + w.All());
     }}},
};

namespace {

QPointF Place(const Control& control, Words& words) {  // percent of the control
  const double x = words.Number() / 100 * control.Width();
  return {x, words.Number() / 100 * control.Height()};
}

QPoint RowPlace(const Control& list, const QString& row) {
  return Hand::See<QAbstractItemView>(list).visualRect(Hand::Row(list, row.toStdString())).center();
}

void Click(Scene& scene, Words words) {  // control, place, button
  const std::map<QString, Qt::MouseButton> buttons = {{"", Qt::LeftButton},
                                                      {"right", Qt::RightButton},
                                                      {"middle", Qt::MiddleButton},
                                                      {"extra", Qt::ExtraButton1}};
  const Control& control = scene.Named(words);
  const QPointF place = Place(control, words);
  Hand::Click(control, place.x(), place.y(), buttons.at(words.rest));
}

void ClickRow(Scene& scene, Words words, int x, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = {}) {
  const Control& list = scene.Named(words);
  Hand::ClickRow(list, Hand::Row(list, words.All()), x, button, modifiers);
}

// Pressed on one row, let go on another.
void Slide(Scene& scene, Words words) {
  const Control& list = scene.Named(words);
  QWidget& rows = *Hand::See<QAbstractItemView>(list).viewport();
  const QPoint from = RowPlace(list, words.rest.section(" > ", 0, 0));
  const QPoint to = RowPlace(list, words.rest.section(" > ", 1));
  QTest::mousePress(&rows, Qt::LeftButton, {}, from);
  QMouseEvent move(QEvent::MouseMove, to, rows.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(&rows, &move);
  QTest::mouseRelease(&rows, Qt::LeftButton, {}, to);
}

// What another window covered of this one, on a screen where covered windows lose what they show.
void Uncover(Scene& scene, const QRegion& region) {
  QPaintEvent painted(region);
  QExposeEvent uncovered(region);
  for (QEvent* const event : std::initializer_list<QEvent*>{&painted, &uncovered})
    QApplication::sendEvent(Hand::See(scene.Top()).windowHandle(), event);
}

// The tool-tip comes, and goes.
void ShowTip(Scene& scene, Words words) {
  QWidget& control = Hand::See(scene.Named(words));
  const QPoint below = control.mapToGlobal(control.rect().center());
  QHelpEvent pause(QEvent::ToolTip, control.rect().center(), below);
  QApplication::sendEvent(&control, &pause);
  for (QWidget* const tip : QApplication::topLevelWidgets()) {
    if (!tip->isVisible() || tip->windowType() != Qt::ToolTip) continue;
    const QRect window = Hand::See(scene.Top()).geometry();
    const QRect covered = (tip->geometry() & window).translated(-window.topLeft());
    tip->hide();
    if (!covered.isEmpty()) return Uncover(scene, covered);
  }
  throw std::logic_error("no tool-tip over the window");
}

void NeedMainWindow(const Scene& scene) {
  if (&scene.Top() != &scene.program.form1.form)
    throw std::logic_error("another window waits for its answer");
}

void PressTool(Scene& scene, Words words) {
  NeedMainWindow(scene);
  auto* const tool = Hand::See(scene.program.form1.Toolbar1).findChild<QToolButton*>(words.rest);
  QTest::mouseClick(tool, Qt::LeftButton);
}

// An entry of the menu bar or of a button's menu.
void ChooseEntry(Scene& scene, Words words) {
  NeedMainWindow(scene);
  for (const QWidget* const widget : QApplication::allWidgets()) {
    for (QAction* const action : widget->actions()) {
      if (action->text() == words.rest) return action->trigger();
    }
  }
  throw std::logic_error("no such entry");
}

void PressPanel(Scene& scene, Words words) {
  for (auto* const panel : Hand::See(scene.program.form1.StatusBar1).findChildren<QToolButton*>()) {
    if (panel->text() == words.rest) panel->click();
  }
}

// Of the rows of a tree, plain and selected.
void TellImages(Scene& scene, const std::vector<TreeNode*>& nodes) {
  for (const TreeNode* const node : nodes) {
    scene.Show(
        QString::fromStdString("    " + node->Text() + ": " + node->Image() + ", " + node->SelectedImage()));
    if (node->Expanded()) TellImages(scene, node->Children());
  }
}

// All that a key leads to, as it is spoken.
void Walk(Scene& scene, Words words) {
  const Qt::Key key = QKeySequence(words.rest)[0].key();
  QWidget& window = Hand::See(scene.Top());
  QWidgetList stops;
  while (window.focusWidget() != nullptr && !stops.contains(window.focusWidget())) {
    stops << window.focusWidget();
    const QString spoken = QAccessible::queryAccessibleInterface(stops.back())->text(QAccessible::Name);
    scene.Show("    " + stops.back()->objectName() + " \"" + spoken + "\"");
    QTest::keyClick(stops.back(), key);
  }
}

// Files of one folder, or what else another program's window hands over.
void Carry(Scene& scene, Words words) {
  scene.Dragged.clear();
  if (words.rest == "a text") return scene.Dragged.setText("C:\\Foto\\a.png");
  if (words.rest == "a web page's picture") {
    scene.Dragged.setUrls({QUrl("https://example.org/fronte.png")});
    scene.Dragged.setHtml("<img src='https://example.org/fronte.png'>");
    scene.Dragged.setData("image/x-unknown", "?");
    return scene.Dragged.setData("image/bmp", PictureFile("50x25"));
  }
  if (words.rest == "a web page's link")
    return scene.Dragged.setUrls({QUrl("https://example.org/fronte.png")});
  const std::string folder = Native(scene, words.Path());
  QList<QUrl> urls;
  for (const QString& name : words.rest.split(' '))
    urls << QUrl::fromLocalFile(QString::fromStdString(folder) + "/" + name);
  scene.Dragged.setUrls(urls);
}

// Over the page, at millimetres of an upright A4 sheet. With Shift the other program offers to move its file;
// it must not be told to.
constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction;

QPointF OnPage(const QWidget& page, Words& words) {
  const double x = words.Number() / 210 * page.width();
  return {x, words.Number() / 297 * page.height()};
}

void Drag(Scene& scene, Words words) {
  QWidget& page = Hand::See(scene.program.form1.Picture1);
  const QPoint place = OnPage(page, words).toPoint();
  QDragEnterEvent enter(place, kActions, &scene.Dragged, Qt::LeftButton, {});
  QDragMoveEvent move(place, kActions, &scene.Dragged, Qt::LeftButton, {});
  QApplication::sendEvent(&page, &enter);
  if (enter.isAccepted()) QApplication::sendEvent(&page, &move);
  scene.Show(enter.isAccepted() && move.isAccepted() ? "  may be dropped" : "  may not be dropped");
}

void Drop(Scene& scene, Words words) {
  QWidget& page = Hand::See(scene.program.form1.Picture1);
  QDropEvent drop(OnPage(page, words), kActions, &scene.Dragged, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(&page, &drop);
  scene.Show(drop.isAccepted() && drop.dropAction() == Qt::CopyAction ? "  copied" : "  not copied");
}

void DragAway(Scene& scene, Words) {
  QDragLeaveEvent leave;
  QApplication::sendEvent(&Hand::See(scene.program.form1.Picture1), &leave);
}

// The command line program, in C:\, which is its user's home.
void RunPrintProgram(Scene& scene, Words words) {
  const TemporaryFolder elsewhere;
  const std::string command = "cd '" + scene.machine.Root.Path() + "'; HOME=$PWD XDG_CACHE_HOME='" +
                              elsewhere.Path() + "' '" MORVANE_PRINT "' " + words.All();
  const ProgramRun run = RunProgram("{ { " + command + "; } >&2; }", elsewhere);
  scene.Show(QString("  ends with %1").arg(run.exitCode));
  for (const QString& line : QString::fromStdString(run.errors).split('\n', Qt::SkipEmptyParts))
    scene.Show("  tells: " + line);
}

// An upright sheet, as painted.
QImage Painted(const DrawingList& page, double dotsPerInch, QPointF corner = {}) {
  constexpr QSizeF kPaper(210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre);
  const double dotsPerTwip = dotsPerInch / kTwipsPerInch;
  QImage sheet((kPaper * dotsPerTwip).toSize(), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.scale(dotsPerTwip, dotsPerTwip);
  painter.translate(corner);
  PaintCache cache;
  PaintDrawing(painter, page, cache);
  return sheet;
}

void ShowAll(Scene& scene, const QStringList& lines) {
  for (const QString& line : lines) scene.Show("    " + line);
}

// In device pixels of the window's picture.
QRegion ScrollBarsOf(const QWidget& window) {
  QRegion bars;
  for (const auto* bar : window.findChildren<QScrollBar*>()) {
    if (bar->isVisible()) bars += QRect(bar->mapTo(&window, QPoint()), bar->size());
  }
  return QTransform::fromScale(window.devicePixelRatio(), window.devicePixelRatio()).map(bars);
}

// The window must be as its picture in the documentation.
void TakePicture(Scene& scene, Words words) {
  QWidget& window = Hand::See(scene.Top());
  window.grab();
  Hand::Settle();  // scroll bars come and go after the first painting
  const QImage seen = window.grab().toImage();
  ExpectPicture(words.All() + "-" + std::to_string(std::lround(seen.devicePixelRatio() * 100)), seen,
                ScrollBarsOf(window));
}

void TakeCalibrationSheet(Scene& scene, Words words) {
  constexpr double kLeft = 3.4, kTop = 6.35;  // mm
  DrawingSurface sheet(scene.metrics);
  sheet.SetSize(210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre);
  DrawCalibrationSheet(sheet, kLeft, kTop, 210 - 2 * kLeft, 297 - 2 * kTop);
  ExpectPicture(words.All(), Painted(sheet.Drawing(), 80, QPointF(kLeft, kTop) * kTwipsPerMillimetre));
}

// What the process holds but for what its allocator has free, since it was told last.
void TellMemory(Scene& scene, Words) {
#ifdef MORVANE_SANITIZE
  constexpr double kMostGrowth = 1e9;  // memory is kept by the sanitizer, once freed
#else
  constexpr double kMostGrowth = 1;  // megabytes
#endif
  std::ifstream sizes("/proc/self/statm");
  long pages = 0;
  for (int i = 0; i < 6; ++i) sizes >> pages;  // the sixth: data
  const double held =
      static_cast<double>(pages * sysconf(_SC_PAGESIZE)) - static_cast<double>(mallinfo2().fordblks);
  const double now = held / (1 << 20);
  const double growth = now - std::exchange(scene.Megabytes, now);
  scene.Show(growth < kMostGrowth ? "  memory is as before" : QString("  %1 MB more").arg(growth));
}

const std::map<QString, MsgBoxAnswer> kAnswers = {{"yes", MsgBoxAnswer::Yes},
                                                  {"no", MsgBoxAnswer::No},
                                                  {"ok", MsgBoxAnswer::Ok},
                                                  {"cancel", MsgBoxAnswer::Cancel}};

}  // namespace

// What the machine and the person will answer, and the hand. Controls come first, then places, rows or texts.
const std::map<QString, Deed> kDeedsOfTheHand = {
    {"serve", {[](Scene& s, Words w) { s.machine.Http.Body = w.All() + "\n"; }}},
    {"unprintable", {[](Scene& s, Words w) { s.machine.Fonts.NotForPrinting.push_back(w.All()); }}},
    {"separator", {[](Scene& s, Words w) { s.program.state.decimalSeparator = w.rest[0].toLatin1(); }}},
    {"in-use", {[](Scene& s, Words w) { s.program.state.NomeLayout = w.All(); }}},
    {"screen", {[](Scene& s, Words w) {
       s.machine.TheScreen.Measure = [height = w.Number()] { return ScreenSize{height, height}; };
     }}},
    {"dark", {[](Scene&, Words) {  // as a desktop that the user has made dark
       QPalette dark(QColor(50, 50, 50), QColor(42, 42, 42));
       dark.setColor(QPalette::Highlight, QColor(48, 140, 198));
       QApplication::setPalette(dark);
     }}},
    {"launches", {[](Scene& s, Words w) { s.machine.Launches.ShellFails = w.rest == "fail"; }}},
    {"printer", {[](Scene& s, Words w) {
       s.machine.Device.DialogFails = w.rest == "dialog-fails";
       s.machine.Device.Broken = w.rest == "broken";
     }}},
    {"copies", {[](Scene& s, Words w) {
       s.machine.Device.Answers.push_back({w.rest != "none", std::max(w.rest.toInt(), 1)});
     }}},
    {"answer", {[](Scene& s, Words w) { s.machine.Windows.Answers.push_back(kAnswers.at(w.rest)); }}},
    {"input", {[](Scene& s, Words w) { s.machine.Windows.Inputs.push_back(w.All()); }}},
    {"browse", {[](Scene& s, Words w) { s.machine.Windows.Folders.push_back(w.All()); }}},
    {"choose", {[](Scene& s, Words w) { s.machine.Windows.MenuChoices.push_back(w.All()); }}},
    {"at-box", {[](Scene& s, Words w) {  // n, deed: while the n-th box from now is open
       s.machine.Windows.AfterBox = [&s, n = w.Next().toInt(), deed = w.rest]() mutable {
         if (--n == 0) s.Do(deed);
       };
     }}},
    {"start", {[](Scene& s, Words) { s.hand.Show(s.program.form1.form); }}},
    {"morvane-print", {RunPrintProgram}},
    {"tool", {PressTool}},
    {"menu", {ChooseEntry}},
    {"panel", {PressPanel}},
    {"press", {[](Scene& s, Words w) { Hand::Press(s.Named(w)); }}},
    {"click", {Click}},
    {"point", {[](Scene& s, Words w) {
       const Control& control = s.Named(w);
       const QPointF place = Place(control, w);
       const QPoint pixel(ToPixels(place.x()), ToPixels(place.y()));
       // The first move over a window only enters it.
       for (const QPoint& on : {pixel - QPoint(1, 0), pixel}) QTest::mouseMove(&Hand::See(control), on);
     }}},
    {"type", {[](Scene& s, Words w) {
       const Control& box = s.Named(w);
       Hand::Type(box, w.All());
     }}},
    {"paste", {[](Scene& s, Words w) {  // "\\t" is a tab
       const Control& box = s.Named(w);
       QGuiApplication::clipboard()->setText(QString::fromStdString(w.All()).replace("\\t", "\t"));
       Hand::Type(box, "");
       Hand::Key(QKeySequence::Paste);
     }}},
    // several are parted by commas
    {"key", {[](Scene&, Words w) { Hand::Key(w.rest); }}},
    {"hold", {[](Scene&, Words w) {  // three repeats of a key
       for (int i = 0; i < 3; ++i) {
         QKeyEvent repeat(QEvent::KeyPress, QKeySequence(w.rest)[0].key(), {}, {}, true);
         QApplication::sendEvent(QApplication::focusWidget(), &repeat);
       }
     }}},
    {"walk", {Walk}},
    {"row", {[](Scene& s, Words w) { ClickRow(s, w, 5, Qt::LeftButton); }}},
    {"right", {[](Scene& s, Words w) { ClickRow(s, w, 5, Qt::RightButton); }}},
    {"unfold", {[](Scene& s, Words w) { ClickRow(s, w, -10, Qt::LeftButton); }}},  // its triangle
    {"double", {[](Scene& s, Words w) {
       const Control& list = s.Named(w);
       ClickRow(s, {QString::fromStdString(list.Name()) + " " + w.rest}, 5, Qt::LeftButton);
       QTest::mouseDClick(Hand::See<QAbstractItemView>(list).viewport(), Qt::LeftButton, {},
                          RowPlace(list, w.rest));
     }}},
    {"ctrl-row", {[](Scene& s, Words w) { ClickRow(s, w, 5, Qt::LeftButton, Qt::ControlModifier); }}},
    {"slide", {Slide}},
    {"carry", {Carry}},
    {"drag", {Drag}},
    {"drop", {Drop}},
    {"drag-away", {DragAway}},
    {"move", {[](Scene& s, Words w) {
       const double left = w.Number();
       Hand::See(s.Top()).move(ToPixels(left), ToPixels(w.Number()));
     }}},
    {"resize", {[](Scene& s, Words w) {
       const double width = w.Number();
       Hand::Resize(s.Top(), width, w.Number());
     }}},
    {"minimise", {[](Scene& s, Words) { Hand::See(s.Top()).showMinimized(); }}},
    {"maximise", {[](Scene& s, Words) { Hand::See(s.Top()).showMaximized(); }}},
    {"restore", {[](Scene& s, Words) { Hand::See(s.Top()).showNormal(); }}},
    {"tick", {[](Scene& s, Words w) {  // timer, times
       const std::string name = w.Next().toStdString();
       Timer& timer = **std::find_if(s.Top().Timers.begin(), s.Top().Timers.end(),
                                     [&](const Timer* one) { return one->Name() == name; });
       for (int i = w.Next().toInt(); i > 0; --i) timer.Tick();
       timer.SetRunning(false);
     }}},
    {"uncover", {[](Scene& s, Words) {  // another window was over this one
       Uncover(s, QRegion(0, 0, 9, 9));
     }}},
    {"tip", {ShowTip}},
    {"close", {[](Scene& s, Words) { Hand::See(s.Top()).close(); }}},
    {"look", {[](Scene& s, Words w) { ShowAll(s, LookAt(s.Top()).at(w.rest)); }}},
    {"images", {[](Scene& s, Words w) { TellImages(s, dynamic_cast<const TreeView&>(s.Named(w)).Roots()); }}},
    {"take", {TakePicture}},
    {"listen", {[](Scene& s, Words) {  // to what no picture shows
       for (const QString& line : UnseenIn(s.Top())) s.Show(line);
     }}},
    {"take-sheet", {[](Scene& s, Words w) { ExpectPicture(w.All(), Painted(s.Printed, 60)); }}},
    {"take-calibration-sheet", {TakeCalibrationSheet}},
    {"memory", {TellMemory}},
    {"repeat", {[](Scene& s, Words w) {  // times, deeds parted by |
       const int times = w.Next().toInt();
       s.Repeat(times, w.rest.split(" | "));
     }}},
};

}  // namespace Morvane
