#pragma once

namespace Morvane {

// Takes from the process, for good, everything but memory (1 GiB), its open descriptors, 3 seconds of
// processor and the right to end: any other system call ends it. False when the system doesn't grant a part
// of this: then decode nothing.
[[nodiscard]] bool LockDown();

}  // namespace Morvane
