#include <QPainter>

#include "platform/drawing/calibration_sheet.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/units.h"
#include "session.h"

namespace Morvane {
namespace {

class Sheets : public Session {
 protected:
  Sheets() { Ship(); }

  void Print() {
    machine.Device.Answers.push_back({true, 1});
    ByTool("Stampa")();
  }

  void ChooseLayout(const std::string& name) {
    In("Dialog", ByTool("Settaogg"), [&](Form& form) {
      Control& list = The(form, "List1");
      Hand::ClickRow(list, Hand::Row(list, name));
      Hand::Press(The(form, "OKButton"));
    });
  }

  // An upright A4 sheet; its printable area begins at `corner`, in mm.
  static QImage Painted(const DrawingList& page, double dotsPerInch, QPointF corner) {
    const double dotsPerTwip = dotsPerInch / kTwipsPerInch;
    QImage sheet((QSizeF(210, 297) * kTwipsPerMillimetre * dotsPerTwip).toSize(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.scale(dotsPerTwip, dotsPerTwip);
    painter.translate(corner * kTwipsPerMillimetre);
    PaintCache cache;
    PaintDrawing(painter, page, cache);
    return sheet;
  }
};

TEST_F(Sheets, OfTheDefaultPageHasBothPicturesAndItsFooter) {
  hand.Show(program.form1.form);
  PickPhoto("Front", 0);
  PickPhoto("Back", 1);
  Print();
  ExpectSheets("default_page", machine.Device.Jobs);
}

TEST_F(Sheets, OfLayoutsHaveEllipsesOfThreeAndFiveLinesAndLieAsTheyAre) {
  hand.Show(program.form1.form);
  PickPhoto("Front", 0);
  ChooseLayout("CD - Etichetta disco");
  ByEntry("Linea media")();
  Print();
  ByEntry("Linea grossa")();
  Print();
  ChooseLayout("CD - Libretto");
  Print();
  ExpectSheets("layouts", machine.Device.Jobs);
}

TEST_F(Sheets, OfContentsInSmallAndInLargePrint) {
  hand.Show(program.form1.form);
  machine.Device.Answers.assign(2, {true, 1});
  In("FrmPreview", ByTool("LeggiCD"), [&](Form& contents) {
    ReadDisc(contents);
    Hand::Press(The(contents, "Command3"));
    In("fONTEN", ByButton(contents, "Command4"), [&](Form& form) {
      Hand::Type(The(form, "Text1"), "25");
      Hand::Press(The(form, "cmdOK"));
    });
    Hand::Press(The(contents, "Check1"));
    Hand::Press(The(contents, "Command3"));
  });
  ASSERT_EQ(machine.Device.Jobs.size(), 2U);
  ExpectSheets("contents", machine.Device.Jobs);
  ExpectPicture("foglio-contenuto", Painted(machine.Device.Jobs[0].page, 60, {0, 0}));
}

TEST_F(Sheets, OfCalibrationIsTheOneOfTheGuide) {
  DrawingSurface sheet(metrics);
  sheet.SetSize(210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre);
  const QPointF corner(3.4, 6.35);
  DrawCalibrationSheet(sheet, corner.x(), corner.y(), 210 - 2 * corner.x(), 297 - 2 * corner.y());
  ExpectPicture("foglio-taratura", Painted(sheet.Drawing(), 80, corner));
}

}  // namespace
}  // namespace Morvane
