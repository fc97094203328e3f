#include <signal.h>
#include <sys/resource.h>

#include <thread>

#include "platform/qt/printing/pdf_file_writer.h"
#include "printing_fixture.h"

namespace Morvane {
namespace {

// A disk that takes files of so many bytes only is as good as full.
void LimitFiles(pid_t process, rlim_t bytes) {
  const rlimit limit{bytes, RLIM_INFINITY};
  ASSERT_EQ(::prlimit(process, RLIMIT_FSIZE, &limit, nullptr), 0);
}

class SpoolerFaults : public QueueTest {
 protected:
  static void SetUpTestSuite() { ::signal(SIGXFSZ, SIG_IGN); }  // the spooler's, too
  SpoolerFaults() {
    cups_.AddQueue("uneven");
    device_.SelectPrinter("uneven");
  }

  void ExpectTold() {
    EXPECT_THAT([&] { PrintCover(); },
                testing::ThrowsMessage<RuntimeError>(testing::StartsWith("La stampante 'uneven' ")));
  }
  void ExpectProgramFails(const std::string& start = {}) {
    const ProgramRun outcome = RunProgram(start + "'" MORVANE_PRINT "' --printer uneven", folder_);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, testing::MatchesRegex("morvane-print: [^\n]+\n"));
  }
};

TEST_F(SpoolerFaults, StoppedQueueTakesTheJobAndTheProgramTellsThatItWaits) {
  cups_.Run("cupsdisable uneven");
  const ProgramRun outcome = RunPrintProgram("--printer uneven");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "morvane-print: La stampante 'uneven' è ferma: i lavori aspettano nella coda.\n");
}

TEST_F(SpoolerFaults, QueueThatRejectsJobsOrIsDeletedIsTold) {
  for (const char* command : {"cupsreject uneven", "lpadmin -x uneven"}) {
    cups_.Run(command);
    ExpectTold();
    ExpectProgramFails();
  }
}

// It asks on its terminal, and has none here; a window to type it in nobody would see.
TEST_F(SpoolerFaults, PasswordThatNobodyCanTypeIsTold) {
  cups_.Run("lpadmin -p uneven -o printer-op-policy=custodita");
  ExpectProgramFails("CUPS_USER=ospite setsid -w timeout 20 ");
}

TEST_F(SpoolerFaults, FullDiskIsToldAndOnceThereIsRoomTheQueuePrints) {
  LimitFiles(0, 100);
  EXPECT_THROW(WritePdf(folder_.Path("sheet.pdf"), {}, PageOrientation::Portrait, kA4, "Prova"),
               RuntimeError);
  LimitFiles(0, 20000);  // in the middle of the photo
  const std::string photo = " --picture 1='" MORVANE_SOURCE_DIR "/data/samples/fronte.jpg'";
  EXPECT_EQ(RunPrintProgram("--pdf '" + folder_.Path("sheet.pdf") + "'" + photo).exitCode, 1);
  LimitFiles(0, RLIM_INFINITY);
  EXPECT_FALSE(std::ifstream(folder_.Path("sheet.pdf")));
  LimitFiles(cups_.Process(), 100);
  ExpectTold();
  ExpectProgramFails();
  LimitFiles(cups_.Process(), RLIM_INFINITY);
  PrintCover();
  cups_.WaitForJobs();
  EXPECT_TRUE(std::ifstream(cups_.SheetPath()));
}

TEST_F(SpoolerFaults, SpoolerKilledWhileItTakesTheJobIsTold) {
  kill(cups_.Process(), SIGSTOP);
  std::thread killer([&] {
    std::this_thread::sleep_for(std::chrono::seconds(1));
    kill(cups_.Process(), SIGKILL);
  });
  ExpectTold();
  killer.join();
  cups_.Stop();
  ExpectProgramFails();
}

}  // namespace
}  // namespace Morvane
