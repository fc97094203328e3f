#include <signal.h>
#include <sys/resource.h>

#include <thread>

#include "platform/qt/printing/pdf_file_writer.h"
#include "printing_fixture.h"
#include "render/print_job.h"
#include "windows/contents/frm_preview.h"

namespace Morvane {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

// A real queue, with a user who accepts the print dialog; something may go wrong meanwhile.
class AcceptedQueue : public QtPrinters {
 public:
  std::function<void()> Meanwhile = [] {};

  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override {
    Meanwhile();
    return {.accepted = true, .copies = 1};
  }
};

// A disk that takes files of so many bytes only is as good as full.
constexpr rlim_t kFull = 2000;
void LimitFiles(pid_t process, rlim_t bytes) {
  const rlimit limit{bytes, RLIM_INFINITY};
  ASSERT_EQ(::prlimit(process, RLIMIT_FSIZE, &limit, nullptr), 0);
}

class SpoolerFaults : public PrintingTest {
 protected:
  SpoolerFaults() {
    cups_.AddQueue("uneven");
    device_.SelectPrinter("uneven");
  }

  // Prints the cover, the contents, and the cover by the command line program, each as `wrong` happens.
  void ExpectToldByAllButTheMainWindow(const std::function<void()>& wrong) {
    device_.Meanwhile = wrong;
    AppState state;
    EXPECT_NO_THROW(Stampa(state, CoverSlots{}, printer_));
    EXPECT_THAT(printer_.Surface().Drawing(), IsEmpty());
    ExpectContentsTold();
    EXPECT_EQ(machine_.TheScreen.Pointer(), MousePointer::Default);
    ExpectProgramFails();
  }
  void ExpectContentsTold() {
    PrintContents();
    ASSERT_EQ(machine_.Windows.Boxes.size(), 1U);
    EXPECT_THAT(machine_.Windows.Boxes[0].text, HasSubstr("La stampante 'uneven'"));
    machine_.Windows.Boxes.clear();
  }
  void ExpectProgramFails() {
    const ProgramRun outcome = RunPrintProgram("--printer uneven");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, testing::MatchesRegex("morvane-print: [^\n]+\n"));
  }
  void PrintContents() {
    AppState state;
    FrmPreview window(state, platform_, {[] {}, [] { return std::string(); }});
    window.form.BeginShow();
    machine_.Windows.UserEvent([&] { window.Command3.Click(); });
  }

  const sighandler_t told_ = ::signal(SIGXFSZ, SIG_IGN);  // the spooler's, too
  PrivateCups cups_;
  TestMachine machine_;
  AcceptedQueue device_;
  Printer printer_{device_, metrics_, fonts_};
  Platform platform_{machine_.Windows, machine_.TheScreen, *machine_.Files,   machine_.Pictures, metrics_,
                     fonts_,           printer_,           machine_.Launches, machine_.Http,     AppInfo{}};
};

TEST_F(SpoolerFaults, StoppedQueueTakesTheJobAndTheProgramTellsThatItWaits) {
  cups_.Run("cupsdisable uneven");
  const ProgramRun outcome = RunPrintProgram("--printer uneven");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "morvane-print: La stampante 'uneven' è ferma: i lavori aspettano nella coda.\n");
}

TEST_F(SpoolerFaults, QueueDeletedBehindTheDialogIsTold) {
  ExpectToldByAllButTheMainWindow([&, gone = false]() mutable {
    if (!std::exchange(gone, true)) cups_.Run("lpadmin -x uneven");
  });
}

TEST_F(SpoolerFaults, QueueThatRejectsJobsIsTold) {
  ExpectToldByAllButTheMainWindow([&] { cups_.Run("cupsreject uneven"); });
}

TEST_F(SpoolerFaults, FullDiskIsToldAndOnceThereIsRoomTheQueuePrints) {
  LimitFiles(0, 100);
  EXPECT_THROW(WritePdf(folder_.Path("sheet.pdf"), {}, PageOrientation::Portrait, kA4, "Prova"),
               RuntimeError);
  LimitFiles(0, RLIM_INFINITY);
  EXPECT_FALSE(std::ifstream(folder_.Path("sheet.pdf")));
  LimitFiles(cups_.Process(), kFull);
  ExpectToldByAllButTheMainWindow([] {});
  LimitFiles(cups_.Process(), RLIM_INFINITY);
  PrintContents();
  cups_.WaitForJobs();
  EXPECT_THAT(machine_.Windows.Boxes, IsEmpty());
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
  ExpectContentsTold();
  killer.join();
  cups_.Stop();
  ExpectProgramFails();
}

}  // namespace
}  // namespace Morvane
