#include "windows/contents/frm_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/hand/hand.h"

namespace Morvane {
namespace {

// The first text of each column.
std::vector<std::string> ColumnStarts(const DrawingList& drawing) {
  std::vector<std::string> firsts;
  double left = 0;
  for (const Shape& shape : drawing) {
    const auto* text = std::get_if<TextShape>(&shape);
    if (text == nullptr || text->left == left) continue;
    left = text->left;
    firsts.push_back(text->text);
  }
  return firsts;
}

class ContentsWindow : public ::testing::Test {
 protected:
  ContentsWindow() { hand.Show(window.form); }

  TestMachine machine;
  AppState state;
  Hand hand{machine};
  FrmPreview window{state, hand.platform, {[] {}, [] { return std::string("ok"); }}};
};

TEST_F(ContentsWindow, ColumnsBreakAsOnPaperAtAnyFontSizeInWindowsOfAnySizeOnAnySheet) {
  for (int i = 0; i < 1500; ++i) window.List1.Add((i % 9 == 0 ? "(" : "") + std::to_string(i));
  std::vector<float> sizes = {2.8F, 10.3F, 20.6F};  // a column is full to 0.003 mm
  for (float size = 2; size <= 25; ++size) sizes.push_back(size);
  for (const SheetSize& sheet : {SheetSize{11905.5, 16837.8}, {12240, 15840}}) {
    machine.Device.Sheet = sheet;
    for (const double height : {6750.0, 9876.0, 32000.0}) {
      Hand::Resize(window.form, height * 4 / 3, height);
      Hand::Press(window.Option1[2]);
      for (const float size : sizes) {
        state.ElencoFontSize = size;
        state.ElencoFontItalic = static_cast<std::int16_t>(1 - state.ElencoFontItalic);
        window.AggiornaAnteprima();
        machine.Device.Answers.push_back({true, 1});
        Hand::Press(window.Command3);
        ASSERT_EQ(ColumnStarts(window.Picture1.Surface.Drawing()),
                  ColumnStarts(machine.Device.Jobs.back().page))
            << size << " points, " << height << " twips";
      }
    }
  }
}

}  // namespace
}  // namespace Morvane
