#include "windows/image_picker/image_list.h"

#include <cstddef>
#include <vector>

#include "core/number_text.h"
#include "platform/resume_next.h"
#include "platform/text.h"

namespace Morvane {

namespace {

constexpr std::size_t kListCells = 10000;  // cell 0 is never used

std::string_view LastCharacters(std::string_view text, std::size_t count) {
  return text.size() <= count ? text : text.substr(text.size() - count);
}

void SelectByName(ListBox& list, std::string_view name) {
  for (int row = 0; row < list.ListCount(); ++row) {
    if (list.List(row) != name) continue;
    ResumeNext([&] { list.SetListIndex(row); });
    return;
  }
}

}  // namespace

bool IsImageName(std::string_view name) {
  // A whole name shorter than four characters passes too when it begins an extension, such as ".JP".
  const std::string ending = ToUpper(LastCharacters(name, 4));
  return ending.starts_with('.') && kImageExtensions.find(ending) != std::string_view::npos;
}

void CaricaListaImmagini(AppState& state, const FileSystem& files, ListBox& list, Label& count) {
  list.Clear();
  state.ListaImmagini.resize(kListCells);
  std::vector<std::string> names;
  ResumeNext([&] { names = files.PlainFiles(state.CartellaImmagini); });
  std::size_t next = 1;
  for (const std::string& name : names) {
    if (!IsImageName(name)) continue;
    if (next < kListCells) {
      state.ListaImmagini[next] = name;
      list.AddItem(name);
    }
    ++next;
  }
  count.SetCaption("N. " + std::to_string(next - 1));
  if (next > 1) ResumeNext([&] { list.SetListIndex(0); });
  const std::string& before = state.ImmaginePrecedente;
  SelectByName(list, before.substr(before.rfind('\\') + 1));
}

std::string toglivbcrlf(std::string& t) {
  for (char& c : t) {
    if (c == 27 || c == '\r' || c == '\n') c = ' ';
  }
  return std::string(Trim(t));
}

PreviewSize ScaleToPreview(double naturalWidth, double naturalHeight, double twipsPerPixelX,
                           double twipsPerPixelY) {
  // Each limit takes the other axis's pixel size; only pixels that are no squares bend it.
  const auto heightLimit = static_cast<float>(ToInteger16(180 * twipsPerPixelX));
  const auto widthLimit = static_cast<float>(ToInteger16(247 * twipsPerPixelY));
  const auto width = static_cast<float>(naturalWidth);
  const auto height = static_cast<float>(naturalHeight);
  const float widthRatio = width / widthLimit;
  const float heightRatio = height / heightLimit;
  const float ratio = widthRatio <= heightRatio ? heightRatio : widthRatio;
  return {width / ratio, height / ratio};
}

}  // namespace Morvane
