#include "core/layout_reader.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

#include "core/measures.h"
#include "core/number_text.h"
#include "platform/runtime_error.h"

namespace Morvane {

namespace {

constexpr std::string_view kPagina = "Pagina=";
constexpr std::string_view kCopertina = "Copertina";

// The cover that a key's number names: 1 to `max`, in the very form in which it is written ("7", not "07" or
// "7 "); 0 for anything else.
int CoverNumber(std::string_view digits, int max) {
  int n = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), n);
  return n >= 1 && n <= max && digits == std::to_string(n) ? n : 0;
}

class LayoutReader {
 public:
  LayoutReader(AppState& state, LayoutObserver* observer)
      : state_(state), observer_(observer), max_(std::min<int>(state.MaxCopertine, kMaxCovers)) {}

  void Read(InputFile& file) {
    std::string line;
    while (file.ReadLine(line)) {
      ++lineNumber_;
      ReadLine(line);
    }
  }

 private:
  void ReadLine(std::string_view line) {
    if (line.starts_with(kPagina)) {
      ReadPagina(line.substr(kPagina.size()));
    } else if (line.starts_with(kCopertina)) {
      ReadCopertina(line);
    } else {
      for (const Measure& measure : kMeasures) {
        if (line.starts_with(measure.key)) ReadMeasure(measure, line);
      }
    }
  }

  void ReadPagina(std::string_view value) {
    try {
      state_.Orientamento = ToInteger16(Val(value));
    } catch (const RuntimeError& error) {
      Fail(error.Number(), error.what());
    }
    if (observer_) observer_->PaginaRead();
  }

  void ReadCopertina(std::string_view line) {
    const auto [n, value] = NumberedLine(kCopertina, line);
    if (n == 0) return;
    state_.CopForma[static_cast<std::size_t>(n)] = value;
    state_.NumCopertine = static_cast<std::int16_t>(n);
    if (observer_) observer_->CopertinaRead(n);
  }

  void ReadMeasure(const Measure& measure, std::string_view line) {
    const auto [n, value] = NumberedLine(measure.key, line);
    if (n != 0) (state_.*measure.table)[static_cast<std::size_t>(n)] = measure.stored(value);
  }

  // The cover, 0 for none, and the value of a line that begins with `word`.
  std::pair<int, double> NumberedLine(std::string_view word, std::string_view line) const {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
      Fail(ErrorNumber::InvalidProcedureCall, "Dopo \"" + std::string(word) + "\" manca il segno \"=\".");
    }
    const std::string_view digits = line.substr(word.size(), equals - word.size());
    return {CoverNumber(digits, max_), Val(line.substr(equals + 1))};
  }

  [[noreturn]] void Fail(ErrorNumber number, const std::string& reason) const {
    throw RuntimeError(number, "Il file di layout \"" + state_.NomeLayout + "\" non è valido alla riga " +
                                   std::to_string(lineNumber_) + ". " + reason);
  }

  AppState& state_;
  LayoutObserver* observer_;
  int max_;
  long long lineNumber_ = 0;
};

}  // namespace

void ReadLayout(InputFile& file, AppState& state, LayoutObserver* observer) {
  const LayoutTables before = state;
  try {
    LayoutReader(state, observer).Read(file);
    state.lastRead = state;
  } catch (...) {
    static_cast<LayoutTables&>(state) = before;
    throw;
  }
}

}  // namespace Morvane
