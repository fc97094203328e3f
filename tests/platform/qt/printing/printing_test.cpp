#include <gmock/gmock.h>

#include <cups/raster.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include "platform/drawing/printer.h"
#include "platform/qt/desktop/boxes.h"
#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/printing/calibration_tab.h"
#include "platform/qt/printing/pdf_printer_dialog.h"
#include "platform/qt/printing/qt_printers.h"
#include "platform/runtime_error.h"
#include "platform/units.h"
#include "render/print_job.h"
#include "tests/support/held_text.h"
#include "tests/support/private_cups.h"
#include "tests/support/sheet_measure.h"

namespace Morvane {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

// As if 180 mm across came out as 181.8 and 250 mm down as 248.75, the cross 1.5 mm too far right and 2 too
// high.
constexpr Calibration kMeasured{181.8, 248.75, 1.5, -2};

// A disc's booklet with the disc in it, 10 mm and 20 mm from the origin.
void DrawCover(DrawingSurface& page) {
  page.SetScaleMode(ScaleMode::Millimetres);
  page.Line(10, 20, 131, 140, LineStyle::Box);
  page.Circle(70.5, 80, 50, {}, 0.8);
}

void ExpectLines(const std::vector<double>& found, const std::vector<double>& expected,
                 double sizeMm = kSizeMm) {
  ASSERT_EQ(found.size(), expected.size());
  for (size_t i = 0; i < found.size(); ++i) {
    EXPECT_NEAR(found[i], expected[i], kOriginMm);
    EXPECT_NEAR(found[i] - found[0], expected[i] - expected[0], sizeMm);
  }
}

// The corner of what a test's queue can reach of A4, in mm.
constexpr double kLeft = 9.64 * kMmPerPoint;
constexpr double kTop = 17.97 * kMmPerPoint;
constexpr double kBottom = 297 - 14.4 * kMmPerPoint;

// The middle row and column of the cover meet its box and its ellipse. What stands at the cross of the
// calibration, 20 mm from the corner, is only shifted; lengths from there are scaled.
void ExpectCover(const MeasuredSheet& sheet, PageOrientation orientation, const Calibration& paper = {},
                 double sizeMm = kSizeMm) {
  const auto x = [&](double mm) {
    return kLeft + 20 - paper.rightMm + (mm - kLeft - 20) * 180 / paper.acrossMm;
  };
  const auto y = [&](double mm) {
    return kTop + 20 - paper.downwardsMm + (mm - kTop - 20) * 250 / paper.downMm;
  };
  const bool upright = orientation == PageOrientation::Portrait;
  const auto across = [&](double mm) { return upright ? x(kLeft + mm) : y(kBottom - mm); };
  const auto down = [&](double mm) { return upright ? y(kTop + mm) : x(kLeft + mm); };
  const auto row = upright ? sheet.AcrossMm(down(80)) : sheet.DownMm(down(80));
  const auto column = upright ? sheet.DownMm(across(70.5)) : sheet.AcrossMm(across(70.5));
  std::vector<double> edges = {across(10), across(20.5), across(120.5), across(131)};
  if (!upright) std::reverse(edges.begin(), edges.end());
  ExpectLines(row, edges, sizeMm);
  ExpectLines(column, {down(20), down(40), down(120), down(140)}, sizeMm);
}

class PdfTest : public testing::Test {
 protected:
  QtTextMetrics metrics_;
  QtFontCatalog fonts_;
  QtPrinters device_;
  Printer printer_{device_, metrics_, fonts_};
  TemporaryFolder folder_;
};

TEST_F(PdfTest, JobsWithoutAPrinterAreNumberedFilesNamedAfterTheirTitle) {
  const QString folder = QString::fromStdString(folder_.Path() + "/pdf");
  device_.SetPdfFolder(folder);
  printer_.JobTitle = "CD/DVD";
  for (const PageOrientation orientation :
       {PageOrientation::Portrait, PageOrientation::Landscape, PageOrientation::Portrait}) {
    printer_.SetOrientation(orientation);
    DrawCover(printer_.Surface());
    printer_.EndDoc();
  }
  EXPECT_EQ(QDir(folder).entryList(QDir::Files), (QStringList{"CD-DVD 1.pdf", "CD-DVD 2.pdf", "CD-DVD.pdf"}));
  const std::map<std::string, std::string> sizes = {{"/CD-DVD.pdf", "595 x 842 pts .A4"},
                                                    {"/CD-DVD 1.pdf", "842 x 595 pts .A4"}};
  for (const auto& [name, size] : sizes) {
    const std::string file = folder.toStdString() + name;
    const MeasuredSheet sheet(file);
    ExpectLines(sheet.AcrossMm(80), {10, 20.5, 120.5, 131});
    ExpectLines(sheet.DownMm(70.5), {20, 40, 120, 140});
    const std::string told = RunProgram("(pdfinfo '" + file + "' >&2)", folder_).errors;
    EXPECT_THAT(told, AllOf(ContainsRegex("Title: +CD/DVD"), ContainsRegex("Page size: +" + size)));
  }
  device_.SetPdfFolder("/proc/none");
  EXPECT_THROW(printer_.EndDoc(), RuntimeError);
}

// A service that takes each connection and says nothing.
class MuteService {
 public:
  MuteService() : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    unlink(path_);  // a spooler that was killed leaves it behind
    std::strncpy(address.sun_path, path_, sizeof(address.sun_path) - 1);
    if (bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 ||
        listen(socket_, 9) != 0) {
      throw std::runtime_error("no socket");
    }
  }
  ~MuteService() {
    close(socket_);
    unlink(path_);
  }
  MuteService(const MuteService&) = delete;
  MuteService& operator=(const MuteService&) = delete;

