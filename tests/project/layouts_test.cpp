#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

#include "core/app_state.h"
#include "core/layout_reader.h"
#include "core/layout_writer.h"
#include "core/measures.h"
#include "platform/files/file_system.h"

namespace Morvane {
namespace {

const std::filesystem::path kProject = MORVANE_SOURCE_DIR;
constexpr double kMargin = 8;      // millimetres on each side that a printer may not reach
constexpr double kFooterRoom = 8;  // millimetres above cover 1: the footer line stands 0.3 inch above it
constexpr double kRounding = 1e-9;

struct Cover {  // millimetres
  bool ellipse;
  double left, top, right, bottom;
};

std::vector<Cover> CoversOf(const AppState& state) {
  std::vector<Cover> covers;
  for (std::size_t n = 1; n <= static_cast<std::size_t>(state.NumCopertine); ++n) {
    const double left = MmFromInches(state.CopDistx[n]);
    const double top = MmFromInches(state.CopDisty[n]);
    covers.push_back({state.CopForma[n] == 1.0, left, top, left + MmFromCm(state.CopLarg[n]),
                      top + MmFromCm(state.CopAlte[n])});
  }
  return covers;
}

bool Apart(const Cover& a, const Cover& b) {
  return std::max(a.left, b.left) > std::min(a.right, b.right) - kRounding ||
         std::max(a.top, b.top) > std::min(a.bottom, b.bottom) - kRounding;
}

bool IsHoleOf(const Cover& hole, const Cover& disc) {
  return hole.ellipse && disc.ellipse && hole.right < disc.right &&
         std::abs((hole.left + hole.right) - (disc.left + disc.right)) < kRounding &&
         std::abs((hole.top + hole.bottom) - (disc.top + disc.bottom)) < kRounding;
}

// Positions count from the corner that the printer reaches, so both margins are lost on the far side. What
// lies in the middle of the rest, to the millimetre, has as much room on each side as there is; above, the
// footer comes first.
void ExpectInTheMiddle(const std::vector<Cover>& covers, bool landscape) {
  const double width = (landscape ? 297 : 210) - 2 * kMargin;
  const double height = (landscape ? 210 : 297) - 2 * kMargin;
  Cover all = covers.at(0);
  for (const Cover& cover : covers) {
    EXPECT_TRUE(cover.left < cover.right && cover.top < cover.bottom);
    all = {false, std::min(all.left, cover.left), std::min(all.top, cover.top),
           std::max(all.right, cover.right), std::max(all.bottom, cover.bottom)};
  }
  EXPECT_GE(all.left, -kRounding);
  EXPECT_GE(covers[0].top, kFooterRoom - kRounding);
  EXPECT_LE(all.right, width + kRounding);
  EXPECT_LE(all.bottom, height + kRounding);
  EXPECT_NEAR(all.left, width - all.right, 1 + kRounding);
  EXPECT_NEAR(all.top, std::max(kFooterRoom, height - all.bottom), 1 + kRounding);
}

void ExpectNoneOverAnother(const std::vector<Cover>& covers) {
  for (std::size_t a = 0; a < covers.size(); ++a)
    for (std::size_t b = a + 1; b < covers.size(); ++b)
      EXPECT_TRUE(Apart(covers[a], covers[b]) || IsHoleOf(covers[b], covers[a]))
          << "covers " << a + 1 << " and " << b + 1;
}

TEST(ShippedLayouts, AreAsTheEditorWritesThemLieWhereAPrinterReachesAndStandInTheGuide) {
  const FileSystem files("/", MountTable({}, "", ""), "/");
  std::stringstream guide;
  guide << std::ifstream(kProject / "docs/layouts.md").rdbuf();
  for (const auto& entry : std::filesystem::directory_iterator(kProject / "data/layouts")) {
    SCOPED_TRACE(entry.path());
    const std::string path = files.FromNative(entry.path());
    AppState state;
    state.MaxCopertine = kMaxCovers;
    ReadLayout(*files.OpenForInput(path), state);
    EXPECT_EQ(ComposeLayout(state, EditRow{}), files.ReadBytes(path));
    ExpectInTheMiddle(CoversOf(state), state.Orientamento == 1);
    ExpectNoneOverAnother(CoversOf(state));
    EXPECT_THAT(guide.str(), testing::HasSubstr("\n| " + entry.path().stem().string() + " | "));
  }
}

}  // namespace
}  // namespace Morvane
