#include <QGuiApplication>
#include <memory>

#include "fuzz/support/fuzz_machine.h"
#include "platform/qt/qt_picture.h"
#include "platform/qt/qt_picture_loader.h"
#include "platform/runtime_error.h"

using namespace Morvane;

// A picture file of any bytes is loaded and decoded at some size, or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "pictures_fuzz";
  static char* argv[] = {name, nullptr};
  static const QGuiApplication application(argc, argv);
  FuzzMachine().WriteFile("C:\\Foto.jpg", Text(data, size));
  QtPictureLoader loader(*FuzzMachine().Files, OldFormatDecoderPath());
  try {
    const PicturePtr picture = loader.LoadPicture("C:\\Foto.jpg");
    MustHold(picture->WidthTwips() > 0 && picture->HeightTwips() > 0, "a picture has a size");
    const auto& pixels = dynamic_cast<const QtPicture&>(*picture);
    pixels.Decode(QSize(60, 40));
    pixels.Decode(QSize(600, 400));
  } catch (const RuntimeError& error) {
    MustHold(error.Number() == ErrorNumber::InvalidPicture, "a bad file is a bad picture");
  }
  return 0;
}
