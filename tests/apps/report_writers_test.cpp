#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "apps/common/names.h"
#include "apps/common/report_writers.h"
#include "apps/common/text_width.h"

namespace {

using app::Align;
using app::Audience;
using app::Color;
using app::Report;
using app::Row;
using app::Table;
using app::Tone;
using testing::HasSubstr;
using testing::Not;

TEST(DisplayWidth, CountsTerminalColumns) {
  const struct {
    const char *text;
    std::size_t width;
  } rows[] = {{"", 0},        {"SNA", 3}, {"上顎前突", 8}, {"ﾅｼﾞｵﾝ", 5}, {"ＡＢ", 4},    {"°±", 2},
              {"e\u0301", 1}, {"—", 1},   {"●│", 2},       {"a\xFF", 2}, {"\xE4\xB8", 2}};
  for (const auto &row : rows) EXPECT_EQ(app::display_width(row.text), row.width) << row.text;
  EXPECT_EQ(app::pad_right("角度", 6), "角度  ");
  EXPECT_EQ(app::pad_left("角度", 3), "角度");
}

/// Two measurements, the second without a value, under a Japanese heading.
Report sample() {
  Table table;
  table.key = "analyses";
  table.title = "A & B";
  table.columns = {{"item", "Measurement"},
                   {"value", "Value", Align::right},
                   {"flag", "Flag", Align::left, Audience::data},
                   {"bar", "Scale", Align::left, Audience::shown}};
  table.value_column = 1;
  table.rows = {{true, {{"骨格", {}}}, {}},
                {false,
                 {{"SNA, \"deep\"", {}}, {"81.5", 81.46}, {"3", 3.0}, {"+1.6", 1.6, Tone::beyond_one, true}},
                 {}},
                {false, {{"下顎<角>", {}}, {"9.9", 9.9}, {"", {}}, {"", {}}}, "point \"Xi\" is not placed"}};
  Report report;
  report.title = "Title <1>";
  report.facts = {{"age", "Age", "12 years", 12.0}};
  report.tables = {table};
  report.paragraphs = {{"diagnosis", "Diagnosis", {"Class I & more"}}};
  return report;
}

TEST(TextReport, AlignsJapaneseAndPutsTheReasonInPlaceOfTheNumber) {
  Report report = sample();
  const std::string text = app::write_text(report, Color::off);
  EXPECT_THAT(text, HasSubstr("    Measurement  Value  -3    0    +3\n"));
  EXPECT_THAT(text, HasSubstr("  骨格\n"));
  EXPECT_THAT(text, HasSubstr("    SNA, \"deep\"   81.5  ······│··●···\n"));
  EXPECT_THAT(text, HasSubstr("    下顎<角>     point \"Xi\" is not placed\n"));
  EXPECT_THAT(text, Not(HasSubstr("9.9")));
  EXPECT_THAT(text, Not(HasSubstr("\x1B")));
  EXPECT_THAT(app::write_text(report, Color::on), HasSubstr("\x1B[33m······│··●···\x1B[0m"));
  report.tables[0].rows[1].cells[0].text = "a\x1B[2Jb";  // not for the terminal to obey
  EXPECT_THAT(app::write_text(report, Color::off), HasSubstr("a?[2Jb"));
}

TEST(TextReport, EndsTheScaleWithAnArrow) {
  const struct {
    double units;
    bool mirrored;
    const char *bar;
  } rows[] = {{0.0, false, "······●······"}, {0.24, false, "······●······"}, {0.26, false, "······│●·····"},
              {3.0, false, "······│·····●"}, {3.3, false, "······│·····▶"},  {-9.0, false, "◀·····│······"},
              {9.0, true, "◀·····│······"},  {1.0, true, "····●·│······"}};
  for (const auto &row : rows) {
    Report report = sample();
    report.tables[0].rows[1].cells[3] = {"x", row.units, Tone::plain, true, row.mirrored};
    EXPECT_THAT(app::write_text(report, Color::off), HasSubstr(row.bar)) << row.units;
  }
}

TEST(CsvReport, QuotesFieldsAndKeepsReasonsAndTablesApart) {
  Report report = sample();
  EXPECT_EQ(app::write_csv(report),
            "item,value,flag,reason\r\n"
            "骨格,,,\r\n"
            "\"SNA, \"\"deep\"\"\",81.5,3,\r\n"
            "下顎<角>,,,\"point \"\"Xi\"\" is not placed\"\r\n");
  report.tables.push_back(report.tables[0]);
  report.tables[1].title = "Second";
  report.tables.push_back({"other", "Third", "", {{"only", "Only"}}, 1, {{false, {{"x", {}}}, {}}}});
  const std::string text = app::write_csv(report);
  EXPECT_THAT(text, testing::StartsWith("table,item,value,flag,reason\r\nA & B,骨格,"));
  EXPECT_THAT(text, HasSubstr("Second,\"SNA"));
  EXPECT_THAT(text, testing::EndsWith("\r\n\r\ntable,only,reason\r\nThird,x,\r\n"));
  report.tables.clear();
  EXPECT_EQ(app::write_csv(report), "sentence\r\nClass I & more\r\n");
}

TEST(JsonReport, WritesNumbersWhereThereAreNumbers) {
  Report report = sample();
  report.tables[0].rows[1].cells[2].number = std::numeric_limits<double>::infinity();
  const auto document = nlohmann::json::parse(app::write_json(report));
  EXPECT_EQ(document["title"], "Title <1>");
  EXPECT_EQ(document["age"], 12.0);
  EXPECT_EQ(document["diagnosis"][0], "Class I & more");
  const auto &rows = document["analyses"][0]["rows"];
  EXPECT_EQ(rows[0]["heading"], "骨格");
  EXPECT_EQ(rows[1]["value"], 81.46);
  EXPECT_TRUE(rows[1]["flag"].is_null());
  EXPECT_FALSE(rows[1].contains("bar"));
  EXPECT_FALSE(rows[1].contains("reason"));
  EXPECT_TRUE(rows[2]["value"].is_null());
  EXPECT_EQ(rows[2]["reason"], "point \"Xi\" is not placed");
}

TEST(HtmlReport, EscapesEveryTextAndNeedsNothingFromOutside) {
  EXPECT_EQ(app::escape_html("<a href=\"x\">&'\x01</a>"), "&lt;a href=&quot;x&quot;&gt;&amp;&#39;&lt;/a&gt;");
  const std::string page = app::write_html(sample());
  for (const char *part : {"<title>Title &lt;1&gt;</title>", "<h2>A &amp; B</h2>",
                           "<td>下顎&lt;角&gt;</td><td colspan=\"2\" class=\"reason\">point &quot;Xi&quot;",
                           "<p class=\"sentence\">Class I &amp; more</p>", "@media print"})
    EXPECT_THAT(page, HasSubstr(part));
  for (const char *part : {"9.9<", "<script", "<link", "http", "url(", "src="})
    EXPECT_THAT(page, Not(HasSubstr(part)));
}

TEST(ToneOfDeviation, ChangesBeyondWholeUnits) {
  const struct {
    double units;
    Tone tone;
  } rows[] = {{0, Tone::within},        {1, Tone::within},          {-1, Tone::within},
              {1.01, Tone::beyond_one}, {-2, Tone::beyond_one},     {2.01, Tone::beyond_two},
              {3, Tone::beyond_two},    {-3.01, Tone::beyond_three}};
  for (const auto &row : rows) EXPECT_EQ(app::tone_of_deviation(row.units), row.tone) << row.units;
}

TEST(NearestName, FindsWhatWasMeant) {
  const std::string_view names[] = {"S", "N", "Pog", "Pog(R)", "Pog(s)", "ANS", "PNS"};
  const struct {
    const char *typed, *meant;
  } rows[] = {{"pog", "Pog"},     {"Pog(S)", "Pog(s)"}, {"ASN", "ANS"}, {"Pg", "Pog"},
              {"Nasion", "none"}, {"", "none"},         {"Z", "none"}};
  for (const auto &row : rows) {
    const auto found = app::nearest_name(row.typed, names);
    EXPECT_EQ(found.value_or("none"), row.meant) << row.typed;
  }
}

TEST(InQuotes, CutsBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 20; ++i) text += "角";
  EXPECT_EQ(app::in_quotes(text), "\"角角角角角角角角角角角角角...\"");  // 13 x 3 bytes
}

}  // namespace
