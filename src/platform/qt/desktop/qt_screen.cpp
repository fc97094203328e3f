#include "platform/qt/desktop/qt_screen.h"

#include <QGuiApplication>
#include <QScreen>

#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

QCursor CursorFor(const Screen& screen) {
  if (screen.Pointer() == MousePointer::Hourglass) return QCursor(Qt::WaitCursor);
  if (screen.Pointer() == MousePointer::ArrowHourglass) return QCursor(Qt::BusyCursor);
  return ArtworkPointer(screen.MouseIcon());
}

}  // namespace

QRect Desk() {
  return QGuiApplication::primaryScreen()->availableGeometry();
}

QtScreen::QtScreen(Screen& screen) : screen_(screen) {
  screen_.Measure = [] { return ScreenSize{ToTwips(Desk().width()), ToTwips(Desk().height())}; };
  screen_.OnPointerChange = [this] { MirrorPointer(); };
}

QtScreen::~QtScreen() {
  screen_.OnPointerChange = nullptr;
}

void QtScreen::MirrorPointer() {
  if (overridden_) QGuiApplication::restoreOverrideCursor();
  overridden_ = screen_.Pointer() != MousePointer::Default;
  if (overridden_) QGuiApplication::setOverrideCursor(CursorFor(screen_));
}

}  // namespace Morvane
