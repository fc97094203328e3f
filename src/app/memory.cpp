// Photos are tens of megabytes of pixels, and where the system gives memory out in small pages the first
// touch of each takes longer than the decoding of what goes into it. One heap for all threads: each further
// one would begin with a large page of its own. The allocator reads this at the start of the program.
extern "C" const char* malloc_conf;  // NOLINT: its name is the allocator's
const char* malloc_conf = "thp:always,metadata_thp:auto,narenas:1";
