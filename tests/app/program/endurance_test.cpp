#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "tests/hand/session.h"

namespace Morvane {
namespace {

#ifdef MORVANE_SANITIZE
constexpr bool kMemoryIsKept = true;  // by the sanitizer, once freed
#else
constexpr bool kMemoryIsKept = false;
#endif
constexpr double kMegabyte = 1024.0 * 1024.0;
constexpr double kMostGrowth = 4;  // megabytes

double ResidentMegabytes() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / kMegabyte;
}

// Runs a round `count` times; what the process has grown by after the first third.
double GrowthMegabytes(int count, const std::function<void(int)>& round) {
  double warm = 0;
  for (int n = 0; n < count; ++n) {
    if (n == count / 3) warm = ResidentMegabytes();
    round(n);
  }
  return ResidentMegabytes() - warm;
}

// As the program does at its start: each reading of a layout keeps one file open.
void RaiseFileLimit() {
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 65536);
  setrlimit(RLIMIT_NOFILE, &limit);
}

// A day of ten thousand returns to the main window, without a screen.
TEST(Endurance, ADayOfActivationsKeepsTheMemory) {
  if (kMemoryIsKept) GTEST_SKIP();
  RaiseFileLimit();
  TestMachine machine;
  machine.WriteFile("C:\\Morvane\\Prova.mvne",
                    "Pagina=0\r\nCopertina1=0\r\nLarg1=120\r\nAlte1=120\r\nDistx1=10\r\nDisty1=10\r\n");
  machine.WriteFile("C:\\Morvane\\morvane_fileid.txt", "Morvane\r\n");
  machine.WritePicture("C:\\Foto\\a.jpg", 3000, 3000);
  Program program(machine.platform, ',');
  program.state.NomeLayout = "Prova";
  program.Start();
  const std::vector<std::pair<Action, std::string>> openings = {
      {Action::ScegliLayout, "Dialog"}, {Action::CaricaImmagine1, "frmAbout"},
      {Action::LeggiCD, "FrmPreview"},  {Action::InformazioniPdf, "Form2"},
      {Action::Informazioni, "Form3"},  {Action::RicercaOnline, "Form4"},
  };
  const double growth = GrowthMegabytes(10000, [&](int n) {
    const auto& opening = openings[static_cast<std::size_t>(n) % openings.size()];
    // Every other time the window is only hidden, where the picker then has chosen a picture.
    machine.Windows.Modal[opening.second].push_back([&](Form& form) {
      program.state.ImmagineScelta = "C:\\Foto\\a.jpg";
      n / 6 % 2 == 0 ? form.UnloadForm() : form.Hide();
    });
    machine.Windows.UserEvent([&] { program.form1.Perform(opening.first); });
    machine.Windows.ShownForms.clear();
    machine.Pictures.Loaded.clear();
  });
  EXPECT_THAT(machine.Windows.Boxes, testing::IsEmpty());
  EXPECT_LT(growth, kMostGrowth);
}

using EnduranceTest = Session;

TEST_F(EnduranceTest, OpeningWindowsAndReplacingPicturesKeepsTheMemory) {
  if (kMemoryIsKept) GTEST_SKIP();
  Ship();
  hand.Show(program.form1.form);
  const double growth = GrowthMegabytes(300, [&](int n) {
    Open(kAllWindows[static_cast<std::size_t>(n) % kAllWindows.size()], [&](Form& form) {
      program.state.ImmagineScelta = n % 16 < 8 ? "C:\\Foto\\fronte.jpg" : "C:\\Foto\\retro.jpg";
      if (form.Name() == "frmAbout") hand.windows.Dispatch([&] { form.Hide(); });
    });
  });
  EXPECT_NE(program.slots.Image1[0], nullptr);
  EXPECT_LT(growth, kMostGrowth);
}

}  // namespace
}  // namespace Morvane
