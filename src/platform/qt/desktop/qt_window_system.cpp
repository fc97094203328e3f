#include "platform/qt/desktop/qt_window_system.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenu>
#include <QMessageBox>
#include <QMetaObject>
#include <QWindow>
#include <memory>

#include "platform/qt/pictures/artwork.h"

namespace Morvane {
namespace {

constexpr const char* kProgramTitle = "Morvane";
constexpr int kPromptWidth = 420;

QMessageBox::StandardButtons ButtonsFor(MsgBoxButtons buttons) {
  if (buttons == MsgBoxButtons::YesNo) return QMessageBox::Yes | QMessageBox::No;
  return buttons == MsgBoxButtons::OkCancel ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok;
}

// A box that ends without a button, as the program ends, agrees to nothing.
MsgBoxAnswer AnswerOf(int button) {
  if (button == QMessageBox::Ok) return MsgBoxAnswer::Ok;
  if (button == QMessageBox::Yes) return MsgBoxAnswer::Yes;
  return button == QMessageBox::No ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
}

QString TitleOr(const std::string& title) {
  return title.empty() ? kProgramTitle : QString::fromStdString(title);
}

}  // namespace

QtWindowSystem::QtWindowSystem(FileSystem& files) : files_(files) {
  QApplication::installTranslator(&gaps_);
  if (italian_.load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(&italian_);
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
  Dispatch([this] { TopForm()->ActivateIfVisible(); });
}

MsgBoxAnswer QtWindowSystem::MsgBox(const std::string& text, MsgBoxButtons buttons,
                                    const std::string& title) {
  if (Ended()) return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
  QMessageBox box(WindowOnTop());
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(text));
  box.setWindowTitle(TitleOr(title));
  box.setStandardButtons(ButtonsFor(buttons));
  return AnswerOf(box.exec());
}

std::string QtWindowSystem::InputBox(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) {
  if (Ended()) return {};
  QInputDialog box(WindowOnTop());
  box.setWindowTitle(TitleOr(title));
  box.setLabelText(QString::fromStdString(prompt));
  box.setTextValue(QString::fromStdString(defaultText));
  auto& question = *box.findChild<QLabel*>();
  question.setTextFormat(Qt::PlainText);
  question.setWordWrap(true);
  question.setMinimumWidth(kPromptWidth);  // the box has no width of its own
  return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
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
