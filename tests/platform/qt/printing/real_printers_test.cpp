#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLocale>
#include <QPageSize>
#include <QPrintDialog>
#include <QPushButton>
#include <QTimer>
#include <regex>
#include <sstream>

#include "platform/drawing/printer.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/printing/qt_printers.h"
#include "platform/units.h"
#include "tests/support/private_cups.h"
#include "tests/support/sheet_measure.h"

namespace Morvane {
namespace {

// A printer's description as its maker or its users published it; nobody of this program wrote one.
struct Published {
  const char* package;
  const char* description;  // below its folder of them
};

constexpr Published kPrinters[] = {
    {"openprinting-ppds", "0/ppd/openprinting/Canon/cnl710cx1g.ppd"},  // odd decimals, A4
    {"openprinting-ppds", "0/ppd/openprinting/Epson/eplp960s.ppd"},    // four unlike margins
    {"openprinting-ppds", "0/ppd/openprinting/Kyocera/es/Kyocera_FS-C5350DN.ppd"},
    {"openprinting-ppds", "4/ppd/openprinting/Lexmark/Lexmark_CX860_Series.ppd"},
    {"openprinting-ppds", "0/ppd/openprinting/KONICA_MINOLTA/KOC451JX.ppd"},  // A4, no custom sizes
    {"openprinting-ppds", "0/ppd/openprinting/Gestetner/PXL/Gestetner-DSm1530_PXL.ppd"},  // Letter, none
    {"openprinting-ppds", "0/ppd/openprinting/Ricoh/PDF/Ricoh-MP_2555_PDF.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Apollo-P-2250-hpijs-pcl3.ppd"},  // inkjet
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Sharp-AR-M351U-hpijs-pcl5e.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Fuji_Xerox-DocuPrint_CM305_df-Postscript.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/HP-DeskJet_820C-pnm2ppa.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Alps-MD-1500-md2k.ppd"},  // four sizes in all
};

const std::string kDrivers = "/usr/lib/cups/driver/";

bool IsInstalled(const Published& printer) {
  return std::filesystem::exists(kDrivers + printer.package);
}

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string text;
  char part[4096];
  while (const size_t count = pipe ? std::fread(part, 1, sizeof(part), pipe.get()) : 0)
    text.append(part, count);
  return text;
}

// What a description says of one sheet, in mm.
struct Area {
  double left, top, bottom, height;
};

class Description {
 public:
  explicit Description(const Published& printer)
      : text_(OutputOf(kDrivers + printer.package + " cat " + printer.package + ":" + printer.description +
                       " 2>/dev/null")) {}

  bool Known() const { return !text_.empty(); }
  const std::string& AsItIs() const { return text_; }
  // With what turns a sheet into the printer's language left out, so that it arrives as PDF.
  std::string TakingPdf() const {
    return std::regex_replace(text_, std::regex("\\*cupsFilter2?:[^\n]*\n"), "") +
           "\n*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";
  }
  std::string DefaultSize() const { return Found("\\*DefaultPageSize: *([^ \r\n]+)"); }
  Area AreaOf(const std::string& size) const {
    std::istringstream area(Found("\\*ImageableArea " + size + "(?:/[^:]*)?: *\"([^\"]*)\""));
    std::istringstream sheet(Found("\\*PaperDimension " + size + "(?:/[^:]*)?: *\"([^\"]*)\""));
    double left = 0, bottom = 0, right = 0, top = 0, width = 0, height = 0;
    area >> left >> bottom >> right >> top;
    sheet >> width >> height;
    return {left * kMmPerPoint, (height - top) * kMmPerPoint, bottom * kMmPerPoint, height * kMmPerPoint};
  }

 private:
  std::string Found(const std::string& pattern) const {
    std::smatch match;
    return std::regex_search(text_, match, std::regex(pattern)) ? match[1].str() : "";
  }

  const std::string text_;
};

// A person at the print dialog; what is done in "Properties" is done in a dialog of its own over it.
using InDialog = std::function<void(QDialog&)>;
void Then(InDialog act) {
  QTimer::singleShot(0, qApp, [act = std::move(act)] {
    auto* const dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog != nullptr);
    act(*dialog);
  });
}

void InProperties(QDialog& dialog, const QString& key, QDialogButtonBox::StandardButton end) {
  Then([key, end](QDialog& properties) {
    auto* const sizes = properties.findChild<QComboBox*>("pageSizeCombo");
    ASSERT_TRUE(sizes != nullptr);
    for (int i = 0; i < sizes->count(); ++i) {
      if (sizes->itemData(i).value<QPageSize>().key() == key) sizes->setCurrentIndex(i);
    }
    properties.findChild<QDialogButtonBox*>()->button(end)->click();
  });
  dialog.findChild<QPushButton*>("properties")->click();
}

// Their own filters make PostScript.
constexpr Published kPostScriptPrinters[] = {
    {"openprinting-ppds", "0/ppd/openprinting/Kyocera/es/Kyocera_FS-C5350DN.ppd"},
    {"foomatic-db-compressed-ppds", "0/ppd/foomatic-ppd/Fuji_Xerox-DocuPrint_CM305_df-Postscript.ppd"},
};

class RealPrinter : public testing::TestWithParam<Published> {
 protected:
  ~RealPrinter() override { QLocale::setDefault(locale_); }

  void Accept(InDialog act = {}) {
    Then([act](QDialog& dialog) {
      if (act) act(dialog);
      dialog.accept();
    });
    EXPECT_TRUE(printer_.ShowDialog({}).accepted);
  }

