#include <SDL_image.h>

#include <algorithm>

#include "platform/old_formats/decoder.h"
#include "platform/old_formats/limits.h"

namespace Morvane {

namespace {

using Surface = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

Surface Load(const std::string& bytes) {
  const std::unique_ptr<SDL_RWops, decltype(&SDL_RWclose)> file(
      SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())), &SDL_RWclose);
  if (!file) throw Undecodable(SDL_GetError());
  Surface surface(IMG_LoadLBM_RW(file.get()), &SDL_FreeSurface);
  if (!surface) throw Undecodable(SDL_GetError());
  const bool small = surface->w > 0 && surface->h > 0 && surface->w <= DecoderLimits::kSide &&
                     surface->h <= DecoderLimits::kSide &&
                     int64_t{surface->w} * surface->h <= DecoderLimits::kPixels;
  if (!small) throw Undecodable("too large");
  return surface;
}

// The picture's own width: the library makes room for whole words of 16 pixels and shows them all.
int WidthOf(const std::string& bytes) {
  const size_t at = bytes.find("BMHD");
  if (at == std::string::npos || at + 10 > bytes.size()) throw Undecodable("no header");
  return static_cast<unsigned char>(bytes[at + 8]) << 8 | static_cast<unsigned char>(bytes[at + 9]);
}

class IffDecoder : public Decoder {
 public:
  std::string Decode(const std::string& bytes) override {
    Surface loaded = Load(bytes);
    // Paint programs named the background as transparent in every file; a picture is opaque all the same.
    SDL_SetColorKey(loaded.get(), SDL_FALSE, 0);
    const Surface surface(SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_RGBA32, 0),
                          &SDL_FreeSurface);
    if (!surface) throw Undecodable(SDL_GetError());
    loaded.reset();

    const int width = std::min(WidthOf(bytes), surface->w);
    std::string output = "rgba " + std::to_string(width) + ' ' + std::to_string(surface->h) + '\n';
    const size_t rowBytes = static_cast<size_t>(width) * 4;
    output.reserve(output.size() + rowBytes * static_cast<size_t>(surface->h));
    const char* row = static_cast<const char*>(surface->pixels);
    for (int y = 0; y < surface->h; ++y, row += surface->pitch) output.append(row, rowBytes);
    return output;
  }
};

}  // namespace

std::unique_ptr<Decoder> MakeIffDecoder() {
  return std::make_unique<IffDecoder>();
}

}  // namespace Morvane
