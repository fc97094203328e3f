#include "windows/side_windows/form3.h"

#include <array>

#include "core/web_addresses.h"
#include "platform/resume_next.h"

namespace Morvane {

namespace {

constexpr FormRow kWindow = {
    .name = "Form3", .caption = "Morvane", .clientWidth = 7185, .clientHeight = 7110};

// name, caption, tool-tip, left, top, width, height, spoken name
constexpr std::array kControls = {
    ControlRow{"Frame1", "", "", 60, 120, 1965, 6930},
    ControlRow{"Label2", "Mor", "", 120, 240, 1725, 375},
    ControlRow{"Label3", "vane", "", 120, 600, 1725, 345},
    ControlRow{"lblVersion", "", "", 120, 960, 1725, 345},
    ControlRow{"Picture2", "", "", 540, 1980, 900, 705},
    ControlRow{"Label1(1)", "Made in Italy NO SPYWARE", "", 360, 2700, 1305, 390},
    ControlRow{"Picture6", "", "", 780, 4200, 480, 480, "Ombrano Kit"},
    ControlRow{"Picture7", "", "", 540, 5940, 990, 600, "Dona all'autore"},
    ControlRow{"Frame2", "", "", 2070, 120, 5055, 6930},
    ControlRow{"Picture4", "", "", 180, 630, 4605, 1935},
    ControlRow{"Picture5", "", "", 90, 60, 4455, 1815, "Testo che scorre"},
    ControlRow{"Picture1", "", "", 180, 2640, 2550, 4200},
    ControlRow{"Label1(2)", "Autore : I. Bertan", "", 3150, 2790, 1650, 195},
    ControlRow{"Command3d1", "&OK", "", 3330, 3000, 1425, 435},
    ControlRow{"Picture3", "", "Visita il sito dell'autore", 3000, 4170, 1800, 435},
};

constexpr const char* kTextFile = "morvane_fileid.txt";
constexpr const char* kLetterPack = "OMK.HTM";

constexpr int kDesignInterval = 3;  // milliseconds, as are the next three
constexpr int kFastest = 1;
constexpr int kSlowest = 101;
constexpr int kFrameInterval = 120;
constexpr int kFrames = 8;

constexpr double kStep = 5;  // twips, as are all here
constexpr double kStartBelowPane = 300;
constexpr double kWrapBelow = 900;
constexpr double kTextMargin = 40;
constexpr double kShadow = 30;
constexpr double kLargestFont = 39;  // points, as is the next
constexpr double kSmallestFont = 1;

constexpr Color kGreen{0, 224, 64};
constexpr Color kWhite{255, 255, 255};
constexpr Color kRed{192, 0, 0};
constexpr Color kNamePlate{15, 68, 104};

void ShowBold(Label& label, double size, Color ink, Color plate) {
  label.SetFont({.name = "Verdana", .size = size, .bold = true});
  label.SetForeColor(ink);
  label.BackColor = plate;
  label.TextAlignment = Alignment::Centre;
}

std::string FrameKey(int frame) {
  return "form3_animazione_" + std::to_string(frame + 1);
}

}  // namespace

Form3::Form3(AppState& state, Platform& platform)
    : form(kWindow),
      Picture4(Frame2, "Picture4", platform.text),
      Picture5(Picture4, "Picture5", platform.text),
      state_(state),
      platform_(platform) {
  form.LayOut(kControls);
  DressLabels();
  Picture1.SetImageKey("form3_decoro");
  Picture2.SetImageKey(FrameKey(frame_));
  Picture6.SetImageKey("form3_lettere");
  Picture7.SetImageKey("donazione");
  for (ImageBox* link : {&Picture3, &Picture6, &Picture7}) link->HandPointer = true;
  Picture4.PaperBackground = true;
  Picture5.PaperBackground = true;
  Timer1.SetInterval(kDesignInterval);
  TimerAnimazione.SetInterval(kFrameInterval);
  Command3d1.Default = true;
  Command3d1.Cancel = true;
  ConnectEvents();
}

void Form3::DressLabels() {
  ShowBold(Label2, 14, kGreen, kNamePlate);
  ShowBold(Label3, 14, kWhite, kNamePlate);
  ShowBold(lblVersion, 9, kRed, kWhite);
  Label1_1.TextAlignment = Alignment::Centre;
}

void Form3::ConnectEvents() {
  form.Load = [this] { Form_Load(); };
  form.Unload = [this] { Form_Unload(); };
  Timer1.Tick = [this] { Timer1_Tick(); };
  TimerAnimazione.Tick = [this] { TimerAnimazione_Tick(); };
  Picture5.MouseDown = [this](MouseButton button, double, double) { Picture5_MouseDown(button); };
  const auto reset = [this](double, double) { ResetPointer(); };
  form.MouseMove = reset;
  Frame1.MouseMove = reset;  // the frames cover nearly the whole window
  Frame2.MouseMove = reset;
  Command3d1.MouseMove = reset;
  Picture2.MouseMove = reset;
  Picture3.MouseMove = [this](double, double) { Picture3_MouseMove(); };
  Picture3.Click = [this] { Picture3_Click(); };
  Picture6.Click = [this] { Picture6_Click(); };
  Picture7.Click = [this] { Picture7_Click(); };
  Command3d1.Click = [this] { Command3d1_Click(); };
  Frame2.Click = [this] { Frame2_Click(); };
}

void Form3::Form_Load() {
  form.CentreOn(platform_.screen);
  Picture3.SetImageKey("logo");
  const AppInfo& app = platform_.app;
  lblVersion.SetCaption("Ver." + app.version);
  StripToStart();
  inizia();
  TimerAnimazione.SetRunning(true);
}

void Form3::Form_Unload() {
  Timer1.SetRunning(false);
  TimerAnimazione.SetRunning(false);
  ResetPointer();
}

void Form3::inizia() {
  DrawingSurface& strip = Picture5.Surface;
  Timer1.SetRunning(true);
  strip.Cls();
  strip.SetFontName("Tahoma");
  strip.SetFontSize(kLargestFont);
  const std::vector<std::string> lines = TextLines();
  std::string text;
  for (const std::string& line : lines) {
    FitFont(line);
    text += line + "\r\n";
  }
  // The shadow's offset of each line is not counted: the end of a long text runs off the strip's foot.
  Picture5.SetHeight(strip.TextHeight(text + "\r\n\r\n"));
  RuleLines();
  strip.CurrentY = 0;
  for (const std::string& line : lines) PrintCentred(line);
}

// Without the file there are no lines; one that fails half-way ends there.
std::vector<std::string> Form3::TextLines() const {
  std::vector<std::string> lines;
  ResumeNext([&] {
    const auto file = platform_.files.OpenForInput(state_.AppPath + kTextFile);
    for (std::string line; file->ReadLine(line);) lines.push_back(line);
  });
  return lines;
}

void Form3::FitFont(const std::string& line) {
  DrawingSurface& strip = Picture5.Surface;
  while (Picture5.Width() - kTextMargin < strip.TextWidth(line) && strip.GetFont().size > kSmallestFont) {
    strip.SetFontSize(strip.GetFont().size - 1);
  }
}

void Form3::RuleLines() {
  const double step = Picture5.Surface.TextHeight("Q") * 1.05 / 2;
  for (double y = 1; step > 0 && y <= Picture5.Height(); y += step) {
    Picture5.Surface.Line(0, y, Picture5.Width(), y, LineStyle::Line, QBColor(11));
  }
}

// The shadow lies up and to the left of the text.
void Form3::PrintCentred(const std::string& line) {
  DrawingSurface& strip = Picture5.Surface;
  const double x = (Picture5.Width() - strip.TextWidth(line)) / 2;
  const double y = strip.CurrentY;
  strip.CurrentX = x;
  strip.ForeColor = QBColor(7);
  strip.Print(line);
  strip.CurrentX = x + kShadow;
  strip.CurrentY = y + kShadow;
  strip.ForeColor = QBColor(0);
  strip.Print(line);
}

void Form3::StripToStart() {
  Picture5.SetTop(Picture4.Top() + kStartBelowPane);
}

void Form3::Timer1_Tick() {
  Picture5.SetTop(Picture5.Top() - kStep);
  if (Picture5.Top() + Picture5.Height() >= kWrapBelow) return;
  StripToStart();
  inizia();
}

void Form3::TimerAnimazione_Tick() {
  frame_ = (frame_ + 1) % kFrames;
  Picture2.SetImageKey(FrameKey(frame_));
}

void Form3::Picture5_MouseDown(MouseButton button) {
  const int interval = Timer1.Interval();
  if (button == MouseButton::Left) {
    if (interval > kFastest) Timer1.SetInterval(interval - 1);
  } else if (interval < kSlowest) {
    Timer1.SetInterval(interval + 1);
  }
}

void Form3::Picture3_MouseMove() {
  platform_.screen.SetMouseIcon("hand");
  platform_.screen.SetMousePointer(MousePointer::Custom);
}

void Form3::Picture3_Click() {
  platform_.launcher.ShellExecute(WebAddresses::kMakerSite);
}

void Form3::Picture6_Click() {
  platform_.launcher.ShellExecute(kLetterPack);
}

void Form3::Picture7_Click() {
  platform_.launcher.ShellExecute(WebAddresses::kDonation);
}

void Form3::ResetPointer() {
  platform_.screen.SetMousePointer(MousePointer::Default);
}

}  // namespace Morvane
