#include <gmock/gmock.h>

#include <algorithm>

#include "core/layout_reader.h"
#include "session.h"

namespace Morvane {
namespace {

// A disk in memory: each session saves a dozen files, and waiting for each of them takes most of the time.
const bool kInMemory = KeepInMemory();

// Failures that the user must be told of, by the call that failed, with a part of the message.
const std::vector<std::pair<std::string, std::string>> kTold = {
    {"Name C:\\Morvane\\", "Impossibile rinominare il layout"},
    {"Kill C:\\Morvane\\", "Impossibile eliminare il layout"},
    {"Name C:\\Foto\\", "Si è verificato un errore durante"},
    {"Kill C:\\Foto\\", "Non è possibile cancellare il file b.jpg"},
    {"LoadPicture @Form1", Faults::kText},
    {"FolderExists C:\\Disco", Faults::kText},
    {"FolderIdentity C:\\Disco", Faults::kText},
    {"ReadFolder C:\\Disco", Faults::kText},
    {"SendPage @FrmPreview", Faults::kText},
    {"ShowDialog @FrmPreview", Faults::kText},
    {"Families", Faults::kText},
    {"CanPrint", "Font scelto non disponibile"},
    {"Shell", Faults::kText},
};

void ExpectSoundState(const Session& session) {
  const AppState& state = session.program.state;
  EXPECT_GE(state.NumCopertine, 1);
  EXPECT_LE(state.NumCopertine, kMaxCovers);
  EXPECT_EQ(state.CopCorrente, 0);
  EXPECT_TRUE(state.ElencoColonne >= 2 && state.ElencoColonne <= 7);
  EXPECT_EQ(session.machine.TheScreen.Pointer(), MousePointer::Default);
}

// A slot that held a picture holds one, whatever happened since.
void ExpectPicturesKept(const CoverSlots& before, const Session& session) {
  for (std::size_t i = 0; i < before.Image1.size(); ++i) {
    EXPECT_TRUE(session.program.slots.Image1[i] || !before.Image1[i]) << "slot " << i;
  }
}

// What the program wrote reaches to its last line, and nothing half-written is left beside it.
void ExpectWholeFiles(Session& session) {
  session.faults.FirstToFail = 0;
  FileSystem& files = *session.machine.Files;
  const FolderEntries entries = files.ReadFolder("C:\\Morvane");
  for (const std::string& name : entries.files) {
    const std::string path = "C:\\Morvane\\" + name;
    const std::string bytes = files.ReadBytes(path);
    if (session.kept.contains(bytes)) continue;
    std::string lastKey = "FileFolder";
    if (name != "morvane.ini") {
      AppState state;
      state.MaxCopertine = kMaxCovers;
      ReadLayout(*files.OpenForInput(path), state);
      lastKey = "Alte" + std::to_string(state.NumCopertine);
    }
    EXPECT_THAT(bytes, testing::ContainsRegex("\r\n" + lastKey + "=[^\r]*\r\n$")) << name;
    EXPECT_NE(name.front(), '.');
  }
}

// A sheet that failed leaves nothing behind on the next one: each has one footer.
void ExpectCleanSheets(const Session& session) {
  const auto isFooter = [](const Shape& shape) {
    const auto* text = std::get_if<TextShape>(&shape);
    const std::size_t at = text ? text->text.find("con ") : std::string::npos;
    return at != std::string::npos && text->text.find("Morvane", at) != std::string::npos;
  };
  for (const RecordingPrinter::Job& job : session.machine.Device.Jobs)
    EXPECT_EQ(std::count_if(job.page.begin(), job.page.end(), isFooter), 1);
}

void RunChecked(Session& session) {
  CoverSlots before;
  session.Run([&](const std::string& step) {
    SCOPED_TRACE(step);
    ExpectSoundState(session);
    ExpectPicturesKept(before, session);
    before = session.program.slots;
  });
  ExpectPicturesKept(before, session);
  ExpectWholeFiles(session);
  ExpectCleanSheets(session);
  EXPECT_TRUE(session.windows.Ended());
}

// A session for each call, or each `step`-th, which fails in it.
void ForEachCall(int step, const std::function<void(Session&)>& check) {
  Session undisturbed;
  undisturbed.Run([](const std::string&) {});
  for (int n = 1; n <= undisturbed.faults.Calls(); n += step) {
    Session session;
    session.faults.FirstToFail = n;
    check(session);
    if (testing::Test::HasFailure()) FAIL() << "call " << n << ": " << session.faults.Failed();
  }
}

TEST(Faults, WithoutAnyTheSessionDoesAllItsWorkWithoutAMessage) {
  Session session;
  RunChecked(session);
  for (const auto& box : session.windows.Boxes) EXPECT_NE(box.buttons, MsgBoxButtons::Ok) << box.text;
  EXPECT_EQ(session.machine.Device.Jobs.size(), 6U);
  EXPECT_TRUE(session.program.slots.Image1[0] && session.program.slots.Image1[1]);
  const FileSystem& disk = *session.machine.Files;
  for (const char* there : {"Buste", "Copia", "Nuovo", "Rinominata"}) {
    EXPECT_TRUE(disk.FileExists(std::string("C:\\Morvane\\") + there + ".mvne")) << there;
  }
  EXPECT_FALSE(disk.FileExists("C:\\Morvane\\Cassetta.mvne"));
  EXPECT_TRUE(disk.FileExists("C:\\Foto\\zeta.jpg"));
  EXPECT_FALSE(disk.FileExists("C:\\Foto\\b.jpg"));
}

TEST(Faults, AnyOneCallThatFailsIsToldOnceWhereTheUserMustKnowAndHarmsNothing) {
  std::set<std::string> met;
  ForEachCall(1, [&](Session& session) {
    RunChecked(session);
    std::vector<std::string> told;
    for (const auto& box : session.windows.Boxes) {
      if (box.buttons == MsgBoxButtons::Ok) told.push_back(box.text);
    }
    EXPECT_LE(told.size(), 1U);
    for (const auto& [call, text] : kTold) {
      if (!session.faults.Failed().starts_with(call)) continue;
      met.insert(call);
      EXPECT_THAT(told, testing::ElementsAre(testing::HasSubstr(text)));
    }
  });
  EXPECT_EQ(met.size(), kTold.size()) << "some failure that must be told was not met";
}

TEST(Faults, MachineThatFailsFromAnyCallOnHarmsNothing) {
  constexpr int kStep = 5;
  ForEachCall(kStep, [](Session& session) {
    session.faults.Lasting = true;
    RunChecked(session);
  });
}

}  // namespace
}  // namespace Morvane
