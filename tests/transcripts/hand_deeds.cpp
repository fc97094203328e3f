#include <QAbstractButton>
#include <QAbstractItemView>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QExposeEvent>
#include <QHelpEvent>
#include <QTest>
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

void SetPrinter(Scene& scene, Words words) {
  const QString part = words.Next();
  scene.machine.Device.BeforeCall = [part, text = words.All()](const std::string& call, ErrorNumber number) {
    if (part != "works" && (part == "dialog") == (call == "ShowDialog")) throw RuntimeError(number, text);
  };
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

// What the pointer is over, and a place in it, in percent.
QWidget& Under(const Control& control) {
  QWidget& widget = Hand::See(control);
  auto* const scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
  return scrolled == nullptr ? widget : *scrolled->viewport();
}

QPoint Place(const QWidget& widget, Words& words) {
  const double x = words.Number() / 100 * widget.width();
  return QPointF(x, words.Number() / 100 * widget.height()).toPoint();
}

void Press(Scene& scene, Words words) {
  QTest::mouseClick(&Under(scene.Named(words)), Qt::LeftButton);
}

void Click(Scene& scene, Words words) {
  const std::map<QString, Qt::MouseButton> buttons = {{"", Qt::LeftButton},
                                                      {"right", Qt::RightButton},
                                                      {"middle", Qt::MiddleButton},
                                                      {"extra", Qt::ExtraButton1}};
  QWidget& widget = Under(scene.Named(words));
  const QPoint place = Place(widget, words);
  QTest::mouseClick(&widget, buttons.at(words.rest), {}, place);
}

void Point(Scene& scene, Words words) {
  QWidget& widget = Under(scene.Named(words, /*getsKeyboard=*/false));
  const QPoint place = Place(widget, words);
  // The first move over a window only enters it.
  for (const QPoint& on : {place - QPoint(1, 0), place}) QTest::mouseMove(&widget, on);
}

// The first row of this text, from the top.
QRect Row(const Control& list, const QString& text) {
  auto& view = dynamic_cast<QAbstractItemView&>(Hand::See(list));
  const QModelIndexList found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                                    Qt::MatchExactly | Qt::MatchRecursive);
  if (found.empty()) throw std::logic_error("no row " + text.toStdString());
  view.scrollTo(found.front());
  return view.visualRect(found.front());
}

// Pixels from the row's left edge; a tree's triangle lies before it.
template <int x, Qt::MouseButton button, Qt::KeyboardModifier modifier>
void ClickRow(Scene& scene, Words words) {
  const Control& list = scene.Named(words);
  const QRect row = Row(list, words.rest);
  QTest::mouseClick(&Under(list), button, modifier, {row.left() + x, row.center().y()});
}

void DoubleClick(Scene& scene, Words words) {
  ClickRow<5, Qt::LeftButton, Qt::NoModifier>(scene, words);
  const Control& list = scene.Named(words);
  QTest::mouseDClick(&Under(list), Qt::LeftButton, {}, Row(list, words.rest).center());
}

void Slide(Scene& scene, Words words) {
  const Control& list = scene.Named(words);
  QWidget& rows = Under(list);
  const QPoint to = Row(list, words.rest.section(" > ", 1)).center();
  QTest::mousePress(&rows, Qt::LeftButton, {}, Row(list, words.rest.section(" > ", 0, 0)).center());
  QMouseEvent move(QEvent::MouseMove, to, rows.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(&rows, &move);
  QTest::mouseRelease(&rows, Qt::LeftButton, {}, to);
}

// What has the keyboard. The toolkit's platform for tests gives it to none when a window comes back.
QWidget& WithKeyboard(const Scene& scene) {
  QWidget& window = Hand::See(scene.Top());
  for (QWidget* const widget :
       {QApplication::activePopupWidget(), QApplication::focusWidget(), window.focusWidget()})
    if (widget != nullptr) return *widget;
  return window;
}

// Faster than anything answers; only a button that its own key holds down for a moment is let go.
void Key(Scene& scene, Words words) {
  const auto buttons = Hand::See(scene.Top()).findChildren<QAbstractButton*>();
  QTest::keySequence(&WithKeyboard(scene), QKeySequence(words.rest));
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::ranges::none_of(buttons, &QAbstractButton::isDown); }));
}

// Instead of what the box holds; in quotes where blanks would not be seen, a row of x as 300*x.
void Type(Scene& scene, Words words) {
  QTest::mouseClick(&Under(scene.Named(words)), Qt::LeftButton);
  QTest::keySequence(&WithKeyboard(scene), QKeySequence("Ctrl+A, Del"));
  QString text = words.rest;
  if (text.startsWith('"'))
    text = text.mid(1, text.size() - 2);
  else if (text.contains('*'))
    text = text.section('*', 1).repeated(text.section('*', 0, 0).toInt());
  QTest::keyClicks(&WithKeyboard(scene), text);
}

void HoldKey(Scene& scene, Words words) {
  QKeyEvent repeat(QEvent::KeyPress, QKeySequence(words.rest)[0].key(), {}, {}, true);
  QApplication::sendEvent(&WithKeyboard(scene), &repeat);
}

void PressMenuKey(Scene& scene, Words) {
  QContextMenuEvent pressed(QContextMenuEvent::Keyboard, {}, {});
  QApplication::sendEvent(&WithKeyboard(scene), &pressed);
}

