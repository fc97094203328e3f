#pragma once

namespace Morvane {

// Takes from the process, for good, everything but memory and processor time within DecoderLimits,
// its open descriptors and the right to end: any other system call ends it. False when the system doesn't
// grant a part of this: then decode nothing.
[[nodiscard]] bool LockDown();

}  // namespace Morvane
