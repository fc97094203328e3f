#include <malloc.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <vector>

#include "bench/windows/window_machine.h"
#include "tests/support/private_cups.h"
#include "windows/main_window/program.h"

namespace {

using namespace Morvane;

// Kilobytes of a line of this process's status.
long Memory(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  long kilobytes = 0;
  while (status >> word) {
    if (word == name && status >> kilobytes) return kilobytes;
  }
  return 0;
}

// Each cover gets another photo than in the round before.
std::string Fill(Program& program, WindowMachine& desk, const std::vector<std::string>& photos, int round) {
  long files = 0;
  for (int i = 0; i < kMaxCovers; ++i) {
    const std::string photo = "C:\\Foto\\" + photos[static_cast<std::size_t>(i + round) % photos.size()];
    program.slots.Image1[static_cast<std::size_t>(i)] = desk.pictures.LoadPicture(photo);
    files += static_cast<long>(std::filesystem::file_size(desk.machine.Files->ToNative(photo)) / 1024);
    program.form1.Ridisegna();
    WindowMachine::Widget("Form1", "Picture1").repaint();
  }
  return std::to_string(Memory("VmRSS:")) + ' ' + std::to_string(Memory("VmHWM:")) + ' ' +
         std::to_string(files);
}

}  // namespace

// photos_in_slots FOLDER ROUNDS PHOTO...: shows a page of 100 covers with the photos in turn, so often, and
// after each round tells in kB the memory that is held and the most that was, then the bytes of the files
// that are held, in kB too.
int main(int argc, char** argv) {
  if (argc < 4) return 2;
  mallopt(M_MMAP_THRESHOLD, 128 << 10);  // as the program does
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const TemporaryFolder own;
  PrivateCups::ChooseSocket(own.Path());
  const QApplication application(argc, argv);
  InstallFontStandIns();
  WindowMachine desk(argv[1]);
  Program program(desk.platform, ',');
  FillSheet(program.state, kMaxCovers);
  program.Start();
  for (int round = 0; round < std::atoi(argv[2]); ++round) {
    std::cout << Fill(program, desk, {argv + 3, argv + argc}, round) << '\n';
  }
  return 0;
}
