#pragma once

namespace Morvane {

// Takes from the process, for good, everything but memory, its open descriptors and the right to end: 1 GiB
// of memory, 3 seconds of processor. Opening or looking up a file fails from then on (EACCES); any other
// system call ends the process. False when the system doesn't grant a part of it: then decode nothing.
[[nodiscard]] bool LockDown();

}  // namespace Morvane
