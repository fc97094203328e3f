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

class LayoutComposer {
 public:
  explicit LayoutComposer(char decimalSeparator) : decimalSeparator_(decimalSeparator) {}

  void Add(const std::string& key, const std::string& value) { text_ += key + "=" + value + "\r\n"; }
  void Add(const std::string& key, double value) { Add(key, NumberToText(value, decimalSeparator_)); }

  const std::string& Text() const { return text_; }

 private:
  std::string text_ = kHeading;
  char decimalSeparator_;
};

void AddCover(LayoutComposer& file, const AppState& state, int n, const EditRow* onShow) {
  const auto cell = static_cast<std::size_t>(n);
  const std::string number = std::to_string(n);
  if (state.CopForma[cell]) {
    file.Add("Copertina" + number, *state.CopForma[cell]);
  } else {
    file.Add("Copertina" + number, "");
  }
  if (onShow) {
    file.Add("Distx" + number, onShow->Text4);
    file.Add("Disty" + number, onShow->Text5);
    file.Add("Larg" + number, onShow->Text1);
    file.Add("Alte" + number, onShow->Text2);
  } else {
    file.Add("Distx" + number, MmFromInches(state.CopDistx[cell]));
    file.Add("Disty" + number, MmFromInches(state.CopDisty[cell]));
    file.Add("Larg" + number, MmFromCm(state.CopLarg[cell]));
    file.Add("Alte" + number, MmFromCm(state.CopAlte[cell]));
  }
}

}  // namespace

std::string ComposeLayout(const AppState& state, const EditRow& row) {
  LayoutComposer file(state.decimalSeparator);
  file.Add("Pagina", state.Orientamento);
  const double onShow = CoverOnShow(row.Label4);
  for (int n = 1; n <= state.NumCopertine; ++n) {
    AddCover(file, state, n, onShow == n ? &row : nullptr);
  }
  return file.Text();
}

void WriteLayout(AppState& state, const EditRow& row, FileSystem& files, const std::string& path) {
  state.LayoutModificato = 0;
  ResumeNext([&] { files.WriteText(path, ComposeLayout(state, row)); });
}

}  // namespace Morvane
