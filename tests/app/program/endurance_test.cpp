#include <unistd.h>

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
