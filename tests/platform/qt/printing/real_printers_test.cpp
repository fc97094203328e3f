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
  std::string name, description;  // below its package's folder of them
  bool isPostScript = false;      // its own filters make that
};

const Published kPrinters[] = {
    {"OddDecimals", "0/ppd/openprinting/Canon/cnl710cx1g"},
    {"UnlikeMargins", "0/ppd/openprinting/Epson/eplp960s"},
    {"Kyocera", "0/ppd/openprinting/Kyocera/es/Kyocera_FS-C5350DN", true},
    {"Lexmark", "4/ppd/openprinting/Lexmark/Lexmark_CX860_Series"},
    {"A4NoCustomSizes", "0/ppd/openprinting/KONICA_MINOLTA/KOC451JX"},
    {"LetterNoCustomSizes", "0/ppd/openprinting/Gestetner/PXL/Gestetner-DSm1530_PXL"},
    {"Ricoh", "0/ppd/openprinting/Ricoh/PDF/Ricoh-MP_2555_PDF"},
    {"Inkjet", "0/ppd/foomatic-ppd/Apollo-P-2250-hpijs-pcl3"},
    {"Sharp", "0/ppd/foomatic-ppd/Sharp-AR-M351U-hpijs-pcl5e"},
    {"FujiXerox", "0/ppd/foomatic-ppd/Fuji_Xerox-DocuPrint_CM305_df-Postscript", true},
    {"Deskjet", "0/ppd/foomatic-ppd/HP-DeskJet_820C-pnm2ppa"},
    {"FourSizesInAll", "0/ppd/foomatic-ppd/Alps-MD-1500-md2k"},
};

class RealPrinter : public QueueTest, public testing::WithParamInterface<Published> {
 protected:
  ~RealPrinter() override { QLocale::setDefault(locale_); }

  void SetUp() override {
    const std::string& name = GetParam().description;
    const bool isFoomatic = name.find("foomatic") != std::string::npos;
    const std::string package = isFoomatic ? "foomatic-db-compressed-ppds" : "openprinting-ppds";
    const std::string driver = "/usr/lib/cups/driver/" + package;
    if (!std::filesystem::exists(driver)) GTEST_SKIP() << "no package " << package << " here";
    RunProgram(driver + " cat " + package + ":" + name + ".ppd >'" + folder_.Path("description") + "'",
               folder_);
    description_ = folder_.Read("description");
    // With what turns a sheet into the printer's language left out, so that it arrives as PDF.
    folder_.Write("taking_pdf", std::regex_replace(description_, std::regex("\\*cupsFilter2?:[^\n]*\n"), "") +
                                    "\n*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n");
    cups_.AddQueue("prova", folder_.Path("taking_pdf"));
    // As a desktop's settings set a queue to sheets that lie the other way round.
    cups_.Run("lpadmin -p prova -o orientation-requested-default=6");
  }

  std::string Described(const std::string& pattern) const {
    std::smatch match;
    return std::regex_search(description_, match, std::regex(pattern)) ? match[1].str() : "";
  }
  Area AreaOf(const std::string& size) const {
    const std::string rest = " " + size + "(?:/[^:]*)?: *\"([^\"]*)\"";
    std::istringstream numbers(Described("\\*ImageableArea" + rest) + " " +
                               Described("\\*PaperDimension" + rest));
    double left = 0, bottom = 0, right = 0, top = 0, width = 0, height = 0;
    numbers >> left >> bottom >> right >> top >> width >> height;
    return {left * kMmPerPoint, (height - top) * kMmPerPoint, bottom * kMmPerPoint, height * kMmPerPoint};
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

  std::string description_;
  const QLocale locale_;
};

TEST_P(RealPrinter, TakesASheetInItsPlaceWhateverTheDialogDid) {
  const Area own = AreaOf(Described("\\*DefaultPageSize: *([^ \r\n]+)"));
  const Area a4 = AreaOf("A4");
  // What the preview shows before anything is printed.
  PrinterSearch search;
  search.Begin();
  const FoundPrinters found = search.Answer(std::chrono::seconds(20));
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
  ExpectInPlace(a4, PageOrientation::Landscape);

  QLocale::setDefault(QLocale("it_IT"));
  printer_.SetOrientation(PageOrientation::Portrait);
  Accept();
  ExpectInPlace(a4, PageOrientation::Portrait);
  for (const auto end : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel})
    Accept([&](QDialog& dialog) { InProperties(dialog, "", end); });
  Accept([](QDialog& dialog) { Press(dialog, "foglio"); });
  ExpectInPlace(a4, PageOrientation::Landscape);

  // From sheet to sheet of one size; the other printer has it without margins, too.
  cups_.AddQueue("uneven");
  printer_.SetOrientation(PageOrientation::Portrait);
  for (const auto& [queue, area] : {std::pair{"uneven", kUneven}, {"prova", a4}}) {
    Accept(
        [name = queue](QDialog& dialog) { dialog.findChild<QComboBox*>("printers")->setCurrentText(name); });
    ExpectInPlace(area, PageOrientation::Portrait);
  }

  if (!GetParam().isPostScript) return;  // else what the printer itself gets
  cups_.AddQueue("prova", folder_.Path("description"));
  device_.SelectPrinter("prova");
  for (const PageOrientation orientation : {PageOrientation::Portrait, PageOrientation::Landscape}) {
    printer_.SetOrientation(orientation);
    ExpectInPlace(own, orientation);
  }
}

INSTANTIATE_TEST_SUITE_P(Published, RealPrinter, testing::ValuesIn(kPrinters),
                         [](const auto& printer) { return printer.param.name; });

}  // namespace
}  // namespace Morvane
