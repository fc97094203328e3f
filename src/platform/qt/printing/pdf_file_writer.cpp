#include "platform/qt/printing/pdf_file_writer.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "platform/qt/painting/drawing_painter.h"
#include "platform/runtime_error.h"
#include "platform/units.h"

namespace Morvane {
namespace {

QPageLayout LayoutOf(SheetSize sheet, PageOrientation orientation) {
  const QSizeF points(sheet.widthTwips / kTwipsPerPoint, sheet.heightTwips / kTwipsPerPoint);
  const bool landscape = orientation == PageOrientation::Landscape;
  return {QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch),
          landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(), QPageLayout::Point};
}

}  // namespace

std::vector<PicturePtr> WritePdf(const std::string& nativePath, const DrawingList& drawing,
                                 PageOrientation orientation, SheetSize sheet, const std::string& title) {
  const RuntimeError failure(ErrorNumber::PrinterFailure,
                             "Impossibile scrivere il file '" + nativePath + "'.");
  QSaveFile file(QString::fromStdString(nativePath));
  if (!file.open(QIODevice::WriteOnly)) throw failure;
  std::vector<PicturePtr> undecodable;
  {
    QPdfWriter writer(&file);
    writer.setCreator("Morvane");
    writer.setTitle(QString::fromStdString(title));
    writer.setPageLayout(LayoutOf(sheet, orientation));
    QPainter painter;
    if (!painter.begin(&writer)) throw failure;
    painter.scale(writer.logicalDpiX() / kTwipsPerInch, writer.logicalDpiY() / kTwipsPerInch);
    PaintCache cache;
    undecodable = PaintDrawing(painter, drawing, cache);
    painter.end();
  }
  // What the toolkit still holds back is written here; a commit would not tell that the disk is full.
  if (!file.flush() || file.error() != QFileDevice::NoError || !file.commit()) throw failure;
  return undecodable;
}

}  // namespace Morvane
