#include "platform/old_formats/wmf_painting.h"

#include <libwmf/defs.h>
#include <libwmf/fund.h>
#include <libwmf/macro.h>
#include <libwmf/svg.h>

#include <array>
#include <cmath>
#include <cstdio>

#include "platform/old_formats/svg_text.h"
#include "platform/windows_1252.h"

namespace Morvane {

namespace {

int Append(char* text, void* drawing) {
  static_cast<std::string*>(drawing)->append(text);
  return 0;
}

int Rewind(void* drawing) {
  static_cast<std::string*>(drawing)->clear();
  return 0;
}

std::string HexColor(const wmfRGB& color) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", color.r, color.g, color.b);
  return text.data();
}

const char* AnchorOf(U16 align) {
  if ((align & TA_CENTER) == TA_CENTER) return "middle";
  return (align & TA_RIGHT) != 0 ? "end" : "start";
}

// Where a point of the player's lies in the SVG.
wmfD_Coord ToSvg(const wmf_svg_t& device, const wmfD_Coord& point) {
  const float xScale = static_cast<float>(device.width) / (device.bbox.BR.x - device.bbox.TL.x);
  const float yScale = static_cast<float>(device.height) / (device.bbox.BR.y - device.bbox.TL.y);
  return {(point.x - device.bbox.TL.x) * xScale, (point.y - device.bbox.TL.y) * yScale};
}

std::string StyleOf(const wmfFont& font) {
  std::string style;
  if (font.lfItalic != 0) style += " font-style=\"italic\"";
  if (font.lfWeight >= 600) style += " font-weight=\"bold\"";
  const bool underlined = font.lfUnderline != 0;
  const bool struckOut = font.lfStrikeOut != 0;
  if (underlined && struckOut) style += " text-decoration=\"underline line-through\"";
  if (underlined && !struckOut) style += " text-decoration=\"underline\"";
  if (struckOut && !underlined) style += " text-decoration=\"line-through\"";
  return style;
}

std::string WithoutQuotes(std::string text) {
  std::erase(text, '"');
  return text;
}

}  // namespace

template <auto Member>
struct WmfPainting::Corrected {
  template <typename Shape>
  static void Draw(wmfAPI* api, Shape* shape) {
    WmfPainting& painting = Of(api);
    const size_t start = painting.drawing_.size();
    (painting.device_.*Member)(api, shape);
    painting.Correct(start, *shape->dc);
  }
};

WmfPainting::WmfPainting(std::string& drawing) : drawing_(drawing), stream_{&drawing, Append, Rewind} {}

void WmfPainting::Attach(wmfAPI* api) {
  auto& calls = *static_cast<wmfFunctionReference*>(api->function_reference);
  device_ = calls;
  using Calls = wmfFunctionReference;
  calls.device_begin = [](wmfAPI*) {};
  calls.device_end = [](wmfAPI*) {};
  calls.draw_pie = Corrected<&Calls::draw_pie>::Draw;
  calls.draw_chord = Corrected<&Calls::draw_chord>::Draw;
  calls.draw_arc = Corrected<&Calls::draw_arc>::Draw;
  calls.draw_ellipse = Corrected<&Calls::draw_ellipse>::Draw;
  calls.draw_line = Corrected<&Calls::draw_line>::Draw;
  calls.poly_line = Corrected<&Calls::poly_line>::Draw;
  calls.draw_polygon = Corrected<&Calls::draw_polygon>::Draw;
  calls.draw_polypolygon = Corrected<&Calls::draw_polypolygon>::Draw;
  calls.draw_rectangle = Corrected<&Calls::draw_rectangle>::Draw;
  calls.region_frame = Corrected<&Calls::region_frame>::Draw;
  calls.region_paint = Corrected<&Calls::region_paint>::Draw;
  calls.bmp_draw = DrawBitmap;
  calls.draw_text = DrawText;

  // No font file is opened: the SVG's reader measures the text, which is anchored where its alignment says.
  auto& fonts = *static_cast<wmfFontData*>(api->font_data);
  fonts.map = [](wmfAPI*, wmfFont*) {};
  fonts.stringwidth = [](wmfAPI*, wmfFont*, char*) { return 0.0F; };

  wmf_svg_t* device = WMF_SVG_GetData(api);
  device->out = &stream_;
  device->image.context = this;
  device->flags |= WMF_SVG_INLINE_IMAGES;
}

