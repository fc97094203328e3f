#include <gmock/gmock.h>

#include <cstdlib>
#include <map>

#include "core/layout_reader.h"
#include "session.h"

namespace Morvane {
namespace {

// A disk in memory: each session saves a dozen files, and waiting for each of them takes most of the time.
const int kInMemory = ::setenv("TMPDIR", "/dev/shm", 1);

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

// A sheet that failed leaves nothing behind on the next one.
void ExpectCleanSheets(const Session& session) {
  for (const RecordingPrinter::Job& job : session.machine.Device.Jobs) {
    const auto footers = std::count_if(job.page.begin(), job.page.end(), [](const Shape& shape) {
      const auto* text = std::get_if<TextShape>(&shape);
      return text && text->text.find("con ") != std::string::npos &&
             text->text.find("Morvane") != std::string::npos;
    });
    EXPECT_EQ(footers, 1);
  }
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

int CountCalls() {
  Session session;
  session.Run([](const std::string&) {});
  return session.faults.Calls();
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
  std::map<std::string, int> met;
  const int calls = CountCalls();
  for (int n = 1; n <= calls; ++n) {
    Session session;
    session.faults.FirstToFail = n;
    RunChecked(session);
    const std::string& failed = session.faults.Failed();
    int plain = 0;
    bool told = false;
    for (const auto& box : session.windows.Boxes) plain += box.buttons == MsgBoxButtons::Ok;
    EXPECT_LE(plain, 1);
    for (const auto& [call, text] : kTold) {
      if (!failed.starts_with(call)) continue;
      ++met[call];
      for (const auto& box : session.windows.Boxes) told = told || box.text.find(text) != std::string::npos;
      EXPECT_TRUE(told);
    }
    if (testing::Test::HasFailure()) FAIL() << "call " << n << ": " << failed;
  }
  EXPECT_EQ(met.size(), kTold.size()) << "some failure that must be told was not met";
}

TEST(Faults, MachineThatFailsFromAnyCallOnHarmsNothing) {
  const int calls = CountCalls();
  for (int n = 1; n <= calls; n += 5) {
    Session session;
    session.faults.FirstToFail = n;
    session.faults.Lasting = true;
    RunChecked(session);
    if (testing::Test::HasFailure()) FAIL() << "from call " << n << ": " << session.faults.Failed();
  }
}

}  // namespace
}  // namespace Morvane
