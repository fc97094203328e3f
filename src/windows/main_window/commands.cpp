#include "windows/main_window/commands.h"

#include "core/web_addresses.h"

namespace Morvane {

namespace {

// clang-format off
constexpr MenuRow kMenu[] = {
    {0, "menuf", "&File"},
    {1, "menudef", "&Apri file layout copertine...", "Ctrl+P", Action::ScegliLayout},
    {1, "menoim", "-"},
    {1, "MenuCarb", "Carica immagine &1", "Ctrl+F", Action::CaricaImmagine1},
    {1, "ManuCarF", "Carica immagine &2", "Ctrl+B", Action::CaricaImmagine2},
    {1, "menumnnn", "-"},
    {1, "menustcg", "Stampa contenuto &CD/DVD Dati generico / Cartella...", "", Action::LeggiCD},
    {1, "menum", "-"},
    {1, "menusta", "&Stampa...", "Ctrl+S", Action::Stampa},
    {1, "menume", "-"},
    {1, "menuesci", "&Esci", "", Action::Esci},
    {0, "menuopz", "&Utilità"},
    {1, "menustmpcrt", "&Lancia \"Lindorel\"", "", Action::AvviaLindorel},
    {1, "menummn", "-"},
    {1, "menuonl", "Ricerca Online", "", Action::RicercaOnline},
    {1, "menusitaa", "Siti Internet con copertine CD"},
    {2, "menu01", "&Cdcovers (Internazionali)", "", Action::ApriIndirizzo, WebAddresses::kCdcovers},
    {2, "menu02", "&Mega Search", "", Action::ApriIndirizzo, WebAddresses::kMegaSearch},
    {2, "menummm", "-"},
    {2, "menu05", "Ricerca con &Google", "", Action::ApriIndirizzo, WebAddresses::kGoogle},
    {2, "menuyah", "Ricerca con &Yahoo", "", Action::ApriIndirizzo, WebAddresses::kYahoo},
    {2, "menu04", "Ricerca con &Arianna", "", Action::ApriIndirizzo, WebAddresses::kArianna},
    {2, "menu03", "Ricerca con &Virgilio", "", Action::ApriIndirizzo, WebAddresses::kVirgilio},
    {2, "menu06", "Ricerca con A&ltavista", "", Action::ApriIndirizzo, WebAddresses::kAltavista},
    {1, "menou", "-"},
    {1, "pdfcrea", "&PDF Creator (crea un PDF)"},
    {2, "pdfcreascar", "Scarica da Internet PDF Creator", "", Action::ApriIndirizzo, WebAddresses::kPdfCreator},
    {2, "pdfcreatinfo", "Informazioni su PDF Creator", "", Action::InformazioniPdf},
    {0, "Menuh", "&?"},
    {1, "Menuhelp", "&Help", "", Action::Aiuto},
    {1, "menumeg", "-"},
    {1, "menusita", "&Visita il sito dell'autore...", "", Action::ApriIndirizzo, WebAddresses::kMakerSite},
    {1, "manumail", "&Manda una mail all'autore...", "", Action::ApriIndirizzo, WebAddresses::kMakerMail},
    {1, "menumei", "-"},
    {1, "menuabout", "&About", "", Action::Informazioni},
};

constexpr ToolRow kTools[] = {
    {},
    {"Front", ToolStyle::Button, "Carica l'immagine 1 ...", "front", Action::CaricaImmagine1},
    {"Back", ToolStyle::Button, "Carica l'immagine 2 ...", "back", Action::CaricaImmagine2},
    {"Contorno", ToolStyle::DropDown, "Abilita/Disabilita il contorno alle immagini", "contorno", Action::Contorno},
    {},
    {"Settaogg", ToolStyle::Button, "Scegli / Cambia modello di stampa", "tools", Action::ScegliLayout},
    {},
    {"Stampa", ToolStyle::Button, "Stampa le immagini caricate", "print", Action::Stampa},
    {},
    {"OMK", ToolStyle::Button, "Visualizza contenuto Ombrano Kit", "omk", Action::ApriOmbranoKit},
    {"LeggiCD", ToolStyle::Button, "Legge un CD / Cartella di dati", "leggicd", Action::LeggiCD},
    {"Cerca", ToolStyle::Button, "Cerca copertine su Internet", "cerca", Action::RicercaOnline},
    {},
    {"Info", ToolStyle::Button, "Visualizza Informazioni sul programma ...", "info", Action::Informazioni},
    {"Help", ToolStyle::Button, "Help", "help", Action::Aiuto},
    {},
    {"Uscita", ToolStyle::Button, "Torna a Windows", "spegni", Action::Esci},
};

constexpr StatusRow kStatus[] = {
    {"Scegli/Personalizza", "Sceglie modello / personalizza", Action::ScegliLayout},
    {"About", "Informazioni riguardo al programma", Action::Informazioni},
    {"Cerca", "Cerca copertine su Internet", Action::RicercaOnline},
};

constexpr OutlineRow kOutlines[] = {
    {"Linea fine", 1},
    {"Linea media", 3},
    {"Linea grossa", 5},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuRows() {
  return kMenu;
}
std::span<const ToolRow> ToolRows() {
  return kTools;
}
std::span<const StatusRow> StatusRows() {
  return kStatus;
}
std::span<const OutlineRow> OutlineRows() {
  return kOutlines;
}

}  // namespace Morvane
