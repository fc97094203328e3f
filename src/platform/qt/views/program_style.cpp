#include "platform/qt/views/program_style.h"

#include "platform/qt/pictures/artwork.h"

namespace Morvane {

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
  const bool extension = which == SP_ToolBarHorizontalExtensionButton;
  return extension ? ArtworkIcon("altri") : QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace Morvane
