#include "windows/contents/listing_composition.h"

#include <algorithm>
#include <sstream>

#include "fuzz/support/fuzz_machine.h"
#include "platform/runtime_error.h"

using namespace Morvane;

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
  for (std::string line; std::getline(text, line);) list.Add(line);
  if (data[3] % 3 == 0) list.Repeat({0, list.ListCount()}, "", "C:\\");
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
