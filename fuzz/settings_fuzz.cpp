#include "core/settings_file.h"
#include "fuzz/support/fuzz_machine.h"

using namespace Morvane;

// A settings file of any bytes; what was read is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzMachine().WriteFile("C:\\Morvane\\morvane.ini", Text(data, size));
  AppState state;
  state.AppPath = "C:\\Morvane\\";
  ReadSettings(state, *FuzzMachine().Files);
  SalvaImpostazioni(state, *FuzzMachine().Files);
  AppState again;
  again.AppPath = state.AppPath;
  ReadSettings(again, *FuzzMachine().Files);
  MustHold(again.SpessoreBordo == state.SpessoreBordo, "the outline comes back");
  MustHold(again.FileFolder == state.FileFolder, "the folder comes back");
  return 0;
}
