#include <gmock/gmock.h>

#include <cmath>

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

std::vector<std::string> ShippedLayouts() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kProject / "data/layouts")) {
    names.push_back(entry.path().stem().string());
    EXPECT_EQ(entry.path().extension(), ".mvne") << names.back();
  }
  std::sort(names.begin(), names.end());
  return names;
}

struct Cover {  // millimetres
  bool ellipse;
  double left, top, right, bottom;
};

bool Apart(const Cover& a, const Cover& b) {
  return std::max(a.left, b.left) > std::min(a.right, b.right) - kRounding ||
         std::max(a.top, b.top) > std::min(a.bottom, b.bottom) - kRounding;
}

bool IsHoleOf(const Cover& hole, const Cover& disc) {
  return hole.ellipse && disc.ellipse && hole.right < disc.right &&
         std::abs((hole.left + hole.right) - (disc.left + disc.right)) < kRounding &&
         std::abs((hole.top + hole.bottom) - (disc.top + disc.bottom)) < kRounding;
}

class ShippedLayout : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    state.MaxCopertine = 100;
    const FileSystem files("/", MountTable({}, "", ""), "/");
    const std::string path = files.FromNative(kProject / "data/layouts" / (GetParam() + ".mvne"));
    ReadLayout(*files.OpenForInput(path), state);
    EXPECT_EQ(ComposeLayout(state, EditRow{}), files.ReadBytes(path))
        << "the editor would write it otherwise";
    for (std::size_t n = 1; n <= static_cast<std::size_t>(state.NumCopertine); ++n) {
      const double left = MmFromInches(state.CopDistx[n]);
      const double top = MmFromInches(state.CopDisty[n]);
      covers.push_back({state.CopForma[n] == 1.0, left, top, left + MmFromCm(state.CopLarg[n]),
                        top + MmFromCm(state.CopAlte[n])});
    }
    ASSERT_FALSE(covers.empty());
  }

  AppState state;
  std::vector<Cover> covers;
};

// Positions count from the corner that the printer reaches, so both margins are lost on the far side. What
// lies in the middle of the rest, to the millimetre, has as much room on each side as there is; above, the
// footer comes first.
TEST_P(ShippedLayout, LiesInTheMiddleOfWhatAPrinterWithWideMarginsReaches) {
  const bool landscape = state.Orientamento == 1;
  const double width = (landscape ? 297 : 210) - 2 * kMargin;
  const double height = (landscape ? 210 : 297) - 2 * kMargin;
  Cover all = covers[0];
  for (const Cover& cover : covers) {
    EXPECT_LT(cover.left, cover.right);
    EXPECT_LT(cover.top, cover.bottom);
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

TEST_P(ShippedLayout, HasNoCoverOverAnotherButAHoleInItsDisc) {
  for (std::size_t a = 0; a < covers.size(); ++a)
    for (std::size_t b = a + 1; b < covers.size(); ++b)
      EXPECT_TRUE(Apart(covers[a], covers[b]) || IsHoleOf(covers[b], covers[a]))
          << "covers " << a + 1 << " and " << b + 1;
}

INSTANTIATE_TEST_SUITE_P(All, ShippedLayout, testing::ValuesIn(ShippedLayouts()));

TEST(LayoutsGuide, HasOneRowForEachShippedLayout) {
  std::vector<std::string> rows;
  std::ifstream guide(kProject / "docs" / "layouts.md");
  for (std::string line; std::getline(guide, line);)
    if (line.starts_with("| ") && !line.starts_with("| Layout |"))
      rows.push_back(line.substr(2, line.find(" | ") - 2));
  EXPECT_THAT(rows, testing::UnorderedElementsAreArray(ShippedLayouts()));
}

}  // namespace

}  // namespace Morvane
