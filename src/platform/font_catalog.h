#pragma once

#include <string>
#include <vector>

namespace Morvane {

class FontCatalog {
 public:
  virtual ~FontCatalog() = default;

  // Every installed family, each once, in the order in which the system names them.
  virtual std::vector<std::string> Families() const = 0;

  // True when the family can be used for printing: it is installed, or stands for an installed one.
  virtual bool CanPrint(const std::string& family) const = 0;
};

}  // namespace Morvane
