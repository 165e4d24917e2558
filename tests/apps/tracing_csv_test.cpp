#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "apps/common/csv.h"
#include "apps/common/tracing_file.h"
#include "tool/analysis/landmarks.h"

namespace {

using app::InputError;
using app::TracingFile;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(Csv, SplitsQuotedFields) {
  EXPECT_THAT(app::split_csv("a,,\"b,\"\"c\"\"\",\r", 1), ElementsAre("a", "", "b,\"c\"", ""));
  EXPECT_THAT(app::split_csv("", 1), ElementsAre(""));
  EXPECT_THAT(app::split_csv("\"\"", 1), ElementsAre(""));
  for (const char *bad : {"\"a", "a\"b", "\"a\"b,c", "x,\"a\"\""})
    EXPECT_THROW(app::split_csv(bad, 1), InputError) << bad;
}

TEST(Csv, WritesFieldsThatReadBack) {
  for (const char *text : {"plain", "with, comma", "with \"quote\"", "", " blank", "two\nlines"}) {
    const std::string field = app::csv_field(text);
    if (std::string(text).find('\n') == std::string::npos)
      EXPECT_THAT(app::split_csv(field + ",x", 1), ElementsAre(text, "x"));
    else
      EXPECT_EQ(field, "\"two\nlines\"");
  }
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

struct Broken {
  const char *name, *text, *fault, *where, *right;
};
void PrintTo(const Broken &broken, std::ostream *out) {
  *out << broken.name;
}

class BrokenCsv : public testing::TestWithParam<Broken> {};

TEST_P(BrokenCsv, IsRefusedWithLineAndColumn) {
  const Broken &broken = GetParam();
  try {
    app::read_tracings(broken.text);
    FAIL() << "was read";
  } catch (const InputError &error) {
    EXPECT_THAT(error.fault(), HasSubstr(broken.fault));
    EXPECT_THAT(error.where(), HasSubstr(broken.where));
    EXPECT_THAT(error.right(), HasSubstr(broken.right));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, BrokenCsv,
    testing::Values(
        Broken{"OnlyAHeader", "scale,S_x,S_y\n", "holds no tracing", "", "header"},
        Broken{"Semicolons", "scale;S_x;S_y\n1;2;3\n", "single column", "line 1", "commas"},
        Broken{"UnknownColumn", "scale,S_x,S_y,sexe\n", "unknown column \"sexe\"", "line 1, column 4",
               "\"sex\"?"},
        Broken{"UnknownLandmark", "scale,Nn_x,Nn_y\n", "unknown landmark \"Nn\"", "line 1, column 2",
               "\"N\"?"},
        Broken{"NoPartner", "scale,S_x\n", "\"S_x\" has no partner", "line 1, column 2", "\"S_y\""},
        Broken{"ColumnTwice", "scale,S_x,S_y,S_x\n", "\"S_x\" is given twice", "line 1, column 4", ""},
        Broken{"PlainColumnTwice", "scale,scale,S_x,S_y\n", "\"scale\" is given twice", "line 1, column 2",
               ""},
        Broken{"MixedKinds", "scale,Xi_x,Xi_y,6R_x,6R_y\n", "belongs to lateral", "line 1, column 2", "kind"},
        Broken{"NoScale", "S_x,S_y\n1,2\n", "scale is not stated", "line 2", "--scale"},
        Broken{"ZeroScale", "scale,S_x,S_y\n0,1,2\n", "scale 0", "line 2, column 1 (scale)", ""},
        Broken{"InfiniteScale", "scale,S_x,S_y\ninf,1,2\n", "\"inf\" is not a number", "line 2, column 1",
               ""},
        Broken{"NotANumber", "scale,S_x,S_y\n1,2,3\n1,nan,3\n", "\"nan\" is not a number",
               "line 3, column 2 (S_x)", "pixels"},
        Broken{"TrailingText", "scale,S_x,S_y\n1,2,3px\n", "\"3px\"", "line 2, column 3 (S_y)", ""},
        Broken{"Beyond32Bits", "scale,S_x,S_y\n1,2,3e9\n", "beyond 32 bits", "line 2", ""},
        Broken{"Overflow", "scale,S_x,S_y\n1,2,1e999\n", "too large", "line 2, column 3", ""},
        Broken{"HalfAPoint", "scale,S_x,S_y\n1,2,\n", "one coordinate is missing", "line 2, column 3 (S_y)",
               "both"},
        Broken{"FieldMissing", "scale,S_x,S_y\n1,2\n", "has 2 fields", "line 2", "3 as in the header"},
        Broken{"FieldTooMany", "scale,S_x,S_y\n1,2,3,4\n", "has 4 fields", "line 2", ""},
        Broken{"OpenQuote", "scale,S_x,S_y\n1,\"2,3\n", "quote", "line 2", "closing quote"},
        Broken{"CastInCsv", "kind,scale,S_x,S_y\ncast,1,2,3\n", "cast", "line 2", "JSON"},
        Broken{"LandmarkOfAnotherKind", "kind,scale,S_x,S_y\nfrontal,1,2,3\n", "unknown landmark \"S\"",
               "line 2, column 3", ""},
        Broken{"Age", "age,scale,S_x,S_y\n200,1,2,3\n", "age 200", "line 2, column 1 (age)", "years"},
        Broken{"Date", "birth,scale,S_x,S_y\n1.4.2001,1,2,3\n", "unreadable date", "line 2, column 1 (birth)",
               ""}),
    [](const auto &row) { return std::string(row.param.name); });

class TracingOnDisk : public testing::Test {
 protected:
  std::string write(const std::string &text) {
    path_ = testing::TempDir() + "ceph_films.csv";
    std::ofstream(path_, std::ios::binary) << text;
    return path_;
  }
  ~TracingOnDisk() override { std::remove(path_.c_str()); }

 private:
  std::string path_;
};

TEST_F(TracingOnDisk, IsChosenByItsFilm) {
  const std::string path = write("film,scale,S_x,S_y\na,1,2,3\nb,1,4,5\n");
  EXPECT_EQ(app::read_tracing_file(path, "b").lateral()->pt[8].x, 4);
  EXPECT_THROW(app::read_tracing_file(path), InputError);
  try {
    app::read_tracing_file(path, "c");
    FAIL();
  } catch (const InputError &error) {
    EXPECT_THAT(error.what(), HasSubstr("no film \"c\"; one of a, b"));
  }
}

TEST_F(TracingOnDisk, MustBeAReadableFile) {
  EXPECT_THROW(app::read_tracing_file(testing::TempDir() + "no_such_film.json"), InputError);
  EXPECT_THROW(app::read_tracing_file(testing::TempDir()), InputError);
  EXPECT_THROW(app::read_tracing_file(write("")), InputError);
}

}  // namespace
