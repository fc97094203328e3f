#pragma once

#include <chrono>

#include "platform/http_client.h"

namespace Morvane {

// Fetches over http and https only. Bodies above one megabyte count as failures.
class QtHttpClient : public HttpClient {
 public:
  explicit QtHttpClient(std::chrono::milliseconds limit = std::chrono::seconds(60)) : limit_(limit) {}

  std::string OpenUrl(const std::string& url) override;

 private:
  const std::chrono::milliseconds limit_;
};

}  // namespace Morvane
