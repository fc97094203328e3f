#include <libwmf/api.h>
#include <libwmf/svg.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/old_formats/byte_reader.h"
#include "platform/old_formats/decoder.h"
#include "platform/old_formats/limits.h"
#include "platform/old_formats/svg_text.h"
#include "platform/old_formats/wmf_painting.h"

namespace Morvane {

namespace {

constexpr uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr size_t kPlaceableSize = 22;
constexpr size_t kHeaderSize = 18;
constexpr uint16_t kSetWindowExt = 0x020C;

// Size in the drawing's own units.
struct Extent {
  double width = 0;
  double height = 0;
};

// The first window that the drawing sets up. Nothing when it sets none, or one that is turned over.
std::optional<Extent> WindowOf(const ByteReader& file, size_t firstRecord) {
  for (size_t at = firstRecord; at + 6 <= file.Size();) {
    const size_t size = size_t{file.Unsigned32(at)} * 2;
    if (size < 6) return std::nullopt;
    if (file.Unsigned16(at + 4) == kSetWindowExt) {
      const Extent window{double(file.Signed16(at + 8)), double(file.Signed16(at + 6))};
      if (window.width > 0 && window.height > 0) return window;
      return std::nullopt;
    }
    at += size;
  }
  return std::nullopt;
}

struct Placement {
  double widthTwips = 0;
  double heightTwips = 0;
  std::optional<wmfD_Rect> shown;  // in the library's device units, points of a placeable drawing
};

wmfD_Rect Rect(double width, double height) {
  return {{0, 0}, {static_cast<float>(width), static_cast<float>(height)}};
}

Placement PlaceableOf(const ByteReader& file) {
  const double unitsPerInch = file.Unsigned16(14);
  const Extent frame{double(file.Signed16(10) - file.Signed16(6)),
                     double(file.Signed16(12) - file.Signed16(8))};
  if (unitsPerInch <= 0 || frame.width == 0 || frame.height == 0) throw Undecodable("empty frame");
  Placement placement{std::abs(frame.width) / unitsPerInch * kTwipsPerInch,
                      std::abs(frame.height) / unitsPerInch * kTwipsPerInch,
                      {}};
  // The library takes a unit of the window for a unit of the frame.
  const auto window = WindowOf(file, kPlaceableSize + kHeaderSize);
  const double points = 72 / unitsPerInch;
  if (window) placement.shown = Rect(window->width * points, window->height * points);
  return placement;
}

Placement PlacementOf(const ByteReader& file) {
  if (file.Unsigned32(0) == kPlaceableKey) return PlaceableOf(file);
  const auto window = WindowOf(file, kHeaderSize);
  if (!window) return {};
  return {window->width * kTwipsPerPixel, window->height * kTwipsPerPixel,
          Rect(window->width, window->height)};
}

class WmfDecoder : public Decoder {
 public:
  WmfDecoder() : painting_(drawing_) {
    wmfAPI_Options options{};
    options.function = wmf_svg_function;
    const unsigned long flags =
        WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_DEBUG | WMF_OPT_NO_ERROR;
    Check(wmf_api_create(&api_, flags, &options));
    painting_.Attach(api_);
  }
  ~WmfDecoder() override {
    if (api_ != nullptr) wmf_api_destroy(api_);
  }
  WmfDecoder(const WmfDecoder&) = delete;
  WmfDecoder& operator=(const WmfDecoder&) = delete;

  std::string Decode(const std::string& bytes) override {
    Placement placement = PlacementOf(ByteReader(bytes));
    std::string copy = bytes;
    Check(wmf_mem_open(api_, reinterpret_cast<unsigned char*>(copy.data()), static_cast<long>(copy.size())));
    wmf_svg_t* device = WMF_SVG_GetData(api_);
    Check(wmf_scan(api_, 0, &device->bbox));
    if (placement.shown) device->bbox = *placement.shown;
    const double width = device->bbox.BR.x - device->bbox.TL.x;
    const double height = device->bbox.BR.y - device->bbox.TL.y;
    if (!(width > 0 && height > 0)) throw Undecodable("nothing drawn");
    if (placement.widthTwips <= 0) {
      placement.widthTwips = width * kTwipsPerPixel;
      placement.heightTwips = height * kTwipsPerPixel;
    }
    return Play(device, placement);
  }

 private:
  static void Check(wmf_error_t error) {
    if (error != wmf_E_None) throw Undecodable("libwmf");
  }

  std::string Play(wmf_svg_t* device, const Placement& placement) {
    if (placement.widthTwips > DecoderLimits::kSideTwips || placement.heightTwips > DecoderLimits::kSideTwips)
      throw Undecodable("too large");
    device->width = static_cast<unsigned>(std::lround(std::max(placement.widthTwips, 1.0)));
    device->height = static_cast<unsigned>(std::lround(std::max(placement.heightTwips, 1.0)));
    wmfD_Rect ink{};
    Check(wmf_play(api_, 0, &ink));
    const SvgBox view{0, 0, double(device->width), double(device->height)};
    return SvgDocument(placement.widthTwips, placement.heightTwips, view, drawing_);
  }

  wmfAPI* api_ = nullptr;
  std::string drawing_;
  WmfPainting painting_;
};

}  // namespace

std::unique_ptr<Decoder> MakeWmfDecoder() {
  return std::make_unique<WmfDecoder>();
}

}  // namespace Morvane
