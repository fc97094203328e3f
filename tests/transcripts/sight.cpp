#include "sight.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScrollArea>
#include <QToolButton>
#include <QTreeView>
#include <filesystem>

#include "platform/controls/bars.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/timer.h"
#include "shapes.h"
#include "telling.h"
#include "tests/hand/hand.h"
#include "tests/support/sheet_measure.h"

namespace Morvane {
namespace {

const QString kPlace = " at";
const QString kCaption = " caption";

// From one row to the next below it, as they stand there.
QStringList RowsOf(const QTreeView& tree) {
  QStringList rows;
  for (QModelIndex row = tree.model()->index(0, 0); row.isValid(); row = tree.indexBelow(row)) {
    QString indent;
    for (QModelIndex above = row.parent(); above.isValid(); above = above.parent()) indent += "  ";
    const QString mark = !tree.model()->hasChildren(row) ? "" : tree.isExpanded(row) ? "-" : "+";
    rows << indent + mark + row.data().toString();
  }
  return rows;
}

QStringList RowsOf(const QAbstractItemView& list) {
  QStringList rows;
  for (int i = 0; i < list.model()->rowCount(); ++i) rows << list.model()->index(i, 0).data().toString();
  return rows;
}

void AddEntries(const QWidget& menu, const QString& indent, QStringList& entries) {
  for (const QAction* const entry : menu.actions()) {
    const QString keys = entry->shortcut().isEmpty() ? "" : "  " + entry->shortcut().toString();
    entries << indent + entry->text() + keys + (entry->isEnabled() ? "" : " (disabled)");
    if (entry->menu() != nullptr) AddEntries(*entry->menu(), indent + "  ", entries);
  }
}

QStringList DisabledTools(const QWidget& bar) {
  QStringList names;
  for (const auto* const tool : bar.findChildren<QToolButton*>()) {
    if (!tool->isEnabled()) names << "without " + tool->objectName();
  }
  return names;
}

QString FontOf(const QFont& font) {
  return QString("%1 %2 px%3%4%5")
      .arg(font.family())
      .arg(font.pixelSize())
      .arg(font.bold() ? " bold" : "", font.italic() ? " italic" : "", font.underline() ? " underlined" : "");
}

QString CaptionOf(const Control& control, const QWidget& widget) {
  QString caption = QString::fromStdString(control.Caption());
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) caption = button->text();
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) caption = label->text();
  if (const auto* const frame = qobject_cast<const QGroupBox*>(&widget)) caption = frame->title();
  return caption.replace("\r\n", " / ");
}

// On the paper of the window, and of the text.
QString ColoursOf(const QWidget& widget) {
  return widget.palette().color(QPalette::WindowText).name() + " on " +
         (widget.autoFillBackground() ? widget.palette().color(QPalette::Window).name() : "the window");
}

// What the frame of a window offers, and whether the others wait for it.
QString FrameOf(const QWidget& window) {
  const std::vector<std::pair<bool, QString>> offers = {
      {window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint), "minimise"},
      {window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint), "maximise"},
      {window.windowFlags().testFlag(Qt::WindowCloseButtonHint), "close"},
      {window.minimumSize() != window.maximumSize(), "resize"},
      {window.isModal(), "modal"},
      {!window.windowIcon().isNull(), "icon"}};
  QStringList there;
  for (const auto& [is, offer] : offers) {
    if (is) there << offer;
  }
  return there.join(", ");
}

// The size of a drawn pointer and its tip.
QString PlaceIn(const QCursor& pointer) {
  const QSizeF size = pointer.pixmap().deviceIndependentSize();
  const QPoint tip = pointer.hotSpot();
  return QString(" %1x%2, %3,%4").arg(size.width()).arg(size.height()).arg(tip.x()).arg(tip.y());
}

QString NameOf(const QCursor* pointer) {
  const std::map<Qt::CursorShape, QString> names = {
      {Qt::WaitCursor, "hourglass"}, {Qt::BusyCursor, "arrow with hourglass"}, {Qt::BitmapCursor, "hand"}};
  return pointer == nullptr ? "arrow" : names.at(pointer->shape());
}

