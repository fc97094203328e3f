#pragma once

#include <memory>
#include <stdexcept>
#include <string>

namespace Morvane {

// A file that the decoder can't make anything of.
struct Undecodable : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// One format. The constructor opens whatever its library will want; Decode runs when nothing can be opened.
class Decoder {
 public:
  virtual ~Decoder() = default;

  // The picture as a file of another format: an SVG that measures its natural size in twips, or a bitmap.
  // Undecodable, std::bad_alloc.
  virtual std::string Decode(const std::string& bytes) = 0;
};

std::unique_ptr<Decoder> MakeEmfDecoder();
std::unique_ptr<Decoder> MakeWmfDecoder();
std::unique_ptr<Decoder> MakeIffDecoder();

}  // namespace Morvane
