#pragma once

#include <QByteArray>
#include <QSize>

namespace Morvane {

// True when decoding the file could take more than two seconds or 1.5 GiB: more pixels than a camera makes,
// or a JPEG whose scans go over them again and again. `format` is the image reader's name of it.
bool CostsTooMuch(const QByteArray& bytes, const QByteArray& format, QSize size);

}  // namespace Morvane