 private:
  const char* const path_ = std::getenv("CUPS_SERVER");
  const int socket_;
};

// Does `act` in the next modal dialog of this kind.
template <typename Dialog>
void InDialog(const std::function<void(Dialog&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* const dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog != nullptr) << "another dialog, or none";
    act(*dialog);
  });
}

bool Reads(const QDialog& dialog, const QString& text) {
  const auto labels = dialog.findChildren<QLabel*>();
  return std::any_of(labels.begin(), labels.end(), [&](auto* label) { return label->text() == text; });
}

TEST_F(PdfTest, MuteServiceIsToldAndOnceItAnswersItsPrintersAreOffered) {
  {
    const MuteService mute;
    const QString before = QString::fromStdString(folder_.Path());
    const QString folder = before + "/altra";
    QDir().mkpath(folder);
    device_.SetPdfFolder(before);
    InDialog<PdfPrinterDialog>([&](PdfPrinterDialog& dialog) {
      InDialog<QFileDialog>([&](QFileDialog& chooser) {
        EXPECT_EQ(chooser.directory().path(), before);
        auto& line = *chooser.findChild<QLineEdit*>();
        line.setText(folder);
        QTest::keyClick(&line, Qt::Key_Return);
      });
      EXPECT_TRUE(Reads(dialog, before));
      for (auto* button : dialog.findChildren<QPushButton*>()) {
        if (button->text().contains("mbia")) button->click();
      }
      EXPECT_TRUE(Reads(dialog, "Il servizio di stampa non risponde."));
      EXPECT_TRUE(Reads(dialog, folder));
      dialog.findChild<QSpinBox*>()->setValue(0);
      EXPECT_EQ(dialog.Copies(), 1);
      dialog.findChild<QSpinBox*>()->setValue(3);
      dialog.accept();
    });
    const PrintDialogAnswer answer = printer_.ShowDialog({});
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.copies, 3);
    printer_.EndDoc();
    EXPECT_TRUE(QFile::exists(folder + "/Morvane.pdf"));
    EXPECT_THROW(device_.SelectPrinter("uneven"), RuntimeError);
  }
  PrivateCups back;
  back.AddQueue("uneven");
  InDialog<QPrintDialog>([](QPrintDialog& dialog) { dialog.accept(); });
  EXPECT_TRUE(printer_.ShowDialog({}).accepted);
}

