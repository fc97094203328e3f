#pragma once

#include <cstdint>

namespace Morvane {

// Uniform numbers from 0 up to, not including, 1. Never seeded: every run of the program gives the same
// sequence, so one object lives for the run.
class Rnd {
 public:
  double Next() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    constexpr int kDroppedBits = 40;  // the low bits of such a generator repeat soon
    constexpr double kRange = 1U << (64 - kDroppedBits);
    return static_cast<double>(state_ >> kDroppedBits) / kRange;
  }

 private:
  std::uint64_t state_ = 1;
};

}  // namespace Morvane
