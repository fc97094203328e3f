#include <QRegularExpression>

#include "shapes.h"
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
      Ask(call + " " + path, ErrorNumber::DiskNotReady);
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
  QString Told() const {
    QStringList told;
    for (const auto& [what, text] : scene_.windows.Read)
      if (what == "box Morvane [OK]") told << QString::fromStdString(text).replace('\n', " / ");
    return told.join(" | ");
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
    const CoverSlots& slots = scene_.program.slots;
    for (std::size_t i = 0; i < slots.Image1.size(); ++i)
      EXPECT_TRUE(slots.Image1[i] || !before_.Image1[i]) << "slot " << i;
    before_ = slots;
    const bool isBusy = scene_.machine.TheScreen.Pointer() != MousePointer::Default;
    EXPECT_FALSE(isBusy && scene_.windows.TopForm() == &scene_.program.form1.form);
  }

  // What the program wrote reaches to its last line, and nothing half-written is left beside it.
  void ExpectWholeFiles() {
    FileSystem& files = *scene_.machine.Files;
    for (const std::string& name : files.ReadFolder("C:\\Morvane").files) {
      EXPECT_NE(name.front(), '.');
      EXPECT_THAT(files.ReadBytes("C:\\Morvane\\" + name),
                  testing::ContainsRegex("\r\n(FileFolder|Grazie|Alte)[^\r]*\r\n$"))
          << name;
    }
  }

  // A sheet that failed leaves nothing behind on the next one: each has one footer.
  void ExpectCleanSheets() const {
    for (const RecordingPrinter::Job& job : scene_.machine.Device.Jobs) {
      const QStringList footers = ShapesAsText(job.page).filter(QRegularExpression("http|the footer"));
      EXPECT_TRUE(footers.size() == 1 && footers[0].endsWith('"')) << footers.join('\n').toStdString();
    }
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
  EXPECT_EQ(undisturbed.Told(), "");
  EXPECT_EQ(undisturbed.Sheets(), 6U);
  std::map<QString, QStringList> calls;  // by what is told of them
  for (const Call& call : undisturbed.Calls()) {
    const Visit visit(call);
    const QString failed = QString::fromStdString(visit.Failed());
    QStringList& alike = calls[visit.Told()];
    if (!alike.contains(failed)) alike << failed;
    ASSERT_FALSE(HasFailure()) << visit.Failed();
  }
  QStringList seen;
  for (const auto& [told, failed] : calls)
    seen << (told.isEmpty() ? "nothing" : told) << Wrapped("  ", failed);
  ExpectText("tests/transcripts/faults.txt", seen.join('\n').toStdString() + '\n');
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
