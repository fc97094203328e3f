#include <SDL_image.h>

#include <algorithm>

#include "platform/old_formats/decoder.h"
#include "platform/old_formats/limits.h"

namespace Morvane {

namespace {

constexpr size_t kBitmapHeader = 54;  // bytes

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
    const Surface loaded = Load(bytes);
    // Paint programs named the background as transparent in every file; a picture is opaque all the same.
    SDL_SetColorKey(loaded.get(), SDL_FALSE, 0);
    const int width = std::min(WidthOf(bytes), loaded->w);
    const Surface shown(SDL_CreateRGBSurfaceWithFormat(0, width, loaded->h, 24, SDL_PIXELFORMAT_BGR24),
                        &SDL_FreeSurface);
    if (!shown || SDL_BlitSurface(loaded.get(), nullptr, shown.get(), nullptr) != 0) {
      throw Undecodable(SDL_GetError());
    }
    std::string bitmap(kBitmapHeader + static_cast<size_t>(shown->pitch) * static_cast<size_t>(shown->h), 0);
    SDL_RWops* const file = SDL_RWFromMem(bitmap.data(), static_cast<int>(bitmap.size()));
    if (SDL_SaveBMP_RW(shown.get(), file, 1) != 0) throw Undecodable(SDL_GetError());
    return bitmap;
  }
};

}  // namespace

std::unique_ptr<Decoder> MakeIffDecoder() {
  return std::make_unique<IffDecoder>();
}

}  // namespace Morvane
