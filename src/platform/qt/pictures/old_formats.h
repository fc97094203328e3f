#pragma once

#include <QByteArray>
#include <chrono>
#include <optional>
#include <string>

namespace Morvane {

enum class OldFormat { Emf, Wmf, Iff };

// The format that a file's bytes show, whatever its name says. Nothing when they are none of the three.
std::optional<OldFormat> FormatOf(const QByteArray& bytes);

// Decodes a file's bytes in a process of its own, the program at decoderPath, within DecoderLimits. EMF and
// WMF become an SVG text that refers to nothing outside itself: it measures its natural size in twips, and
// fills whatever box it is stretched to. IFF becomes a bitmap file. Nothing: whatever goes wrong, in there or
// on the way.
std::optional<QByteArray> DecodeOldFormat(const std::string& decoderPath, OldFormat format,
                                          const QByteArray& bytes);

// Runs a program with one argument, hands it the input on its standard input and gives what it wrote on its
// standard output. Nothing when it doesn't start, ends with anything but 0, writes more than `mostBytes` or
// takes more than `wallTime`; however it went, the process is gone on return.
std::optional<QByteArray> RunDecoder(const std::string& program, const char* argument,
                                     const QByteArray& input, qsizetype mostBytes,
                                     std::chrono::milliseconds wallTime);

}  // namespace Morvane
