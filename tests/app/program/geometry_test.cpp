#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <map>
#include <set>

#include "platform/controls/bars.h"
#include "platform/qt/views/control_views.h"
#include "platform/qt/views/view_text.h"
#include "program_fixture.h"

namespace Morvane {
namespace {

constexpr int kSmallestText = 8;  // logical pixels
constexpr int kEndless = 1 << 20;

// Places that the design gives and that look like faults.
const std::set<std::string> kMeantOverlaps = {
    "FrmPreview Label1 Text1",  // the text box covers the foot of its heading
};
const std::set<std::string> kMeantOutside = {
    "FrmPreview Label1",  // begins left of the window, centred over its text box
    "Form3 Picture5",     // the strip that scrolls through its pane
};

// The longest texts that the program writes there.
const std::map<std::string, std::string> kLongestTexts = {
    {"Dialog Label4", "Ogg.100"},
    {"fONTEN Label1", "N. 12345 Fonts installati"},
    {"frmAbout Label17", "N. 12345"},
    {"frmAbout lblPath", "C:\\Utenti\\Immagini\\Copertine dei dischi\\Fronte\\1998"},
    {"Form3 lblVersion", "Ver.12.10.1234"},
};

struct Caption {
  QString text;
  QSize room;
  int flags = Qt::TextWordWrap | Qt::TextShowMnemonic;
};

// What is written on a widget, and the room that it has there.
Caption CaptionOf(const Control& control, const QWidget& widget) {
  const QString text = QString::fromStdString(control.Caption());
  if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
    QSize room = widget.size() - QSize(4, 4);
    if (!button->icon().isNull()) room -= room.height() < 32 ? QSize(16 + 2, 0) : QSize(0, 16);
    return {text, room};
  }
  if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) {
    return {text, widget.size() - QSize(widget.style()->pixelMetric(QStyle::PM_IndicatorWidth) + 4, 0)};
  }
  if (dynamic_cast<const TitledFrame*>(&widget) != nullptr) {
    return {text, widget.size() - QSize(12, 0), Qt::TextShowMnemonic};
  }
  if (qobject_cast<const QLabel*>(&widget) != nullptr) return {text, widget.size(), Qt::TextWordWrap};
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
    const int frame = widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    return {edit->text().isEmpty() ? "Ág" : edit->text(), QSize(kEndless, widget.height() - 2 * frame), 0};
  }
  return {};
}

void ExpectReadable(const std::string& where, const Control& control, const QWidget& widget) {
  const Caption caption = CaptionOf(control, widget);
  if (caption.text.isEmpty()) return;
  const QFont font = FittingFont(widget.font(), caption.text, caption.room, caption.flags);
  const QSize needed =
      QFontMetrics(font)
          .boundingRect(QRect(0, 0, caption.room.width(), kEndless), caption.flags, caption.text)
          .size();
  EXPECT_TRUE(needed.width() <= caption.room.width() && needed.height() <= caption.room.height())
      << where << ": \"" << caption.text.toStdString() << "\" at " << font.pixelSize() << " needs "
      << needed.width() << "x" << needed.height() << ", has " << caption.room.width() << "x"
      << caption.room.height();
  EXPECT_GE(font.pixelSize(), kSmallestText) << where;
}

void ExpectInPlace(const std::string& where, const Control& control, const QWidget& widget) {
  const QRect place = widget.geometry();
  EXPECT_NEAR(place.x(), control.Left() / 15, 1) << where;
  EXPECT_NEAR(place.y(), control.Top() / 15, 1) << where;
  EXPECT_NEAR(place.x() + place.width(), (control.Left() + control.Width()) / 15, 1) << where;
  EXPECT_NEAR(place.y() + place.height(), (control.Top() + control.Height()) / 15, 1) << where;
  if (kMeantOutside.contains(where)) return;
  EXPECT_TRUE(widget.parentWidget()->rect().adjusted(-1, -1, 1, 1).contains(place)) << where << " is cut off";
}

// The parts of the bars are laid out by the toolkit.
void ExpectPartsFit(const std::string& where, const QWidget& bar) {
  for (const QToolButton* const part : bar.findChildren<QToolButton*>()) {
    EXPECT_TRUE(bar.rect().contains(part->geometry())) << where << " " << part->objectName().toStdString();
    const QSize text = part->text().isEmpty() ? QSize() : part->fontMetrics().size(0, part->text());
    const QSize inside = part->icon().isNull() ? text : part->iconSize();
    EXPECT_EQ(inside.boundedTo(part->size()), inside) << where << " " << part->text().toStdString();
  }
}

void ExpectApart(const std::string& form, const Views& views) {
  for (auto one = views.begin(); one != views.end(); ++one) {
    for (auto other = one + 1; other != views.end(); ++other) {
      if (one->second->parentWidget() != other->second->parentWidget()) continue;
      // Neighbours may share a line of pixels.
      const QRect shared = one->second->geometry() & other->second->geometry();
      if (std::min(shared.width(), shared.height()) <= 1) continue;
      const std::string pair = form + " " + one->first->Name() + " " + other->first->Name();
      EXPECT_TRUE(kMeantOverlaps.contains(pair)) << pair << " overlap";
    }
  }
}

class EveryWindow : public ProgramTest, public testing::WithParamInterface<std::string> {
 protected:
  void ExpectWellLaidOut(Form& form, QWidget& window) {
    Views seen;
    for (const auto& [control, widget] : ViewsOf(form, window)) {
      if (widget == nullptr || !control->Visible()) continue;
      const std::string where = form.Name() + " " + control->Name();
      if (kLongestTexts.contains(where)) control->SetCaption(kLongestTexts.at(where));
      ExpectInPlace(where, *control, *widget);
      ExpectReadable(where, *control, *widget);
      const bool bar = dynamic_cast<Toolbar*>(control) || dynamic_cast<StatusBar*>(control);
      if (bar) ExpectPartsFit(where, *widget);
      // Rulings are for the eye alone and lie under and between the others.
      if (dynamic_cast<Ruling*>(control) == nullptr) seen.emplace_back(control, widget);
    }
    EXPECT_GE(seen.size(), 3U);
    ExpectApart(form.Name(), seen);
  }
};

TEST_P(EveryWindow, LiesAsDesignedWithReadableTexts) {
  Open(GetParam(), [&](Form& form, QWidget& window) { ExpectWellLaidOut(form, window); });
}

TEST_F(ProgramTest, EditorShowsEveryLayoutsNameWhole) {
  Open("Dialog", [](Form&, QWidget& window) {
    const auto* list = window.findChild<QListView*>();
    EXPECT_LE(list->sizeHintForColumn(0), list->viewport()->width());
  });
}

INSTANTIATE_TEST_SUITE_P(Program, EveryWindow, testing::ValuesIn(kAllWindows),
                         [](const auto& window) { return window.param; });

}  // namespace
}  // namespace Morvane
