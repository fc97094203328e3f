#include <QComboBox>
#include <QDialogButtonBox>
#include <QLocale>
#include <QPageSize>
#include <QRadioButton>
#include <regex>
#include <sstream>

#include "printing_fixture.h"

namespace Morvane {
namespace {

// A printer's description as its maker or its users published it; nobody of this program wrote one.
struct Published {
  const char* package;
  const char* description;    // below its folder of them
  bool isPostScript = false;  // its own filters make that
};

constexpr Published kPrinters[] = {
    {"openprinting-ppds", "0/ppd/openprinting/Canon/cnl710cx1g.ppd"},  // odd decimals, A4
    {"openprinting-ppds", "0/ppd/openprinting/Epson/eplp960s.ppd"},    // four unlike margins
    {"openprinting-ppds", "0/ppd/openprinting/Kyocera/es/Kyocera_FS-C5350DN.ppd", true},
    {"openprinting-ppds", "4/ppd/openprinting/Lexmark/Lexmark_CX860_Series.ppd"},
    {"openprinting-ppds", "0/ppd/openprinting/KONICA_MINOLTA/KOC451JX.ppd"},  // A4, no custom sizes
    {"openprinting-ppds", "0/ppd/openprinting/Gestetner/PXL/Gestetner-DSm1530_PXL.ppd"},  // Letter, none
    {"openprinting-ppds", "0/ppd/openprinting/Ricoh/PDF/Ricoh-MP_2555_PDF.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Apollo-P-2250-hpijs-pcl3.ppd"},  // inkjet
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Sharp-AR-M351U-hpijs-pcl5e.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Fuji_Xerox-DocuPrint_CM305_df-Postscript.ppd", true},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/HP-DeskJet_820C-pnm2ppa.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Alps-MD-1500-md2k.ppd"},  // four sizes in all
};

const std::string kDrivers = "/usr/lib/cups/driver/";

// What a description says of one sheet, in mm.
struct Area {
  double left, top, bottom, height;
};

class Description {
 public:
  explicit Description(std::string text) : text_(std::move(text)) {}

  const std::string& AsItIs() const { return text_; }
  // With what turns a sheet into the printer's language left out, so that it arrives as PDF.
  std::string TakingPdf() const {
    return std::regex_replace(text_, std::regex("\\*cupsFilter2?:[^\n]*\n"), "") +
           "\n*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";
  }
  std::string DefaultSize() const { return Found("\\*DefaultPageSize: *([^ \r\n]+)"); }
  Area AreaOf(const std::string& size) const {
    const std::string rest = " " + size + "(?:/[^:]*)?: *\"([^\"]*)\"";
    std::istringstream numbers(Found("\\*ImageableArea" + rest) + " " + Found("\\*PaperDimension" + rest));
    double left = 0, bottom = 0, right = 0, top = 0, width = 0, height = 0;
    numbers >> left >> bottom >> right >> top >> width >> height;
    return {left * kMmPerPoint, (height - top) * kMmPerPoint, bottom * kMmPerPoint, height * kMmPerPoint};
  }

 private:
  std::string Found(const std::string& pattern) const {
    std::smatch match;
    return std::regex_search(text_, match, std::regex(pattern)) ? match[1].str() : "";
  }

  const std::string text_;
};

class RealPrinter : public PrintingTest, public testing::WithParamInterface<Published> {
 protected:
  ~RealPrinter() override { QLocale::setDefault(locale_); }

  void SetUp() override {
    const std::string package = GetParam().package;
    if (!std::filesystem::exists(kDrivers + package)) GTEST_SKIP() << "no package " << package << " here";
    ASSERT_NE(description_.AsItIs(), "");
    folder_.Write("taking_pdf", description_.TakingPdf());
    cups_.AddQueue("prova", folder_.Path("taking_pdf"));
  }

  static std::string Read(const TemporaryFolder& folder) {
    const std::string package = GetParam().package;
    const std::string name = package + ":" + GetParam().description;
    RunProgram(kDrivers + package + " cat " + name + " >'" + folder.Path("description") + "'", folder);
    return folder.Read("description");
  }

  // What is done in "Properties" is done in a dialog of its own over the print dialog.
  void Accept(const std::function<void(QDialog&)>& act = [](QDialog&) {}) {
    InNext([act](QDialog& dialog) {
      act(dialog);
      dialog.accept();
    });
    EXPECT_TRUE(printer_.ShowDialog({}).accepted);
  }
  static void InProperties(QDialog& dialog, const QString& key, QDialogButtonBox::StandardButton end) {
    InNext([key, end](QDialog& properties) {
      auto* const sizes = properties.findChild<QComboBox*>("pageSizeCombo");
      for (int i = 0; i < sizes->count(); ++i)
        if (sizes->itemData(i).value<QPageSize>().key() == key) sizes->setCurrentIndex(i);
      if (end == QDialogButtonBox::Ok) properties.findChild<QRadioButton*>("landscape")->click();
      properties.findChild<QDialogButtonBox*>()->button(end)->click();
    });
    dialog.findChild<QPushButton*>("properties")->click();
  }

