#include "fuzz/support/fuzz_machine.h"
#include "platform/runtime_error.h"
#include "platform/windows_1252.h"

using namespace Morvane;

namespace {

TestMachine& MachineWithFolders() {
  static TestMachine machine;
  if (!machine.Files->FolderExists("C:\\Dati")) {
    machine.WriteFile("C:\\Dati\\Foto\\a.jpg", "a");
    machine.WriteFile("C:\\Dati\\foto\\B.JPG", "b");
    machine.WriteFile("C:\\Dati\\Perch\xC3\xA9.txt", "c");
  }
  return machine;
}

bool LiesIn(const std::string& native, const std::string& root) {
  return native == root || native.starts_with(root + "/");
}

}  // namespace

// A path of any characters leads to a place on the machine's drive or fails as a file error, and a file that
// is found there can be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TestMachine& machine = MachineWithFolders();
  const FileSystem& files = *machine.Files;
  const std::string path = Text(data, size);
  try {
    const std::string native = files.ToNative(path);
    MustHold(LiesIn(native, machine.Root.Path()), "a path stays on its drive");
    const std::string back = files.FromNative(native);
    // A name that is no UTF-8 is shown by another.
    if (!back.empty() && ReadableUtf8(path) == path)
      MustHold(files.ToNative(back) == native, "there and back is the same place");
  } catch (const RuntimeError&) {
  }
  if (files.FileExists(path)) MustHold(files.ReadBytes(path).size() == 1, "what exists can be read");
  if (files.FolderExists(path)) files.ReadFolder(path);
  files.FromNative(machine.Root.Path() + path);
  files.TypeOfDrive(path);
  return 0;
}
