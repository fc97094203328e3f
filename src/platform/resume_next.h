#pragma once

#include <utility>

#include "platform/runtime_error.h"

namespace Morvane {

// Runs one statement; when it fails, the next one runs as if it had not been there. One statement a call, so
// that the reader sees exactly what may fail.
template <typename Statement>
void ResumeNext(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const RuntimeError&) {
  }
}

}  // namespace Morvane
