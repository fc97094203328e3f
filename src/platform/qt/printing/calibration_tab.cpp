#include "platform/qt/printing/calibration_tab.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include "platform/runtime_error.h"

namespace Morvane {
namespace {

constexpr double kLargest = 999;  // that can be typed, mm

struct Row {
  const char* caption;
  const char* toolTip;
  double Calibration::*value;
};

constexpr std::array<Row, 4> kRows = {{
    {"La riga &orizzontale di 180 mm misura", "Da 171 a 189 mm", &Calibration::acrossMm},
    {"La riga &verticale di 250 mm misura", "Da 237,5 a 262,5 mm", &Calibration::downMm},
    {"La croce è più a &destra di", "Fino a 20 mm; più a sinistra: con il meno", &Calibration::rightMm},
    {"La croce è più in &basso di", "Fino a 20 mm; più in alto: con il meno", &Calibration::downwardsMm},
}};

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
    field->setToolTip(kRows[i].toolTip);
    form->addRow(kRows[i].caption, field);
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
    message_->setText(
        "Le righe possono misurare dal 95 al 105 %, e la croce spostarsi fino a 20 mm: "
        "la correzione resta quella di prima.");
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
