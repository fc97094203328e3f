#include "platform/qt/desktop/qt_window_system.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QMenu>
#include <QMetaObject>
#include <QWindow>
#include <memory>

#include "platform/qt/desktop/boxes.h"
#include "platform/qt/pictures/artwork.h"

namespace Morvane {
namespace {

constexpr const char* kProgramTitle = "Morvane";

}  // namespace

QtWindowSystem::QtWindowSystem(FileSystem& files) : files_(files) {
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ArtworkIcon("morvane"));
  QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &events_,
                   [this](Qt::ApplicationState state) { FollowApplication(state); });
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &events_, [this] {
    if (leftToOther_) Post([this] { ActivateAfterOther(); });
  });
}

QtWindowSystem::~QtWindowSystem() = default;

FormView& QtWindowSystem::ViewOf(Form& form, FormRole role) {
  if (!form.View) form.View = std::make_shared<FormView>(form, role, ViewContext{*this, painted_});
  return *static_cast<FormView*>(form.View.get());
}

QWidget* QtWindowSystem::WindowOnTop() {
  if (QWidget* const active = QApplication::activeWindow()) return active;
  return running_.empty() ? nullptr : &running_.back()->Window();
}

void QtWindowSystem::ShowFirst(Form& form) {
  FormView& view = ViewOf(form, FormRole::Main);
  running_.push_back(&view);
  view.Show(nullptr);
}

void QtWindowSystem::RunModal(Form& form) {
  FormView& view = ViewOf(form, FormRole::Modal);
  FormView* const below = running_.empty() ? nullptr : running_.back();
  running_.push_back(&view);
  QEventLoop loop;
  view.OnHidden = [&loop] { loop.quit(); };
  view.Show(below == nullptr ? nullptr : &below->Window());
  if (form.Visible() && !Ended()) loop.exec();
  view.OnHidden = nullptr;
  running_.pop_back();
  leftToOther_ = false;
  if (form.Unloaded()) form.View.reset();
  if (below != nullptr && !Ended()) below->Activate();
}

void QtWindowSystem::ProcessToolkitEvents() {
  QCoreApplication::processEvents();
}

void QtWindowSystem::WakeUp() {
  QMetaObject::invokeMethod(
      &events_, [this] { RunPosted(); }, Qt::QueuedConnection);
}

// Every loop ends, those of the boxes too, without asking the windows.
void QtWindowSystem::Quit() {
  for (FormView* const view : running_) view->Window().hide();
  QCoreApplication::exit(0);
}

void QtWindowSystem::FollowApplication(Qt::ApplicationState state) {
  if (state == Qt::ApplicationActive) return ActivateAfterOther();
  leftToOther_ = TopForm() != nullptr;
}

// The user comes back from another program: to the window at once, to a box over it when the box is answered.
void QtWindowSystem::ActivateAfterOther() {
  if (!leftToOther_ || running_.empty() || QGuiApplication::applicationState() != Qt::ApplicationActive)
    return;
  const QWidget* const box = QApplication::activeModalWidget();
  if (box != nullptr && box != &running_.back()->Window()) return;
  leftToOther_ = false;
  Dispatch([this] { TopForm()->PerformActivate(); });
}

MsgBoxAnswer QtWindowSystem::MsgBox(const std::string& text, MsgBoxButtons buttons,
                                    const std::string& title) {
  if (Ended()) return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
  return ShowMessage(WindowOnTop(), text, buttons, title.empty() ? kProgramTitle : title);
}

std::string QtWindowSystem::InputBox(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) {
  if (Ended()) return {};
  return AskForLine(WindowOnTop(), prompt, title.empty() ? kProgramTitle : title, defaultText);
}

void QtWindowSystem::PopupMenu(const std::vector<MenuItem>& items) {
  if (Ended()) return;
  QMenu menu;
  const MenuActions actions = FillMenu(menu, items);
  const QAction* const chosen = menu.exec(QCursor::pos());
  for (const auto& [item, action] : actions) {
    if (action == chosen && item->Click) return item->Click();
  }
}

std::string QtWindowSystem::BrowseForFolder(const std::string& title) {
  if (Ended()) return {};
  const QString chosen = QFileDialog::getExistingDirectory(WindowOnTop(), QString::fromStdString(title));
  if (chosen.isEmpty()) return {};
  const std::string folder = files_.FromNative(chosen.toStdString());
  if (folder.empty())
    MsgBox(
        "Questa cartella non si può usare: sta fuori dalle unità note o il suo nome contiene una barra "
        "rovesciata.");
  return folder;
}

}  // namespace Morvane
