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

// What the tab says of a field: %1 is the exact measure, %2 and %3 the limits.
struct Row {
  const char* caption;
  const char* toolTip;
};

// In the order of kCalibrationFields.
constexpr Row kRows[] = {
    {"&La riga orizzontale di %1 mm misura", "Da %2 a %3 mm"},
    {"La riga &verticale di %1 mm misura", "Da %2 a %3 mm"},
    {"La croce è più a &destra di", "Fino a %3 mm; più a sinistra: con il meno"},
    {"La croce è più in &basso di", "Fino a %3 mm; più in alto: con il meno"},
};

QString Number(double value) {
  return QLocale(QLocale::Italian).toString(value);
}

QString FilledIn(QString text, const CalibrationField& field) {
  return text.replace("%1", Number(field.exact))
      .replace("%2", Number(field.exact - field.most))
      .replace("%3", Number(field.exact + field.most));
}

// Whichever sign is typed parts the decimals: the toolkit drops the one that is not the locale's, and half a
// millimetre would become five.
class MeasureBox : public QDoubleSpinBox {
 public:
  using QDoubleSpinBox::QDoubleSpinBox;

 protected:
  QValidator::State validate(QString& text, int& position) const override {
    for (const QChar sign : {QChar('.'), QChar(',')}) text.replace(sign, locale().decimalPoint());
    return QDoubleSpinBox::validate(text, position);
  }
};

QString RefusalText() {
  return QString(
             "Le righe possono misurare dal %1 al %2 %, e la croce spostarsi fino a %3 mm: "
             "la correzione resta quella di prima.")
      .arg(Number(100 - kCalibrationPercent), Number(100 + kCalibrationPercent), Number(kCalibrationShift));
}

}  // namespace

CalibrationTab::CalibrationTab(Calibrations& calibrations,
                               std::function<void(const QString& printer)> printSheet)
    : calibrations_(calibrations), message_(new QLabel(this)) {
  setWindowTitle("Taratura");
  auto* form = new QFormLayout(this);
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    auto* field = fields_[i] = new MeasureBox(this);
    field->setRange(-kLargest, kLargest);
    field->setSingleStep(0.1);
    field->setSuffix(" mm");
    field->setKeyboardTracking(false);
    field->setToolTip(FilledIn(kRows[i].toolTip, kCalibrationFields[i]));
    form->addRow(FilledIn(kRows[i].caption, kCalibrationFields[i]), field);
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
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const QSignalBlocker quiet(fields_[i]);
    fields_[i]->setValue(calibration.*kCalibrationFields[i].value);
  }
}

void CalibrationTab::Keep() {
  Calibration typed;
  for (std::size_t i = 0; i < fields_.size(); ++i) typed.*kCalibrationFields[i].value = fields_[i]->value();
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
