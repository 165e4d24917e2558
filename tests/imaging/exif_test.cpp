// Heads of photographs: every field, every message, every limit; then heads as they should not be.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include "tests/support/photograph.h"
#include "tool/tool.h"

namespace {

using namespace std::string_literals;
using support::ExifWriter;
using support::jpeg_frame;
using support::jpeg_head;
using support::jpeg_section;
using support::photograph;

struct CloseFile {
  void operator()(std::FILE *file) const { EXPECT_EQ(std::fclose(file), 0); }
};

bool decode(CExif &exif, std::string bytes) {
  if (bytes.empty()) bytes.push_back('\0');  // a memory stream wants a byte
  const std::unique_ptr<std::FILE, CloseFile> stream(fmemopen(bytes.data(), bytes.size(), "rb"));
  return exif.DecodeExif(stream.get());
}

/// Reads a block in an otherwise sound picture.
struct Read {
  CExif exif;
  bool good;
  explicit Read(const std::string &block) : good(decode(exif, photograph(block))) {}
  const tag_ExifInfo &info() const { return *exif.m_pInfo; }
  std::string error() const { return exif.m_szLastError; }
};

constexpr ExifWriter orders[] = {{false}, {true}};

TEST(Exif, ReadsEveryFieldInBothByteOrders) {
  for (const ExifWriter &order : orders) {
    const Read read(support::camera_block(order));
    const tag_ExifInfo &info = read.info();
    EXPECT_TRUE(read.good && info.IsExif) << read.error();
    EXPECT_EQ(read.error(), "");
    EXPECT_EQ(read.exif.m_bMotorolaOrder, order.big ? 1 : 0);
    EXPECT_EQ(read.exif.m_nExifImageWidth, 3000);
    EXPECT_EQ(read.exif.m_nSectionsRead, 4);
    const std::pair<const char *, const char *> texts[] = {{info.Version, "0220"},
                                                           {info.CameraMake, "Optik KK"},
                                                           {info.CameraModel, "Dental 100"},
                                                           {info.DateTime, "2024:05:06 07:08:09"},
                                                           {info.Comments, "upper arch"}};
    for (const auto &[text, expected] : texts) EXPECT_STREQ(text, expected);
    const std::pair<int, int> integers[] = {
        {info.Height, 2000},       {info.Width, 3000},         {info.Orientation, 6},
        {info.IsColor, 1},         {info.Process, 0xC0},       {info.FlashUsed, 1},
        {info.LightSource, 4},     {info.MeteringMode, 5},     {info.ExposureProgram, 3},
        {info.ISOequivalent, 400}, {info.CompressionLevel, 4}, {info.ThumbnailSize, 19}};
    for (const auto &[number, expected] : integers) EXPECT_EQ(number, expected);
    const std::pair<float, float> reals[] = {
        {info.FocalLength, 105.0F},     {info.ExposureTime, 0.008F},    {info.ApertureFNumber, 2.8F},
        {info.Distance, 0.35F},         {info.CCDWidth, 1 / 2.54F},     {info.ExposureBias, -1.0F / 3.0F},
        {info.FocalplaneXRes, 3000.0F}, {info.FocalplaneYRes, 2000.0F}, {info.FocalplaneUnits, 1 / 2.54F},
        {info.Xresolution, 72.0F},      {info.Yresolution, 72.0F},      {info.ResolutionUnit, 1.0F},
        {info.Brightness, -2.5F}};
    for (const auto &[number, expected] : reals) EXPECT_FLOAT_EQ(number, expected);
    ASSERT_NE(info.ThumbnailPointer, nullptr);
    EXPECT_EQ(std::memcmp(info.ThumbnailPointer, support::camera_thumbnail.data(), 19), 0);
  }
}

/// One entry in the picture's directory, and what the record then holds.
TEST(Exif, TagsWithRulesOfTheirOwn) {
  const ExifWriter w{true};
  const struct {
    const char *name;
    std::vector<support::ExifEntry> entries;
    double (*field)(const tag_ExifInfo &);
    double expected;
  } rows[] = {
      {"ISO below 50", {w.word(0x8827, 49)}, [](auto &i) { return double(i.ISOequivalent); }, 9800},
      {"ISO from 50", {w.word(0x8827, 50)}, [](auto &i) { return double(i.ISOequivalent); }, 50},
      {"flash that did not fire", {w.word(0x9209, 0x18)}, [](auto &i) { return double(i.FlashUsed); }, 0},
      {"shutter speed",
       {w.fraction(0x9201, 3, 1, 10)},
       [](auto &i) { return double(i.ExposureTime); },
       0.125},
      {"exposure time goes before it",
       {w.fraction(0x829A, 1, 4), w.fraction(0x9201, 3, 1, 10)},
       [](auto &i) { return double(i.ExposureTime); },
       0.25},
      {"aperture", {w.fraction(0x9202, 6, 1)}, [](auto &i) { return double(i.ApertureFNumber); }, 8},
      {"the first of two apertures",
       {w.fraction(0x9205, 4, 1), w.fraction(0x9202, 6, 1)},
       [](auto &i) { return double(i.ApertureFNumber); },
       4},
      {"zero denominator", {w.fraction(0x920A, 7, 0)}, [](auto &i) { return double(i.FocalLength); }, 0},
      {"unknown unit",
       {w.word(0x0128, 2), w.word(0x0128, 6)},
       [](auto &i) { return double(i.ResolutionUnit); },
       1},
      {"no component", {{0x920A, 5, 0, w.u32(9)}}, [](auto &i) { return double(i.FocalLength); }, 0},
      {"beyond 32 bits",
       {{0x9207, 12, 1, w.integer(std::bit_cast<std::uint64_t>(1e300), 8)}},
       [](auto &i) { return double(i.MeteringMode); },
       2147483647},
      {"thumbnail beyond the block",
       {w.dword(0x0201, 20), w.dword(0x0202, 0xFFFFFFF0)},
       [](auto &i) { return double(i.ThumbnailSize) + (i.ThumbnailPointer ? 1 : 0); },
       0},
  };
  for (const auto &row : rows) {
    const Read read(w.block(w.directory(row.entries, 8)));
    EXPECT_TRUE(read.info().IsExif) << row.name;
    EXPECT_FLOAT_EQ(static_cast<float>(row.field(read.info())), static_cast<float>(row.expected)) << row.name;
  }
}

TEST(Exif, UnitsAreThePublishedFloats) {
  const std::uint32_t bits[] = {0x3F800000, 0x3F800000, 0x3EC99326, 0x3D214285, 0x3825214D};
  for (unsigned code = 1; code <= 5; ++code) {
    const ExifWriter w{false};
    const Read read(w.block(w.directory({w.word(0xA210, code), w.word(0x0128, code)}, 8)));
    EXPECT_EQ(std::bit_cast<std::uint32_t>(read.info().FocalplaneUnits), bits[code - 1]);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(read.info().ResolutionUnit), bits[code - 1]);
  }
}

