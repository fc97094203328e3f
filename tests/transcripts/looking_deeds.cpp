#include <malloc.h>

#include <QPainter>
#include <QScrollBar>
#include <QTest>

#include "platform/drawing/calibration_sheet.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/units.h"
#include "telling.h"
#include "tests/hand/golden.h"
#include "transcript.h"

namespace Morvane {
namespace {

using Scene = Transcript;

// All that a key leads to; what has no name by its caption.
void Walk(Scene& scene, Words words) {
  const Qt::Key key = QKeySequence(words.rest)[0].key();
  QWidget& window = Hand::See(scene.Top());
  QWidgetList stops;
  QStringList told;
  while (window.focusWidget() != nullptr && !stops.contains(window.focusWidget())) {
    stops << window.focusWidget();
    const QString name = stops.back()->objectName();
    told << (name.isEmpty() ? '"' + stops.back()->property("text").toString() + '"' : name);
    QTest::keyClick(stops.back(), key);
  }
  scene.Show(Wrapped("    ", told));
}

void LookCloser(Scene& scene, Words words) {
  for (const QString& line : InFull(LookAt(scene.Top()).at(words.rest))) scene.Show(line);
}

// The window must be as its picture in the documentation, but for the scroll bars.
void TakePicture(Scene& scene, Words words) {
  QWidget& window = Hand::See(scene.Top());
  window.grab();
  Hand::Settle();  // scroll bars come and go after the first painting
  const QImage seen = window.grab().toImage();
  const double scale = seen.devicePixelRatio();
  QRegion bars;
  for (const auto* bar : window.findChildren<QScrollBar*>())
    if (bar->isVisible()) bars += QRect(bar->mapTo(&window, QPoint()), bar->size());
  ExpectPicture(words.All() + "-" + std::to_string(std::lround(scale * 100)), seen,
                QTransform::fromScale(scale, scale).map(bars));
}

// An upright sheet, from the corner of what is printable.
void ExpectSheet(const std::string& name, const DrawingList& page, double dotsPerInch, QPointF corner = {}) {
  const double dotsPerMm = dotsPerInch / kMillimetresPerInch;
  QImage sheet((QSizeF(210, 297) * dotsPerMm).toSize(), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.scale(dotsPerMm / kTwipsPerMillimetre, dotsPerMm / kTwipsPerMillimetre);
  painter.translate(corner * kTwipsPerMillimetre);
  PaintCache cache;
  PaintDrawing(painter, page, cache);
  ExpectPicture(name, sheet);
}

void TakeCalibrationSheet(Scene& scene, Words words) {
  constexpr QPointF kCorner(3.4, 6.35);  // mm
  DrawingSurface sheet(scene.metrics);
  sheet.SetSize(210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre);
  DrawCalibrationSheet(sheet, kCorner.x(), kCorner.y(), 210 - 2 * kCorner.x(), 297 - 2 * kCorner.y());
  ExpectSheet(words.All(), sheet.Drawing(), 80, kCorner);
}

// What the program holds, since it was told last.
void TellMemory(Scene& scene, Words) {
  constexpr std::size_t kMostGrowth = 1 << 20;  // bytes
  const struct mallinfo2 memory = mallinfo2();
  const std::size_t now = memory.uordblks + memory.hblkhd;
  const std::size_t before = std::exchange(scene.Memory, now);
  scene.Show(now < before || now - before < kMostGrowth ? "  memory is as before"
                                                        : QString("  %1 bytes more").arg(now - before));
}

}  // namespace

// clang-format off
const std::map<QString, Deed> kDeedsOfTheEye = {
    {"walk", Walk},
    {"look", LookCloser},
    {"listen", [](Scene& s, Words) { s.Show(UnseenIn(s.Top()).join('\n')); }},
    {"take", TakePicture},
    {"take-sheet", [](Scene& s, Words w) { ExpectSheet(w.All(), s.Printed, 60); }},
    {"take-calibration-sheet", TakeCalibrationSheet},
    {"memory", TellMemory},
};
// clang-format on

}  // namespace Morvane