  // Draws a box of 121 by 120 mm, 10 mm and 20 mm from the corner of what the printer reaches, and measures
  // it on the sheet.
  void ExpectInPlace(const Area& area, PageOrientation orientation) {
    printer_.SetOrientation(orientation);
    ExpectInPlaceAsChosen(area, orientation);
  }
  void ExpectInPlaceAsChosen(const Area& area, PageOrientation orientation) {
    DrawingSurface& page = printer_.Surface();
    page.SetScaleMode(ScaleMode::Millimetres);
    page.Line(10, 20, 131, 140, LineStyle::Box);
    printer_.EndDoc();
    cups_.WaitForJobs();
    const MeasuredSheet sheet(cups_.SheetPath());
    if (orientation == PageOrientation::Portrait) {
      ExpectLines(sheet.AcrossMm(area.top + 80), {area.left + 10, area.left + 131});
      ExpectLines(sheet.DownMm(area.left + 70), {area.top + 20, area.top + 140});
    } else {  // turned to the left: its left edge is the sheet's lower one
      const double bottom = area.height - area.bottom;
      ExpectLines(sheet.AcrossMm(bottom - 70), {area.left + 20, area.left + 140});
      ExpectLines(sheet.DownMm(area.left + 80), {bottom - 131, bottom - 10});
    }
  }

  PrivateCups cups_;
  const Description description_{Read(folder_)};
  const QLocale locale_;
};

TEST_P(RealPrinter, TakesASheetInItsPlaceWhateverTheDialogDid) {
  const Area own = description_.AreaOf(description_.DefaultSize());
  const Area a4 = description_.AreaOf("A4");
  // What the preview shows before anything is printed.
  PrinterSearch search;
  search.Begin();
  const FoundPrinters found = search.Answer(std::chrono::seconds(20));
  EXPECT_EQ(found.queue, "prova");
  EXPECT_NEAR(found.sheet.heightTwips / kTwipsPerMillimetre, own.height, kSizeMm);
  // The first cover of the layout that a run starts with, 25 mm from the corner; its outline is three steps
  // farther to the left and to the top, one to the right.
  constexpr double kStep = 0.009 * kMillimetresPerInch;
  EXPECT_EQ(RunPrintProgram("--printer prova --outline 1").exitCode, 0);
  cups_.WaitForJobs();
  ExpectLines(MeasuredSheet(cups_.SheetPath()).AcrossMm(own.top + 60),
              {own.left + 25 - 3 * kStep, own.left + 25 + 121 + kStep});

  QLocale::setDefault(QLocale("en_US"));
  Accept();
  ExpectInPlace(own, PageOrientation::Portrait);
  Accept([](QDialog& dialog) { InProperties(dialog, "A4", QDialogButtonBox::Ok); });
  EXPECT_NEAR(device_.PortraitSheet().heightTwips / kTwipsPerMillimetre, 297, kSizeMm);
  ExpectInPlaceAsChosen(a4, PageOrientation::Landscape);

  QLocale::setDefault(QLocale("it_IT"));
  printer_.SetOrientation(PageOrientation::Portrait);
  Accept();
  ExpectInPlace(a4, PageOrientation::Portrait);
  for (const auto end : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel})
    Accept([&](QDialog& dialog) { InProperties(dialog, "", end); });
  Accept([](QDialog& dialog) { Press(dialog, "foglio"); });
  ExpectInPlace(a4, PageOrientation::Landscape);

  cups_.AddQueue("uneven");
  for (const char* queue : {"uneven", "prova"})
    Accept([&](QDialog& dialog) { dialog.findChild<QComboBox*>("printers")->setCurrentText(queue); });
  ExpectInPlace(a4, PageOrientation::Portrait);

  if (!GetParam().isPostScript) return;  // else what the printer itself gets
  cups_.AddQueue("prova", folder_.Path("description"));
  device_.SelectPrinter("prova");
  for (const PageOrientation orientation : {PageOrientation::Portrait, PageOrientation::Landscape})
    ExpectInPlace(own, orientation);
}

const auto kNameOfFile = [](const testing::TestParamInfo<Published>& printer) {
  std::string name = printer.param.description;
  name = name.substr(name.rfind('/') + 1);
  name.resize(name.size() - 4);
  return std::regex_replace(name, std::regex("[^A-Za-z0-9]"), "_");
};

INSTANTIATE_TEST_SUITE_P(Published, RealPrinter, testing::ValuesIn(kPrinters), kNameOfFile);

}  // namespace
}  // namespace Morvane
