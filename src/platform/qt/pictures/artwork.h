#pragma once

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

// As drawn, in logical pixels; empty for an unknown key.
QSize ArtworkSize(const std::string& key);

}  // namespace Morvane