TEST(Exif, TextsAreCutToTheirFields) {
  const ExifWriter w{false};
  const std::string all(300, 'x');
  const Read read(w.block(w.directory(
      {w.text(0x010F, all), w.text(0x0110, all), w.bytes(0x9000, "02201"), w.bytes(0x9003, all)}, 8)));
  EXPECT_EQ(std::strlen(read.info().CameraMake), 31U);
  EXPECT_EQ(std::strlen(read.info().CameraModel), 39U);
  EXPECT_STREQ(read.info().Version, "0220");
  EXPECT_EQ(std::strlen(read.info().DateTime), 19U);
}

TEST(Exif, UserComments) {
  const std::pair<std::string, std::string> rows[] = {{"ASCII\0\0\0plaster "s, "plaster"},
                                                      {"ASCII   first"s, "first"},
                                                      {"ASCIItext"s, "text"},
                                                      {"ASCII\0\0\0  later"s, ""},
                                                      {"no code   "s, "no code"},
                                                      {"ASCII"s, ""},
                                                      {"ASCII\0\0\0cut\0off"s, "cut"},
                                                      {std::string(300, 'c'), std::string(199, 'c')}};
  const ExifWriter w{false};
  for (const auto &[value, expected] : rows)
    EXPECT_EQ(Read(w.block(w.directory({w.bytes(0x9286, value)}, 8))).info().Comments, expected) << value;
}

