#pragma once

#include <QTranslator>

namespace Morvane {

// What the toolkit's own Italian leaves in English of the dialogs that the program shows. Of the translators
// the one that was installed last is asked first: this one goes before the toolkit's.
class ToolkitGaps : public QTranslator {
 public:
  QString translate(const char* context, const char* text, const char* note, int count) const override;
  bool isEmpty() const override { return false; }
};

}  // namespace Morvane