QStringList Shown(const Control& control, const QWidget& widget) {
  if (const auto* const box = qobject_cast<const QLineEdit*>(&widget)) return {box->text()};
  if (const auto* const box = qobject_cast<const QPlainTextEdit*>(&widget))
    return box->toPlainText().split('\n');
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
    return button->isChecked() ? QStringList{"on"} : QStringList();
  if (const auto* const tree = qobject_cast<const QTreeView*>(&widget)) return RowsOf(*tree);
  if (const auto* const list = qobject_cast<const QAbstractItemView*>(&widget)) return RowsOf(*list);
  if (const auto* const box = dynamic_cast<const PictureBox*>(&control))
    return ShapesAsText(box->Surface.Drawing());
  if (const auto* const image = dynamic_cast<const ImageBox*>(&control); image && image->GetPicture()) {
    return {QString("picture of %1 x %2 twips")
                .arg(image->GetPicture()->WidthTwips())
                .arg(image->GetPicture()->HeightTwips())};
  }
  if (dynamic_cast<const Toolbar*>(&control) != nullptr) return DisabledTools(widget);
  return {};
}

QString PlaceOf(const QWidget& widget) {
  const QRect place = widget.geometry();
  return QString("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

QStringList AnswerOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
  QStringList lines;
  for (const QString& line : QString::fromUtf8(process.readAllStandardOutput()).split('\n')) {
    if (!line.trimmed().isEmpty()) lines << line.trimmed();
  }
  return lines;
}

// Where the first page has ink, and whether it lies on its side.
QString InkOn(const QString& file) {
  const MeasuredSheet sheet(file.toStdString());
  const QRectF box = sheet.InkMm();
  QStringList mm;
  for (const double corner : {box.left(), box.top(), box.right(), box.bottom()})
    mm << QString::number(corner, 'f', 1);
  return QString("from %1,%2 to %3,%4 mm").arg(mm[0], mm[1], mm[2], mm[3]) +
         (sheet.IsOnItsSide() ? " on its side" : "");
}

// Where ink is, how many pictures, which fonts of which sizes and which texts the first page has.
QStringList OnPaper(const QString& file) {
  constexpr int kHeadings = 2;
  constexpr int kSurelyOnPaper = 30;  // characters; what lies beyond the sheet is cut anywhere
  QStringList texts = AnswerOf("pdftotext", {"-raw", file, "-"});
  for (QString& text : texts) text.truncate(kSurelyOnPaper);
  QStringList lines = {"ink " + InkOn(file)};
  lines << QString("pictures %1").arg(AnswerOf("pdfimages", {"-list", file}).size() - kHeadings);
  for (const QString& font : AnswerOf("pdffonts", {file}).mid(kHeadings))
    lines << font.section(' ', 0, 0).section('+', -1);
  QStringList points;  // in thirds, as fine as the program tells them
  for (const QString& line : AnswerOf("pdftohtml", {"-xml", "-stdout", "-i", "-l", "1", "-zoom", "3", file}))
    if (const int thirds = line.section("size=\"", 1).section('"', 0, 0).toInt(); thirds > 0)
      points << QString::number(thirds / 3.0, 'f', 1);
  if (points.removeDuplicates(); points.size() > 1) lines << "points " + points.join(' ');
  return lines + texts;
}

QStringList LinesOf(const std::filesystem::path& file) {
  if (std::filesystem::is_directory(file)) return {"folder"};
  const std::string suffix = file.extension().string();
  QFile bytes(QString::fromStdString(file.string()));
  if (!bytes.open(QIODevice::ReadOnly)) return {"closed to all"};
  if (bytes.peek(4) == "%PDF") {
    // Read once: all files are looked at after each deed.
    static std::map<std::pair<std::filesystem::path, std::filesystem::file_time_type>, QStringList> known;
    QStringList& lines = known[{file, std::filesystem::last_write_time(file)}];
    if (lines.isEmpty()) lines = OnPaper(bytes.fileName());
    return lines;
  }
  if (suffix != ".mvne" && suffix != ".ini") return {QString("%1 bytes").arg(bytes.size())};
  QStringList lines = QString::fromLatin1(bytes.readAll()).split("\r\n", Qt::SkipEmptyParts);
  lines.removeIf([](const QString& line) { return line.startsWith(';'); });  // remarks
  return lines;
}

void AddControl(const Control& control, const QWidget& widget, Sight& sight) {
  const QString name = QString::fromStdString(control.Name());
  sight[name] = Shown(control, widget);
  sight[name + kPlace] = {PlaceOf(widget)};
  sight[name + kCaption] = {CaptionOf(control, widget)};
  sight[name + " font"] = {FontOf(widget.font())};
  sight[name + " colours"] = {ColoursOf(widget)};
  sight[name + " image"] = {QString::fromStdString(control.ImageKey())};
  sight[name + " tip"] = {widget.toolTip()};
  if (!widget.isEnabled()) sight[name + " disabled"] = {"yes"};
  if (widget.cursor().shape() == Qt::BitmapCursor) sight["window hands"] << name + PlaceIn(widget.cursor());
  if (const auto* const box = qobject_cast<const QLineEdit*>(&widget))
    sight[name + " selected"] = {box->selectedText()};
  if (const auto* const view = qobject_cast<const QAbstractItemView*>(&widget)) {
    sight[name + " from"] = {view->indexAt({1, 1}).data().toString()};
    for (const QModelIndex& row : view->selectionModel()->selectedIndexes())
      sight[name + " row"] << row.data().toString();
  }
}

}  // namespace