// As on a machine without the service; the last address is not known as one of this machine.
TEST_F(PdfTest, WhereNobodyListensThereIsNoPrinterAndNobodySaysThatItIsSilent) {
  const int unheard = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{
      .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
  socklen_t size = sizeof(address);
  ASSERT_EQ(bind(unheard, reinterpret_cast<sockaddr*>(&address), size), 0);
  ASSERT_EQ(getsockname(unheard, reinterpret_cast<sockaddr*>(&address), &size), 0);
  const QByteArray port = ":" + QByteArray::number(ntohs(address.sin_port));
  const QByteArray noSocket = QByteArray::fromStdString(folder_.Path()) + "/none.sock";
  const QByteArray own = qgetenv("CUPS_SERVER");
  for (const QByteArray& server : {"127.0.0.1" + port, "localhost" + port, noSocket, "0.0.0.0" + port}) {
    qputenv("CUPS_SERVER", server);
    InDialog<PdfPrinterDialog>([&](PdfPrinterDialog& dialog) {
      EXPECT_EQ(Reads(dialog, "Nessuna stampante è installata."), !server.startsWith("0")) << server.data();
      dialog.reject();
    });
    EXPECT_FALSE(printer_.ShowDialog({}).accepted);
  }
  qputenv("CUPS_SERVER", own);
  close(unheard);
}

class QueueTest : public PdfTest {
 protected:
  QueueTest() {
    cups_.AddQueue("uneven");
    device_.SelectPrinter("uneven");
  }

  ~QueueTest() override {
    QDir(QDir::homePath() + "/.cups").removeRecursively();
    QDir(qEnvironmentVariable("XDG_CONFIG_HOME") + "/morvane").removeRecursively();
  }

  // As the user left them with lpoptions.
  static void LeaveOptions(const std::string& line) {
    QDir().mkpath(QDir::homePath() + "/.cups");
    std::ofstream(QDir::homePath().toStdString() + "/.cups/lpoptions") << line << '\n';
  }

  void PrintCover() {
    DrawCover(printer_.Surface());
    printer_.EndDoc();
    cups_.WaitForJobs();
  }

  PrivateCups cups_;
};

// Two outlined covers, a rectangle and a disc, through the whole print command: what the toolkit's dialog
// offers, and what comes of it with options left from elsewhere.
TEST_F(QueueTest, DialogAsksForCopiesWhichAreJobsOfTheirOwnThatNobodyScales) {
  LeaveOptions("Dest uneven page-ranges=2-3 number-up=2 fit-to-page");
  AppState state;
  state.NumCopertine = 2;
  state.PaginaAlte = 297;
  state.SpessoreBordo = 1;
  state.CopForma[2] = 1;
  for (const std::size_t n : {1U, 2U}) {
    state.CopLarg[n] = state.CopAlte[n] = 12.1;
    state.CopDistx[n] = 60 / kMillimetresPerInch;  // the middle lies right of the footer
    state.CopDisty[n] = (n == 1 ? 25 : 150) / kMillimetresPerInch;
  }
  cups_.AddQueue("raster", PrivateCups::Takes::Raster);
  device_.SelectPrinter("raster");
  InDialog<QPrintDialog>([](QPrintDialog& dialog) {
    for (const char* choice : {"printRange", "printSelection"})
      EXPECT_TRUE(dialog.findChild<QWidget*>(choice)->isVisible()) << choice;
    dialog.reject();
  });
  EXPECT_FALSE(printer_.ShowDialog({.restricted = false}).accepted);
  InDialog<QPrintDialog>([](QPrintDialog& dialog) {
    EXPECT_FALSE(dialog.findChild<QWidget*>("gbPrintRange")->isVisible());
    auto* const printers = dialog.findChild<QComboBox*>("printers");
    EXPECT_EQ(printers->count(), 2) << "a file is no printer";
    EXPECT_EQ(printers->currentText(), "raster");
    printers->setCurrentText("uneven");
    auto* const copies = dialog.findChild<QSpinBox*>("copies");
    EXPECT_TRUE(copies->isVisible());
    copies->setValue(3);
    EXPECT_FALSE(dialog.findChild<QWidget*>("collate")->isVisible());
    dialog.accept();
  });
  EXPECT_THROW(device_.SelectPrinter("nessuna"), RuntimeError);
  printer_.JobTitle = "Custodia è";
  Stampa(state, CoverSlots{}, printer_);
  cups_.WaitForJobs();

  const MeasuredSheet sheet(cups_.SheetPath());
  const double left = kLeft + 60;
  const double top = kTop + 25;
  const double step = 0.009 * kMillimetresPerInch;  // between outline lines
  ExpectLines(sheet.AcrossMm(top + 60), {left - 3 * step, left + 121 + step});
  ExpectLines(sheet.AcrossMm(top + 125 + 60.5), {left - step, left + 121 + step});
  ExpectLines(sheet.DownMm(left + 60.5),
              {top - 3 * step, top + 121 + step, top + 125 - step, top + 125 + 121 + step});

  cups_.Stop();
  const std::vector<std::string> jobs = cups_.JobRecords();
  ASSERT_EQ(jobs.size(), 3U);
  for (const std::string& job : jobs) {
    const size_t option = job.find("print-scaling");
    ASSERT_NE(option, std::string::npos);
    EXPECT_EQ(job.substr(option + 13 + 2, 4), "none");  // behind the length of the value
    EXPECT_EQ(job.find("print-scaling", option + 1), std::string::npos);
    for (const char* other : {"page-ranges", "fit-to-page", "copies"}) {
      EXPECT_EQ(job.find(other), std::string::npos) << other;
    }
    EXPECT_EQ(job.substr(job.find("number-up") + 9, 6), std::string("\0\4\0\0\0\1", 6));
    EXPECT_THAT(job, HasSubstr("Custodia è"));
  }
}

MeasuredSheet ReadRaster(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY);
  const std::unique_ptr<cups_raster_t, void (*)(cups_raster_t*)> raster(
      cupsRasterOpen(file, CUPS_RASTER_READ), cupsRasterClose);
  cups_page_header2_t page{};
  if (!raster || cupsRasterReadHeader2(raster.get(), &page) == 0)
    throw std::runtime_error("no page in " + path);
  EXPECT_EQ(page.HWResolution[0], 600U);
  EXPECT_EQ(page.cupsBitsPerPixel, 8U);
  std::vector<unsigned char> dots(std::size_t{page.cupsBytesPerLine} * page.cupsHeight);
  cupsRasterReadPixels(raster.get(), dots.data(), static_cast<unsigned>(dots.size()));
  close(file);
  return {static_cast<int>(page.cupsBytesPerLine), static_cast<int>(page.cupsHeight), std::move(dots)};
}

