#include <gmock/gmock.h>
#include <signal.h>
#include <sys/mount.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <thread>

#include "platform/qt/painting/qt_font_catalog.h"
#include "platform/qt/painting/qt_text_metrics.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/qt/printing/qt_printers.h"
#include "platform/runtime_error.h"
#include "render/print_job.h"
#include "tests/support/private_cups.h"
#include "windows/contents/frm_preview.h"

namespace Morvane {
namespace {

// A real queue, with a user who accepts the print dialog; something may go wrong meanwhile.
class AcceptedQueue : public QtPrinters {
 public:
  std::function<void()> Meanwhile = [] {};

  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override {
    Meanwhile();
    return {.accepted = true, .copies = 1};
  }
};

using testing::HasSubstr;

// A full medium in the place of the spool.
class SmallSpool {
 public:
  explicit SmallSpool(std::string folder) : folder_(std::move(folder)) {
    mounted_ = ::mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") == 0;
    std::ofstream fill(folder_ + "/fill");
    while (mounted_ && fill) fill << std::string(1024, ' ') << std::flush;
  }
  ~SmallSpool() {
    if (mounted_) ::umount2(folder_.c_str(), MNT_DETACH);
  }
  SmallSpool(const SmallSpool&) = delete;
  SmallSpool& operator=(const SmallSpool&) = delete;

  bool Mounted() const { return mounted_; }

 private:
  std::string folder_;
  bool mounted_;
};

class SpoolerFaults : public testing::Test {
 protected:
  SpoolerFaults() {
    cups_.AddQueue("uneven");
    device_.SelectPrinter("uneven");
    state_.NumCopertine = 1;
  }

  // Prints the cover, the contents, and the cover by the command line program, each as `wrong` happens.
  void ExpectToldByAllButTheMainWindow(const std::function<void()>& wrong) {
    device_.Meanwhile = wrong;
    EXPECT_NO_THROW(Stampa(state_, slots_, printer_));
    EXPECT_THAT(printer_.Surface().Drawing(), testing::IsEmpty());
    PrintContents();
    ASSERT_EQ(machine_.Windows.Boxes.size(), 1U);
    EXPECT_THAT(machine_.Windows.Boxes[0].text, HasSubstr("La stampante 'uneven'"));
    EXPECT_EQ(machine_.TheScreen.Pointer(), MousePointer::Default);
    ExpectProgramFails();
  }

  void PrintContents() {
    FrmPreview window(state_, platform_, {[] {}, [] { return std::string(); }});
    window.form.BeginShow();
    machine_.Windows.UserEvent([&] { window.Command3.PerformClick(); });
  }

  ProgramRun RunPrintProgram() { return RunProgram("'" MORVANE_PRINT "' --printer uneven", machine_.Root); }
  void ExpectProgramFails() {
    const ProgramRun outcome = RunPrintProgram();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, testing::MatchesRegex("morvane-print: [^\n]+\n"));
  }

  PrivateCups cups_;
  TestMachine machine_;
  QtTextMetrics metrics_;
  QtFontCatalog fonts_;
  AcceptedQueue device_;
  Printer printer_{device_, metrics_, fonts_};
  Platform platform_{machine_.Windows, machine_.TheScreen, *machine_.Files,   machine_.Pictures, metrics_,
                     fonts_,           printer_,           machine_.Launches, machine_.Http,     AppInfo{}};
  AppState state_;
  CoverSlots slots_;
};

TEST_F(SpoolerFaults, StoppedQueueHoldsTheJobsAndTheProgramTellsSo) {
  cups_.Run("cupsdisable uneven");
  Stampa(state_, slots_, printer_);
  PrintContents();
  EXPECT_THAT(machine_.Windows.Boxes, testing::IsEmpty());
  const ProgramRun outcome = RunPrintProgram();
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "morvane-print: La stampante 'uneven' è ferma: i lavori aspettano nella coda.\n");
  cups_.Run("cupsenable uneven");
  cups_.WaitForJobs();
  EXPECT_TRUE(std::ifstream(cups_.SheetPath()));
  cups_.Stop();
  EXPECT_EQ(cups_.JobRecords().size(), 3U);
}

TEST_F(SpoolerFaults, QueueDeletedBehindTheDialogIsTold) {
  ExpectToldByAllButTheMainWindow([&, gone = false]() mutable {
    if (!std::exchange(gone, true)) cups_.Run("lpadmin -x uneven");
  });
}

TEST_F(SpoolerFaults, QueueThatRejectsJobsIsTold) {
  ExpectToldByAllButTheMainWindow([&] { cups_.Run("cupsreject uneven"); });
}

TEST_F(SpoolerFaults, FullSpoolIsToldAndOnceThereIsRoomTheQueuePrints) {
  {
    const SmallSpool spool(cups_.SpoolFolder());
    if (!spool.Mounted()) GTEST_SKIP() << "no mounting here";
    const std::string sheet = cups_.SpoolFolder() + "/sheet.pdf";
    EXPECT_THROW(WritePdf(sheet, {}, PageOrientation::Portrait, kA4, "Prova"), RuntimeError);
    EXPECT_FALSE(std::ifstream(sheet));
    ExpectToldByAllButTheMainWindow([] {});
  }
  machine_.Windows.Boxes.clear();
  PrintContents();
  cups_.WaitForJobs();
  EXPECT_THAT(machine_.Windows.Boxes, testing::IsEmpty());
  EXPECT_TRUE(std::ifstream(cups_.SheetPath()));
}

TEST_F(SpoolerFaults, SpoolerKilledWhileItTakesTheJobIsTold) {
  std::thread killer;
  device_.Meanwhile = [&] {
    kill(cups_.Process(), SIGSTOP);
    killer = std::thread([&] {
      std::this_thread::sleep_for(std::chrono::seconds(1));
      kill(cups_.Process(), SIGKILL);
    });
  };
  PrintContents();
  killer.join();
  ASSERT_EQ(machine_.Windows.Boxes.size(), 1U);
  EXPECT_THAT(machine_.Windows.Boxes[0].text, HasSubstr("La stampante 'uneven'"));
  cups_.Stop();
  ExpectProgramFails();
}

}  // namespace
}  // namespace Morvane
