#include "tool/calendar/era_table.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/temporary_folder.h"
#include "tool/api/CJapEra.h"
#include "tool/framework/text/cp932.h"

namespace {

constexpr int big = std::numeric_limits<int>::max();
constexpr int small = std::numeric_limits<int>::min();

std::string three_eras(const std::string &first_range = "1926.12.25-1989.01.07") {
  return framework::cp932_from_utf8("[MAIN]\r\nn=3\r\n[ERA_RANGE]\r\n-1=-1926.12.24\r\n0=" + first_range +
                                    "\r\n1=1989.01.08-2019.04.30\r\n2=2019.05.01-\r\n"
                                    "[ERA_NAME]\r\n0=昭和\r\n1=平成\r\n2=令和\r\n"
                                    "[ERA_CODE]\r\n0=S\r\n1=H\r\n2=R\r\n")
      .value();
}

/// A program in a folder with (or without) an era file.
class JapEra : public testing::Test {
 protected:
  JapEra() { platform_.module = platform_.folder.path("program"); }
  CJapEra with(const std::string &file) const {
    platform_.folder.write("Era.dat", file);
    return CJapEra();
  }
  support::TestPlatform platform_;
};

TEST_F(JapEra, findsTheEraOfADate) {
  struct Row {
    int year, month, day, era, era_year;
    const char *code;
  };
  const Row rows[] = {{1990, 5, 1, 1, 2, "H"},  {1989, 1, 7, 0, 64, "S"},     {1989, 1, 8, 1, 1, "H"},
                      {2019, 0, 0, 1, 31, "H"}, {2019, 5, 0, 2, 1, "R"},      {1926, 12, 24, -1, 0, ""},
                      {1920, 1, 1, -1, 0, ""},  {9999, 12, 31, 2, 7981, "R"}, {10000, 1, 1, -1, 0, ""},
                      {0, 1, 1, -1, 0, ""},     {small, 1, 1, -1, 0, ""}};
  const CJapEra eras = with(three_eras());
  EXPECT_TRUE(eras.IsDataFileFound());
  for (const Row &row : rows) {
    int year = -7;
    EXPECT_EQ(eras.GetEraYear(row.year, row.month, row.day, &year), row.era) << row.year;
    EXPECT_EQ(year, row.era_year) << row.year;
    EXPECT_EQ(eras.GetEraYearCode(row.year, row.month, row.day, &year), row.code) << row.year;
  }
  int year = 0;
  EXPECT_EQ(eras.GetEraYearName(1990, 5, 1, &year).view(), framework::cp932("平成").view());
  EXPECT_EQ(eras.GetEraYearName(1920, 5, 1, &year), "");
  EXPECT_EQ(platform_.messages.size(), 0u);
}

TEST_F(JapEra, goesBackToChristianYears) {
  const CJapEra eras = with(three_eras());
  EXPECT_EQ(eras.GetChristYear(1, 2), 1990);
  EXPECT_EQ(eras.GetChristYear(2, 600), 2500);
  EXPECT_EQ(eras.GetChristYear(0, 100), 2025);  // beyond the era
  EXPECT_EQ(eras.GetChristYear(-1, 5), 5);
  EXPECT_EQ(eras.GetChristYear(2, big), 2500);
  EXPECT_EQ(eras.GetChristYear(-1, small), small);
  EXPECT_EQ(eras.GetEraYear(2000, 99, 99, 2), 12);  // position 2 holds era 1
  EXPECT_EQ(eras.GetEraYear(2000, 1, 1, 0), 0);     // open start
  EXPECT_EQ(eras.GetEraYear(small, 1, 1, 1), small);
}

TEST_F(JapEra, checksEraDates) {
  struct Row {
    int era, year, month, day, inside;
  };
  const Row rows[] = {{1, 1, 1, 7, 0},       {1, 1, 1, 8, 1},       {1, 1, 0, 0, 0},     {1, 31, 4, 30, 1},
                      {1, 31, 5, 1, 0},      {0, 64, 1, 7, 1},      {2, 100, 12, 31, 1}, {2, 600, 1, 1, 1},
                      {-1, 1926, 12, 24, 1}, {-1, 1926, 12, 25, 0}, {0, small, 1, 1, 0}};
  const CJapEra eras = with(three_eras());
  for (const Row &row : rows)
    EXPECT_EQ(eras.CheckEra(row.era, row.year, row.month, row.day), row.inside) << row.era << ' ' << row.year;
}

TEST_F(JapEra, refusesIndicesOutsideTheTable) {
  const CJapEra eras = with(three_eras());
  for (const int era : {-2, 3, big, small}) {
    EXPECT_THROW(eras.GetChristYear(era, 1), CInvalidArgException) << era;
    EXPECT_THROW(eras.CheckEra(era, 1, 1, 1), CInvalidArgException) << era;
    EXPECT_THROW(eras.GetEraName(era), CInvalidArgException) << era;
    EXPECT_THROW(eras.GetEraCode(era), CInvalidArgException) << era;
  }
  EXPECT_THROW(eras.GetEraName(-1), CInvalidArgException);
  for (const int range : {-1, 4}) EXPECT_THROW(eras.GetEraYear(2000, 1, 1, range), CInvalidArgException);
}

TEST_F(JapEra, copiesItsSets) {
  const CJapEra eras = with(three_eras());
  CStringArray codes;
  codes.Add("old");
  eras.GetEraCodeSet(&codes);
  ASSERT_EQ(codes.GetSize(), 3);
  EXPECT_EQ(codes[0] + codes[1] + codes[2], "SHR");
  eras.GetEraNameSet(&codes);
  EXPECT_EQ(codes[2], eras.GetEraName(2));
}

TEST_F(JapEra, saysOnceThatItsFileIsMissing) {
  const CJapEra eras;
  ASSERT_EQ(platform_.messages.size(), 1u);
  EXPECT_EQ(platform_.messages[0].text, "ERA data file not found");
  EXPECT_EQ(platform_.messages[0].type, MB_OK);
  int year = -7;
  CStringArray names;
  names.Add("old");
  eras.GetEraNameSet(&names);
  eras.GetEraCodeSet(&names);
  EXPECT_FALSE(eras.IsDataFileFound());
  EXPECT_EQ(eras.GetEraYear(1990, 5, 1, &year), -1);
  EXPECT_EQ(eras.GetEraYearName(1990, 5, 1, &year), "");
  EXPECT_EQ(year, -7);
  EXPECT_EQ(eras.GetEraYear(1990, 5, 1, 99), -1);
  EXPECT_EQ(eras.GetChristYear(99, 1), 0);
  EXPECT_EQ(eras.CheckEra(99, 1, 1, 1), 0);
  EXPECT_EQ(eras.GetEraName(99) + eras.GetEraCode(99), "");
  EXPECT_EQ(names.GetSize(), 1);
}

TEST_F(JapEra, readsBrokenFiles) {
  struct Row {
    const char *name;
    std::string file;
    int names;  ///< in the table
    int era;    ///< of 1990-05-01
  };
  const Row rows[] = {
      {"empty", "", 0, -1},
      {"no count", "[ERA_RANGE]\r\n-1=-1926.12.24\r\n0=1926.12.25-\r\n", 0, -1},
      {"count with letters", "[MAIN]\nn=1x\n[ERA_RANGE]\n0=1926.12.25-\n", 1, 0},
      {"negative count", "[MAIN]\nn=-5\n[ERA_RANGE]\n-1=-2026.12.25\n", 0, -1},
      {"missing keys", "[MAIN]\nn=3\n[ERA_RANGE]\n2=1926.12.25-\n", 3, 2},
      {"enormous count", "[MAIN]\nn=99999999999\n[ERA_RANGE]\n9999=1926.12.25-\n", 10000, 9999},
      {"separator unexamined", three_eras("1926.12.25/1999.01.07"), 3, 0},
      {"no such shape", three_eras("1926.12.25-1999.01.7"), 3, 1},
      {"nonsense of a known length", three_eras("xxxxxxxxxx-yyyyyyyyyy"), 3, 1}};
  for (const Row &row : rows) {
    const CJapEra eras = with(row.file);
    int year = 0;
    CStringArray names;
    eras.GetEraNameSet(&names);
    EXPECT_EQ(names.GetSize(), row.names) << row.name;
    EXPECT_EQ(eras.GetEraYear(1990, 5, 1, &year), row.era) << row.name;
  }
  const CJapEra odd = with(three_eras("1926.12.25"));
  EXPECT_EQ(odd.GetChristYear(0, 7), 6);
  EXPECT_EQ(odd.GetEraYear(1990, 1, 1, 1), 0);
  EXPECT_EQ(odd.CheckEra(0, 5, 1, 1), 0);
  const CJapEra with_long_name = with("[MAIN]\nn=1\n[ERA_NAME]\n0=" + std::string(150, 'x') + "\n");
  EXPECT_EQ(with_long_name.GetEraName(0).GetLength(), 100);
}

}  // namespace
