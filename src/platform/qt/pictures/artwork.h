#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <string>

namespace Morvane {

// The program's own artwork, by its key (data/images, without extension). It is drawn anew for each size
// and pixel ratio, so that it is sharp on every screen. An unknown or empty key gives an empty result.
QIcon ArtworkIcon(const std::string& key);

// Stretched to `size`, in logical pixels.
QPixmap ArtworkPixmap(const std::string& key, QSize size, double pixelRatio);

// A pointer that points with the tip of its upper finger; the desktop's own hand for an unknown key.
QCursor ArtworkPointer(const std::string& key);

}  // namespace Morvane
