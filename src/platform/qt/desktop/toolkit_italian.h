#pragma once

#include <QTranslator>

namespace Morvane {

// What the toolkit's Italian of Debian 12 and 13 leaves in English of the dialogs that the program shows.
class ToolkitGaps : public QTranslator {
 public:
  QString translate(const char* context, const char* text, const char* note, int count) const override;
  bool isEmpty() const override { return false; }
};

// The toolkit's own dialogs and buttons in Italian, as long as this lives.
class ToolkitItalian {
 public:
  ToolkitItalian();

 private:
  ToolkitGaps gaps_;
  QTranslator shipped_;
};

}  // namespace Morvane