TEST(Exif, FaultyBlocksOnlyLoseTheirData) {
  const ExifWriter w{true};
  const auto entry = [&](const support::ExifEntry &one) { return w.block(w.directory({one}, 8)); };
  const auto chain = [&](std::size_t length) {  // empty directories, each linking to the next
    std::string all;
    for (std::size_t i = 1; i <= length; ++i)
      all += w.directory({}, 0, i < length ? static_cast<std::uint32_t>(8 + 6 * i) : 0);
    return w.block(all);
  };
  std::string late = w.block(w.directory({}, 8));
  late[13] = 17;
  const struct {
    const char *name;
    std::string block, message;
    bool exif;
  } rows[] = {
      {"header", "Exif\0x"s + late.substr(6), "Incorrect Exif header", false},
      {"order", "Exif\0\0IM"s + late.substr(8), "Invalid Exif alignment marker.", false},
      {"42 in the other order", "Exif\0\0II"s + late.substr(8), "Invalid Exif start (1)", false},
      {"first offset", late, "Suspicious offset of first IFD value", false},
      {"no directory", w.block(""), "", true},  // the two bytes that the length counts twice read as 0
      {"too many entries", w.block(w.u16(3) + std::string(30, '\0')), "Illegally sized directory", false},
      {"format 0", entry({0x010F, 0, 1, ""}), "Illegal format code in EXIF dir", false},
      {"format 13", entry({0x010F, 13, 1, ""}), "Illegal format code in EXIF dir", false},
      {"offset", entry({0x010F, 2, 5, w.u32(60)}), "Illegal pointer offset value in EXIF.", false},
      {"offset and count beyond 32 bits", entry({0x010F, 2, 0x20, w.u32(0xFFFFFFF0)}),
       "Illegal pointer offset value in EXIF.", false},
      {"count times size beyond 32 bits", entry({0x920A, 5, 0x20000001, w.u32(8)}),
       "Illegal pointer offset value in EXIF.", false},
      {"sub-directory outside", entry(w.dword(0x8769, 900)), "Illegal subdirectory link", false},
      {"sub-directory in itself", entry(w.dword(0xA005, 8)), "Illegal subdirectory link", false},
      {"failing sub-directory", entry(w.dword(0x8769, 0)), "Illegally sized directory", false},
      {"next outside", w.block(w.directory({}, 8, 0x80000000)), "Illegal subdirectory link", false},
      {"next is itself", w.block(w.directory({}, 8, 8)), "Illegal subdirectory link", false},
      {"next but one is the first", w.block(w.directory({}, 8, 14) + w.directory({}, 14, 8)),
       "Illegal subdirectory link", false},
      {"many directories", chain(100), "", true},
      {"too many directories", chain(101), "Illegal subdirectory link", false},
      {"rotation", entry(w.word(0x0112, 9)), "Undefined rotation value", true},
  };
  for (const auto &row : rows) {
    const Read read(row.block);
    EXPECT_TRUE(read.good) << row.name;
    EXPECT_EQ(read.error(), row.message) << row.name;
    EXPECT_EQ(read.info().IsExif, row.exif) << row.name;
    EXPECT_EQ(read.info().Width, 3000) << row.name;
    EXPECT_EQ(read.info().Orientation, 0) << row.name;
  }
}

/// Directories that each name the next one many times would multiply without a limit.
TEST(Exif, SharedDirectoriesEnd) {
  const ExifWriter w{false};
  std::string all;
  constexpr std::size_t size = 2 + 12 * 20 + 4;
  for (std::size_t i = 1; i <= 40; ++i)
    all += w.directory(std::vector(20, w.dword(0x8769, static_cast<std::uint32_t>(8 + size * i))), 0);
  EXPECT_EQ(Read(w.block(all + w.directory({}, 0))).error(), "Illegal subdirectory link");
}

