#include "platform/qt/printing/printer_sheet.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <iterator>

#include "platform/units.h"

namespace Morvane {

// The toolkit tells margins in the unit that the printer's layout has at the moment, rounded to a hundredth
// of it, and for the way that it is turned; a print dialog leaves millimetres there, or inches. The margins
// given here mean nothing, since each sheet is printed whole: they bring the unit that the description has.
PrinterSheet TakeSheet(QPrinter& printer, const QPageSize& sheet) {
  printer.setFullPage(true);
  printer.setPageOrientation(QPageLayout::Portrait);
  printer.setPageMargins(QMarginsF(), QPageLayout::Point);
  printer.setPageSize(sheet);
  const QPageLayout layout = printer.pageLayout();
  return {layout.pageSize().size(QPageSize::Millimeter),
          layout.minimumMargins() * (kTwipsPerPoint / kTwipsPerMillimetre)};
}

QPageSize OwnSheet(const QPrinter& printer) {
  const QPageSize own = QPrinterInfo(printer).defaultPageSize();
  return own.isValid() ? own : QPageSize(QPageSize::A4);
}

// Photo printers have a sheet twice, once without margins.
QPageSize FittingSheet(const QPrinter& printer, const QPageSize& wanted) {
  const QList<QPageSize> sheets = QPrinterInfo(printer).supportedPageSizes();
  if (sheets.isEmpty()) return wanted;
  QList<QPageSize> same;
  std::copy_if(sheets.begin(), sheets.end(), std::back_inserter(same),
               [&](const QPageSize& sheet) { return sheet.isEquivalentTo(wanted); });
  for (const QPageSize& sheet : same)
    if (sheet.key() == wanted.key()) return sheet;
  const QPageSize own = OwnSheet(printer);
  return same.isEmpty() || same.contains(own) ? own : same.front();
}

}  // namespace Morvane
