#pragma once

#include <libwmf/api.h>
#include <libwmf/ipa.h>

#include <string>

namespace Morvane {

// What libwmf's SVG device gets wrong, put right while it draws: it knows only the 147 colours that SVG
// names, fills half-transparent where the text's background is transparent, and copies texts into the SVG as
// they are.
class WmfPainting {
 public:
  // The drawing's elements are appended to the string.
  explicit WmfPainting(std::string& drawing);
  WmfPainting(const WmfPainting&) = delete;
  WmfPainting& operator=(const WmfPainting&) = delete;

  // Puts itself between the player and the SVG device of an API just made. Outlives it.
  void Attach(wmfAPI* api);

 private:
  template <auto Member>
  struct Corrected;

  static WmfPainting& Of(wmfAPI* api);
  static void DrawBitmap(wmfAPI* api, wmfBMP_Draw_t* bitmap);
  static void DrawText(wmfAPI* api, wmfDrawText_t* text);
  void Correct(size_t start, const wmfDC& dc);
  void Replace(size_t start, const std::string& property, const wmfRGB& color);

  std::string& drawing_;
  wmfStream stream_{};
  wmfFunctionReference device_{};
};

}  // namespace Morvane
