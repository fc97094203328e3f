#include "windows/side_windows/form2.h"

#include <array>
#include <string>

#include "core/web_addresses.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow = {.name = "Form2",
                             .caption = "PDF Creator Freeware",
                             .clientWidth = 7035,
                             .clientHeight = 8265,
                             .backgroundKey = "form2_sfondo"};

// name, caption, tool-tip, left, top, width, height, spoken name
constexpr std::array kControls = {
    ControlRow{"Label1", "Download", "Clicca per scaricare gratuitamente una copia di PDF Creator", 5910, 180,
               975, 345},
    ControlRow{"Command1", "&OK", "", 4830, 3510, 1605, 585},
    ControlRow{"Text1", "", "", 0, 4440, 7035, 3825, "Informazioni su PDF Creator"},
};

constexpr Color kLinkBlue{20, 82, 123};

std::string ToolDescription() {
  return "PDFCreator\r\n"
         "SO Microsoft Windows\r\n"
         "Genere Applicativo da ufficio, stampante virtuale\r\n"
         "Licenza GPL\r\n"
         "Sito web " +
         std::string(WebAddresses::kPdfCreator) +
         "\r\n\r\n"
         "PDFCreator è un programma gratuito per Windows che, una volta installato, mette a disposizione "
         "una stampante di nome PDFCreator: quasi tutte le applicazioni possono così creare documenti PDF, "
         "semplicemente stampando.\r\n\r\n"
         "Il documento inviato a questa stampante non finisce sulla carta: PDFCreator lo salva in un file "
         "PDF, che viene generato da GhostScript.\r\n\r\n"
         "Con questo programma dopo l'installazione potrai creare dei file PDF da mandare anche ai tuoi "
         "amici che non hanno installato Morvane";
}

}  // namespace

Form2::Form2(Platform& platform) : form(kWindow), platform_(platform) {
  form.LayOut(kControls);
  form.Load = [this] { Form_Load(); };
  Text1.MultiLine = true;
  Text1.ReadOnly = true;
  Text1.SetText(ToolDescription());
  Label1.SetFont({.name = "Verdana", .size = 8, .underline = true});
  Label1.SetForeColor(kLinkBlue);
  Label1.Click = [this] { Label1_Click(); };
  Command1.Default = true;
  Command1.Cancel = true;
  Command1.Click = [this] { Command1_Click(); };
}

void Form2::Form_Load() {
  form.CentreOn(platform_.screen);
  Label1.HandPointer = true;
}

void Form2::Label1_Click() {
  platform_.launcher.ShellExecute(WebAddresses::kPdfCreator);
}

}  // namespace Morvane
