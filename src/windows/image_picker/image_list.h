#pragma once

#include <string>
#include <string_view>

#include "core/app_state.h"
#include "platform/controls/list_box.h"
#include "platform/controls/simple_controls.h"
#include "platform/files/file_system.h"

namespace Morvane {

// Extensions as the user reads them. Names are tested by their last four characters, so a ".jpeg" file is not
// listed and a ".jpe" file is.
inline constexpr std::string_view kImageExtensions = ".JPG.JPEG.IFF.BMP.CUR.ICO.DIB.GIF.EMF.WMF.RLE";

// The name of a file is that of a picture.
bool IsImageName(std::string_view name);

// Lists the pictures of CartellaImmagini: at most 9,999 rows, while `count` tells the true number. Selects
// the first row, then the row named like ImmaginePrecedente, each firing the list's Click. A folder that
// can't be read has none.
void CaricaListaImmagini(AppState& state, const FileSystem& files, ListBox& list, Label& count);

// Blanks the characters 27, 13 and 10 of `t` itself; returns it without the blanks at both ends.
std::string toglivbcrlf(std::string& t);

// Size of the preview, twips.
struct PreviewSize {
  float width = 0;
  float height = 0;
};

// A picture's size in the preview, from its natural size, above 0: its proportions kept, and one of the
// limits reached, 247 pixels wide and 180 high. RuntimeError Overflow for a limit beyond 16 bits.
PreviewSize ScaleToPreview(double naturalWidth, double naturalHeight, double twipsPerPixelX,
                           double twipsPerPixelY);

}  // namespace Morvane
