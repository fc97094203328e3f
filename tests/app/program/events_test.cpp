#include <QExposeEvent>
#include <QListView>
#include <QToolButton>
#include <QTreeView>
#include <QWindow>

#include "platform/controls/bars.h"
#include "platform/controls/list_box.h"
#include "platform/controls/tree_view.h"
#include "tests/hand/session.h"

namespace Morvane {
namespace {

constexpr int kLongestWait = 2000;  // milliseconds

// Takes the handler's place and does what a person does to reach it.
template <typename... Arguments>
void Reach(const std::string& event, std::function<void(Arguments...)>& handler,
           const std::function<void()>& means) {
  if (!handler) return;
  bool fired = false;
  handler = [&](Arguments...) { fired = true; };
  means();
  EXPECT_TRUE(QTest::qWaitFor([&] { return fired; }, kLongestWait))
      << event << " is connected, and nothing that a person does fires it";
  handler = nullptr;
}

// The place of the first row, in twips.
QPointF FirstRow(const Control& control) {
  auto* const rows = qobject_cast<QAbstractItemView*>(&Hand::See(control));
  if (rows == nullptr) return {control.Width() / 2, control.Height() / 2};
  return QPointF(rows->visualRect(rows->model()->index(0, 0)).center()) * kTwipsPerPixel;
}

void ClickFirst(const Control& control) {
  Hand::Click(control, FirstRow(control).x(), FirstRow(control).y());
}

void ClickOtherThing(const Control& control) {
  const auto* const option = dynamic_cast<const OptionButton*>(&control);
  if (option == nullptr || !option->Value()) return ClickFirst(control);
  for (const Control* const sibling : control.Parent().Children()) {
    if (dynamic_cast<const OptionButton*>(sibling) != nullptr && sibling != &control) Hand::Press(*sibling);
  }
  Hand::Press(control);
}

void ReachBars(Control& control) {
  if (auto* const bar = dynamic_cast<Toolbar*>(&control)) {
    Reach("ButtonClick", bar->ButtonClick,
          [&] { Hand::See(control).findChild<QToolButton*>("Front")->click(); });
    Reach("ButtonMenuClick", bar->ButtonMenuClick, [&] {
      Hand::See(control).findChild<QToolButton*>("Contorno")->menu()->actions().front()->trigger();
    });
  }
  if (auto* const bar = dynamic_cast<StatusBar*>(&control)) {
    Reach("PanelClick", bar->PanelClick, [&] { Hand::See(control).findChild<QToolButton*>()->click(); });
  }
}

void ReachTree(Control& control) {
  auto* const tree = dynamic_cast<TreeView*>(&control);
  if (tree == nullptr) return;
  const auto key = [&](Qt::Key pressed) {
    return [&control, pressed] {
      Hand::See(control).setFocus();
      Hand::Key(pressed);
    };
  };
  Reach("NodeClick", tree->NodeClick, [&] { ClickFirst(control); });
  Reach("Collapse", tree->Collapse, key(Qt::Key_Minus));
  Reach("Expand", tree->Expand, key(Qt::Key_Plus));
}

void ReachEvents(Control& control) {
  SCOPED_TRACE(control.Name());
  ReachBars(control);
  ReachTree(control);
  if (auto* const timer = dynamic_cast<Timer*>(&control)) {
    Reach("Tick", timer->Tick, [] {});
  }
  if (auto* const list = dynamic_cast<ListBox*>(&control); list != nullptr && list->ListCount() == 0) {
    list->AddItem("riga");
    QTest::qWait(0);
  }
  if (auto* const box = dynamic_cast<TextBox*>(&control)) {
    Reach("Change", box->Change, [&] { Hand::Type(control, "x"); });
  }
  Reach("LostFocus", control.LostFocus, [&] {
    Hand::Press(control);
    Hand::Key(Qt::Key_Tab);
  });
  Reach("KeyDown", control.KeyDown, [&] {
    Hand::See(control).setFocus();
    Hand::Key(Qt::Key_Return);
  });
  Reach("MouseMove", control.MouseMove, [&] {
    Hand::Point(control, 0, 0);
    Hand::Point(control, 60, 60);
  });
  Reach("MouseDown", control.MouseDown, [&] { Hand::Press(control); });
  Reach("Click", control.Click, [&] { ClickOtherThing(control); });
  Reach("DblClick", control.DblClick, [&] {
    ClickFirst(control);
    QTest::mouseDClick(Hand::See<QListView>(control).viewport(), Qt::LeftButton, {},
                       (FirstRow(control) / kTwipsPerPixel).toPoint());
  });
}

void ReachEvents(Form& form) {
  SCOPED_TRACE(form.Name());
  QWidget& window = Hand::See(form);
  Reach("Paint", form.Paint, [&] {
    QExposeEvent uncovered(QRegion(0, 0, 9, 9));
    QApplication::sendEvent(window.windowHandle(), &uncovered);
  });
  QWidget& client = *window.findChild<QScrollArea*>({}, Qt::FindDirectChildrenOnly)->widget();
  Reach("MouseMove", form.MouseMove, [&] {
    QTest::mouseMove(&client, QPoint(1, 1));
    QTest::mouseMove(&client, QPoint(2, 2));
  });
  Reach("Resize", form.Resize, [&] {
    window.resize(window.width() + 20, window.height() + 20);
    Hand::Settle();
  });
}

class Events : public Session, public testing::WithParamInterface<std::string> {};

TEST_P(Events, OfEachConnectedHandlerCanBeFiredByAPerson) {
  Ship();
  hand.Show(program.form1.form);
  Open(GetParam(), [](Form& form) {
    for (Control* const control : form.AllControls()) {
      const bool seen =
          control->Visible() && (control->Width() > 0 || dynamic_cast<Timer*>(control) != nullptr);
      if (seen) ReachEvents(*control);
    }
    ReachEvents(form);
  });
}

INSTANTIATE_TEST_SUITE_P(Program, Events, testing::ValuesIn(kAllWindows),
                         [](const auto& window) { return window.param; });

}  // namespace
}  // namespace Morvane
