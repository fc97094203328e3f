#pragma once

#include <QByteArray>
#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/files/file_system.h"
#include "platform/picture.h"
#include "platform/runtime_error.h"

namespace Morvane {

enum class DamageShows {
  AtLoading,
  WhenPainted  // behind the file's head: for a picture that is painted once, and at once
};

// What the user is told of a file, by its name, whose picture is damaged.
RuntimeError DamagedPicture(const std::string& name);

// Whether a file that begins with these bytes is of a format that can be loaded.
bool StartsPicture(const QByteArray& bytes);

// The picture in the bytes of a file of the newer formats, decoded once. RuntimeError InvalidPicture, told by
// the name.
PicturePtr PictureFromBytes(const std::string& name, const QByteArray& bytes,
                            DamageShows damage = DamageShows::AtLoading);

// Loads picture files by what their bytes say, not by their names: those that PictureReader reads; EMF, WMF
// and IFF through the decoder program. A file is decoded at once, small, so that one that cannot be decoded
// fails here; the file loaded last is not read again while its picture is in use and the file is the same.
// Hostile files cost at most what PictureLimits say.
class QtPictureLoader : public PictureLoader {
 public:
  // `decoderPath` is the native path of the decoder of old formats.
  QtPictureLoader(const FileSystem& files, std::string decoderPath,
                  DamageShows damage = DamageShows::AtLoading);

  PicturePtr LoadPicture(const std::string& path) const override;

 private:
  // What was read last, and what its file was like then.
  struct LastRead {
    std::string nativePath;
    std::filesystem::file_time_type changed;
    std::uintmax_t size = 0;  // bytes
    std::weak_ptr<const Picture> picture;
  };

  PicturePtr Read(const std::string& path) const;

  const FileSystem& files_;
  const std::string decoderPath_;
  const DamageShows damage_;
  mutable LastRead last_;
};

// The native path of the decoder of old formats: beside this program, as it is built, else in
// ../libexec/morvane, as it is installed; empty when it is in neither. Needs the toolkit's application.
std::string OldFormatDecoderPath();

}  // namespace Morvane