// On a screen where covered windows lose what they show.
void Uncover(Scene& scene, const QRegion& region) {
  QPaintEvent painted(region);
  QExposeEvent uncovered(region);
  for (QEvent* const event : std::initializer_list<QEvent*>{&painted, &uncovered})
    QApplication::sendEvent(Hand::See(scene.Top()).windowHandle(), event);
}

// It comes, and uncovers its place when it goes.
void ShowTip(Scene& scene, Words words) {
  QWidget& control = Hand::See(scene.Named(words, /*getsKeyboard=*/false));
  QHelpEvent pause(QEvent::ToolTip, control.rect().center(), control.mapToGlobal(control.rect().center()));
  QApplication::sendEvent(&control, &pause);
  QWidget& tip = *control.findChild<QWidget*>("qtooltip_label");
  tip.hide();
  const QRect window = Hand::See(scene.Top()).geometry();
  Uncover(scene, (tip.geometry() & window).translated(-window.topLeft()));
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

// The menu of the arrow beside a tool.
void OpenArrow(Scene& scene, Words words) {
  QToolButton& tool = Tool(scene.program.form1.Toolbar1, words.rest);
  QTest::mouseClick(&tool, Qt::LeftButton, {}, {tool.width() - 4, tool.height() / 2});
}

// Files of one folder, or a web page's link with what it offers in these formats.
void Carry(Scene& scene, Words words) {
  scene.Dragged.clear();
  const QString from = words.Next();
  QList<QUrl> urls;
  const bool isPage = from.startsWith("http");
  if (isPage) urls << QUrl(from);
  for (const QString& what : words.rest.split(' ')) {
    if (isPage)
      scene.Dragged.setData(what, what == "image/bmp" ? PictureFile("50x25") : "?");
    else
      urls << QUrl("file://" + QString::fromStdString(scene.machine.Files->ToNative(from.toStdString())) +
                   "/" + what);
  }
  scene.Dragged.setUrls(urls);
}

// Over the page. With Shift the other program offers to move its file; it must not be told to.
constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction;

void Drag(Scene& scene, Words words) {
  QWidget& page = Hand::See(scene.program.form1.Picture1);
  const QPoint place = Place(page, words);
  QDragEnterEvent enter(place, kActions, &scene.Dragged, Qt::LeftButton, {});
  QDragMoveEvent move(place, kActions, &scene.Dragged, Qt::LeftButton, {});
  QApplication::sendEvent(&page, &enter);
  if (enter.isAccepted()) QApplication::sendEvent(&page, &move);
  scene.Show(enter.isAccepted() && move.isAccepted() ? "  may be dropped" : "  may not be dropped");
}

void Drop(Scene& scene, Words words) {
  QWidget& page = Hand::See(scene.program.form1.Picture1);
  QDropEvent drop(Place(page, words), kActions, &scene.Dragged, Qt::LeftButton, Qt::ShiftModifier);
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
    {"dark", [](Scene&, Words) { QApplication::setPalette(QColor(50, 50, 50)); }},
    {"launches", [](Scene& s, Words) { s.machine.Launches.BeforeCall = [](auto&, auto number) { throw RuntimeError(number, "File non trovato."); }; }},
    // dialog or broken and what it complains of, or works
    {"printer", SetPrinter},
    // how many, or none: in the next print dialog
    {"copies", [](Scene& s, Words w) { s.machine.Device.Answers.push_back({w.rest != "none", std::max(w.rest.toInt(), 1)}); }},

    // Boxes, prompts, choosers and menus.
    {"answer", [](Scene& s, Words w) { s.windows.Answers.push_back(w.rest == "Esc" ? "" : w.All()); }},

    // The program and its main window.
    {"start", [](Scene& s, Words) { s.windows.ShowMain(s.program.form1.form); }},
    {"tool", [](Scene& s, Words w) { QTest::mouseClick(&Tool(s.program.form1.Toolbar1, w.rest), Qt::LeftButton); }},
    {"arrow", OpenArrow},
    {"panel", [](Scene& s, Words w) { Tool(s.program.form1.StatusBar1, w.rest).click(); }},
    {"menu", ChooseEntry},

    // Mouse and keyboard.
    {"press", Press},
    {"click", Click},
    {"point", Point},
    {"row", ClickRow<5, Qt::LeftButton, Qt::NoModifier>},
    {"ctrl-row", ClickRow<5, Qt::LeftButton, Qt::ControlModifier>},
    {"right", ClickRow<5, Qt::RightButton, Qt::NoModifier>},
    {"unfold", ClickRow<-10, Qt::LeftButton, Qt::NoModifier>},
    {"double", DoubleClick},
    // row > row: pressed on one, let go on the other
    {"slide", Slide},
    {"type", Type},
    // in the layout editor: what was typed is taken over and saved, the next cover comes and this one again
    {"save-and-come-back", [](Scene& s, Words) { for (auto* deed : {"key Return", "press Command5", "press Command4", "press Command3"}) s.Do(deed); }},
    // "\\t" is a tab
    {"copy", [](Scene&, Words w) { QGuiApplication::clipboard()->setText(w.rest.replace("\\t", "\t")); }},
    // several are parted by commas
    {"key", Key},
    {"hold", HoldKey},
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
    {"repeat", [](Scene& s, Words w) { const int times = w.Next().toInt(); s.Repeat(times, w.rest.split(" | ")); }},
    {"morvane-print", RunPrintProgram},
};
// clang-format on

}  // namespace Morvane
