#pragma once

#include <QByteArray>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>

#include "platform/files/file_system.h"
#include "platform/picture.h"
#include "platform/runtime_error.h"

namespace Morvane {

// What the user is told of a file, by its name, whose picture is damaged.
RuntimeError DamagedPicture(const std::string& name);

enum class PictureCheck {
  Whole,
  Preview,  // in as few pixels as a preview shows
  Header    // for a picture that is painted once and at once: damage behind the header shows there
};

// Whether a file that begins with these bytes is of a format that can be loaded.
bool StartsPicture(const QByteArray& bytes);
// Whether PictureFromBytes reads files of this MIME type.
bool IsPictureType(const QByteArray& mimeType);

// The picture in the bytes of a file of the newer formats, decoded once. RuntimeError InvalidPicture, told by
// the name.
PicturePtr PictureFromBytes(const std::string& name, const QByteArray& bytes);

// Loads picture files by what their bytes say, not by their names: JPEG, BMP (also run-length encoded, also
// without a file header), GIF, ICO, CUR, PNG, TIFF, WebP; EMF, WMF and IFF through the decoder program. A
// file is decoded at once, small, so that one that cannot be decoded fails here; the file loaded last is not
// read again while its picture is in use and the file is the same. Hostile files cost at most two seconds and
// 1.5 GiB.
class QtPictureLoader : public PictureLoader {
 public:
  // `decoderPath` is the native path of the decoder of old formats.
  QtPictureLoader(const FileSystem& files, std::string decoderPath, PictureCheck check = PictureCheck::Whole);

  PicturePtr LoadPicture(const std::string& path) const override { return Load(path, check_); }
  PicturePtr LoadPreview(const std::string& path) const override { return Load(path, PictureCheck::Preview); }

 private:
  struct Loaded {
    std::string file;  // native path
    std::filesystem::file_time_type changed;
    std::uintmax_t bytes = 0;
    std::weak_ptr<const Picture> picture;
  };

  PicturePtr Load(const std::string& path, PictureCheck check) const;
  PicturePtr Read(const std::string& path, PictureCheck check) const;

  const FileSystem& files_;
  const std::string decoderPath_;
  const PictureCheck check_;
  mutable std::mutex lastMutex_;
  mutable Loaded last_;  // what was read last, not what this object is; only with the mutex
};

// Where the decoder of old formats is.
std::string OldFormatDecoderPath();

}  // namespace Morvane