  // What the preview shows before anything is printed.
  static void ExpectSearchTells(const std::string& size) {
    PrinterSearch search;
    search.Begin();
    const FoundPrinters found = search.Answer(std::chrono::seconds(20));
    EXPECT_EQ(found.queue, "prova");
    EXPECT_NEAR(found.sheet.heightTwips / kTwipsPerMillimetre, size == "A4" ? 297 : 279.4, kSizeMm) << size;
  }

  // The first cover of the layout that a run starts with, 25 mm from the corner; its outline is three steps
  // farther to the left and to the top, one to the right.
  void ExpectProgramPrintsInPlace(const Area& area) {
    constexpr double kStep = 0.009 * kMillimetresPerInch;
    EXPECT_EQ(RunProgram("'" MORVANE_PRINT "' --printer prova --outline 1", folder_).exitCode, 0);
    cups_.WaitForJobs();
    const MeasuredSheet sheet(cups_.SheetPath());
    ExpectEdges(sheet.AcrossMm(area.top + 60), area.left + 25 - 3 * kStep, 121 + 4 * kStep);
  }

  // Draws a box of 121 by 120 mm, 10 mm and 20 mm from the corner of what the printer reaches, and measures
  // it on the sheet.
  void ExpectInPlace(const Area& area, PageOrientation orientation) {
    printer_.SetOrientation(orientation);
    DrawingSurface& page = printer_.Surface();
    page.SetScaleMode(ScaleMode::Millimetres);
    page.Line(10, 20, 131, 140, LineStyle::Box);
    printer_.EndDoc();
    cups_.WaitForJobs();
    const MeasuredSheet sheet(cups_.SheetPath());
    if (orientation == PageOrientation::Portrait) {
      ExpectEdges(sheet.AcrossMm(area.top + 80), area.left + 10, 121);
      ExpectEdges(sheet.DownMm(area.left + 70), area.top + 20, 120);
    } else {  // turned to the left: its left edge is the sheet's lower one
      ExpectEdges(sheet.AcrossMm(area.height - area.bottom - 70), area.left + 20, 120);
      ExpectEdges(sheet.DownMm(area.left + 80), area.height - area.bottom - 131, 121);
    }
  }

  static void ExpectEdges(const std::vector<double>& found, double first, double size) {
    ASSERT_EQ(found.size(), 2U);
    EXPECT_NEAR(found[0], first, kOriginMm);
    EXPECT_NEAR(found[1] - found[0], size, kSizeMm);
  }

  const TemporaryFolder folder_;
  PrivateCups cups_;
  QtTextMetrics metrics_;
  QtFontCatalog fonts_;
  QtPrinters device_;
  Printer printer_{device_, metrics_, fonts_};
  const QLocale locale_;
};

class PostScriptPrinter : public RealPrinter {};

TEST_P(RealPrinter, TakesASheetInItsPlaceWhateverTheDialogDid) {
  const Description description(GetParam());
  if (!IsInstalled(GetParam())) GTEST_SKIP() << "the package " << GetParam().package << " is not installed";
  ASSERT_TRUE(description.Known());
  cups_.AddQueueOf("prova", description.TakingPdf());
  const Area own = description.AreaOf(description.DefaultSize());
  const Area a4 = description.AreaOf("A4");

  ExpectSearchTells(description.DefaultSize());
  ExpectProgramPrintsInPlace(own);
  QLocale::setDefault(QLocale("en_US"));
  Accept();
  ExpectInPlace(own, PageOrientation::Portrait);
  Accept([](QDialog& dialog) { InProperties(dialog, "A4", QDialogButtonBox::Ok); });
  EXPECT_NEAR(device_.PortraitSheet().heightTwips / kTwipsPerMillimetre, 297, kSizeMm);
  ExpectInPlace(a4, PageOrientation::Landscape);

  QLocale::setDefault(QLocale("it_IT"));
  Accept();
  ExpectInPlace(a4, PageOrientation::Portrait);
  Accept([](QDialog& dialog) { InProperties(dialog, "", QDialogButtonBox::Cancel); });
  Accept([](QDialog& dialog) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
      if (button->text().contains("foglio")) button->click();
    }
  });
  ExpectInPlace(a4, PageOrientation::Landscape);

  cups_.AddQueue("altra");
  const auto turnTo = [](const QString& queue) {
    return [queue](QDialog& dialog) { dialog.findChild<QComboBox*>("printers")->setCurrentText(queue); };
  };
  Accept(turnTo("altra"));
  Accept(turnTo("prova"));
  ExpectInPlace(a4, PageOrientation::Portrait);
}

// What the printer itself gets, made by the filters that its description names.
TEST_P(PostScriptPrinter, GetsTheSheetInItsPlace) {
  const Description description(GetParam());
  if (!IsInstalled(GetParam())) GTEST_SKIP() << "the package " << GetParam().package << " is not installed";
  ASSERT_TRUE(description.Known());
  cups_.AddQueueOf("prova", description.AsItIs());
  Accept();
  for (const PageOrientation orientation : {PageOrientation::Portrait, PageOrientation::Landscape}) {
    ExpectInPlace(description.AreaOf(description.DefaultSize()), orientation);
  }
}

const auto kNameOfFile = [](const testing::TestParamInfo<Published>& printer) {
  std::string name = printer.param.description;
  name = name.substr(name.rfind('/') + 1);
  name.resize(name.size() - 4);
  return std::regex_replace(name, std::regex("[^A-Za-z0-9]"), "_");
};

INSTANTIATE_TEST_SUITE_P(Published, PostScriptPrinter, testing::ValuesIn(kPostScriptPrinters), kNameOfFile);
INSTANTIATE_TEST_SUITE_P(Published, RealPrinter, testing::ValuesIn(kPrinters), kNameOfFile);

}  // namespace
}  // namespace Morvane
