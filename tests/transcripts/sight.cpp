#include "sight.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QMetaProperty>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollArea>
#include <QToolButton>
#include <QTreeView>
#include <filesystem>

#include "platform/controls/picture_box.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/timer.h"
#include "shapes.h"
#include "telling.h"
#include "tests/hand/hand.h"
#include "tests/support/sheet_measure.h"

namespace Morvane {
namespace {

// As they stand there: what lies below an open row of a tree, indented.
QStringList RowsOf(const QAbstractItemView& view, const QModelIndex& parent = {},
                   const QString& indent = "") {
  const auto* const tree = qobject_cast<const QTreeView*>(&view);
  QStringList rows;
  for (int i = 0; i < view.model()->rowCount(parent); ++i) {
    const QModelIndex row = view.model()->index(i, 0, parent);
    const bool isOpen = tree != nullptr && tree->isExpanded(row);
    const QString mark = !view.model()->hasChildren(row) ? "" : isOpen ? "-" : "+";
    rows << indent + mark + row.data().toString();
    if (isOpen) rows << RowsOf(view, row, indent + "  ");
  }
  return rows;
}

void AddEntries(const QWidget& menu, const QString& indent, QStringList& entries) {
  for (const QAction* const entry : menu.actions()) {
    const QString keys = entry->shortcut().isEmpty() ? "" : "  " + entry->shortcut().toString();
    entries << indent + (entry->isSeparator() ? "-" : entry->text()) + keys +
                   (entry->isEnabled() ? "" : " (disabled)");
    if (entry->menu() != nullptr) AddEntries(*entry->menu(), indent + "  ", entries);
  }
}

QString FontOf(const QFont& font) {
  return QString("%1 %2 px%3%4%5")
      .arg(font.family())
      .arg(font.pixelSize())
      .arg(font.bold() ? " bold" : "", font.italic() ? " italic" : "", font.underline() ? " underlined" : "");
}

QString CaptionOf(const QWidget& widget) {
  const QVariant text = widget.property(qobject_cast<const QGroupBox*>(&widget) ? "title" : "text");
  return text.toString().replace("\r\n", " / ");
}

// On the paper of the window, and of the text.
QString ColoursOf(const QWidget& widget) {
  return widget.palette().color(QPalette::WindowText).name() + " on " +
         (widget.autoFillBackground() ? widget.palette().color(QPalette::Window).name() : "the window");
}

// What the frame of a window offers, and whether the others wait for it.
QStringList FrameOf(const QWidget& window) {
  QStringList there;
  for (const auto& [is, offer] : std::initializer_list<std::pair<bool, QString>>{
           {window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint), "minimise"},
           {window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint), "maximise"},
           {window.windowFlags().testFlag(Qt::WindowCloseButtonHint), "close"},
           {window.minimumSize() != window.maximumSize(), "resize"},
           {window.isModal(), "modal"},
           {!window.windowIcon().isNull(), "icon"}})
    if (is) there << offer;
  return there;
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
  if (const auto* const view = qobject_cast<const QAbstractItemView*>(&widget)) return RowsOf(*view);
  if (const auto* const box = dynamic_cast<const PictureBox*>(&control))
    return ShapesAsText(box->Surface.Drawing(), 2);
  if (const auto* const image = dynamic_cast<const ImageBox*>(&control); image && image->GetPicture()) {
    const PicturePtr& picture = image->GetPicture();
    return {QString("picture of %1 x %2 twips").arg(picture->WidthTwips()).arg(picture->HeightTwips())};
  }
  const QVariant shown = widget.metaObject()->userProperty().read(&widget);  // a text, or whether it is on
  if (shown.typeId() == QMetaType::Bool) return shown.toBool() ? QStringList("on") : QStringList();
  return shown.isValid() ? shown.toString().split('\n') : QStringList();
}

