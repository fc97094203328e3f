#include "platform/old_formats/lock_down.h"

#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "platform/old_formats/limits.h"

namespace Morvane {

namespace {

struct Limit {
  __rlimit_resource resource;
  rlim_t value;
};

constexpr std::array kLimits = {
    Limit{RLIMIT_AS, DecoderLimits::kMemoryBytes},
    Limit{RLIMIT_CPU, DecoderLimits::kProcessorSeconds},
    Limit{RLIMIT_FSIZE, 0},
    Limit{RLIMIT_NOFILE, 3},
    Limit{RLIMIT_NPROC, 0},
    Limit{RLIMIT_CORE, 0},
};

bool SetLimits() {
  return std::all_of(kLimits.begin(), kLimits.end(), [](const Limit& limit) {
    const rlimit both{limit.value, limit.value};
    return setrlimit(limit.resource, &both) == 0;
  });
}

constexpr std::array kAllowed = {
    SCMP_SYS(read),        SCMP_SYS(write),        SCMP_SYS(brk),           SCMP_SYS(munmap),
    SCMP_SYS(mremap),      SCMP_SYS(madvise),      SCMP_SYS(futex),         SCMP_SYS(getrandom),
    SCMP_SYS(exit),        SCMP_SYS(exit_group),   SCMP_SYS(clock_gettime), SCMP_SYS(gettimeofday),
    SCMP_SYS(getpid),      SCMP_SYS(rt_sigreturn), SCMP_SYS(lseek),         SCMP_SYS(close),
    SCMP_SYS(sched_yield),
};

// Memory that isn't to be run; code can't be brought in.
constexpr std::array kAllowedUnlessExecutable = {SCMP_SYS(mmap), SCMP_SYS(mprotect)};

// What printing to a descriptor asks first, and does without.
constexpr std::array kRefused = {SCMP_SYS(fstat), SCMP_SYS(newfstatat)};

bool AddRules(scmp_filter_ctx filter) {
  const auto allow = [&](int call) { return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0) == 0; };
  const auto allowUnlessExecutable = [&](int call) {
    const scmp_arg_cmp notExecutable = SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0);
    return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 1, notExecutable) == 0;
  };
  const auto refuse = [&](int call) {
    return seccomp_rule_add(filter, SCMP_ACT_ERRNO(EACCES), call, 0) == 0;
  };
  return std::all_of(kAllowed.begin(), kAllowed.end(), allow) &&
         std::all_of(kAllowedUnlessExecutable.begin(), kAllowedUnlessExecutable.end(),
                     allowUnlessExecutable) &&
         std::all_of(kRefused.begin(), kRefused.end(), refuse);
}

bool LoadFilter() {
  const std::unique_ptr<void, decltype(&seccomp_release)> filter(seccomp_init(SCMP_ACT_KILL_PROCESS),
                                                                 &seccomp_release);
  return filter && AddRules(filter.get()) && seccomp_load(filter.get()) == 0;
}

}  // namespace

bool LockDown() {
  return prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0 && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         SetLimits() && LoadFilter();
}

}  // namespace Morvane
