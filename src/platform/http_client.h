#pragma once

#include <string>

namespace Morvane {

class HttpClient {
 public:
  virtual ~HttpClient() = default;

  // Fetches an address and blocks until the body is there or 60 seconds have passed. The body's bytes; empty
  // after any failure.
  virtual std::string OpenUrl(const std::string& url) = 0;
};

}  // namespace Morvane
