#include <sys/stat.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QPrintDialog>
#include <QTcpSocket>
#include <QTest>
#include <filesystem>

#include "platform/qt/printing/calibration_tab.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/qt/printing/pdf_printer_dialog.h"
#include "printing_fixture.h"
#include "render/print_job.h"

namespace Morvane {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

// As if 180 mm across came out as 181.8 and 250 mm down as 248.75, the cross 1.5 mm too far right and 2 too
// high.
constexpr Calibration kMeasured{181.8, 248.75, 1.5, -2};

TEST_F(PrintingTest, JobsWithoutAPrinterAreNumberedFilesNamedAfterTheirTitle) {
  device_.SetPdfFolder(QString::fromStdString(folder_.Path("pdf")));
  printer_.JobTitle = "CD/DVD";
  const std::tuple<PageOrientation, const char*, const char*> jobs[] = {
      {PageOrientation::Portrait, "pdf/CD-DVD.pdf", "595 x 842 pts .A4"},
      {PageOrientation::Landscape, "pdf/CD-DVD 1.pdf", "842 x 595 pts .A4"},
      {PageOrientation::Portrait, "pdf/CD-DVD 2.pdf", "595 x 842 pts .A4"}};
  for (const auto& [orientation, name, size] : jobs) {
    printer_.SetOrientation(orientation);
    PrintCover();
    const MeasuredSheet sheet(folder_.Path(name));
    ExpectLines(sheet.AcrossMm(80), {10, 20.5, 120.5, 131});
    ExpectLines(sheet.DownMm(70.5), {20, 40, 120, 140});
    EXPECT_THAT(RunProgram("(pdfinfo '" + folder_.Path(name) + "' >&2)", folder_).errors,
                AllOf(ContainsRegex("Title: +CD/DVD"), ContainsRegex(std::string("Page size: +") + size)));
  }
  device_.SetPdfFolder("/proc/none");
  EXPECT_THROW(printer_.EndDoc(), RuntimeError);
  ASSERT_EQ(::mkfifo(folder_.Path("tubo").c_str(), 0600), 0);
  for (const char* name : {"tubo", "caff\xe9.pdf"}) {
    EXPECT_THROW(WritePdf(folder_.Path(name), {}, PageOrientation::Portrait, kA4, ""), RuntimeError) << name;
  }
  EXPECT_FALSE(std::filesystem::is_regular_file(folder_.Path("tubo")));
}

template <typename Widget = QLabel>
bool Reads(const QDialog& dialog, const QString& text) {
  const auto widgets = dialog.findChildren<Widget*>();
  return std::any_of(widgets.begin(), widgets.end(), [&](auto* widget) { return widget->text() == text; });
}

TEST_F(PrintingTest, MuteServiceIsToldItsPrintersAreOfferedOnceItAnswersAndFilesOnceTheLastIsGone) {
  const QString before = QString::fromStdString(folder_.Path());
  const QString folder = before + "/" + QString(200, 'a');
  QDir().mkpath(folder);
  device_.SetPdfFolder(before);
  {
    const QString service = qEnvironmentVariable("CUPS_SERVER");
    QLocalServer::removeServer(service);  // a spooler that was killed leaves it behind
    QLocalServer mute;
    ASSERT_TRUE(mute.listen(service));
    InNext<PdfPrinterDialog>([&](PdfPrinterDialog& dialog) {
      InNext<QFileDialog>([&](QFileDialog& chooser) {
        EXPECT_EQ(chooser.directory().path(), before);
        auto& line = *chooser.findChild<QLineEdit*>();
        line.setText(folder);
        QTest::keyClick(&line, Qt::Key_Return);
      });
      EXPECT_TRUE(Reads<QLineEdit>(dialog, before));
      Press(dialog, "mbia");
      EXPECT_TRUE(Reads(dialog, "Il servizio di stampa non risponde."));
      EXPECT_TRUE(Reads<QLineEdit>(dialog, folder));
      EXPECT_LT(dialog.sizeHint().width(), 800);
      EXPECT_TRUE(Reads(dialog, "Numero di &copie:"));
      dialog.findChild<QSpinBox*>()->setValue(3);
      QFile inTheWay(folder);
      EXPECT_TRUE(QDir().rmdir(folder) && inTheWay.open(QIODevice::WriteOnly));
      dialog.accept();
      EXPECT_TRUE(dialog.isVisible() &&
                  Reads(dialog, "In questa cartella non si può scrivere: scegliere un'altra cartella."));
      inTheWay.remove();
      dialog.accept();
    });
    const PrintDialogAnswer answer = printer_.ShowDialog({});
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.copies, 3);
    EXPECT_THROW(device_.SelectPrinter("uneven"), RuntimeError);
  }
  const PrivateCups back;
  back.AddQueue("uneven");
  InNext<QPrintDialog>([](QPrintDialog& dialog) { dialog.accept(); });
  EXPECT_TRUE(printer_.ShowDialog({}).accepted);
  back.Run("lpadmin -x uneven");
  InNext<PdfPrinterDialog>([&](PdfPrinterDialog& dialog) {
    EXPECT_TRUE(Reads(dialog, "Nessuna stampante è installata."));
    dialog.accept();
  });
  EXPECT_EQ(printer_.ShowDialog({}).copies, 1);
  printer_.EndDoc();
  EXPECT_TRUE(QFile::exists(folder + "/Morvane.pdf"));
}

