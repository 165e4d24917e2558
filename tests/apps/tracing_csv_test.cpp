#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "apps/common/csv.h"
#include "apps/common/tracing_file.h"
#include "tests/apps/refused.h"
#include "tests/support/temporary_folder.h"
#include "tool/analysis/landmarks.h"

namespace {

using app::InputError;
using app::TracingFile;
using testing::ElementsAre;

TEST(Csv, SplitsQuotedFields) {
  EXPECT_THAT(app::split_csv("a,,\"b,\"\"c\"\"\",\r", 1), ElementsAre("a", "", "b,\"c\"", ""));
  EXPECT_THAT(app::split_csv("", 1), ElementsAre(""));
  EXPECT_THAT(app::split_csv("\"\"", 1), ElementsAre(""));
  for (const char *bad : {"\"a", "a\"b", "\"a\"b,c", "x,\"a\"\""})
    EXPECT_THROW(app::split_csv(bad, 1), InputError) << bad;
}

TEST(Csv, WritesFieldsThatReadBack) {
  for (const char *text : {"plain", "with, comma", "with \"quote\"", "", " blank"})
    EXPECT_THAT(app::split_csv(app::csv_field(text) + ",x", 1), ElementsAre(text, "x"));
  EXPECT_EQ(app::csv_field("two\nlines"), "\"two\nlines\"");
  EXPECT_EQ(app::csv_field("a\"b"), "\"a\"\"b\"");
  EXPECT_EQ(app::csv_field("plain"), "plain");
}

TEST(CsvTracings, ReadsOneFilmARow) {
  const auto films = app::read_tracings(
      "\xEF\xBB\xBF"
      "film,scale,sex,age,magnification,S_x,S_y,Pog(s)_x,Pog(s)_y,user:Zz_x,user:Zz_y\r\n"
      "007,0.1,female,12.5,1.08,833,1009,1379.5,2201.4,5,6\r\n"
      "\r\n"
      "\"0,8\",0.2,M,,,,,1,2,,\n");
  ASSERT_EQ(films.size(), 2U);
  EXPECT_EQ(films[0].id, "007");
  EXPECT_EQ(films[0].scale(), 0.1);
  EXPECT_EQ(films[0].patient.sex, 2);
  EXPECT_EQ(films[0].patient.age(), 12.5);
  EXPECT_EQ(films[0].magnification, 1.08);
  EXPECT_EQ(films[0].lateral()->pt[8].x, 833);
  EXPECT_EQ(films[0].lateral()->pt[8 + analysis::lateral::Pogs].x, 1380);
  EXPECT_EQ(films[0].lateral()->pt[8 + analysis::lateral::Pogs].y, 2201);
  EXPECT_STREQ(films[0].user_points.at(0).name, "Zz");
  EXPECT_EQ(films[0].lateral()->userPoint[0].y, 6);
  EXPECT_EQ(films[1].id, "0,8");
  EXPECT_EQ(films[1].patient.sex, 1);
  EXPECT_EQ(films[1].patient.age(), std::nullopt);
  EXPECT_EQ(films[1].lateral()->pt[8].x, 0);
}

TEST(CsvTracings, TellsTheKindFromTheLandmarksOrAColumn) {
  EXPECT_EQ(app::read_tracings("scale,Me_x,Me_y\n1,2,3\n")[0].kind(), analysis::RecordKind::lateral);
  EXPECT_EQ(app::read_tracings("scale,Me_x,Me_y,6R_x,6R_y\n1,2,3,4,5\n")[0].kind(),
            analysis::RecordKind::frontal);
  const auto films = app::read_tracings(
      "kind,scale,Me_x,Me_y,S_x,S_y,CG_x,CG_y\nfrontal,1,2,3,,,4,5\nlateral,1,2,3,6,7,,\n");
  ASSERT_EQ(films.size(), 2U);
  EXPECT_EQ(films[0].frontal()->pt[8 + analysis::frontal::CG].y, 5);
  EXPECT_EQ(films[1].lateral()->pt[8 + analysis::lateral::S].y, 7);
}

TEST(CsvTracings, RefuseABrokenTextWithLineAndColumn) {
  const support::RefusedText rows[] = {
      {"scale,S_x,S_y\n", "holds no tracing", "", "header"},
      {"scale;S_x;S_y\n1;2;3\n", "single column", "line 1", "commas"},
      {"scale,S_x,S_y,sexe\n", "unknown column \"sexe\"", "line 1, column 4", "\"sex\"?"},
      {"scale,Nn_x,Nn_y\n", "unknown landmark \"Nn\"", "line 1, column 2", "\"N\"?"},
      {"scale,S_x\n", "\"S_x\" has no partner", "line 1, column 2", "\"S_y\""},
      {"scale,S_x,S_y,S_x\n", "\"S_x\" is given twice", "line 1, column 4", ""},
      {"scale,scale,S_x,S_y\n", "\"scale\" is given twice", "line 1, column 2", ""},
      {"scale,Xi_x,Xi_y,6R_x,6R_y\n", "belongs to lateral", "line 1, column 2", "kind"},
      {"S_x,S_y\n1,2\n", "scale is not stated", "line 2", "--scale"},
      {"scale,S_x,S_y\n0,1,2\n", "scale 0", "line 2, column 1 (scale)", ""},
      {"scale,S_x,S_y\ninf,1,2\n", "\"inf\" is not a number", "line 2, column 1", ""},
      {"scale,S_x,S_y\n1,2,3\n1,nan,3\n", "\"nan\" is not a number", "line 3, column 2 (S_x)", "pixels"},
      {"scale,S_x,S_y\n1,2,3px\n", "\"3px\"", "line 2, column 3 (S_y)", ""},
      {"scale,S_x,S_y\n1,2,3e9\n", "beyond 32 bits", "line 2", ""},
      {"scale,S_x,S_y\n1,2,1e999\n", "too large", "line 2, column 3", ""},
      {"scale,S_x,S_y\n1,2,\n", "one coordinate is missing", "line 2, column 3 (S_y)", "both"},
      {"scale,S_x,S_y\n1,2\n", "has 2 fields", "line 2", "3 as in the header"},
      {"scale,S_x,S_y\n1,2,3,4\n", "has 4 fields", "line 2", ""},
      {"scale,S_x,S_y\n1,\"2,3\n", "quote", "line 2", "closing quote"},
      {"kind,scale,S_x,S_y\ncast,1,2,3\n", "cast", "line 2", "JSON"},
      {"kind,scale,S_x,S_y\nfrontal,1,2,3\n", "unknown landmark \"S\"", "line 2, column 3", ""},
      {"age,scale,S_x,S_y\n200,1,2,3\n", "age 200", "line 2, column 1 (age)", "years"},
      {"birth,scale,S_x,S_y\n1.4.2001,1,2,3\n", "unreadable date", "line 2, column 1 (birth)", ""}};
  support::expect_refused([](const std::string &text) { app::read_tracings(text); }, rows);
}

TEST(TracingOnDisk, IsChosenByItsFilm) {
  const support::TemporaryFolder folder;
  const std::string path = folder.write("films.csv", "film,scale,S_x,S_y\na,1,2,3\nb,1,4,5\n");
  EXPECT_EQ(app::read_tracing_file(path, "b").lateral()->pt[8].x, 4);
  EXPECT_THROW(app::read_tracing_file(path), InputError);
  try {
    app::read_tracing_file(path, "c");
    FAIL();
  } catch (const InputError &error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("no film \"c\"; one of a, b"));
  }
  for (const std::string &unreadable :
       {folder.path("absent.json"), folder.path(), folder.write("empty.csv", "")})
    EXPECT_THROW(app::read_tracing_file(unreadable), InputError) << unreadable;
}

}  // namespace
