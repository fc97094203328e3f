#pragma once

namespace Morvane {

// At first memory is handed out in small pages, so that starting does not fill large ones with zeros for a
// few bytes each. From here on it comes in large ones: photos are tens of megabytes of pixels, and the first
// touch of each small page takes longer than the decoding of what goes into it.
void TakeLargePages();

}  // namespace Morvane