WmfPainting& WmfPainting::Of(wmfAPI* api) {
  return *static_cast<WmfPainting*>(WMF_SVG_GetData(api)->image.context);
}

void WmfPainting::Correct(size_t start, const wmfDC& dc) {
  const std::string half = "fill-opacity:0.5";
  for (size_t at = drawing_.find(half, start); at != std::string::npos; at = drawing_.find(half, at)) {
    drawing_.replace(at, half.size(), "fill-opacity:1");
  }
  if (dc.brush != nullptr) Replace(start, "fill:", dc.brush->lbColor);
  if (dc.pen != nullptr) Replace(start, "stroke:", dc.pen->lopnColor);
}

void WmfPainting::Replace(size_t start, const std::string& property, const wmfRGB& color) {
  for (size_t at = drawing_.find(property, start); at != std::string::npos;
       at = drawing_.find(property, at)) {
    at += property.size();
    const size_t end = drawing_.find_first_of(";\"", at);
    if (end == std::string::npos || drawing_.compare(at, end - at, "none") == 0) continue;
    drawing_.replace(at, end - at, HexColor(color));
  }
}

void WmfPainting::DrawBitmap(wmfAPI* api, wmfBMP_Draw_t* bitmap) {
  WmfPainting& painting = Of(api);
  std::string& drawing = painting.drawing_;
  const size_t start = drawing.size();
  painting.device_.bmp_draw(api, bitmap);
  const std::string element = drawing.substr(start);
  drawing.resize(start);
  const size_t data = element.find("data:image/png;base64,");
  const size_t end = element.find('"', data);
  if (data == std::string::npos || end == std::string::npos) return;
  std::string image = element.substr(data, end - data);
  std::erase(image, '\n');

  const wmf_svg_t& device = *WMF_SVG_GetData(api);
  const wmfD_Coord at = bitmap->pt;
  const auto& crop = bitmap->crop;
  const wmfD_Coord from = ToSvg(device, at);
  const wmfD_Coord to = ToSvg(device, {at.x + static_cast<float>(crop.w * bitmap->pixel_width),
                                       at.y + static_cast<float>(crop.h * bitmap->pixel_height)});
  drawing += "<image x=\"" + SvgNumber(from.x) + "\" y=\"" + SvgNumber(from.y) + "\" width=\"" +
             SvgNumber(to.x - from.x) + "\" height=\"" + SvgNumber(to.y - from.y) +
             "\" preserveAspectRatio=\"none\" xlink:href=\"" + image + "\"/>\n";
}

void WmfPainting::DrawText(wmfAPI* api, wmfDrawText_t* text) {
  const wmf_svg_t& device = *WMF_SVG_GetData(api);
  const wmfFont& font = *text->dc->font;
  const wmfD_Coord at = ToSvg(device, text->pt);
  const wmfD_Coord below = ToSvg(device, {text->pt.x, text->pt.y + static_cast<float>(text->font_height)});
  const std::string face = font.lfFaceName == nullptr ? "" : WithoutQuotes(font.lfFaceName);
  Of(api).drawing_ += "<text transform=\"translate(" + SvgNumber(at.x) + ' ' + SvgNumber(at.y) + ") rotate(" +
                      SvgNumber(-font.lfEscapement / 10.0) + ")\" font-size=\"" +
                      SvgNumber(std::abs(below.y - at.y)) + "\" font-family=\"" +
                      XmlText(FromWindows1252(face)) + "\" text-anchor=\"" + AnchorOf(text->dc->textalign) +
                      '"' + StyleOf(font) + " fill=\"" + HexColor(text->dc->textcolor) +
                      "\" xml:space=\"preserve\">" + XmlText(FromWindows1252(text->str)) + "</text>\n";
}

}  // namespace Morvane
