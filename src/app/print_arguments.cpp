#include "app/print_arguments.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <string_view>
#include <vector>

namespace Morvane {

const char* const kPrintHelp =
    "Uso: morvane-print [LAYOUT.mvne] [--picture N=FILE]... [--outline 0|1|3|5]\n"
    "                   [--copies N] (--pdf FILE | --printer NOME)\n"
    "     morvane-print --contents CARTELLA [--title T] [--columns 2..7] [--font F]\n"
    "                   [--size S] [--italic] [--full-path] [--copies N]\n"
    "                   (--pdf FILE | --printer NOME)\n"
    "\n"
    "Stampa un layout di copertine, o il contenuto di una cartella, in scala reale.\n"
    "\n"
    "  LAYOUT.mvne      il layout; senza, quello iniziale di due copertine\n"
    "  --picture N=FILE l'immagine della copertina N (da 1 a 100)\n"
    "  --outline N      linee di contorno: 0, 1, 3 o 5\n"
    "  --copies N       numero di copie, ognuna un lavoro (o un file) a sé\n"
    "  --pdf FILE       scrive un PDF; con più copie FILE-1.pdf, FILE-2.pdf ...\n"
    "  --printer NOME   stampa sulla coda NOME\n"
    "  --contents DIR   stampa il contenuto della cartella come copertina\n"
    "  --title T        titolo del contenuto\n"
    "  --columns N      colonne, da 2 a 7\n"
    "  --font F         carattere dell'elenco\n"
    "  --size S         altezza del carattere in punti, da 2 a 25\n"
    "  --italic         corsivo\n"
    "  --full-path      percorso completo dei files\n"
    "  --help           questo testo\n"
    "\n"
    "Uscita: 0 stampato; 1 non stampato per colpa dei dati o della stampante, o stampato senza le\n"
    "        immagini che non possono essere lette; 2 uso errato.\n";

namespace {

template <typename Number>
Number ParseNumber(const std::string& option, const std::string& text, Number smallest, Number largest) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !(value >= smallest && value <= largest)) {
    throw UsageError(option + ": valore non valido: '" + text + "'");
  }
  return value;
}

void AddPicture(PrintArguments& parsed, const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals + 1 == text.size()) {
    throw UsageError("--picture vuole N=FILE, non '" + text + "'");
  }
  const int cover = ParseNumber("--picture", text.substr(0, equals), 1, 100);
  parsed.pictures[cover] = text.substr(equals + 1);
}

int ParseOutline(const std::string& text) {
  const int lines = ParseNumber("--outline", text, 0, 5);
  if (lines == 2 || lines == 4) throw UsageError("--outline: i valori sono 0, 1, 3 e 5");
  return lines;
}

std::string NotEmpty(const std::string& option, const std::string& text) {
  if (text.empty()) throw UsageError(option + ": manca il valore");
  return text;
}

enum class Kind { Layout, Contents, Both };

struct Option {
  std::string_view name;
  Kind kind;
  bool hasValue;
  std::function<void(PrintArguments&, PrintArguments::Contents&, const std::string& value)> take;
};

const std::vector<Option>& Options() {
  using Parsed = PrintArguments;
  using Contents = PrintArguments::Contents;
  using Text = const std::string&;
  static const std::vector<Option> kOptions = {
      {"--picture", Kind::Layout, true, [](Parsed& p, Contents&, Text v) { AddPicture(p, v); }},
      {"--outline", Kind::Layout, true, [](Parsed& p, Contents&, Text v) { p.outline = ParseOutline(v); }},
      {"--copies", Kind::Both, true,
       [](Parsed& p, Contents&, Text v) { p.copies = ParseNumber("--copies", v, 1, 999); }},
      {"--pdf", Kind::Both, true, [](Parsed& p, Contents&, Text v) { p.pdf = NotEmpty("--pdf", v); }},
      {"--printer", Kind::Both, true,
       [](Parsed& p, Contents&, Text v) { p.printer = NotEmpty("--printer", v); }},
      {"--contents", Kind::Contents, true,
       [](Parsed&, Contents& c, Text v) { c.folder = NotEmpty("--contents", v); }},
      {"--title", Kind::Contents, true, [](Parsed&, Contents& c, Text v) { c.title = v; }},
      {"--columns", Kind::Contents, true,
       [](Parsed&, Contents& c, Text v) { c.columns = ParseNumber("--columns", v, 2, 7); }},
      {"--font", Kind::Contents, true, [](Parsed&, Contents& c, Text v) { c.font = NotEmpty("--font", v); }},
      {"--size", Kind::Contents, true,
       [](Parsed&, Contents& c, Text v) { c.size = ParseNumber("--size", v, 2.0, 25.0); }},
      {"--italic", Kind::Contents, false, [](Parsed&, Contents& c, Text) { c.italic = true; }},
      {"--full-path", Kind::Contents, false, [](Parsed&, Contents& c, Text) { c.fullPath = true; }},
  };
  return kOptions;
}

void Check(const PrintArguments& parsed, bool layoutOptions, bool contentsOptions) {
  if (parsed.pdf.empty() == parsed.printer.empty())
    throw UsageError("serve --pdf FILE oppure --printer NOME");
  if (contentsOptions && parsed.contents->folder.empty()) throw UsageError("manca --contents CARTELLA");
  if (contentsOptions && layoutOptions) throw UsageError("layout e --contents non vanno insieme");
}

}  // namespace

PrintArguments ParsePrintArguments(std::span<const std::string> arguments) {
  PrintArguments parsed;
  PrintArguments::Contents contents;
  bool layoutOptions = false;
  bool contentsOptions = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--help") {
      parsed.help = true;
      return parsed;
    }
    if (!argument.starts_with("-")) {
      if (!parsed.layout.empty()) throw UsageError("più di un layout: '" + argument + "'");
      parsed.layout = NotEmpty("LAYOUT", argument);
      layoutOptions = true;
      continue;
    }
    const auto option = std::find_if(Options().begin(), Options().end(),
                                     [&](const Option& known) { return known.name == argument; });
    if (option == Options().end()) throw UsageError("opzione sconosciuta: '" + argument + "'");
    if (option->kind == Kind::Layout) layoutOptions = true;
    if (option->kind == Kind::Contents) contentsOptions = true;
    if (option->hasValue && ++i == arguments.size()) throw UsageError(argument + ": manca il valore");
    option->take(parsed, contents, arguments[i]);
  }
  if (contentsOptions) parsed.contents = contents;
  Check(parsed, layoutOptions, contentsOptions);
  return parsed;
}

std::string PdfNameOfCopy(const std::string& pdf, int copy, int copies) {
  if (copies <= 1) return pdf;
  const std::size_t slash = pdf.find_last_of('/');
  const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
  std::size_t dot = pdf.find_last_of('.');
  if (dot == std::string::npos || dot <= nameStart) dot = pdf.size();
  return pdf.substr(0, dot) + "-" + std::to_string(copy) + pdf.substr(dot);
}

}  // namespace Morvane
