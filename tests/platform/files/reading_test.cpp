#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "temp_machine.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ReadingTest : public FilesTest {
 protected:
  std::vector<std::string> Lines(const std::string& bytes) const {
    temp_.Write("root/t.txt", bytes);
    const auto file = Machine().OpenForInput("C:\\t.txt");
    std::vector<std::string> lines;
    std::string line;
    while (file->ReadLine(line)) lines.push_back(line);
    EXPECT_FALSE(file->ReadLine(line));
    return lines;
  }
};

TEST_F(ReadingTest, EndsLinesAtCarriageReturns) {
  EXPECT_THAT(Lines("uno\r\ndue\rtre\r\r\nquat\ntro\r\n"), ElementsAre("uno", "due", "tre", "", "quat\ntro"));
  EXPECT_THAT(Lines("senza fine"), ElementsAre("senza fine"));
  EXPECT_THAT(Lines("\r"), ElementsAre(""));
  EXPECT_THAT(Lines(""), IsEmpty());
  EXPECT_THAT(Lines("perch\xE9 \x80"), ElementsAre("perché €"));
}

TEST_F(ReadingTest, ReadsLinesAcrossItsBuffer) {
  for (const std::size_t length : {16382U, 16383U, 16384U, 50000U}) {
    const std::string longLine(length, 'x');
    EXPECT_THAT(Lines(longLine + "\r\nfine\r\n"), ElementsAre(longLine, "fine")) << length;
  }
}

TEST_F(ReadingTest, RefusesWhatIsNoPlainFile) {
  temp_.MakeFolder("root/cartella");
  ::mkfifo(temp_.Path("root/tubo").c_str(), 0600);
  std::filesystem::create_symlink("/dev/zero", temp_.Path("root/zero"));
  std::filesystem::create_symlink("anello", temp_.Path("root/anello"));
  const FileSystem files = Machine();
  for (const char* path : {"C:\\cartella", "C:\\tubo", "C:\\zero", "C:\\anello"}) {
    EXPECT_EQ(NumberOfErrorIn([&] { files.OpenForInput(path); }), ErrorNumber::PathFileAccess) << path;
    EXPECT_EQ(NumberOfErrorIn([&] { files.ReadBytes(path); }), ErrorNumber::PathFileAccess) << path;
  }
}

TEST_F(ReadingTest, ReadsBytesAsTheyStandAndRefusesHugeFiles) {
  const std::string bytes = std::string("\0\r\n\xFF", 4) + std::string(100000, 'x');
  temp_.Write("root/foto.bin", bytes);
  temp_.Write("root/enorme.bin", "");
  std::filesystem::resize_file(temp_.Path("root/enorme.bin"), 512ULL * 1024 * 1024 + 1);
  const FileSystem files = Machine();
  EXPECT_EQ(files.ReadBytes("C:\\foto.bin"), bytes);
  EXPECT_EQ(NumberOfErrorIn([&] { files.ReadBytes("C:\\enorme.bin"); }), ErrorNumber::OutOfMemory);
}

TEST_F(ReadingTest, RefusesTextFilesWhenFewDescriptorsAreLeft) {
  temp_.Write("root/t.txt", "testo\r\n");
  const FileSystem files = Machine();
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  // The least that must stay free is 256, or half of a limit that is not much above.
  for (const auto& [most, free] : {std::pair<rlim_t, rlim_t>{600, 256}, {200, 100}}) {
    const rlimit tight{most, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &tight), 0);
    std::vector<std::unique_ptr<InputFile>> kept;
    const ErrorNumber number = NumberOfErrorIn([&] {
      for (rlim_t i = 0; i < tight.rlim_cur; ++i) kept.push_back(files.OpenForInput("C:\\t.txt"));
    });
    const std::string bytes = files.ReadBytes("C:\\t.txt");
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);

    EXPECT_EQ(number, ErrorNumber::PathFileAccess);
    EXPECT_GT(kept.size(), 0U);
    EXPECT_LE(kept.size(), most - free);
    EXPECT_EQ(bytes, "testo\r\n");
  }
}

}  // namespace
}  // namespace Morvane
