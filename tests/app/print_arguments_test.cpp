#include "app/print_arguments.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace Morvane {
namespace {

// The words of a command line, one blank between any two; two for an empty one.
PrintArguments Parse(const std::string& line) {
  std::vector<std::string> arguments;
  std::istringstream words(line);
  for (std::string word; std::getline(words, word, ' ');) arguments.push_back(word);
  return ParsePrintArguments(arguments);
}

TEST(PrintArgumentsTest, TakesALayoutWithItsPictures) {
  const PrintArguments parsed =
      Parse("a.mvne --picture 2=b=c.jpg --picture 100=d.jpg --outline 3 --copies 2 --pdf out.pdf");
  EXPECT_EQ(parsed.layout, "a.mvne");
  EXPECT_EQ(parsed.pictures.at(2), "b=c.jpg");
  EXPECT_EQ(parsed.pictures.at(100), "d.jpg");
  EXPECT_EQ(parsed.outline, 3);
  EXPECT_EQ(parsed.copies, 2);
  EXPECT_FALSE(parsed.contents);
}

TEST(PrintArgumentsTest, TakesTheContentsOfAFolder) {
  const PrintArguments parsed =
      Parse("--contents dir --title  --columns 7 --size 8.5 --italic --full-path --printer q");
  ASSERT_TRUE(parsed.contents);
  EXPECT_EQ(parsed.contents->title, "");
  EXPECT_EQ(parsed.contents->columns, 7);
  EXPECT_EQ(parsed.contents->size, 8.5);
  EXPECT_TRUE(parsed.contents->italic && parsed.contents->fullPath);
}

TEST(PrintArgumentsTest, RefusesWrongUsage) {
  for (const char* line :
       {"", "--pdf a --printer b", "--pdf", "--pdf  x.mvne", "--pdf a --copies 0", "--pdf a --copies 2x",
        "--pdf a --outline 2", "--pdf a --picture b.jpg", "--pdf a --picture 0=b.jpg",
        "--pdf a --picture 101=b.jpg", "--pdf a --picture 1=", "--pdf a x.mvne y.mvne", "--pdf a --title t",
        "--pdf a x.mvne --contents d", "--pdf a --contents d --columns 8", "--pdf a --contents d --size nan",
        "--pdf a --unknown"}) {
    EXPECT_THROW(Parse(line), UsageError) << line;
  }
  EXPECT_TRUE(Parse("--pdf a --help --unknown").help);
}

TEST(PrintArgumentsTest, NumbersTheCopiesBeforeTheExtension) {
  EXPECT_EQ(PdfNameOfCopy("d.1/out.pdf", 1, 1), "d.1/out.pdf");
  EXPECT_EQ(PdfNameOfCopy("d.1/out.pdf", 2, 3), "d.1/out-2.pdf");
  EXPECT_EQ(PdfNameOfCopy("d.1/out", 2, 3), "d.1/out-2");
  EXPECT_EQ(PdfNameOfCopy(".out", 1, 2), ".out-1");
}

}  // namespace
}  // namespace Morvane