Sight LookAt(const Form& form) {
  const QWidget& window = Hand::See(form);
  Sight sight;
  sight["window" + kPlace] = {PlaceOf(window)};
  sight["window" + kCaption] = {window.windowTitle()};
  sight["window frame"] = {FrameOf(window)};
  for (const auto* const tool : window.findChildren<QToolButton*>())
    if (!tool->toolTip().isEmpty()) sight["window tips"] << tool->toolTip();
  const auto& area = *window.findChild<QScrollArea*>();
  if (area.widget()->height() > area.viewport()->height())
    sight["window scrolls"] = {PlaceOf(*area.widget())};
  if (const auto* const bar = window.findChild<QMenuBar*>()) AddEntries(*bar, "", sight["window menu"]);
  for (const Timer* const timer : form.Timers)
    sight[QString::fromStdString(timer->Name()) + " each"] = {QString("%1 ms").arg(timer->Interval())};
  for (const Control* const control : form.AllControls()) {
    const QString name = QString::fromStdString(control->Name());
    const auto* const widget = window.findChild<QWidget*>(name);
    if (widget != nullptr && widget->isVisible()) AddControl(*control, *widget, sight);
  }
  const QWidget* const focused = QApplication::focusWidget();
  sight["keyboard"] = {focused == nullptr ? "" : focused->objectName()};
  return sight;
}

QStringList UnseenIn(const Form& form) {
  const Sight sight = LookAt(form);
  const QWidget& window = Hand::See(form);
  QStringList spoken;
  for (const auto* const part : window.findChildren<QWidget*>()) {
    const QString name = part->accessibleName();
    if (!name.isEmpty()) spoken << part->objectName() + " \"" + name + '"';
  }
  QStringList told;
  for (const char* const unseen : {"frame", "hands", "tips"}) {
    const auto there = sight.find(QString("window ") + unseen);
    if (there != sight.end()) told << Wrapped(QString("  %1: ").arg(unseen), there->second);
  }
  return told << Wrapped("  spoken: ", spoken);
}

Sight LookAround(const TestMachine& machine) {
  Sight sight;
  namespace fs = std::filesystem;
  const fs::path root = machine.Root.Path();
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string path = machine.Files->FromNative(entry.path());
    if (!path.empty()) sight[QString::fromStdString(path)] = LinesOf(entry.path());
  }
  const fs::path here = fs::current_path().lexically_relative(root);
  if (!here.empty() && *here.begin() != "..")
    sight["working folder"] = {QString::fromStdString(here.string())};
  sight["pointer"] = {NameOf(QGuiApplication::overrideCursor())};
  return sight;
}

}  // namespace Morvane
