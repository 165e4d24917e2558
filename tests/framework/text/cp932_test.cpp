#include "tool/framework/text/cp932.h"

#include <gtest/gtest.h>

namespace {

using framework::cp932;
using framework::cp932_from_utf8;
using framework::utf8_from_cp932;

TEST(Cp932, everyCharacterOfTheLiteralTableAgreesWithIconv) {
  std::string all;
  for (const framework::Cp932Entry &entry : framework::cp932_table) {
    std::string bytes;
    if (entry.cp932 > 0xFF) bytes += static_cast<char>(entry.cp932 >> 8);
    bytes += static_cast<char>(entry.cp932 & 0xFF);
    const auto utf8 = utf8_from_cp932(bytes);
    ASSERT_TRUE(utf8) << std::hex << entry.cp932;
    const char *text = utf8->c_str();
    EXPECT_EQ(framework::detail::take_utf8(text), entry.unicode);
    all += bytes;
  }
  EXPECT_EQ(cp932_from_utf8(utf8_from_cp932(all).value()), all);
}

TEST(Cp932, literalsAreConvertedWhileCompiling) {
  constexpr auto two_bytes = cp932("表ソ年");  // second bytes 0x5C
  EXPECT_EQ(two_bytes.view(), "\x95\x5C\x83\x5C\x94\x4E");
  constexpr auto mixed = cp932("A角ｱ°");
  EXPECT_EQ(mixed.view(), "A\x8A\x70\xB1\x81\x8B");
  EXPECT_EQ(std::string(mixed).size(), 6u);
}

TEST(Cp932, stepsOverTwoByteCharacters) {
  struct Row {
    const char *name;
    std::string text;
    std::vector<std::size_t> starts;
  };
  for (const Row &row :
       {Row{"ascii", "ab", {0, 1}}, Row{"second byte 0x5C", "\x95\x5C\\", {0, 2}},
        Row{"half-width katakana", "\xB1\xDF\x41", {0, 1, 2}}, Row{"lead byte at the end", "a\x81", {0, 1}},
        Row{"lead ranges", "\x81\x40\x9F\x40\xE0\x40\xFC\x40\xFD", {0, 2, 4, 6, 8}},
        Row{"0x80 and 0xA0 stand alone", "\x80\xA0", {0, 1}}}) {
    std::vector<std::size_t> by_position;
    for (std::size_t i = 0; i < row.text.size(); i = framework::next_character(row.text, i))
      by_position.push_back(i);
    EXPECT_EQ(by_position, row.starts) << row.name;
    std::vector<std::size_t> by_pointer;
    for (const char *p = row.text.c_str(); *p; p = framework::next_character(p))
      by_pointer.push_back(static_cast<std::size_t>(p - row.text.c_str()));
    EXPECT_EQ(by_pointer, row.starts) << row.name;
  }
}

TEST(Cp932, tellsWhereAConversionFails) {
  struct Row {
    const char *text;
    bool from_utf8;
    std::size_t offset;
  };
  // an unpaired lead byte, one at the end, a character that the code page lacks, no UTF-8
  for (const Row &row : {Row{"ab\x81\x01", false, 2}, Row{"\x95\x5C\x81", false, 2},
                         Row{"a\xF0\x9F\x98\x80", true, 1}, Row{"\xFF", true, 0}}) {
    std::size_t offset = 99;
    EXPECT_FALSE(row.from_utf8 ? cp932_from_utf8(row.text, &offset) : utf8_from_cp932(row.text, &offset));
    EXPECT_EQ(offset, row.offset);
  }
}

TEST(Cp932, displayReplacesWhatHasNoCharacter) {
  EXPECT_EQ(framework::utf8_for_display("a\x81\x01\x95\x5C"), "a\xEF\xBF\xBD\x01\xE8\xA1\xA8");
  EXPECT_EQ(framework::cp932_for_display("\xE8\xA1\xA8\xF0\x9F\x98\x80z"), "\x95\x5C?z");
}

}  // namespace
