#pragma once

#include <string>

#include "core/app_state.h"
#include "platform/files/file_system.h"

namespace Morvane {

// The editor's row for one cover, as its controls stand.
struct EditRow {
  std::string Label4;  // caption: "Ogg." and the last two digits of the cover on show
  std::string Text1;   // width, millimetres, raw text as are all four
  std::string Text2;   // height
  std::string Text4;   // left
  std::string Text5;   // top
};

// The whole layout file: UTF-8, each line ended by CR LF.
std::string ComposeLayout(const AppState& state, const EditRow& row);

// Sets LayoutModificato to 0, then replaces the layout file at `path`. A write that fails leaves the old
// file and is not reported.
void WriteLayout(AppState& state, const EditRow& row, FileSystem& files, const std::string& path);

}  // namespace Morvane