TEST(Exif, Sections) {
  std::string twenty, nineteen;
  for (int i = 0; i < 20; ++i) twenty += jpeg_section(0xDB, "q");
  for (int i = 0; i < 18; ++i) nineteen += jpeg_section(0xDB, "q");
  nineteen += jpeg_section(0xFE, "first") + jpeg_section(0xFE, "second") + jpeg_section(0xE0, "JFIF") +
              jpeg_section(0xE1, "http://ns");
  const std::string tables = jpeg_section(0xC4, "h") + jpeg_section(0xC8, "j") + jpeg_section(0xCC, "a");
  const struct {
    const char *name;
    std::string file;
    bool good;
    std::string message;
    int kept;
  } rows[] = {
      {"no JPEG", "BM", false, "", 0},
      {"half a start", "\xFF", false, "", 0},
      {"nothing else", "\xFF\xD8", false, "Premature end of file?", 0},
      {"no sections but the scan", jpeg_head(""), true, "", 1},
      {"six fill bytes", jpeg_head(std::string(5, '\xFF') + jpeg_frame(1, 1)), true, "", 2},
      {"seven fill bytes", jpeg_head(std::string(6, '\xFF') + jpeg_frame(1, 1)), false,
       "too many padding unsigned chars!", 0},
      {"length below 2", jpeg_head("\xFF\xC0\0\1"s), false, "invalid marker", 0},
      {"short section", "\xFF\xD8\xFF\xC0\0\x11"s, false, "Premature end of file?", 0},
      {"end of image", jpeg_head(jpeg_section(0xD9, "")), false, "No image in jpeg!", 1},
      {"scan as the twentieth", jpeg_head(nineteen), true, "", 20},
      {"twenty", jpeg_head(twenty), false, "Too many sections in jpg file", 20},
      {"tables are no frames", jpeg_head(tables), true, "", 4},
  };
  for (const auto &row : rows) {
    CExif exif;
    EXPECT_EQ(decode(exif, row.file), row.good) << row.name;
    EXPECT_EQ(exif.m_szLastError, row.message) << row.name;
    EXPECT_EQ(exif.m_nSectionsRead, row.kept) << row.name;
    EXPECT_EQ(exif.m_pInfo->Process, row.name == "six fill bytes"s ? 0xC0 : 0) << row.name;
  }
}

TEST(Exif, FramesAndComments) {
  CExif exif;
  EXPECT_TRUE(decode(
      exif, jpeg_head(jpeg_frame(640, 480, false, 0xCF) + jpeg_section(0xFE, "a\r\nb\rc\x01\t\xE9"s))));
  const tag_ExifInfo &info = *exif.m_pInfo;
  EXPECT_EQ(std::vector({info.Width, info.Height, info.IsColor, info.Process}),
            std::vector({640, 480, 0, 0xCF}));
  EXPECT_STREQ(info.Comments, "a\nb?c?\t\xE9");
  EXPECT_FALSE(info.IsExif);
  for (const std::size_t length : {0U, 1U, 998U, 999U, 5000U}) {
    CExif one;
    EXPECT_TRUE(decode(one, jpeg_head(jpeg_section(0xFE, std::string(length, 'x')))));
    EXPECT_EQ(std::strlen(one.m_pInfo->Comments), std::min<std::size_t>(length, 998));
  }
}

TEST(Exif, FullReaderRefusesAnotherFile) {
  CExif exif;
  std::string sections;
  for (int i = 0; i < 19; ++i) sections += jpeg_section(0xDB, "q");
  EXPECT_TRUE(decode(exif, jpeg_head(sections)));
  EXPECT_FALSE(decode(exif, jpeg_head("")));
  EXPECT_STREQ(exif.m_szLastError, "Too many sections in jpg file");
}

TEST(Exif, CopiesOutliveEachOther) {
  CExif copy;
  {
    CExif first;
    EXPECT_TRUE(decode(first, photograph(support::camera_block({true}))));
    copy = first;
    EXPECT_EQ(copy.m_pInfo, first.m_pInfo);
    EXPECT_EQ(copy.m_Sections[0].Data, first.m_Sections[0].Data);
  }
  EXPECT_STREQ(copy.m_pInfo->CameraMake, "Optik KK");
  EXPECT_EQ(copy.m_pInfo->ThumbnailPointer[0], 0xFF);
  tag_ExifInfo own{};
  EXPECT_TRUE(decode(copy = CExif(&own), jpeg_head(jpeg_frame(7, 8))));
  EXPECT_EQ(own.Width, 7);
}

struct Helpers : CExif {
  using CExif::ConvertAnyFormat;
  using CExif::Get16m, CExif::Get16u, CExif::Get32s, CExif::Get32u, CExif::ProcessExifDir;
};

