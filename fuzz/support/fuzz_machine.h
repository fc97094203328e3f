#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/test_machine.h"

namespace Morvane {

// One machine for all inputs of a fuzzer: making one costs more than a run.
inline TestMachine& FuzzMachine() {
  static TestMachine machine;
  return machine;
}

inline std::string Text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Ends the fuzzer where what must hold does not.
inline void MustHold(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace Morvane
