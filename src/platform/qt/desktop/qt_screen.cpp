#include "platform/qt/desktop/qt_screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include "platform/qt/pictures/artwork.h"
#include "platform/qt/views/view_text.h"

namespace Morvane {
namespace {

constexpr QSize kPointerSize(32, 32);
constexpr QPoint kHandHotSpot(12, 2);

QCursor CustomPointer(const std::string& imageKey) {
  const QPixmap image = ArtworkPixmap(imageKey, kPointerSize, qGuiApp->devicePixelRatio());
  if (image.isNull()) return QCursor(Qt::PointingHandCursor);
  return QCursor(image, kHandHotSpot.x(), kHandHotSpot.y());
}

QCursor CursorFor(const Screen& screen) {
  if (screen.Pointer() == MousePointer::Hourglass) return QCursor(Qt::WaitCursor);
  if (screen.Pointer() == MousePointer::ArrowHourglass) return QCursor(Qt::BusyCursor);
  return CustomPointer(screen.MouseIcon());
}

}  // namespace

QtScreen::QtScreen(Screen& screen) : screen_(screen) {
  const QSize available = QGuiApplication::primaryScreen()->availableSize();
  screen_.Width = ToTwips(available.width());
  screen_.Height = ToTwips(available.height());
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