TEST_F(QueueTest, DefaultPrintersOwnSheetIsTakenOnceItIsFound) {
  cups_.AddQueue("raster", PrivateCups::Takes::Raster);
  cups_.Run("lpadmin -d raster");
  QtPrinters device;
  int changes = 0;
  device.OnSheetChanged = [&] { ++changes; };
  device.Prepare();
  EXPECT_EQ(device.PortraitSheet().heightTwips, kA4.heightTwips);
  EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }, 20000));
  EXPECT_NEAR(device.PortraitSheet().widthTwips, 8.5 * kTwipsPerInch, 1);
  EXPECT_NEAR(device.PortraitSheet().heightTwips, 11 * kTwipsPerInch, 1);
}

// What a driverless printer is given, dot by dot, when A4 is printed on a queue whose own sheet is Letter.
TEST_F(QueueTest, RasterOfADriverlessPrinterHasTheSizesToTheDotCalibratedOrNot) {
  constexpr double kDotMm = kMillimetresPerInch / 600;
  cups_.AddQueue("raster", PrivateCups::Takes::Raster);
  LeaveOptions("Dest raster PageSize=A4");
  for (const Calibration& paper : {Calibration{}, kMeasured}) {
    Calibrations().Keep("raster", paper);
    QtPrinters device;
    device.SelectPrinter("raster");
    Printer printer(device, metrics_, fonts_);
    for (const PageOrientation orientation : {PageOrientation::Portrait, PageOrientation::Landscape}) {
      printer.SetOrientation(orientation);
      DrawCover(printer.Surface());
      printer.EndDoc();
      cups_.WaitForJobs();
      const MeasuredSheet sheet = ReadRaster(cups_.RasterPath());
      EXPECT_NEAR(sheet.WidthDots() * kDotMm, 210, kOriginMm);
      EXPECT_NEAR(sheet.HeightDots() * kDotMm, 297, kOriginMm);
      ExpectCover(sheet, orientation, paper, kDotMm);
    }
  }
}

