#include <QAbstractItemView>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QExposeEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QWindow>

#include "platform/controls/timer.h"
#include "platform/qt/views/view_text.h"
#include "transcript.h"

namespace Morvane {
namespace {

using Scene = Transcript;

void SetScreen(Scene& scene, Words words) {
  scene.machine.TheScreen.Measure = [side = words.Number()] { return ScreenSize{side, side}; };
}

void Darken(Scene&, Words) {
  QPalette dark(QColor(50, 50, 50), QColor(42, 42, 42));
  dark.setColor(QPalette::Highlight, QColor(48, 140, 198));
  QApplication::setPalette(dark);
}

void SetPrinter(Scene& scene, Words words) {
  const QString part = words.Next();
  scene.machine.Device.BeforeCall = [part, text = words.All()](const std::string& call, ErrorNumber number) {
    if (part != "works" && (part == "dialog") == (call == "ShowDialog")) throw RuntimeError(number, text);
  };
}

void AtBox(Scene& scene, Words words) {
  scene.windows.AtBox = [&scene, n = words.Next().toInt(), deed = words.rest]() mutable {
    if (--n == 0) scene.Do(deed);
  };
}

void Repeat(Scene& scene, Words words) {
  const int times = words.Next().toInt();
  scene.Repeat(times, words.rest.split(" | "));
}

void Move(Scene& scene, Words words) {
  const int left = ToPixels(words.Number());
  Hand::See(scene.Top()).move(left, ToPixels(words.Number()));
}

void Resize(Scene& scene, Words words) {
  const int width = ToPixels(words.Number());
  Hand::See(scene.Top()).resize(width, ToPixels(words.Number()));
}

void Tick(Scene& scene, Words words) {
  const std::string name = words.Path();
  for (Timer* const timer : scene.Top().Timers) {
    if (timer->Name() != name) continue;
    for (int i = words.Next().toInt(); i > 0; --i) timer->Tick();
    return timer->SetRunning(false);
  }
  throw std::logic_error("no timer " + name);
}

QPointF Place(const Control& control, Words& words) {  // percent of the control
  const double x = words.Number() / 100 * control.Width();
  return {x, words.Number() / 100 * control.Height()};
}

void Click(Scene& scene, Words words) {
  const std::map<QString, Qt::MouseButton> buttons = {{"", Qt::LeftButton},
                                                      {"right", Qt::RightButton},
                                                      {"middle", Qt::MiddleButton},
                                                      {"extra", Qt::ExtraButton1}};
  const Control& control = scene.Named(words);
  const QPointF place = Place(control, words);
  Hand::Click(control, place.x(), place.y(), buttons.at(words.rest));
}

template <int x, Qt::MouseButton button, Qt::KeyboardModifier modifier>
void ClickRow(Scene& scene, Words words) {
  const Control& list = scene.Named(words);
  Hand::ClickRow(list, Hand::Row(list, words.rest), x, button, modifier);
}

QPoint RowPlace(const Control& list, const QString& row) {
  return Hand::See<QAbstractItemView>(list).visualRect(Hand::Row(list, row)).center();
}

void DoubleClick(Scene& scene, Words words) {
  ClickRow<5, Qt::LeftButton, Qt::NoModifier>(scene, words);
  const Control& list = scene.Named(words);
  QTest::mouseDClick(Hand::See<QAbstractItemView>(list).viewport(), Qt::LeftButton, {},
                     RowPlace(list, words.rest));
}

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

void Point(Scene& scene, Words words) {
  const Control& control = scene.Named(words);
  const QPointF place = Place(control, words);
  const QPoint pixel(ToPixels(place.x()), ToPixels(place.y()));
  // The first move over a window only enters it.
  for (const QPoint& on : {pixel - QPoint(1, 0), pixel}) QTest::mouseMove(&Hand::See(control), on);
}

// On a screen where covered windows lose what they show.
void Uncover(Scene& scene, const QRegion& region) {
  QPaintEvent painted(region);
  QExposeEvent uncovered(region);
  for (QEvent* const event : std::initializer_list<QEvent*>{&painted, &uncovered})
    QApplication::sendEvent(Hand::See(scene.Top()).windowHandle(), event);
}

// It comes, and goes.
void ShowTip(Scene& scene, Words words) {
  QWidget& control = Hand::See(scene.Named(words));
  QHelpEvent pause(QEvent::ToolTip, control.rect().center(), control.mapToGlobal(control.rect().center()));
  QApplication::sendEvent(&control, &pause);
  const QRect window = Hand::See(scene.Top()).geometry();
  for (QWidget* const tip : QApplication::topLevelWidgets()) {
    if (!tip->isVisible() || tip->windowType() != Qt::ToolTip || !tip->geometry().intersects(window))
      continue;
    const QRect covered = (tip->geometry() & window).translated(-window.topLeft());
    tip->hide();
    return Uncover(scene, covered);
  }
  throw std::logic_error("no tool-tip over the window");
}

QToolButton& Tool(const Control& bar, const QString& name) {
  for (auto* const tool : Hand::See(bar).findChildren<QToolButton*>())
    if (tool->objectName() == name || tool->text() == name) return *tool;
  throw std::logic_error("no such tool");
}

// An entry of the menu bar or of a button's menu.
void ChooseEntry(Scene& scene, Words words) {
  for (const auto* const widget : Hand::See(scene.program.form1.form).findChildren<QWidget*>())
    for (QAction* const action : widget->actions())
      if (action->text() == words.rest) return action->trigger();
  throw std::logic_error("no such entry");
}

// The menu of the arrow beside a tool, and an entry of it.
void OpenArrow(Scene& scene, Words words) {
  QToolButton& tool = Tool(scene.program.form1.Toolbar1, words.Next());
  QTimer::singleShot(0, qApp, [&scene, entry = words.rest] {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return scene.Show("  no menu came");
    for (QAction* const action : menu->actions())
      if (action->text() == entry) menu->setActiveAction(action);
    QTest::keyClick(menu, Qt::Key_Return);
  });
  QTest::mouseClick(&tool, Qt::LeftButton, {}, {tool.width() - 4, tool.height() / 2});
}

void Hold(Scene&, Words words) {
  for (int i = 0; i < 3; ++i) {
    QKeyEvent repeat(QEvent::KeyPress, QKeySequence(words.rest)[0].key(), {}, {}, true);
    QApplication::sendEvent(QApplication::focusWidget(), &repeat);
  }
}

void Paste(Scene& scene, Words words) {
  const Control& box = scene.Named(words);
  QGuiApplication::clipboard()->setText(words.rest.replace("\\t", "\t"));
  Hand::Type(box, "");
  Hand::Key(QKeySequence::Paste);
}

void PressMenuKey(Scene&, Words) {
  QContextMenuEvent pressed(QContextMenuEvent::Keyboard, {});
  QApplication::sendEvent(QApplication::focusWidget(), &pressed);
}

// Files of one folder, or what else another program's window hands over.
void Carry(Scene& scene, Words words) {
  scene.Dragged.clear();
  if (words.rest == "a text") return scene.Dragged.setText("C:\\Foto\\a.png");
  QList<QUrl> urls;
  if (words.rest.startsWith("a web page's ")) {
    urls << QUrl("https://example.org/fronte.png");
    if (words.rest.endsWith("picture")) {
      scene.Dragged.setHtml("<img src='https://example.org/fronte.png'>");
      scene.Dragged.setData("image/x-unknown", "?");
      scene.Dragged.setData("image/bmp", PictureFile("50x25"));
    }
  } else {
    const QString folder = QString::fromStdString(scene.machine.Files->ToNative(words.Path()));
    for (const QString& name : words.rest.split(' ')) urls << QUrl::fromLocalFile(folder + "/" + name);
  }
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

}  // namespace

// clang-format off
// What the machine and the person will answer, and the hand. Controls come first, then places, rows or texts.
const std::map<QString, Deed> kDeedsOfTheHand = {
    // The machine.
    {"serve", [](Scene& s, Words w) { s.machine.Http.Body = w.All() + "\n"; }},
    {"unprintable", [](Scene& s, Words w) { s.machine.Fonts.NotForPrinting.push_back(w.All()); }},
    {"separator", [](Scene& s, Words w) { s.program.state.decimalSeparator = w.rest[0].toLatin1(); }},
    {"in-use", [](Scene& s, Words w) { s.program.state.NomeLayout = w.All(); }},
    {"screen", SetScreen},
    // a desktop that the user has made so
    {"dark", Darken},
    {"launches", [](Scene& s, Words) { s.machine.Launches.BeforeCall = [](auto&, auto number) { throw RuntimeError(number, "File non trovato."); }; }},
    // dialog or broken and what it complains of, or works
    {"printer", SetPrinter},
    // how many, or none: in the next print dialog
    {"copies", [](Scene& s, Words w) { s.machine.Device.Answers.push_back({w.rest != "none", std::max(w.rest.toInt(), 1)}); }},

    // Boxes, prompts, choosers and menus.
    {"answer", [](Scene& s, Words w) { s.windows.Answers.push_back(w.All()); }},
    // n, deed: while the n-th from now is open
    {"at-box", AtBox},

    // The program and its main window.
    {"start", [](Scene& s, Words) { s.windows.ShowMain(s.program.form1.form); }},
    {"tool", [](Scene& s, Words w) { QTest::mouseClick(&Tool(s.program.form1.Toolbar1, w.rest), Qt::LeftButton); }},
    {"arrow", OpenArrow},
    {"panel", [](Scene& s, Words w) { Tool(s.program.form1.StatusBar1, w.rest).click(); }},
    {"menu", ChooseEntry},

    // Mouse and keyboard.
    {"press", [](Scene& s, Words w) { Hand::Press(s.Named(w)); }},
    {"click", Click},
    {"point", Point},
    {"row", ClickRow<5, Qt::LeftButton, Qt::NoModifier>},
    {"ctrl-row", ClickRow<5, Qt::LeftButton, Qt::ControlModifier>},
    {"right", ClickRow<5, Qt::RightButton, Qt::NoModifier>},
    {"unfold", ClickRow<-10, Qt::LeftButton, Qt::NoModifier>},
    {"double", DoubleClick},
    // row > row: pressed on one, let go on the other
    {"slide", Slide},
    {"type", [](Scene& s, Words w) { const Control& box = s.Named(w); Hand::Type(box, w.rest); }},
    // "\\t" is a tab
    {"paste", Paste},
    // several are parted by commas
    {"key", [](Scene&, Words w) { Hand::Key(w.rest); }},
    // three repeats of a key
    {"hold", Hold},
    {"menu-key", PressMenuKey},
    {"carry", Carry},
    {"drag", Drag},
    {"drop", Drop},
    {"drag-away", DragAway},

    // The window on top.
    {"move", Move},
    {"resize", Resize},
    {"minimise", [](Scene& s, Words) { Hand::See(s.Top()).showMinimized(); }},
    {"maximise", [](Scene& s, Words) { Hand::See(s.Top()).showMaximized(); }},
    {"restore", [](Scene& s, Words) { Hand::See(s.Top()).showNormal(); }},
    {"close", [](Scene& s, Words) { Hand::See(s.Top()).close(); }},
    // timer, times
    {"tick", Tick},
    // another window was over this one
    {"uncover", [](Scene& s, Words) { Uncover(s, QRegion(0, 0, 9, 9)); }},
    {"tip", ShowTip},
    {"repeat", Repeat},
    {"morvane-print", RunPrintProgram},
};
// clang-format on

}  // namespace Morvane
