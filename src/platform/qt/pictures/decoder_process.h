#pragma once

#include <QByteArray>
#include <chrono>
#include <optional>
#include <string>

namespace Morvane {

// Runs a program with one argument, hands it the input on its standard input and gives what it wrote on its
// standard output. Nothing when it doesn't start, ends with anything but 0, writes more than `mostBytes` or
// takes more than `wallTime`; however it went, the process is gone on return.
std::optional<QByteArray> RunDecoder(const std::string& program, const char* argument,
                                     const QByteArray& input, qsizetype mostBytes,
                                     std::chrono::milliseconds wallTime);

}  // namespace Morvane