TEST_F(QueueTest, SheetThatTheQueueIsSetToIsTakenAndToldOnce) {
  cups_.AddQueue("raster", PrivateCups::Takes::Raster);  // Letter
  QtPrinters device;
  int told = 0;
  device.OnSheetChanged = [&] { ++told; };
  for (int times = 0; times < 2; ++times) device.SelectPrinter("raster");
  EXPECT_NEAR(device.PortraitSheet().widthTwips / kTwipsPerMillimetre, 215.9, kSizeMm);
  EXPECT_NEAR(device.PortraitSheet().heightTwips / kTwipsPerMillimetre, 279.4, kSizeMm);
  EXPECT_EQ(told, 1);
}

TEST_F(QueueTest, CalibratedSheetHasTheSizesAndPlacesThatThePaperThenPutsRight) {
  InDialog<QPrintDialog>([](QPrintDialog& dialog) {
    CalibrationTab* tab = nullptr;
    for (auto* child : dialog.findChildren<QWidget*>()) {
      if (auto* found = dynamic_cast<CalibrationTab*>(child)) tab = found;
    }
    const auto fields = tab->findChildren<QDoubleSpinBox*>();
    const double typed[] = {181.8, 248.75, 1.5, -2};
    const auto press = [&](const char* text) {
      for (auto* button : tab->findChildren<QPushButton*>()) {
        if (button->text().contains(text)) button->click();
      }
    };
    fields[0]->setValue(175);
    EXPECT_FALSE(Calibrations().Of("uneven") == Calibration());
    press("zzera");
    EXPECT_EQ(Calibrations().Of("uneven"), Calibration());
    for (int i = 0; i < 4; ++i) fields[i]->setValue(typed[i]);
    fields[0]->setValue(200);  // refused: the corrections stay
    std::string texts;
    for (const auto* label : tab->findChildren<QLabel*>()) texts += label->text().toStdString();
    EXPECT_THAT(texts, HasSubstr("dal 95 al 105 %"));
    press("foglio");
    dialog.accept();
  });
  printer_.ShowDialog({});
  cups_.WaitForJobs();
  // The sheet to measure is printed as it is: the ruler's line.
  const std::vector<double> ruler = MeasuredSheet(cups_.SheetPath()).AcrossMm(kTop + 117.5);
  ASSERT_FALSE(ruler.empty());
  EXPECT_NEAR(ruler.front(), kLeft + 10, kOriginMm);

  const auto printed = [&](const std::string& option) {
    EXPECT_EQ(RunProgram("'" MORVANE_PRINT "' --printer uneven --outline 1" + option, folder_).exitCode, 0);
    cups_.WaitForJobs();
    return MeasuredSheet(cups_.SheetPath()).AcrossMm(kTop + 60).front();
  };
  EXPECT_NEAR(printed(" --no-calibration") - printed(""), kMeasured.rightMm, 0.2);

  for (const bool corrects : {true, false}) {
    if (!corrects) device_.LeaveOutCalibration();
    for (const PageOrientation orientation : {PageOrientation::Landscape, PageOrientation::Portrait}) {
      printer_.SetOrientation(orientation);
      PrintCover();
      ExpectCover(MeasuredSheet(cups_.SheetPath()), orientation, corrects ? kMeasured : Calibration());
    }
  }
}

