#include "platform/qt/printing/pdf_file_writer.h"

#include <QBuffer>
#include <QFileInfo>
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

// A pipe or a device would be taken away and a file put in its place; a name that is no UTF-8 would become
// another one.
bool CanBeReplaced(const QString& path, const std::string& nativePath) {
  const QFileInfo older(path);
  return QFile::encodeName(path).toStdString() == nativePath && (older.isFile() || !older.exists());
}

}  // namespace

std::vector<PicturePtr> WritePdf(const std::string& nativePath, const DrawingList& drawing,
                                 PageOrientation orientation, SheetSize sheet, const std::string& title) {
  const RuntimeError failure(ErrorNumber::PrinterFailure,
                             "Impossibile scrivere il file '" + nativePath + "'.");
  const QString path = QString::fromStdString(nativePath);
  QSaveFile file(path);
  if (!CanBeReplaced(path, nativePath) || !file.open(QIODevice::WriteOnly)) throw failure;
  // The toolkit's writer of PDF does not tell when a disk that gets full takes a part of what it writes.
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  std::vector<PicturePtr> undecodable;
  {
    QPdfWriter writer(&pdf);
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
  // What the file still holds back is written by the flush; a commit would not tell that the disk is full.
  if (file.write(pdf.data()) != pdf.size() || !file.flush() || !file.commit()) throw failure;
  return undecodable;
}

}  // namespace Morvane
