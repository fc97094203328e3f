#pragma once

#include <string>

namespace Morvane {

// Hands addresses, documents and programs to the system. No shell stands in between: whatever the text holds,
// it is one argument of one program.
class Launcher {
 public:
  virtual ~Launcher() = default;

  // Opens an address or a document with its associated application (verb "open"). Never fails: whether
  // something opened is not reported. A relative document name is looked up in the program's folder.
  virtual void ShellExecute(const std::string& target) = 0;

  // Starts a program by its full path. RuntimeError FileNotFound when it is not there or does not start.
  virtual void Shell(const std::string& program) = 0;
};

class HttpClient {
 public:
  virtual ~HttpClient() = default;

  // Fetches an address and blocks until the body is there or 60 seconds have passed. The body's bytes; empty
  // after any failure.
  virtual std::string OpenUrl(const std::string& url) = 0;
};

}  // namespace Morvane
