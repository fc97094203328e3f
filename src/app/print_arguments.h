#pragma once

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace Morvane {

// What morvane-print is asked to do. File names are those of this system.
struct PrintArguments {
  struct Contents {
    std::string folder;
    std::string title;
    int columns = 0;  // 2 to 7
    std::string font;
    double size = 0;  // points, 2 to 25
    bool italic = false;
    bool fullPath = false;
  };

  bool help = false;
  std::string layout;                   // empty: the default layout
  std::map<int, std::string> pictures;  // by cover number, 1 to 100
  int outline = 0;                      // 0, 1, 3 or 5 lines
  int copies = 1;                       // 1 to 999
  std::string pdf;                      // one of the two is set
  std::string printer;
  bool calibrated = true;            // as the user measured the printer's paper
  std::optional<Contents> contents;  // then no layout, picture or outline
};

// Wrong usage; what() is the line for the user.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// `arguments` without the program's own name. Throws UsageError.
PrintArguments ParsePrintArguments(std::span<const std::string> arguments);

// The file of one copy: with copies above 1, "-1", "-2" ... before the extension.
std::string PdfNameOfCopy(const std::string& pdf, int copy, int copies);

// The usage, Italian.
std::string PrintHelp();

}  // namespace Morvane
