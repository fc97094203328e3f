#include <gmock/gmock.h>

#include <QFile>
#include <QXmlStreamReader>
#include <sstream>

#include "platform/qt/pictures/old_formats.h"
#include "platform/qt/pictures/qt_picture.h"
#include "platform/qt/pictures/qt_picture_loader.h"
#include "platform/runtime_error.h"
#include "tests/support/held_text.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

constexpr QSize kCells(30, 16);
constexpr std::chrono::seconds kMostTime(3);

std::string ContentOf(const std::string& name) {
  QFile file(MORVANE_SOURCE_DIR "/" + QString::fromStdString(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
  return file.readAll().toStdString();
}

// The bytes that a case gives, which `whole` holds if they are none of the ones before.
std::string BytesOf(const std::string& given, std::string& whole) {
  std::string bytes;
  bool isWhole = true;
  std::istringstream lines(given);
  for (std::string line, word, which; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find(';')));
    while (words >> word) {
      isWhole = isWhole && word != "keep" && word != "from";
      if (word == "file" && words >> which) {
        bytes += ContentOf(which);
      } else if (word == "keep" && words >> which) {
        bytes = whole.substr(0, std::stoul(which));
      } else if (word == "from" && words >> which) {
        bytes += whole.substr(std::stoul(which));
      } else if (word == "rest") {
        bytes += whole.substr(bytes.size());
      } else {
        const QStringList parts = QString::fromStdString(word).split('x');
        bytes += QByteArray::fromHex(parts[0].toLatin1()).repeated(parts.value(1, "1").toInt()).toStdString();
      }
    }
  }
  if (isWhole) whole = bytes;
  return bytes;
}

char NameOf(QRgb colour) {
  constexpr int kNear = 12;
  constexpr std::pair<char, QRgb> kNames[] = {{'R', 0xFFFF0000}, {'B', 0xFF0000FF}, {'b', 0xFFC83C28},
                                              {'#', 0xFF112233}, {'%', 0xFF332211}, {'x', 0xFF808080},
                                              {'W', 0xFFFFFFFF}, {'K', 0xFF000000}, {' ', 0}};
  for (const auto& [name, value] : kNames) {
    const int off =
        std::max({std::abs(qRed(colour) - qRed(value)), std::abs(qGreen(colour) - qGreen(value)),
                  std::abs(qBlue(colour) - qBlue(value)), std::abs(qAlpha(colour) - qAlpha(value))});
    if (off <= kNear) return name;
  }
  return '?';
}

// The colour in the middle of each cell.
std::string RowsOf(const QImage& image) {
  std::vector<std::pair<std::string, int>> rows;  // with how often they stand there
  for (int y = 0; y < kCells.height(); ++y) {
    std::string row;
    for (int x = 0; x < kCells.width(); ++x) {
      row += NameOf(image.pixel((2 * x + 1) * image.width() / kCells.width() / 2,
                                (2 * y + 1) * image.height() / kCells.height() / 2));
    }
    if (rows.empty() || rows.back().first != row) rows.emplace_back(row, 0);
    ++rows.back().second;
  }
  if (rows.size() == 1) return " |" + rows[0].first + "|";
  std::string told;
  for (const auto& [row, times] : rows)
    told += "\n|" + row + "|" + (times > 1 ? " " + std::to_string(times) + " times" : "");
  return told;
}

// The size in twips and what is seen: of a file's pixels at sizes that the overview holds, that it doesn't,
// and beyond.
std::string Drawn(const Picture& picture, std::string& last) {
  const bool isFile = dynamic_cast<const FilePicture*>(&picture) != nullptr;
  std::ostringstream told;
  told << std::lround(picture.WidthTwips()) << " x " << std::lround(picture.HeightTwips());
  std::string seen = " as before";
  for (const int dots : isFile ? std::vector{10, 40, 60} : std::vector{10}) {
    const std::string rows = RowsOf(dynamic_cast<const QtPicture&>(picture).Decode(kCells * dots));
    told << (std::exchange(last, rows) == rows ? seen : rows);
    seen.clear();
  }
  return told.str();
}

// Texts are drawn in the fonts that are installed; here they are as the drawing holds them.
std::string TextsOf(const QByteArray& svg) {
  std::string texts;
  for (QXmlStreamReader xml(svg); !xml.atEnd(); xml.readNext()) {
    if (xml.name() != u"text" || !xml.isStartElement()) continue;
    QStringList told;
    for (const QXmlStreamAttribute& attribute : xml.attributes()) told << attribute.value().toString();
    texts += "\n\"" + xml.readElementText().trimmed().toStdString() + "\" " + told.join(' ').toStdString();
  }
  return texts;
}

class PicturesTest : public testing::Test {
 protected:
  PicturePtr Load(const std::string& bytes) {
    machine_.WriteFile("C:\\foto", bytes);
    const auto start = std::chrono::steady_clock::now();
    const PicturePtr picture = loader_.LoadPicture("C:\\foto");
    EXPECT_LT(std::chrono::steady_clock::now() - start, kMostTime);
    return picture;
  }

  TestMachine machine_;
  QtPictureLoader loader_{*machine_.Files, MORVANE_DECODER};
};

TEST_F(PicturesTest, AreReadByTheirContentAsTheCasesTell) {
  std::string whole, lastRows, lastTexts;
  ExpectCases("tests/platform/pictures/pictures.txt", [&](const std::string& given) -> std::string {
    const std::string bytes = BytesOf(given, whole);
    try {
      const std::string drawn = Drawn(*Load(bytes), lastRows);
      const auto format = FormatOf(QByteArray::fromStdString(bytes));
      if (!format) return drawn;
      const auto decoded = DecodeOldFormat(MORVANE_DECODER, *format, QByteArray::fromStdString(bytes));
      const std::string texts = TextsOf(*decoded);
      return drawn + (std::exchange(lastTexts, texts) == texts ? "" : texts);
    } catch (const RuntimeError& error) {
      return error.what();
    }
  });
}

TEST_F(PicturesTest, OfOldFormatsNeedTheirDecoderWhoseAbsenceIsTold) {
  const QtPictureLoader loader(*machine_.Files, "/nowhere/morvane-decode");
  machine_.WriteFile("C:\\a.wmf", "\xD7\xCD\xC6\x9A");
  EXPECT_THAT([&] { loader.LoadPicture("C:\\a.wmf"); },
              testing::ThrowsMessage<RuntimeError>(
                  "L'immagine 'C:\\a.wmf' non può essere letta: manca il programma 'morvane-decode'."));
}

TEST_F(PicturesTest, FileInUseIsReadAgainOnceItsSizeOrTimeChanged) {
  const PicturePtr first = Load(ContentOf("fuzz/corpus/images/cmyk.jpg"));
  EXPECT_EQ(loader_.LoadPicture("C:\\foto"), first);
  const PicturePtr second = Load(ContentOf("fuzz/corpus/images/p3.jpg"));
  EXPECT_EQ(second->WidthTwips(), 2 * first->WidthTwips());
  const std::filesystem::path file = machine_.Files->ToNative("C:\\foto");
  std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) + std::chrono::seconds(1));
  EXPECT_NE(loader_.LoadPicture("C:\\foto"), second);
}

}  // namespace
}  // namespace Morvane
