#pragma once

#include <QSize>

namespace Morvane {

// True when decoding a picture could take more than two seconds or 1.5 GiB: more pixels than a camera makes,
// or a JPEG whose scans go over them again and again. Any other format has no scans.
bool CostsTooMuch(QSize size, qsizetype jpegScans);

}  // namespace Morvane
