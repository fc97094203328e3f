#pragma once

#include <memory>
#include <string>

namespace Morvane {

// A loaded picture. It keeps the file's bytes and knows its natural size; the back-end decodes it at the size
// that a surface asks for.
class Picture {
 public:
  virtual ~Picture() = default;

  // Natural size in twips, above 0, the recorded rotation applied.
  virtual double WidthTwips() const = 0;
  virtual double HeightTwips() const = 0;
};

using PicturePtr = std::shared_ptr<const Picture>;

class PictureLoader {
 public:
  virtual ~PictureLoader() = default;

  // Reads and checks a picture file. RuntimeError: FileNotFound, PathNotFound, InvalidPicture (cannot be
  // decoded, or is too large to be).
  virtual PicturePtr LoadPicture(const std::string& path) const = 0;
};

}  // namespace Morvane
