#include <QImageReader>
#include <QPainter>
#include <cstdlib>

#include "fuzz/support/fuzz_machine.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/qt/printing/pdf_file_writer.h"
#include "platform/runtime_error.h"

using namespace Morvane;

namespace {

// A loader of pictures of up to 4 megapixels; larger ones take longer, but no other way.
const PictureLoader& Loader() {
  static const QtPictureLoader loader(*FuzzMachine().Files, "");
  QImageReader::setAllocationLimit(16);
  return loader;
}

// As many pixels as on paper.
void Paint(const DrawingList& drawing) {
  static QImage screen(250, 167, QImage::Format_RGB32);
  PaintCache cache;
  QPainter painter(&screen);
  painter.scale(screen.width() / 300.0, screen.height() / 200.0);
  PaintDrawing(painter, drawing, cache);
}

}  // namespace

// Each bad file would tell so on standard error.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return ::setenv("QT_LOGGING_RULES", "*=false", 1);
}

// A picture file with any content is a bad picture, or one of some size, which is decoded at loading and
// painted on the screen. The first of every 64, so also one that runs alone, is painted on paper, too: for
// each PDF file the toolkit takes 32 MB, which is what a run would mostly consist of.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static unsigned pictures = 0;
  FuzzMachine().WriteFile("C:\\immagine", Text(data, size));
  try {
    const PicturePtr picture = Loader().LoadPicture("C:\\immagine");
    MustHold(picture->WidthTwips() > 0 && picture->HeightTwips() > 0, "a picture has a size");
    const DrawingList drawing{PictureShape{{0, 0, 300, 200}, picture}};
    Paint(drawing);
    if (pictures++ % 64 != 0) return 0;
    WritePdf(FuzzMachine().Root.Path() + "/foglio.pdf", drawing, PageOrientation::Portrait, {600, 600},
             "Prova");
  } catch (const RuntimeError& error) {
    MustHold(error.Number() == ErrorNumber::InvalidPicture, "a bad file is a bad picture");
  }
  return 0;
}