// As on a machine without the service; the last address is not known as one of this machine.
TEST_F(PrintingTest, WhereNobodyListensThereIsNoPrinterAndNobodySaysThatItIsSilent) {
  QTcpSocket unheard;
  ASSERT_TRUE(unheard.bind(QHostAddress::LocalHost));
  const QByteArray port = ":" + QByteArray::number(unheard.localPort());
  const QByteArray own = qgetenv("CUPS_SERVER");
  for (const QByteArray& server : {"127.0.0.1" + port, "localhost" + port, own + "-none", "0.0.0.0" + port}) {
    qputenv("CUPS_SERVER", server);
    InNext<PdfPrinterDialog>([&](PdfPrinterDialog& dialog) {
      EXPECT_EQ(Reads(dialog, "Nessuna stampante è installata."), !server.startsWith("0")) << server.data();
      dialog.reject();
    });
    EXPECT_FALSE(printer_.ShowDialog({}).accepted);
  }
  qputenv("CUPS_SERVER", own);
}

// What the toolkit's dialog offers, and what comes of it with options left from elsewhere.
TEST_F(QueueTest, DialogAsksForCopiesWhichAreJobsOfTheirOwnThatNobodyScales) {
  QDir().mkpath(QDir::homePath() + "/.cups");
  std::ofstream(QDir::homePath().toStdString() + "/.cups/lpoptions")
      << "Dest uneven page-ranges=2-3 number-up=2 fit-to-page\n";
  for (const char* queue : {"uneven", "letter"}) cups_.AddQueue(queue);
  device_.SelectPrinter("letter");
  InNext([](QDialog& dialog) {
    for (const char* choice : {"printRange", "printSelection"})
      EXPECT_TRUE(dialog.findChild<QWidget*>(choice)->isVisible()) << choice;
    dialog.reject();
  });
  EXPECT_FALSE(printer_.ShowDialog({.restricted = false}).accepted);
  InNext([](QDialog& dialog) {
    auto* const printers = dialog.findChild<QComboBox*>("printers");
    EXPECT_EQ(printers->count(), 2) << "a file is no printer";
    EXPECT_EQ(printers->currentText(), "letter");
    printers->setCurrentText("uneven");
    for (const char* none : {"gbPrintRange", "collate"})
      EXPECT_FALSE(dialog.findChild<QWidget*>(none)->isVisible()) << none;
    dialog.findChild<QSpinBox*>("copies")->setValue(3);
    dialog.accept();
  });
  for (const char* none : {"nessuna", "LETTER"})
    EXPECT_THROW(device_.SelectPrinter(none), RuntimeError) << none;
  printer_.JobTitle = "Custodia è";
  AppState state;
  Stampa(state, CoverSlots{}, printer_);
  cups_.WaitForJobs();
  cups_.Stop();
  EXPECT_EQ(cups_.JobRecord(4), "");
  for (const int job : {1, 2, 3}) {
    const std::string record = cups_.JobRecord(job);
    EXPECT_THAT(record, AllOf(HasSubstr(std::string("print-scaling\0\4none", 19)), HasSubstr("Custodia è"),
                              HasSubstr(std::string("number-up\0\4\0\0\0\1", 15)),
                              HasSubstr(std::string("position\0\10top-left", 18))));
    for (const char* other : {"page-ranges", "fit-to-page", "copies"})
      EXPECT_EQ(record.find(other), std::string::npos) << other;
  }
}

