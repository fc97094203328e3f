#include "core/layout_reader.h"
#include "core/layout_writer.h"
#include "fuzz/support/fuzz_machine.h"
#include "platform/runtime_error.h"

using namespace Morvane;

namespace {

constexpr const char* kFile = "C:\\Morvane\\Prova.mvne";
constexpr const char* kWritten = "C:\\Morvane\\Scritto.mvne";

bool Read(const char* path, AppState& state) {
  const LayoutTables before = state;
  try {
    ReadLayout(*FuzzMachine().Files->OpenForInput(path), state);
    return true;
  } catch (const RuntimeError&) {
    MustHold(before == state, "a file that fails leaves the tables alone");
    return false;
  }
}

}  // namespace

// A layout file of any bytes; one that can be read can be written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzMachine().WriteFile(kFile, Text(data, size));
  AppState state;
  state.MaxCopertine = kMaxCovers;
  if (!Read(kFile, state)) return 0;
  MustHold(state.NumCopertine >= 0 && state.NumCopertine <= kMaxCovers, "covers are counted to 100");

  WriteLayout(state, {"Ogg.01", "1", "2", "3", "4"}, *FuzzMachine().Files, kWritten);
  AppState again;
  again.MaxCopertine = kMaxCovers;
  MustHold(Read(kWritten, again), "a layout that was written can be read");
  MustHold(again.NumCopertine == state.NumCopertine && again.Orientamento == state.Orientamento,
           "page and covers come back");
  return 0;
}
