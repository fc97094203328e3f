#include <cstdlib>

#include "fuzz/support/fuzz_machine.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/runtime_error.h"

using namespace Morvane;

// Each bad file would tell so on standard error.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return ::setenv("QT_LOGGING_RULES", "*=false", 1);
}

// A picture file with any content is a picture of some size, which is decoded for the screen at loading and
// for paper when it is printed, or a bad picture.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TestMachine& machine = FuzzMachine();
  machine.WriteFile("C:\\immagine", Text(data, size));
  QtPictureLoader loader(*machine.Files, "");
  try {
    const PicturePtr picture = loader.LoadPicture("C:\\immagine");
    MustHold(picture->WidthTwips() > 0 && picture->HeightTwips() > 0, "a picture has a size");
    WritePdf(machine.Root.Path() + "/foglio.pdf", {PictureShape{{0, 0, 300, 200}, picture}},
             PageOrientation::Portrait, {600, 600}, "Prova");
  } catch (const RuntimeError& error) {
    MustHold(error.Number() == ErrorNumber::InvalidPicture, "a bad file is a bad picture");
  }
  return 0;
}
