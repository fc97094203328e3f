#include <filesystem>
#include <fstream>
#include <regex>
#include <set>

#include "core/layout_reader.h"
#include "telling.h"
#include "tests/support/held_text.h"
#include "transcript.h"

namespace Morvane {
namespace {

constexpr const char* kFault = "Guasto di prova";

// What is asked of the machine, and by which deed.
using Call = std::pair<int, std::string>;

// A user's whole visit on a machine that may fail.
class Visit {
 public:
  explicit Visit(Call failing = {}, bool lasting = false) : failing_(std::move(failing)), lasting_(lasting) {
    TestMachine& machine = scene_.machine;
    machine.Files->BeforeCall = [this](const std::string& call, const std::string& path) {
      if (call == "ToNative" || call == "FromNative") return;  // ask no disk
      constexpr std::array kNumbers = {ErrorNumber::PermissionDenied, ErrorNumber::DiskNotReady,
                                       ErrorNumber::PathFileAccess};
      Ask(call + " " + path, kNumbers[static_cast<std::size_t>(failing_.first) % kNumbers.size()]);
    };
    for (Hooked* device :
         std::initializer_list<Hooked*>{&machine.Fonts, &machine.Device, &machine.Launches, &machine.Http})
      device->BeforeCall = [this](const std::string& call, ErrorNumber number) { Ask(call, number); };
    scene_.windows.AtBox = [this] { GiveUpAtLast(); };
    scene_.Look = [this] {
      ++deed_;
      ExpectSoundState();
    };
    const QStringList seen = scene_.Play();
    scene_.machine.Files->BeforeCall = {};
    ExpectWholeFiles();
    ExpectCleanSheets();
    EXPECT_TRUE(scene_.windows.Ended()) << seen.join('\n').toStdString();
  }

  std::size_t Sheets() const { return scene_.machine.Device.Jobs.size(); }
  const std::vector<Call>& Calls() const { return calls_; }
  const std::string& Failed() const { return failed_; }
  std::multiset<std::string> Told() const {
    std::multiset<std::string> told;
    for (const auto& [what, text] : scene_.windows.Read)
      if (what == "box Morvane [OK]") told.insert(text);
    return told;
  }

 private:
  void Ask(const std::string& what, ErrorNumber number) {
    const Call call(deed_, what);
    if (std::find(calls_.begin(), calls_.end(), call) == calls_.end()) calls_.push_back(call);
    const bool isFirst = call == failing_ && failed_.empty();
    if (!isFirst && (failed_.empty() || !lasting_)) return;
    if (isFirst) failed_ = what + " @" + scene_.windows.TopForm()->Name();
    throw RuntimeError(number, kFault);
  }

  // A user gives up with a machine that keeps refusing.
  void GiveUpAtLast() {
    constexpr std::size_t kPatience = 5;
    const auto& read = scene_.windows.Read;
    EXPECT_EQ(read.back().second.find("errore interno"), std::string::npos);
    if (read.size() > kPatience && read.back() == read[read.size() - kPatience]) scene_.windows.End();
  }

  // A slot that held a picture holds one, whatever happened since.
  void ExpectSoundState() {
    const AppState& state = scene_.program.state;
    const auto& slots = scene_.program.slots.Image1;
    for (std::size_t i = 0; i < slots.size(); ++i)
      EXPECT_TRUE(slots[i] || !before_.Image1[i]) << "slot " << i;
    before_ = scene_.program.slots;
    if (scene_.windows.TopForm() != &scene_.program.form1.form) return;
    EXPECT_TRUE(state.NumCopertine >= 1 && state.NumCopertine <= kMaxCovers);
    EXPECT_TRUE(state.ElencoColonne >= 2 && state.ElencoColonne <= 7);
    EXPECT_EQ(scene_.machine.TheScreen.Pointer(), MousePointer::Default);
  }

  // What the program wrote reaches to its last line, and nothing half-written is left beside it.
  void ExpectWholeFiles() {
    FileSystem& files = *scene_.machine.Files;
    for (const std::string& name : files.ReadFolder("C:\\Morvane").files) {
      EXPECT_NE(name.front(), '.');
      const std::string path = "C:\\Morvane\\" + name;
      std::string last = name == "morvane.ini" ? "FileFolder" : "Grazie";
      if (name.ends_with(".mvne")) {
        AppState state;
        state.MaxCopertine = kMaxCovers;
        ReadLayout(*files.OpenForInput(path), state);
        last = "Alte" + std::to_string(state.NumCopertine);
      }
      EXPECT_THAT(files.ReadBytes(path), testing::ContainsRegex("\r\n" + last + "[^\r]*\r\n$")) << name;
    }
  }

  // A sheet that failed leaves nothing behind on the next one: each has one footer.
  void ExpectCleanSheets() const {
    for (const RecordingPrinter::Job& job : scene_.machine.Device.Jobs)
      EXPECT_EQ(std::count_if(job.page.begin(), job.page.end(),
                              [](const Shape& shape) {
                                const auto* const text = std::get_if<TextShape>(&shape);
                                return text != nullptr && text->text.find("http") != std::string::npos;
                              }),
                1);
  }

  Call failing_;
  const bool lasting_;
  int deed_ = 0;
  std::vector<Call> calls_;
  std::string failed_;  // the first
  CoverSlots before_;
  Transcript scene_{"../visit"};
};

TEST(Faults, OneCallThatFailsHarmsNothingAndIsToldAsHeld) {
  const Visit undisturbed;
  EXPECT_THAT(undisturbed.Told(), testing::IsEmpty());
  EXPECT_EQ(undisturbed.Sheets(), 6U);
  std::map<std::string, QStringList> calls;  // by what is told of them
  for (const Call& call : undisturbed.Calls()) {
    const Visit visit(call);
    std::string told;
    for (const std::string& text : visit.Told()) told += std::regex_replace(text, std::regex("\n"), " / ");
    const QString failed = QString::fromStdString(visit.Failed());
    if (!calls[told].contains(failed)) calls[told] << failed;
    ASSERT_FALSE(HasFailure()) << visit.Failed();
  }
  std::string seen;
  for (const auto& [told, failed] : calls)
    seen += (told.empty() ? "nothing" : told) + '\n' + Wrapped("  ", failed).toStdString() + '\n';
  ExpectText("tests/transcripts/faults.txt", seen);
}

TEST(Faults, MachineThatFailsFromAnyCallOnHarmsNothing) {
  constexpr std::size_t kStep = 5;
  const std::vector<Call> calls = Visit().Calls();
  for (std::size_t i = 0; i < calls.size(); i += kStep) {
    const Visit visit(calls[i], true);
    ASSERT_FALSE(HasFailure()) << visit.Failed();
  }
}

}  // namespace
}  // namespace Morvane