TEST(Exif, FormatsAsNumbers) {
  for (const ExifWriter &w : orders) {
    const std::pair<std::string, double> rows[] = {{w.integer(0xFE, 1), 254},
                                                   {w.integer(0xFE, 1), 0},
                                                   {w.u16(0xFFFE), 65534},
                                                   {w.u32(0xFFFFFFFE), 4294967294.0},
                                                   {w.u32(1) + w.u32(0xFFFFFFFE), -0.5},
                                                   {w.integer(0xFE, 1), -2},
                                                   {w.integer(0xFE, 1), 0},
                                                   {w.u16(0xFFFE), -2},
                                                   {w.u32(0xFFFFFFFE), -2},
                                                   {w.u32(0xFFFFFFFD) + w.u32(2), -1.5},
                                                   {w.u32(0xBFC00000), -1.5},
                                                   {w.integer(0x3FF8000000000000, 8), 1.5}};
    Helpers exif;
    exif.m_bMotorolaOrder = w.big ? 1 : 0;
    for (int format = 1; format <= 12; ++format)
      EXPECT_EQ(exif.ConvertAnyFormat(rows[format - 1].first.data(), format), rows[format - 1].second)
          << format;
    EXPECT_EQ(exif.ConvertAnyFormat("", 13), 0);
    EXPECT_EQ(exif.Get32s(w.u32(0xFFFFFFFE).data()), -2);
    EXPECT_EQ(exif.Get32u(w.u32(0xFFFFFFFE).data()), 0xFFFFFFFE);
    EXPECT_EQ(exif.Get16u(w.u16(0x1234).data()), 0x1234);
    EXPECT_EQ(exif.Get16m("\x12\x34"), 0x1234);
  }
}

TEST(Exif, DirectoriesTellTheFurthestByte) {
  const ExifWriter w{true};
  std::string tiff(8, '\0');
  tiff += w.directory({w.fraction(0x920A, 50, 1), w.word(0x0112, 3)}, 8) + "unused";
  Helpers exif;
  exif.m_bMotorolaOrder = 1;
  auto *base = reinterpret_cast<unsigned char *>(tiff.data());
  unsigned char *furthest = nullptr;
  EXPECT_TRUE(exif.ProcessExifDir(base + 8, base, static_cast<unsigned>(tiff.size()), &furthest));
  EXPECT_EQ(furthest - base, 8 + 2 + 24 + 4 + 8);
  EXPECT_EQ(exif.m_pInfo->FocalLength, 50);
}

/// What must hold whatever the bytes: texts end, the thumbnail lies inside a kept section.
void expect_sound(const CExif &exif) {
  const tag_ExifInfo &info = *exif.m_pInfo;
  EXPECT_NE(std::memchr(info.Comments, 0, sizeof info.Comments), nullptr);
  EXPECT_NE(std::memchr(info.CameraMake, 0, sizeof info.CameraMake), nullptr);
  EXPECT_LE(exif.m_nSectionsRead, 20);
  if (!info.ThumbnailPointer) return;
  bool inside = false;
  for (int i = 0; i < exif.m_nSectionsRead; ++i) {
    const CExif::Section &one = exif.m_Sections[i];
    inside = inside || (info.ThumbnailPointer > one.Data &&
                        info.ThumbnailPointer + info.ThumbnailSize <= one.Data + one.Size + 2);
  }
  EXPECT_TRUE(inside);
}

TEST(Exif, TruncatedHeadsAreRefused) {
  for (const ExifWriter &order : orders) {
    const std::string whole = photograph(support::camera_block(order));
    for (std::size_t length = 0; length < whole.size() - 2; ++length) {  // the last two are compressed data
      CExif exif;
      EXPECT_FALSE(decode(exif, whole.substr(0, length))) << length;
      expect_sound(exif);
    }
  }
}

TEST(Exif, TruncatedBlocksLoseTheirData) {
  for (const ExifWriter &order : orders) {
    const std::string whole = support::camera_block(order);
    for (std::size_t length = 4; length < whole.size(); ++length) {
      const Read read(whole.substr(0, length));
      EXPECT_TRUE(read.good) << length;
      const std::size_t from_end = whole.size() - length;
      // Where a directory would begin, the zero bytes behind the section may count no entries.
      if (length == 14 || length == 15 || from_end == 19 + 30 || from_end == 19 + 29) continue;
      const bool directories = from_end <= 19 + 4 + 2;  // without the thumbnail and the last link
      EXPECT_EQ(read.info().IsExif, directories) << length << ' ' << read.error();
      EXPECT_EQ(read.info().ThumbnailPointer != nullptr, length + 2 >= whole.size()) << length;
      expect_sound(read.exif);
    }
  }
}

TEST(Exif, CorruptedHeadsStayInBounds) {
  std::mt19937 random(20261123);
  for (const ExifWriter &order : orders) {
    const std::string whole = photograph(support::camera_block(order));
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const int value : {0, 1, 0x7F, 0x80, 0xFF, static_cast<int>(random() % 256)}) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(value);
        bytes[random() % whole.size()] = static_cast<char>(random());
        CExif exif;
        static_cast<void>(decode(exif, bytes));
        expect_sound(exif);
      }
    }
  }
}

}  // namespace
