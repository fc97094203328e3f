#include "windows/contents/listing_composition.h"

#include <algorithm>
#include <sstream>

#include "fuzz/support/fuzz_machine.h"
#include "platform/runtime_error.h"

using namespace Morvane;

namespace {

// Each line of the text is a file, or with "+" before it a folder with the files so far.
void Fill(Listing& list, std::istream& text) {
  list.Begin("C:\\");
  std::vector<FolderBlock*> open = {&list.NewBlock()};
  std::vector<std::string> names;
  for (std::string line; std::getline(text, line);) {
    if (!line.starts_with('+')) {
      names.push_back(line);
      continue;
    }
    FolderBlock& inner = list.NewBlock();
    inner.AddFiles(std::exchange(names, {}));
    open.front()->AddSubFolder(line.substr(1), &inner);
  }
  open.front()->RepeatSubFolders();
  open.front()->AddFiles(std::move(names));
}

}  // namespace

// A sheet with any title, names, font size, columns and scale: it is drawn, or refused for its title.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  AppState state;
  state.ElencoColonne = static_cast<std::int16_t>(2 + data[0] % 6);
  state.ElencoFontSize = static_cast<float>(data[1]) / 8;
  const double ratio = std::max(0.254, data[2] / 64.0);
  std::istringstream text(Text(data + 4, size - 4));
  std::string title;
  std::getline(text, title);
  Listing list;
  Fill(list, text);
  DrawingSurface page(FuzzMachine().Metrics);
  page.SetSize(11906, 16838);
  page.SetScaleMode(ScaleMode::Millimetres);
  try {
    const LineCount lost = PrintRoutineAAAA(page, ratio, state, {list, title, data[3] % 2 == 1});
    MustHold(lost <= list.ListCount(), "no more lines are lost than there are");
  } catch (const RuntimeError&) {
  }
  return 0;
}
