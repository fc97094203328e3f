#include <QPainter>

#include "platform/drawing/calibration_sheet.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/units.h"
#include "tests/hand/golden.h"
#include "tests/hand/session.h"

namespace Morvane {
namespace {

constexpr QSizeF kPaper(210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre);

// An upright sheet whose printable area begins at `corner`, in twips.
QImage Painted(const DrawingList& page, double dotsPerInch, QPointF corner = {}) {
  const double dotsPerTwip = dotsPerInch / kTwipsPerInch;
  QImage sheet((kPaper * dotsPerTwip).toSize(), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.scale(dotsPerTwip, dotsPerTwip);
  painter.translate(corner);
  PaintCache cache;
  PaintDrawing(painter, page, cache);
  return sheet;
}

class Sheets : public Session {
 protected:
  Sheets() {
    Ship();
    hand.Show(program.form1.form);
  }

  void Print() {
    machine.Device.Answers.push_back({true, 1});
    ByTool("Stampa")();
  }

  void ChooseLayout(const char* name) {
    Open("Dialog", [&](Form& form) {
      Choose(form, "List1", name);
      Press(form, "OKButton");
    });
  }
};

TEST_F(Sheets, OfCoversHaveOutlinesPicturesAndFooter) {
  PickPhotos();
  Print();
  ChooseLayout("CD - Etichetta disco");
  ByEntry("Linea media")();
  Print();
  ByEntry("Linea grossa")();
  Print();
  ChooseLayout("CD - Libretto");
  Print();
  ExpectSheets("covers", machine.Device.Jobs);
}

TEST_F(Sheets, OfContentsInSmallAndInLargePrint) {
  machine.Device.Answers.assign(3, {true, 1});
  Open("FrmPreview", [&](Form& contents) {
    ReadDisc(contents);
    Press(contents, "Command3");
    const Means chooseFont = [&] { Press(contents, "Command4"); };
    In("fONTEN", chooseFont, [](Form& form) {
      Hand::Type(The(form, "Text1"), "25");
      Press(form, "cmdOK");
    });
    Press(contents, "Check1");
    Press(contents, "Command3");
    Press(contents, "Option1(5)");
    Press(contents, "Command3");
  });
  ASSERT_EQ(machine.Device.Jobs.size(), 3U);
  ExpectSheets("contents", machine.Device.Jobs);
  ExpectPicture("foglio-contenuto", Painted(machine.Device.Jobs[0].page, 60));
}

TEST_F(Sheets, OfCalibrationIsTheOneOfTheGuide) {
  constexpr double kLeft = 3.4, kTop = 6.35;  // mm
  DrawingSurface sheet(metrics);
  sheet.SetSize(kPaper.width(), kPaper.height());
  DrawCalibrationSheet(sheet, kLeft, kTop, 210 - 2 * kLeft, 297 - 2 * kTop);
  ExpectPicture("foglio-taratura", Painted(sheet.Drawing(), 80, QPointF(kLeft, kTop) * kTwipsPerMillimetre));
}

}  // namespace
}  // namespace Morvane
