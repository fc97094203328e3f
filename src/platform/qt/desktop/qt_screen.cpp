#include "platform/qt/desktop/qt_screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

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
  const QWindow* const inUse = QGuiApplication::focusWindow();
  const QScreen* const screen = inUse == nullptr ? QGuiApplication::primaryScreen() : inUse->screen();
  return screen->availableGeometry();
}

void FollowDesktop(Screen& screen) {
  screen.Measure = [] { return ScreenSize{ToTwips(Desk().width()), ToTwips(Desk().height())}; };
  screen.OnPointerChange = [&screen] {
    QGuiApplication::restoreOverrideCursor();
    if (screen.Pointer() != MousePointer::Default) QGuiApplication::setOverrideCursor(CursorFor(screen));
  };
}

}  // namespace Morvane
