#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>

// Small made-up files of the old formats, put together byte by byte.
namespace Morvane::Samples {

inline std::string Little(uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

inline std::string Big(uint64_t value, int bytes) {
  std::string text = Little(value, bytes);
  std::reverse(text.begin(), text.end());
  return text;
}

inline std::string Longs(std::initializer_list<int32_t> values) {
  std::string text;
  for (int32_t value : values) text += Little(static_cast<uint32_t>(value), 4);
  return text;
}

inline std::string Words(std::initializer_list<int32_t> values) {
  std::string text;
  for (int32_t value : values) text += Little(static_cast<uint32_t>(value), 2);
  return text;
}

inline std::string EmfRecord(uint32_t type, const std::string& body) {
  return Little(type, 4) + Little(body.size() + 8, 4) + body;
}

// 100 x 50 mm on a device of 10 pixels to the millimetre; a rectangle filled with #112233.
inline std::string Emf(const std::string& moreRecords = {}) {
  const std::string records = EmfRecord(39, Longs({1, 0, 0x332211, 0})) +   // brush
                              EmfRecord(37, Longs({1})) +                   // select it
                              EmfRecord(43, Longs({100, 100, 900, 400})) +  // rectangle
                              moreRecords + EmfRecord(14, Longs({0, 16, 20}));
  const std::string head =
      Longs({100, 100, 900, 400}) + Longs({0, 0, 10000, 5000}) + " EMF" + Longs({0x10000});
  const uint64_t size = 88 + records.size();
  return EmfRecord(1, head + Little(size, 4) + Longs({5}) + Words({2, 0}) +
                          Longs({0, 0, 0, 2000, 2000, 200, 200})) +
         records;
}

inline std::string WmfRecord(uint16_t function, const std::string& body) {
  return Little(3 + body.size() / 2, 4) + Little(function, 2) + body;
}

// A bitmap of 2 x 4 pixels drawn 50 x 100 units large at 10, 20.
inline std::string WmfBitmap() {
  const std::string bitmap =
      Longs({40, 2, 4}) + Words({1, 24}) + Longs({0, 32, 0, 0, 0, 0}) + std::string(32, 'x');
  return WmfRecord(0x0F43, Longs({0xCC0020}) + Words({0, 4, 2, 0, 0, 100, 50, 20, 10}) + bitmap);
}

// A blue ground, and in #332211 on it, each in a square of 20 units: ellipse, polygon, polyline, line,
// polypolygon; pie, chord.
inline std::string WmfShapes() {
  return WmfRecord(0x02FA, Words({0, 8, 0, 0x2233, 0x11})) + WmfRecord(0x02FC, Words({0, 0, 0xFF, 0})) +
         WmfRecord(0x02FC, Words({0, 0x2233, 0x11, 0})) + WmfRecord(0x012D, Words({2})) +
         WmfRecord(0x012D, Words({3})) + WmfRecord(0x041B, Words({210, 110, -10, -10})) +
         WmfRecord(0x012D, Words({4})) + WmfRecord(0x0418, Words({20, 20, 0, 0})) +
         WmfRecord(0x0324, Words({3, 20, 0, 40, 0, 30, 20})) + WmfRecord(0x0325, Words({2, 40, 10, 60, 10})) +
         WmfRecord(0x0214, Words({10, 60})) + WmfRecord(0x0213, Words({10, 80})) +
         WmfRecord(0x0538, Words({1, 3, 80, 0, 100, 0, 90, 20})) +
         WmfRecord(0x081A, Words({31, 20, 30, 20, 40, 20, 20, 0})) +
         WmfRecord(0x0830, Words({40, 25, 40, 35, 40, 40, 20, 20}));
}

// Turned, slanted, with both lines, right-aligned; its text has a character that XML cannot hold.
inline std::string WmfTurnedText() {
  return WmfRecord(0x02FB, Words({-20, 0, 900, 0, 400, 0x0101, 1, 0, 0}) + std::string("Arial\0", 6)) +
         WmfRecord(0x012D, Words({2})) + WmfRecord(0x012E, Words({2})) +
         WmfRecord(0x0521, Words({2}) + "b\37" + Words({50, 50}));
}

// 1 x 2 inches of 100 units; a rectangle of colour #112233 from 10, 10 to 80, 150, half-transparent by
// mistake in naive readers, then the text, centred at 50, 50.
inline std::string Wmf(const std::string& text = "ab", const std::string& moreRecords = {}) {
  const std::string records =
      WmfRecord(0x020B, Words({0, 0})) + WmfRecord(0x020C, Words({200, 100})) +
      WmfRecord(0x0102, Words({1})) + WmfRecord(0x02FC, Words({0, 0x2211, 0x33, 0})) +
      WmfRecord(0x012D, Words({0})) + WmfRecord(0x041B, Words({150, 80, 10, 10})) +
      WmfRecord(0x02FB, Words({-20, 0, 0, 0, 700, 0, 0, 0, 0}) + std::string("Arial\0", 6)) +
      WmfRecord(0x012D, Words({1})) + WmfRecord(0x012E, Words({6})) +
      WmfRecord(0x0521,
                Little(text.size(), 2) + text + std::string(text.size() % 2, '\0') + Words({50, 50})) +
      moreRecords + WmfRecord(0, {});
  const std::string header =
      Words({1, 9, 0x300}) + Little(9 + records.size() / 2, 4) + Words({5}) + Longs({100}) + Words({0});
  const std::string placeable = Little(0x9AC6CDD7, 4) + Words({0, 0, 0, 100, 200, 100}) + Longs({0});
  uint16_t checksum = 0;
  for (size_t i = 0; i < placeable.size(); i += 2) {
    checksum = static_cast<uint16_t>(checksum ^ (static_cast<unsigned char>(placeable[i]) |
                                                 static_cast<unsigned char>(placeable[i + 1]) << 8));
  }
  return placeable + Little(checksum, 2) + header + records;
}

inline std::string IffChunk(const std::string& name, const std::string& body) {
  return name + Big(body.size(), 4) + body + std::string(body.size() % 2, '\0');
}

// One plane: a bit that is set is blue, any other red. Rows of whole words.
inline std::string Ilbm(uint16_t width, uint16_t height, const std::string& rows) {
  const std::string header = Big(width, 2) + Big(height, 2) + Big(0, 4) + std::string("\1\2\0\0", 4) +
                             Big(0, 2) + std::string("\1\1", 2) + Big(width, 2) + Big(height, 2);
  return IffChunk("FORM", "ILBM" + IffChunk("BMHD", header) +
                              IffChunk("CMAP", std::string("\xFF\0\0\0\0\xFF", 6)) + IffChunk("BODY", rows));
}

}  // namespace Morvane::Samples
