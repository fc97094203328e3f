#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace Morvane {

struct DecoderLimits {
  std::chrono::milliseconds wallTime;
  size_t outputBytes;
};

// Runs a program with one argument, hands it the input on its standard input and gives what it wrote on its
// standard output. Nothing when it doesn't start, ends with anything but 0, or passes a limit; however it
// went, the process is gone on return.
std::optional<std::string> RunDecoder(const std::string& program, const std::string& argument,
                                      const std::string& input, const DecoderLimits& limits);

}  // namespace Morvane