// Where each part of a window stands, what it reads and what it takes.
QString Described(QWidget& window) {
  window.grab();
  QStringList lines{window.windowTitle()};
  for (const auto* part : window.findChildren<QWidget*>()) {
    if (part->objectName().startsWith("qt_")) continue;
    const QRect place(part->mapTo(&window, QPoint()), part->size());
    lines << QString("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
    for (const char* name : {"text", "toolTip", "minimum", "maximum", "singleStep", "keyboardTracking",
                             "autoDefault", "wordWrap", "textFormat"}) {
      const QString value = part->property(name).toString();
      if (!value.isEmpty()) lines.last() += QString("  %1=%2").arg(name, value).replace("\n", " / ");
    }
  }
  return lines.join('\n') + '\n';
}

TEST(PrintDialogs, ShowAndTakeTheSame) {
  PdfPrinterDialog pdf("Nessuna stampante è installata.", "/casa/Documenti", nullptr);
  Calibrations none("/proc/nessuno/taratura.ini");
  QDialog dialog;  // where each button is the one for the return key, if it is not told otherwise
  CalibrationTab tab(none, [](const QString&) {});
  tab.setParent(&dialog);
  tab.ShowPrinter("casa");
  QString seen = Described(pdf) + Described(tab);
  InDialog<QDialog>([&](QDialog& prompt) {
    seen += Described(prompt);
    prompt.reject();
  });
  AskForLine(nullptr, "Un nome che non c'è ancora, per il layout che si sta per salvare:", "Salva",
             "Libretto");
  ExpectText("tests/platform/qt/printing/dialogs.txt", seen.toStdString());
}

TEST(CalibrationFile, KeepsEachPrinterAndADamagedOneCorrectsNothingAndIsToldOnce) {
  const TemporaryFolder folder;
  const QString file = QString::fromStdString(folder.Path() + "/prove/taratura.ini");
  Calibrations(file).Keep("Ufficio/2°", kMeasured);
  Calibrations(file).Keep("casa", kMeasured);
  Calibrations kept(file);
  for (const char* printer : {"Ufficio/2°", "casa"}) EXPECT_EQ(kept.Of(printer), kMeasured) << printer;
  EXPECT_EQ(kept.Of("altra"), Calibration());
  EXPECT_TRUE(kept.TakeComplaint().isEmpty());
  for (const char* damage :
       {"[casa]\norizzontale180=200\nverticale250=250\ndestra=0\nbasso=0\n",
        "[casa]\norizzontale180=nan\nverticale250=250\ndestra=0\nbasso=0\n",
        "[casa]\norizzontale180=180\nverticale250=250\ndestra=99\nbasso=0\n",
        "[casa]\norizzontale180=180\nverticale250=250\ndestra=0\nbasso=-99\n",
        "[casa]\norizzontale180=180\nverticale250=250\nbasso=0\n", "[Ufficio\n", "\xff\x01 niente"}) {
    std::ofstream(file.toStdString()) << damage;
    Calibrations damaged(file);
    EXPECT_EQ(damaged.Of("casa"), Calibration()) << damage;
    EXPECT_FALSE(damaged.TakeComplaint().isEmpty()) << damage;
    EXPECT_TRUE(damaged.TakeComplaint().isEmpty()) << damage;
  }
  EXPECT_THROW(Calibrations("/proc/nessuno/taratura.ini").Keep("casa", {}), RuntimeError);
}

}  // namespace
}  // namespace Morvane
