#include "app/print_arguments.h"

#include <QCommandLineParser>
#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iterator>

namespace Morvane {

namespace {

enum class Kind { Layout, Contents, Both };

struct Option {
  const char* name;
  const char* value;  // empty: it has none
  Kind kind;
  const char* preset;
  const char* help;
};

// clang-format off
constexpr Option kOptions[] = {
    {"picture",   "N=FILE", Kind::Layout,   "",          "l'immagine della copertina N (da 1 a 100)"},
    {"outline",   "N",      Kind::Layout,   "0",         "linee di contorno: 0, 1, 3 o 5"},
    {"copies",    "N",      Kind::Both,     "1",         "numero di copie, ognuna un lavoro (o un file) a sé"},
    {"pdf",       "FILE",   Kind::Both,     "",          "scrive un PDF; con più copie FILE-1.pdf, FILE-2.pdf ..."},
    {"printer",   "NOME",   Kind::Both,     "",          "stampa sulla coda NOME"},
    {"no-calibration", "",  Kind::Both,     "",          "senza la taratura della stampante"},
    {"contents",  "DIR",    Kind::Contents, "",          "stampa il contenuto della cartella come copertina"},
    {"title",     "T",      Kind::Contents, "Titolo CD", "titolo del contenuto"},
    {"columns",   "N",      Kind::Contents, "2",         "colonne, da 2 a 7"},
    {"font",      "F",      Kind::Contents, "Arial",     "carattere dell'elenco"},
    {"size",      "S",      Kind::Contents, "8",         "altezza del carattere in punti, da 2 a 25"},
    {"italic",    "",       Kind::Contents, "",          "corsivo"},
    {"full-path", "",       Kind::Contents, "",          "percorso completo dei file"},
    {"help",      "",       Kind::Both,     "",          "questo testo"},
};
// clang-format on

constexpr std::size_t kHelpColumn = 19;

void AddOptions(QCommandLineParser& parser) {
  for (const Option& option : kOptions) parser.addOption({option.name, {}, option.value, option.preset});
}

std::string Bytes(const QString& text) {
  return text.toLatin1().toStdString();
}

std::string TextOf(const QCommandLineParser& parser, const char* option) {
  const std::string text = Bytes(parser.value(option));
  if (text.empty() && parser.isSet(option))
    throw UsageError(std::string("--") + option + ": manca il valore");
  return text;
}

template <typename Number>
Number ParseNumber(const char* option, const std::string& text, Number smallest, Number largest) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !(value >= smallest && value <= largest)) {
    throw UsageError(std::string("--") + option + ": valore non valido: '" + text + "'");
  }
  return value;
}

int Outline(const QCommandLineParser& parser) {
  const int lines = ParseNumber("outline", TextOf(parser, "outline"), 0, 5);
  if (lines == 2 || lines == 4) throw UsageError("--outline: i valori sono 0, 1, 3 e 5");
  return lines;
}

std::map<int, std::string> Pictures(const QCommandLineParser& parser) {
  std::map<int, std::string> pictures;
  for (const QString& value : parser.values("picture")) {
    const std::string text = Bytes(value);
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals + 1 == text.size()) {
      throw UsageError("--picture vuole N=FILE, non '" + text + "'");
    }
    pictures[ParseNumber("picture", text.substr(0, equals), 1, 100)] = text.substr(equals + 1);
  }
  return pictures;
}

PrintArguments::Contents Contents(const QCommandLineParser& parser) {
  return {.folder = TextOf(parser, "contents"),
          .title = Bytes(parser.value("title")),
          .columns = ParseNumber("columns", TextOf(parser, "columns"), 2, 7),
          .font = TextOf(parser, "font"),
          .size = ParseNumber("size", TextOf(parser, "size"), 2.0, 25.0),
          .italic = parser.isSet("italic"),
          .fullPath = parser.isSet("full-path")};
}

// The toolkit tells which option has no value, or one too many, in a sentence of its own language only.
UsageError Misunderstood(const QCommandLineParser& parser) {
  const QStringList unknown = parser.unknownOptionNames();
  if (!unknown.isEmpty()) return UsageError("opzione sconosciuta: '" + Bytes(unknown[0]) + "'");
  return UsageError("a un'opzione manca il valore, o ne ha uno di troppo");
}

}  // namespace

PrintArguments ParsePrintArguments(std::span<const std::string> arguments) {
  QCommandLineParser parser;
  AddOptions(parser);
  QStringList all("morvane-print");
  // Each byte a character: names of files that are no UTF-8 come through.
  for (const std::string& argument : arguments) all << QString::fromLatin1(argument);
  const bool isUnderstood = parser.parse(all);
  PrintArguments parsed;
  parsed.help = parser.isSet("help");
  if (parsed.help) return parsed;
  if (!isUnderstood) throw Misunderstood(parser);
  const auto hasAny = [&](Kind kind) {
    return std::any_of(std::begin(kOptions), std::end(kOptions), [&](const Option& option) {
      return option.kind == kind && parser.isSet(option.name);
    });
  };
  const QStringList layouts = parser.positionalArguments();
  if (layouts.size() > 1) throw UsageError("più di un layout: '" + Bytes(layouts[1]) + "'");
  if (parser.isSet("pdf") == parser.isSet("printer"))
    throw UsageError("serve --pdf FILE oppure --printer NOME");
  if (hasAny(Kind::Contents)) {
    if (!parser.isSet("contents")) throw UsageError("manca --contents CARTELLA");
    if (!layouts.isEmpty() || hasAny(Kind::Layout))
      throw UsageError("--contents non va insieme a un layout, a --picture o a --outline");
  }
  parsed.layout = Bytes(layouts.value(0));
  parsed.pictures = Pictures(parser);
  parsed.outline = Outline(parser);
  parsed.copies = ParseNumber("copies", TextOf(parser, "copies"), 1, 999);
  parsed.pdf = TextOf(parser, "pdf");
  parsed.printer = TextOf(parser, "printer");
  parsed.calibrated = !parser.isSet("no-calibration");
  if (parser.isSet("contents")) parsed.contents = Contents(parser);
  return parsed;
}

std::string PrintHelp() {
  std::string text =
      "Uso: morvane-print [LAYOUT.mvne] [--picture N=FILE]... [--outline 0|1|3|5]\n"
      "                   [--copies N] (--pdf FILE | --printer NOME [--no-calibration])\n"
      "     morvane-print --contents CARTELLA [--title T] [--columns 2..7] [--font F]\n"
      "                   [--size S] [--italic] [--full-path] [--copies N]\n"
      "                   (--pdf FILE | --printer NOME [--no-calibration])\n"
      "\n"
      "Stampa un layout di copertine, o il contenuto di una cartella, in scala reale.\n"
      "\n"
      "  LAYOUT.mvne      il layout; senza, quello iniziale di due copertine\n";
  for (const Option& option : kOptions) {
    std::string line = std::string("  --") + option.name + ' ' + option.value;
    line.resize(kHelpColumn, ' ');
    text += line + option.help + '\n';
  }
  return text +
         "\n"
         "Uscita: 0 stampato; 1 non stampato per colpa dei dati o della stampante, o stampato senza le\n"
         "        immagini che non possono essere lette; 2 uso errato.\n";
}

std::string PdfNameOfCopy(const std::string& pdf, int copy, int copies) {
  if (copies <= 1) return pdf;
  const std::filesystem::path path(pdf);
  return (path.parent_path() / path.stem()).string() + "-" + std::to_string(copy) + path.extension().string();
}

}  // namespace Morvane
