#include <QImageIOHandler>
#include <QImageIOPlugin>
#include <memory>

#include "platform/qt/pictures/jpeg.h"

namespace Morvane {

// Writes the JPEG that an image carries along, or encodes its pixels.
class JpegWriter : public QImageIOHandler {
 public:
  bool canRead() const override { return false; }
  bool read(QImage*) override { return false; }
  bool write(const QImage& image) override {
    QByteArray bytes = CarriedJpeg(image);
    if (bytes.isEmpty()) bytes = EncodeJpeg(image);
    return !bytes.isEmpty() && device()->write(bytes) == bytes.size();
  }
};

// Reading is left to the toolkit.
class JpegPlugin : public QImageIOPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "jpeg_plugin.json")

 public:
  Capabilities capabilities(QIODevice*, const QByteArray& format) const override {
    return format == "jpeg" ? CanWrite : Capabilities();
  }
  QImageIOHandler* create(QIODevice*, const QByteArray&) const override {
    return std::make_unique<JpegWriter>().release();  // the toolkit owns it, and gives it the device
  }
};

}  // namespace Morvane

#include "jpeg_plugin.moc"
