#include <QAccessible>
#include <QListView>
#include <QRadioButton>
#include <QToolButton>
#include <algorithm>
#include <map>

#include "platform/controls/bars.h"
#include "platform/controls/list_box.h"
#include "platform/controls/tree_view.h"
#include "tests/hand/session.h"

namespace Morvane {
namespace {

constexpr int kMostStops = 100;

template <typename... Kinds>
bool IsOneOf(Control& control) {
  return ((dynamic_cast<Kinds*>(&control) != nullptr) || ...);
}

// What the user can act on in a control.
std::vector<QWidget*> Acting(Control& control) {
  std::vector<QWidget*> parts;
  if (IsOneOf<Toolbar, StatusBar>(control)) {
    for (QToolButton* const part : Hand::See(control).findChildren<QToolButton*>()) parts.push_back(part);
  } else if (control.HasHandPointer() ||
             IsOneOf<CommandButton, CheckBox, OptionButton, TextBox, ListBox, TreeView>(control)) {
    parts.push_back(&Hand::See(control));
  }
  std::erase_if(parts, [](const QWidget* part) { return !part->isEnabled(); });
  return parts;
}

std::vector<QWidget*> ActingIn(const Form& form) {
  std::vector<QWidget*> acting;
  for (Control* const control : form.AllControls()) {
    if (!control->Visible()) continue;
    for (QWidget* const part : Acting(*control)) acting.push_back(part);
  }
  return acting;
}

// Presses a key until it comes back to where it was, or nowhere new.
std::vector<QWidget*> Walk(QWidget& window, Qt::Key key) {
  std::vector<QWidget*> stops;
  while (stops.size() < kMostStops) {
    QWidget* const stop = window.focusWidget();
    if (stop == nullptr || std::find(stops.begin(), stops.end(), stop) != stops.end()) break;
    stops.push_back(stop);
    QTest::keyClick(stop, key);
  }
  return stops;
}

// The Tab key stops at one option of a group; the arrow keys reach the others.
std::vector<QWidget*> Reached(QWidget& window) {
  std::vector<QWidget*> reached;
  for (QWidget* const stop : Walk(window, Qt::Key_Tab)) {
    if (qobject_cast<QRadioButton*>(stop) == nullptr) {
      reached.push_back(stop);
      continue;
    }
    stop->setFocus();
    for (QWidget* const option : Walk(window, Qt::Key_Down)) reached.push_back(option);
  }
  return reached;
}

std::vector<std::string> Names(const std::vector<QWidget*>& widgets) {
  std::vector<std::string> names;
  for (const QWidget* const widget : widgets) {
    names.push_back(widget->objectName().isEmpty() ? widget->accessibleName().toStdString()
                                                   : widget->objectName().toStdString());
  }
  return names;
}

class Keyboard : public Session, public testing::WithParamInterface<std::string> {
 protected:
  void SetUp() override {
    Ship();
    hand.Show(program.form1.form);
  }
};

TEST_P(Keyboard, ReachesEverythingInTheOrderOfTheTable) {
  Open(GetParam(), [](Form& form) {
    const std::vector<QWidget*> acting = ActingIn(form);
    ASSERT_FALSE(acting.empty());
    acting.front()->setFocus();
    EXPECT_EQ(Names(Reached(Hand::See(form))), Names(acting));
    for (Control* const control : form.AllControls()) {
      if (const auto* const option = dynamic_cast<OptionButton*>(control)) {
        EXPECT_EQ(Hand::See<QRadioButton>(*option).isChecked(), option->Value()) << option->Name();
      }
    }
  });
}

TEST_P(Keyboard, EverythingHasASpokenNameOfItsOwn) {
  Open(GetParam(), [](Form& form) {
    std::map<QString, std::string> known;
    for (QWidget* const widget : ActingIn(form)) {
      const QString name = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
      const bool says = std::any_of(name.begin(), name.end(), [](QChar c) { return c.isLetterOrNumber(); });
      const std::string where = widget->objectName().toStdString();
      EXPECT_TRUE(says) << where << " is spoken as \"" << name.toStdString() << "\"";
      const auto [same, isNew] = known.emplace(name, where);
      EXPECT_TRUE(isNew) << where << " and " << same->second << " are spoken as " << name.toStdString();
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Program, Keyboard, testing::ValuesIn(kAllWindows),
                         [](const auto& window) { return window.param; });

}  // namespace
}  // namespace Morvane
