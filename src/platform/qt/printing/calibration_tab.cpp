#include "platform/qt/printing/calibration_tab.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>

#include "platform/runtime_error.h"

namespace Morvane {
namespace {

constexpr double kLargest = 999;  // that can be typed, mm

struct Row {
  const char* caption;  // with the length of a ruler
  const char* toolTip;  // with the limits of what it may measure, or of the shift
  double Calibration::*value;
  double ruler = 0;  // mm
};

constexpr std::array<Row, 4> kRows = {{
    {"La riga &orizzontale di %1 mm misura", "Da %1 a %2 mm", &Calibration::acrossMm, kCalibrationAcross},
    {"La riga &verticale di %1 mm misura", "Da %1 a %2 mm", &Calibration::downMm, kCalibrationDown},
    {"La croce è più a &destra di", "Fino a %1 mm; più a sinistra: con il meno", &Calibration::rightMm},
    {"La croce è più in &basso di", "Fino a %1 mm; più in alto: con il meno", &Calibration::downwardsMm},
}};

QString Number(double value) {
  return QLocale(QLocale::Italian).toString(value);
}

QString CaptionOf(const Row& row) {
  return row.ruler > 0 ? QString(row.caption).arg(Number(row.ruler)) : QString(row.caption);
}

QString ToolTipOf(const Row& row) {
  if (row.ruler == 0) return QString(row.toolTip).arg(Number(Calibration::kMostShiftMm));
  return QString(row.toolTip)
      .arg(Number(row.ruler * Calibration::kLeastScale), Number(row.ruler * Calibration::kMostScale));
}

QString RefusalText() {
  return QString(
             "Le righe possono misurare dal %1 al %2 %, e la croce spostarsi fino a %3 mm: "
             "la correzione resta quella di prima.")
      .arg(Number(100 * Calibration::kLeastScale), Number(100 * Calibration::kMostScale),
           Number(Calibration::kMostShiftMm));
}

}  // namespace

CalibrationTab::CalibrationTab(Calibrations& calibrations,
                               std::function<void(const QString& printer)> printSheet)
    : calibrations_(calibrations), message_(new QLabel(this)) {
  setWindowTitle("Taratura");
  auto* form = new QFormLayout(this);
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    auto* field = fields_[i] = new QDoubleSpinBox(this);
    field->setRange(-kLargest, kLargest);
    field->setSingleStep(0.1);
    field->setSuffix(" mm");
    field->setKeyboardTracking(false);
    field->setToolTip(ToolTipOf(kRows[i]));
    form->addRow(CaptionOf(kRows[i]), field);
    connect(field, &QDoubleSpinBox::valueChanged, this, [this] { Keep(); });
  }
  auto* buttons = new QHBoxLayout;
  auto* sheet = new QPushButton("Stampa il &foglio di taratura", this);
  auto* reset = new QPushButton("A&zzera", this);
  for (QPushButton* button : {sheet, reset}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  sheet->setToolTip("Stampa, senza correzione, il foglio da misurare con un righello");
  reset->setToolTip("Toglie la correzione di questa stampante");
  connect(sheet, &QPushButton::clicked, this, [this, printSheet] { Try([&] { printSheet(printer_); }); });
  connect(reset, &QPushButton::clicked, this, [this] {
    Fill({});
    Keep();
  });
  form->addRow(buttons);
  message_->setWordWrap(true);
  form->addRow(message_);
}

void CalibrationTab::ShowPrinter(const QString& printer) {
  printer_ = printer;
  Fill(calibrations_.Of(printer));
  message_->clear();
}

void CalibrationTab::Fill(const Calibration& calibration) {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    const QSignalBlocker quiet(fields_[i]);
    fields_[i]->setValue(calibration.*kRows[i].value);
  }
}

void CalibrationTab::Keep() {
  Calibration typed;
  for (std::size_t i = 0; i < kRows.size(); ++i) typed.*kRows[i].value = fields_[i]->value();
  message_->clear();
  if (!typed.IsUsual()) {
    message_->setText(RefusalText());
    return;
  }
  Try([&] { calibrations_.Keep(printer_, typed); });
}

// A failure is a line of the tab.
void CalibrationTab::Try(const std::function<void()>& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    message_->setText(QString::fromUtf8(error.what()));
  }
}

}  // namespace Morvane
