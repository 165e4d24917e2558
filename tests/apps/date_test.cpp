// ceph date, run as a program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/apps/run_ceph.h"

namespace {

using nlohmann::json;
using support::Outcome;
using support::run_ceph;
using testing::HasSubstr;

const std::string eras = TOOL_SOURCE_DIR "/data/Era.dat";

Outcome date(std::vector<std::string> words) {
  words.insert(words.begin(), "date");
  words.insert(words.end(), {"--eras", eras, "--format", "json"});
  return run_ceph(words);
}

TEST(CephDate, goesFromChristianDatesToErasAndBack) {
  struct Row {
    const char *text;
    const char *date, *code;
    int era_year;
  };
  const Row rows[] = {{"1990-05-01", "1990-05-01", "H", 2},    {"h2.5.1", "1990-05-01", "H", 2},
                      {"19890107", "1989-01-07", "S", 64},     {"S64/1/7", "1989-01-07", "S", 64},
                      {"1989/1/8", "1989-01-08", "H", 1},      {"平成元年1月8日", "1989-01-08", "H", 1},
                      {"令和2年1月5日", "2020-01-05", "R", 2}, {"2019", "2019", "H", 31},
                      {"201905", "2019-05", "R", 1},           {"T1 7 30", "1912-07-30", "T", 1}};
  for (const Row &row : rows) {
    const Outcome outcome = date({row.text});
    ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
    const json report = json::parse(outcome.out);
    EXPECT_EQ(report["date"], row.date) << row.text;
    EXPECT_EQ(report["era_code"], row.code) << row.text;
    EXPECT_EQ(report["era_year"], row.era_year) << row.text;
    EXPECT_EQ(report["displays"][0]["rows"].size(), 5u);
  }
}

TEST(CephDate, tellsAgesInEveryMode) {
  const json report = json::parse(date({"H12.3.15", "--at", "2010-03-14"}).out);
  EXPECT_EQ(report["age_years"], 9);
  EXPECT_EQ(report["age_months"], 11);
  EXPECT_EQ(report["months_in_all"], 119);
  std::vector<std::string> texts;
  for (const json &row : report["displays"][0]["rows"]) texts.push_back(row["text"]);
  EXPECT_THAT(texts, testing::ElementsAre("2000/ 3/15", "2000年 3月15日", "平成 12年3月15日", " 3/15/2000",
                                          "March 15, 2000", "9y11m", "9.9y", "9歳11ヶ月", "9.9歳", "9歳",
                                          "9歳11か月"));
}

TEST(CephDate, refusesWhatIsNoDate) {
  for (const char *text : {"H1.1.7", "S64.1.8", "2021-02-29", "2020-13-01", "H2", "H2.5.0", "X2.5.1", "abc",
                           "", "1-2-3-4", "20-x", "0000", "999999999", "R99999999.1.1"})
    EXPECT_EQ(date({text}).exit_code, 2) << text;
  EXPECT_THAT(date({"H1.1.7"}).err, HasSubstr("1989.01.08-2019.04.30"));
  EXPECT_EQ(run_ceph({"date", "today", "--eras", "/nowhere/Era.dat"}).exit_code, 4);
}

}  // namespace
