#include "app/memory.h"

#include <sys/prctl.h>

// One heap for all threads: each further one would begin with a large page of its own. The allocator reads
// this at its first use.
extern "C" const char* malloc_conf;  // NOLINT: its name is the allocator's
const char* malloc_conf = "thp:always,metadata_thp:auto,narenas:1";

namespace Morvane {
namespace {

void BeforeTheLibraries() {
  prctl(PR_SET_THP_DISABLE, 1, 0, 0, 0);
}

// They use the allocator before the program's first line.
[[gnu::section(".preinit_array"), gnu::used]] void (*const kBeforeTheLibraries)() = BeforeTheLibraries;

}  // namespace

void TakeLargePages() {
  prctl(PR_SET_THP_DISABLE, 0, 0, 0, 0);
}

}  // namespace Morvane
