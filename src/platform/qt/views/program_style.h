#pragma once

#include <QProxyStyle>

namespace Morvane {

// The desktop's style. The picture of the button for what a menu bar has no room for is the program's own:
// the toolkit's is read from a picture file at each start, which loads all of its picture formats before the
// first page is on the screen.
class ProgramStyle : public QProxyStyle {
 public:
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace Morvane
