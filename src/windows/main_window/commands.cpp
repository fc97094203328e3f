#include "core/web_addresses.h"
#include "windows/main_window/form1.h"

namespace Morvane {

// clang-format off
void Form1::BuildMenuBar() {
  // name, caption, shortcut, action, entries
  form.MenuBar = {
      {"menuf", "&File", "", {}, {
          {"menudef", "&Apri file layout copertine...", "Ctrl+P", [this] { Command1_Click(); }},
          {"menoim", "-"},
          {"MenuCarb", "Carica immagine &1", "Ctrl+F", [this] { Imma(0); }},
          {"ManuCarF", "Carica immagine &2", "Ctrl+B", [this] { Imma(1); }},
          {"menumnnn", "-"},
          {"menustcg", "Stampa contenuto &CD/DVD Dati generico / Cartella...", "", openers_.FrmPreview},
          {"menum", "-"},
          {"menusta", "&Stampa...", "Ctrl+S", [this] { Stampa(); }},
          {"menume", "-"},
          {"menuesci", "&Esci", "", [this] { Esci(); }},
      }},
      {"menuopz", "&Utilità", "", {}, {
          {"menustmpcrt", "&Lancia \"Lindorel\"", "", [this] { LanciaLindorel(); }},
          {"menummn", "-"},
          {"menuonl", "Ricerca Online", "", openers_.Form4},
          {"menusitaa", "Siti Internet con copertine CD", "", {}, {
              {"menu01", "&Cdcovers (Internazionali)", "", [this] { Apri(WebAddresses::kCdcovers); }},
              {"menu02", "&Mega Search", "", [this] { Apri(WebAddresses::kMegaSearch); }},
              {"menummm", "-"},
              {"menu05", "Ricerca con &Google", "", [this] { Apri(WebAddresses::kGoogle); }},
              {"menuyah", "Ricerca con &Yahoo", "", [this] { Apri(WebAddresses::kYahoo); }},
              {"menu04", "Ricerca con &Arianna", "", [this] { Apri(WebAddresses::kArianna); }},
              {"menu03", "Ricerca con &Virgilio", "", [this] { Apri(WebAddresses::kVirgilio); }},
              {"menu06", "Ricerca con A&ltavista", "", [this] { Apri(WebAddresses::kAltavista); }},
          }},
          {"menou", "-"},
          {"pdfcrea", "&PDF Creator (crea un PDF)", "", {}, {
              {"pdfcreascar", "Scarica da Internet PDF Creator", "", [this] { Apri(WebAddresses::kPdfCreator); }},
              {"pdfcreatinfo", "Informazioni su PDF Creator", "", openers_.Form2},
          }},
      }},
      {"Menuh", "&?", "", {}, {
          {"Menuhelp", "&Help", "", [this] { Menuhelp_Click(); }},
          {"menumeg", "-"},
          {"menusita", "&Visita il sito dell'autore...", "", [this] { Apri(WebAddresses::kMakerSite); }},
          {"manumail", "&Manda una mail all'autore...", "", [this] { Apri(WebAddresses::kMakerMail); }},
          {"menumei", "-"},
          {"menuabout", "&About", "", openers_.Form3},
      }},
  };
}

void Form1::BuildBars() {
  // key, tool-tip, image, action, entries of the arrow beside it
  Toolbar1.Buttons = {
      {},
      {"Front", "Carica l'immagine 1 ...", "front", [this] { Imma(0); }},
      {"Back", "Carica l'immagine 2 ...", "back", [this] { Imma(1); }},
      {"Contorno", "Abilita/Disabilita il contorno alle immagini", "contorno", [this] { CambiaContorno(); }, {
          {"", "Linea fine", "", [this] { Toolbar1_ButtonMenuClick(1); }},
          {"", "Linea media", "", [this] { Toolbar1_ButtonMenuClick(3); }},
          {"", "Linea grossa", "", [this] { Toolbar1_ButtonMenuClick(5); }},
      }},
      {},
      {"Settaogg", "Scegli / Cambia modello di stampa", "tools", [this] { Command1_Click(); }},
      {},
      {"Stampa", "Stampa le immagini caricate", "print", [this] { Stampa(); }},
      {},
      {"OMK", "Visualizza contenuto Ombrano Kit", "omk", [this] { Apri("omk.htm"); }},
      {"LeggiCD", "Legge un CD / Cartella di dati", "leggicd", openers_.FrmPreview},
      {"Cerca", "Cerca copertine su Internet", "cerca", openers_.Form4},
      {},
      {"Info", "Visualizza Informazioni sul programma ...", "info", openers_.Form3},
      {"Help", "Help", "help", [this] { Menuhelp_Click(); }},
      {},
      {"Uscita", "Torna a Windows", "spegni", [this] { Esci(); }},
  };
  StatusBar1.Buttons = {
      {"Scegli/Personalizza", "Sceglie modello / personalizza", "", [this] { Command1_Click(); }},
      {"About", "Informazioni riguardo al programma", "", openers_.Form3},
      {"Cerca", "Cerca copertine su Internet", "", openers_.Form4},
  };
}
// clang-format on

}  // namespace Morvane