TEST_F(QueueTest, CalibrationIsTypedOnATabPrintsItsSheetWithoutItselfAndSheetsWithItHaveTheirSizes) {
  cups_.AddQueue("uneven");
  device_.SelectPrinter("uneven");
  ExpectInPlace(kUneven, PageOrientation::Portrait);
  InNext([](QDialog& dialog) {
    CalibrationTab* tab = nullptr;
    for (auto* child : dialog.findChildren<QWidget*>())
      if (auto* found = dynamic_cast<CalibrationTab*>(child)) tab = found;
    for (const auto* button : tab->findChildren<QPushButton*>()) {
      EXPECT_FALSE(button->autoDefault()) << "a number's return key would press it";
      EXPECT_FALSE(button->toolTip().isEmpty()) << button->text().toStdString();
    }
    const auto fields = tab->findChildren<QDoubleSpinBox*>();
    const auto texts = [tab] {
      std::string all;
      for (const auto* label : tab->findChildren<QLabel*>()) all += label->text().toStdString();
      return all;
    };
    QFile inTheWay(QDir::home().filePath("morvane"));
    EXPECT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    fields[0]->setValue(174);
    EXPECT_THAT(texts(), HasSubstr("Impossibile scrivere il file della taratura"));
    inTheWay.remove();
    fields[0]->setValue(174.9);
    fields[0]->stepUp();
    EXPECT_EQ(Calibrations().Of("uneven").acrossMm, 175);
    Press(*tab, "zzera");
    EXPECT_EQ(Calibrations().Of("uneven"), Calibration());
    const double typed[] = {181.8, 248.75, 1.5, -2};
    for (int i = 0; i < 4; ++i) fields[i]->setValue(typed[i]);
    for (const char* half : {"0,5", "0.5"}) {
      fields[2]->findChild<QLineEdit*>()->selectAll();
      QTest::keyClicks(fields[2], half);
      QTest::keyClick(fields[2], Qt::Key_Return);
      EXPECT_EQ(Calibrations().Of("uneven").rightMm, 0.5) << half;
    }
    fields[2]->setValue(typed[2]);
    fields[0]->setValue(200);  // refused: the corrections stay
    EXPECT_THAT(texts(), HasSubstr("dal 95 al 105 %"));
    EXPECT_EQ(Calibrations().Of("uneven"), kMeasured);
    Press(*tab, "foglio");
    dialog.accept();
  });
  printer_.ShowDialog({});
  cups_.WaitForJobs();
  const std::vector<double> ruler = MeasuredSheet(cups_.SheetPath()).AcrossMm(kUneven.top + 117.5);
  ASSERT_FALSE(ruler.empty());
  EXPECT_NEAR(ruler.front(), kUneven.left + 10, kOriginMm);
  for (const PageOrientation orientation : {PageOrientation::Portrait, PageOrientation::Landscape}) {
    printer_.SetOrientation(orientation);
    ExpectInPlace(kUneven, orientation, kMeasured);
  }

  const auto printed = [&](const std::string& option, const std::string& told = "") {
    EXPECT_THAT(RunPrintProgram("--printer uneven" + option).errors, HasSubstr(told));
    cups_.WaitForJobs();
    return MeasuredSheet(cups_.SheetPath()).InkMm().left();
  };
  const double plain = printed(" --no-calibration");
  EXPECT_NEAR(plain - printed(""), kMeasured.rightMm, 0.2);
  std::ofstream(QDir::homePath().toStdString() + "/morvane/taratura.ini")
      << "[uneven]\norizzontale180=grosso\n";
  EXPECT_EQ(printed("", "morvane-print: Il file della taratura è danneggiato"), plain);
}

TEST(CalibrationFile, KeepsEachPrinterAndADamagedOneCorrectsNothingAndIsToldOnce) {
  EXPECT_THROW(Calibrations("/proc/nessuno/taratura.ini").Keep("casa", {}), RuntimeError);
  const TemporaryFolder folder;
  const QString file = QString::fromStdString(folder.Path("prove/taratura.ini"));
  Calibrations one(file);
  Calibrations(file).Keep("Ufficio/2°", kMeasured);
  one.Keep("casa", kMeasured);  // by a program that was started before the other kept its own
  Calibrations kept(file);
  EXPECT_TRUE(kept.Of("Ufficio/2°") == kMeasured && kept.Of("casa") == kMeasured);
  EXPECT_EQ(kept.Of("altra"), Calibration());
  EXPECT_TRUE(kept.TakeComplaint().isEmpty());
  const std::string start = "[casa]\norizzontale180=";
  for (const std::string& damage :
       {start + "200\nverticale250=250\ndestra=0\nbasso=0\n",
        start + "nan\nverticale250=250\ndestra=0\nbasso=0\n",
        start + "180\nverticale250=200\ndestra=0\nbasso=0\n",
        start + "180\nverticale250=250\ndestra=99\nbasso=0\n",
        start + "180\nverticale250=250\ndestra=0\nbasso=-99\n", start + "180\nverticale250=250\nbasso=0\n",
        std::string("[Ufficio\n"), std::string("\xff\x01 niente")}) {
    folder.Write("prove/taratura.ini", damage);
    Calibrations damaged(file);
    EXPECT_EQ(damaged.Of("casa"), Calibration()) << damage;
    EXPECT_FALSE(damaged.TakeComplaint().isEmpty()) << damage;
    EXPECT_TRUE(damaged.TakeComplaint().isEmpty()) << damage;
  }
}

}  // namespace
}  // namespace Morvane
