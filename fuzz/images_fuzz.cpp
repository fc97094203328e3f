#include <QGuiApplication>
#include <QtGlobal>

#include "fuzz/support/fuzz_machine.h"
#include "platform/qt/qt_picture.h"
#include "platform/qt/qt_picture_loader.h"
#include "platform/runtime_error.h"

using namespace Morvane;

namespace {

// For the screen and for paper.
constexpr QSize kSizes[] = {{90, 60}, {700, 700}};

// Each bad file would tell so on standard error.
void DropMessages(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(DropMessages);
  static const QGuiApplication application(*argc, *argv);
  return 0;
}

// A picture file with any content is a picture of some size, which may fail to decode later, or a bad
// picture.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TestMachine& machine = FuzzMachine();
  machine.WriteFile("C:\\immagine", Text(data, size));
  QtPictureLoader loader(*machine.Files, "");
  try {
    const PicturePtr picture = loader.LoadPicture("C:\\immagine");
    MustHold(picture->WidthTwips() > 0 && picture->HeightTwips() > 0, "a picture has a size");
    for (const QSize wanted : kSizes) {
      const QImage image = dynamic_cast<const QtPicture&>(*picture).Decode(wanted);
      MustHold(image.width() <= wanted.width() && image.height() <= wanted.height(),
               "no more than asked for");
    }
  } catch (const RuntimeError& error) {
    MustHold(error.Number() == ErrorNumber::InvalidPicture, "a bad file is a bad picture");
  }
  return 0;
}
