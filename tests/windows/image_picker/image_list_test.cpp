#include "windows/image_picker/image_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/support/test_machine.h"
#include "windows/image_picker/frm_about.h"

namespace Morvane {
namespace {

TEST(CleanText, BlanksLineBreaksInTheCallersOwnText) {
  std::string text = " C:\\Foto\x1B a\r\n";
  EXPECT_EQ(toglivbcrlf(text), "C:\\Foto  a");
  EXPECT_EQ(text, " C:\\Foto  a  ");
}

// Each limit goes by the pixels of the other axis, in whole twips.
TEST(Preview, ReachesOneLimitAndKeepsProportionsWhateverShapeThePixelsHave) {
  const double cases[][6] = {
      {15000, 7500, 15, 15, 3705, 1852.5}, {1500, 1500, 15, 15, 2700, 2700},
      {100, 10000, 10, 20, 18, 1800},      {10000, 100, 10, 20, 4940, 49.4},
      {100, 100, 15.0139, 15, 2703, 2703},
  };
  for (const auto& [width, height, twipsX, twipsY, fittedWidth, fittedHeight] : cases) {
    const PreviewSize size = ScaleToPreview(width, height, twipsX, twipsY);
    EXPECT_FLOAT_EQ(size.width, static_cast<float>(fittedWidth));
    EXPECT_FLOAT_EQ(size.height, static_cast<float>(fittedHeight));
  }
}

TEST(FolderTree, OnASlowDiskAllFoldersAreSeenBeforeEachIsLookedInto) {
  TestMachine machine;
  for (const char* parent : {"a", "b", "c", "d", "e", "f"})
    machine.MakeFolder("C:\\Molte\\" + std::string(parent) + "\\Dentro");
  machine.Files->BeforeCall = [](const std::string& call, const std::string& path) {
    if (call == "FirstSubFolder" && path.size() > 4)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
  };
  AppState state;
  frmAbout picker(state, machine.platform, [] {});
  picker.form.EnsureLoaded();
  while (picker.TimerCartelle.Running()) picker.TimerCartelle.PerformTick();
  TreeNode& folder = *picker.tvwdirtree.Find("C:\\Molte");
  picker.tvwdirtree.UserExpands(folder);
  const auto& nodes = folder.Children();
  const auto isRead = [](const TreeNode* node) { return node->Children().size() == 1; };
  EXPECT_EQ(nodes.size(), 6);
  EXPECT_FALSE(isRead(nodes.back()));
  picker.tvwdirtree.UserCollapses(folder);
  picker.tvwdirtree.UserExpands(folder);
  while (picker.TimerCartelle.Running()) picker.TimerCartelle.PerformTick();
  EXPECT_TRUE(std::all_of(nodes.begin(), nodes.end(), isRead));
}

}  // namespace
}  // namespace Morvane
