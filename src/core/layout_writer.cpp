#include "core/layout_writer.h"

#include <cmath>

#include "core/measures.h"
#include "core/number_text.h"
#include "platform/resume_next.h"

namespace Morvane {

namespace {

// The 2.5 is the format's and stays, whatever the program's version is.
constexpr const char* kHeading =
    ";               Morvane 2.5\r\n"
    ";            Il team di Morvane\r\n"
    ";     non manomettere le righe manualmente\r\n"
    ";            pena il malfunzionamento\r\n";

// The cover on show, as far as the caption's last two digits tell: 0, so none, for cover 100 ("Ogg.00"). The
// caption decides and not CopCorrente, so that a new file takes over the measures on show.
double CoverOnShow(const std::string& caption) {
  const std::size_t length = caption.size();
  return std::floor(Val(length > 2 ? caption.substr(length - 2) : caption));
}

struct RawText {
  const Measure& measure;
  std::string EditRow::*text;
};

// In the order of the file.
constexpr RawText kRawTexts[] = {
    {kDistx, &EditRow::Text4}, {kDisty, &EditRow::Text5}, {kLarg, &EditRow::Text1}, {kAlte, &EditRow::Text2}};

}  // namespace

std::string ComposeLayout(const AppState& state, const EditRow& row) {
  std::string file = kHeading;
  const auto add = [&](std::string_view key, const std::string& number, const std::string& value) {
    file += std::string(key) + number + "=" + value + "\r\n";
  };
  const auto text = [&](double value) { return NumberToText(value, state.decimalSeparator); };
  const double onShow = CoverOnShow(row.Label4);
  add("Pagina", "", text(state.Orientamento));
  for (std::size_t n = 1; static_cast<int>(n) <= state.NumCopertine; ++n) {
    const std::string number = std::to_string(n);
    add("Copertina", number, state.CopForma[n] ? text(*state.CopForma[n]) : "");
    for (const auto& [measure, raw] : kRawTexts) {
      const double mm = measure.mm((state.*measure.table)[n]);
      add(measure.key, number, onShow == static_cast<double>(n) ? row.*raw : text(mm));
    }
  }
  return file;
}

void WriteLayout(AppState& state, const EditRow& row, FileSystem& files, const std::string& path) {
  state.LayoutModificato = 0;
  ResumeNext([&] { files.WriteText(path, ComposeLayout(state, row)); });
}

}  // namespace Morvane
