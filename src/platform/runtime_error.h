#pragma once

#include <stdexcept>
#include <string>

namespace Morvane {

// Numbers of the run-time errors that handlers tell apart or that a message explains.
enum class ErrorNumber {
  InvalidProcedureCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  BadFileName = 52,
  FileNotFound = 53,
  FileAlreadyExists = 58,
  DiskFull = 61,
  TooManyFiles = 67,
  PermissionDenied = 70,
  DiskNotReady = 71,
  PathFileAccess = 75,
  PathNotFound = 76,
  InvalidPropertyValue = 380,
  InvalidPropertyArrayIndex = 381,
  InvalidPicture = 481,
  PrinterFailure = 482,
  KeyNotUnique = 35602,
};

// The one exception of the system: an operation of the platform, or a statement built on it, that failed.
// what() is the Italian text for the user, in UTF-8.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(ErrorNumber number, const std::string& text) : std::runtime_error(text), number_(number) {}

  ErrorNumber Number() const { return number_; }

 private:
  ErrorNumber number_;
};

}  // namespace Morvane