QString PlaceOf(const QWidget& widget) {
  const QRect place = widget.geometry();
  return QString("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

QStringList AnswerOf(const QString& program, const QStringList& arguments) {
  static const QRegularExpression lineEnd("\\s*\n\\s*");
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
  return QString::fromUtf8(process.readAllStandardOutput()).split(lineEnd, Qt::SkipEmptyParts);
}

// Where the first page has ink, and whether it lies on its side.
QString InkOn(const QString& file) {
  const MeasuredSheet sheet(file.toStdString());
  const QRectF mm = sheet.InkMm();
  return QString::asprintf("from %.1f,%.1f to %.1f,%.1f mm", mm.left(), mm.top(), mm.right(), mm.bottom()) +
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
  QStringList points;  // in halves, as fine as the program tells them
  for (const QString& line :
       AnswerOf("pdftohtml", {"-xml", "-stdout", "-i", "-l", "1", "-zoom", "2", file}).filter("<fontspec"))
    points << QString::number(line.section('"', 3, 3).toInt() / 2.0);
  if (points.removeDuplicates(); points.size() > 1) lines << "points " + points.join(' ');
  return {lines.join(" | "), texts.join(" | ")};
}

QStringList LinesOf(const std::filesystem::path& file) {
  if (std::filesystem::is_directory(file)) return {"folder"};
  const QString name = QString::fromStdString(file.string());
  QFile bytes(name);
  if (!bytes.open(QIODevice::ReadOnly)) return {"closed to all"};
  if (bytes.peek(4) == "%PDF") {
    // Read once: all files are looked at after each deed.
    static std::map<std::pair<std::filesystem::path, std::filesystem::file_time_type>, QStringList> known;
    QStringList& lines = known[{file, std::filesystem::last_write_time(file)}];
    if (lines.isEmpty()) lines = OnPaper(name);
    return lines;
  }
  if (!name.endsWith(".mvne") && !name.endsWith(".ini")) return {QString("%1 bytes").arg(bytes.size())};
  QStringList lines = QString::fromLatin1(bytes.readAll()).split("\r\n", Qt::SkipEmptyParts);
  lines.removeIf([](const QString& line) { return line.startsWith(';'); });  // remarks
  return lines;
}

void AddControl(const Control& control, const QWidget& widget, Sight& sight) {
  const QString name = QString::fromStdString(control.Name());
  sight[name] = Shown(control, widget);
  sight[name + " at"] = {PlaceOf(widget)};
  if (qobject_cast<const QLineEdit*>(&widget) == nullptr) sight[name + " caption"] = {CaptionOf(widget)};
  sight[name + " font"] = {FontOf(widget.font())};
  sight[name + " colours"] = {ColoursOf(widget)};
  sight[name + " image"] = {QString::fromStdString(control.ImageKey())};
  sight[name + " tip"] = {widget.toolTip()};
  if (!widget.isEnabled()) sight[name + " disabled"] = {"yes"};
  if (widget.cursor().shape() == Qt::BitmapCursor) sight["window hands"] << name + PlaceIn(widget.cursor());
  sight[name + " selected"] = {widget.property("selectedText").toString()};
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
  sight["window at"] = {PlaceOf(window)};
  sight["window caption"] = {window.windowTitle()};
  sight["window frame"] = FrameOf(window);
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
  for (const auto* const tool : window.findChildren<QToolButton*>()) {
    if (!tool->toolTip().isEmpty()) sight["window tips"] << tool->toolTip();
    if (!tool->isEnabled()) sight[tool->parent()->objectName()] << "without " + tool->objectName();
  }
  if (const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
    for (const QAction* const entry : menu->actions())
      sight["menu"] << (entry == menu->activeAction() ? "> " : "") + entry->text();
  const QWidget* const focused = QApplication::focusWidget();
  sight["keyboard"] = {focused == nullptr ? "" : focused->objectName()};
  return sight;
}

QStringList UnseenIn(const Form& form) {
  Sight sight = LookAt(form);
  for (const auto* const part : Hand::See(form).findChildren<QWidget*>()) {
    const QString name = part->accessibleName();
    if (!name.isEmpty()) sight["window spoken"] << (part->objectName() + " \"" + name + '"').trimmed();
  }
  QStringList told;
  for (const char* const unseen : {"window frame", "window hands", "window tips", "window spoken"})
    if (sight.contains(unseen)) told << Wrapped(QString("  %1: ").arg(unseen), sight[unseen]);
  return told;
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
