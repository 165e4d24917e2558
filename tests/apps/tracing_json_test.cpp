#include <gtest/gtest.h>

#include <string>

#include "apps/common/tracing_file.h"
#include "tests/apps/refused.h"
#include "tool/analysis/landmarks.h"

namespace {

using app::InputError;
using app::read_json_tracing;
using app::TracingFile;

POINT landmark(const TracingFile &file, const char *name) {
  const int k = *analysis::find_landmark(file.kind(), name);
  return file.tracing().landmarks()[static_cast<std::size_t>(k)];
}

void expect_point(const POINT &point, int x, int y) {
  EXPECT_EQ(point.x, x);
  EXPECT_EQ(point.y, y);
}

std::string lateral(const std::string &more) {
  return R"json({"kind": "lateral", "scale": 0.1, "landmarks": {"S": [833, 1009], "N": [1445, 825]})json" +
         more + "}";
}

TEST(JsonTracing, FillsTheRecordOfALateralFilm) {
  const TracingFile file = read_json_tracing(R"json({
    "kind": "lateral", "scale": 0.125, "magnification": 1.08, "id": "film 7",
    "patient": {"name": "田中", "sex": "female", "birth": "2001-04-12", "date": "2025-05-02", "dental_stage": "IIIB"},
    "landmarks": {"S": [833, 1009], "Vmi": [7, -8], "Pog(R)": [1, 2], "Xi": null
}
})json");
  EXPECT_EQ(file.kind(), analysis::RecordKind::lateral);
  EXPECT_EQ(file.id, "film 7");
  EXPECT_EQ(file.scale(), 0.125);
  EXPECT_EQ(file.magnification, 1.08);
  EXPECT_EQ(file.patient.name, "田中");
  EXPECT_EQ(file.patient.sex, 2);
  EXPECT_EQ(file.patient.dental_stage, "IIIB");
  expect_point(file.lateral()->pt[8], 833, 1009);  // S is landmark 0
  expect_point(file.lateral()->pt[58], 7, -8);     // Vmi is landmark 50
  expect_point(file.lateral()->pt[22], 1, 2);      // Pog(R) is landmark 14
  expect_point(landmark(file, "Xi"), 0, 0);
}

TEST(JsonTracing, RoundsFractionalCoordinatesToTheNearestPixel) {
  const TracingFile file = read_json_tracing(
      R"json({"kind": "frontal", "scale": 0.1, "landmarks": {"ANS": [10.5, 10.49], "Me": [-10.5, 2147483647.4]}})json");
  expect_point(landmark(file, "ANS"), 11, 10);
  expect_point(landmark(file, "Me"), -11, 2147483647);
}

TEST(JsonTracing, KeepsUserPointsParallelToTheirSlots) {
  const TracingFile file =
      read_json_tracing(lateral(R"json(, "user_points": {"Zz": [5, 6], "ﾏﾏ": [7, 8]})json"));
  ASSERT_EQ(file.user_count(), 2);
  EXPECT_STREQ(file.user_points[0].name, "Zz");
  EXPECT_STREQ(file.lateral()->userName[0], "Zz");
  expect_point(file.lateral()->userPoint[0], 5, 6);
  EXPECT_STREQ(file.lateral()->userName[1], "\xCF\xCF");  // half-width katakana, one byte each
  expect_point(file.lateral()->userPoint[1], 7, 8);
}

TEST(JsonTracing, WritesVirtualPointsAsTheTextsOfTheirTable) {
  const TracingFile file = read_json_tracing(lateral(R"json(, "virtual_points": [
    {"name": "Ft", "type": "foot", "refs": ["S", "N", "Pog(R)"]},
    {"name": "Ex", "type": "extension", "refs": ["Ft", "N"], "angle": -12.5, "distance": 5},
    {"name": "Cr", "type": "intersection", "refs": ["S", "N", "Ex", "Ft"]}])json"));
  ASSERT_EQ(file.virtual_count(), 3);
  const tagKPOINT &foot = file.virtual_points[0];
  EXPECT_STREQ(foot.name, "Ft");
  EXPECT_STREQ(foot.type, "0");
  EXPECT_STREQ(foot.ref3, "Pog(R");  // constructions compare five letters
  const tagKPOINT &extension = file.virtual_points[1];
  EXPECT_STREQ(extension.type, "4");
  EXPECT_STREQ(extension.ref1, "Ft");
  EXPECT_STREQ(extension.ref3, "-12.5");
  EXPECT_STREQ(extension.value, "5");
  EXPECT_STREQ(file.virtual_points[2].type, "2");
  EXPECT_STREQ(file.virtual_points[2].ref4, "Ft");
}

TEST(JsonTracing, PutsTheRightSideFirstInACast) {
  const TracingFile file = read_json_tracing(R"json({"kind": "cast", "scale": 0.1, "cast": {
    "mixed": true,
    "upper": [{"right": [[1, 2], [3, 4]], "left": [[5, 6], [7, 8]], "typed_right": 8.5, "typed_left": -1},
              {"right": [[1, 2], [3, 4]], "present_right": false}, null, {"typed_left": 7}, null, null],
    "lower": [null, null, null, null, null, {"left": [[9, 9], [10, 10]]}],
    "upper_arch": {"width_points": [[11, 12], [13, 14]], "length_points": [[15, 16], [17, 18]],
                   "typed_width": 36.5, "typed_length": 25.5, "basal_width": 45, "basal_length": 30},
    "lower_arch": {"basal_width": 41, "basal_length": 28}}})json");
  const tagPOINTMO &cast = *file.model();
  EXPECT_EQ(cast.mixed, 1);
  expect_point(cast.upper[0][0], 1, 2);
  expect_point(cast.upper[0][1], 3, 4);
  expect_point(cast.upper[0][2], 5, 6);
  expect_point(cast.upper[0][3], 7, 8);
  EXPECT_EQ(cast.ex.upperFirst[0], 8.5);
  EXPECT_EQ(cast.ex.upperSecond[0], -1.0);
  // present: 2i the second (left) side, 2i + 1 the first (right) side, lower jaw from 12
  const int present[24] = {1, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0};
  for (int i = 0; i < 24; ++i) EXPECT_EQ(cast.present[i], present[i]) << i;
  expect_point(cast.upper[6][0], 15, 16);  // slot 6: points 0 and 1 are the length
  expect_point(cast.upper[6][2], 11, 12);  // points 2 and 3 the width
  EXPECT_EQ(cast.ex.upperExtra[0][0], 25.5);
  EXPECT_EQ(cast.ex.upperExtra[1][0], 36.5);
  EXPECT_EQ(cast.ex.upperExtra[2][0], 30.0);
  EXPECT_EQ(cast.ex.upperExtra[3][0], 45.0);
  EXPECT_EQ(cast.ex.lowerExtra[2][0], 28.0);
  EXPECT_EQ(cast.ex.lowerExtra[3][0], 41.0);
}

TEST(JsonTracing, ReadsTheVertebraeOfTheBoneAge) {
  std::string points;
  for (int k = 11; k <= 21; ++k)
    points += (k > 11 ? ", " : "") + ("\"P" + std::to_string(k)) + "\": [" + std::to_string(k) + ", 5]";
  const TracingFile file = read_json_tracing(lateral(", \"vertebrae\": {" + points + "}"));
  ASSERT_TRUE(file.vertebrae);
  expect_point(file.vertebrae->pt[11], 11, 5);
  expect_point(file.vertebrae->pt[21], 21, 5);
}

std::string many_user_points(int count) {
  std::string list;
  for (int i = 0; i < count; ++i) list += (i > 0 ? "," : "") + ("\"u" + std::to_string(i)) + "\":[1,1]";
  return lateral(", \"user_points\": {" + list + "}");
}

std::string many_values() {
  std::string list = "1";
  for (int i = 0; i < 100000; ++i) list += ",1";
  return "{\"kind\": [" + list + "]}";
}

std::string landmarks(const std::string &members) {
  return R"({"kind": "lateral", "scale": 1, "landmarks": {)" + members + "}}";
}
std::string user_points(const std::string &members) {
  return lateral(R"(, "user_points": {)" + members + "}");
}
std::string virtual_point(const std::string &members) {
  return lateral(R"(, "virtual_points": [{"name": "M", "type": )" + members + "}]");
}
std::string patient(const std::string &members) {
  return lateral(R"(, "patient": {)" + members + "}");
}
std::string cast(const std::string &members) {
  return R"({"kind": "cast", "scale": 1, "cast": {)" + members + "}}";
}

TEST(JsonTracing, RefusesABrokenTextWithItsPlace) {
  const support::RefusedText rows[] = {
      {"", "is not JSON", "line 1, column 1", ""},
      {"{\"kind\": \"lateral\",\n \"scale\"", "is not JSON", "line 2, column", ""},
      {std::string("\x00\xFF\x7F", 3), "is not JSON", "line 1", ""},
      {"{\"kind\": \"\xC3\x28\"}", "is not JSON", "line 1", ""},
      {lateral(", \"magnification\": NaN"), "is not JSON", "line 1", ""},
      {lateral(", \"magnification\": 1e999"), "too large", "", ""},
      {"[1, 2]", "wrong type: a list", "at the top", "object"},
      {std::string(100000, '['), "nested too deep", "", "16"},
      {many_values(), "more values", "", ""},
      {std::string(app::max_tracing_bytes + 1, ' '), "too long", "", "16 MiB"},
  };
  support::expect_refused([](const std::string &text) { read_json_tracing(text); }, rows);
}

TEST(JsonTracing, RefusesWhatNoTracingHolds) {
  const std::string no_teeth = "null, null, null, null, null";
  const support::RefusedText rows[] = {
      {"{\"scale\": 1}", "\"kind\" is missing", "at the top", "lateral"},
      {"{\"kind\": \"latteral\"}", "unknown kind \"latteral\"", "at /kind", "\"lateral\"?"},
      {R"({"kind": "lateral", "kind": "frontal"})", "given twice", "at /kind", ""},
      {R"({"kind": "lateral", "landmarks": {}})", "\"scale\" is missing", "at the top", "per pixel"},
      {R"({"kind": "lateral", "scale": 0, "landmarks": {}})", "scale 0", "at /scale", "0.1"},
      {R"({"kind": "lateral", "scale": -1, "landmarks": {}})", "scale -1", "at /scale", ""},
      {R"({"kind": "lateral", "scale": "0.1", "landmarks": {}})", "a text", "at /scale", ""},
      {R"({"kind": "lateral", "scale": 1})", "\"landmarks\" is missing", "at the top", ""},
      {lateral(R"(, "landmark": {})"), "unknown member \"landmark\"", "at /landmark", "\"landmarks\"?"},
      {landmarks("\"Pog(r)\": [1, 2]"), "unknown landmark", "at /landmarks/Pog(r)", "\"Pog(R)\"?"},
      {R"({"kind": "frontal", "scale": 1, "landmarks": {"Xi": [1, 2]}})", "unknown", "/Xi", "one of U3R"},
      {landmarks(R"("S": [1, 2], "S": [3, 4])"), "\"S\" is given twice", "at /landmarks/S", "one of the two"},
      {landmarks(R"("S": [1, 2, 3])"), "3 coordinates", "at /landmarks/S", "[x, y]"},
      {landmarks(R"("S": ["1", 2])"), "a text", "at /landmarks/S/0", "pixels"},
      {landmarks(R"("S": [2147483648, 2])"), "beyond 32 bits", "at /landmarks/S", "2147483647"},
      {landmarks(R"("S": [1, -2147483648.5])"), "beyond 32 bits", "at /landmarks/S", ""},
      {many_user_points(101), "too many user points", "at /user_points/u100", "100"},
      {user_points(R"("abcdef": [1, 2])"), "has 6 bytes", "at /user_points/abcdef", "1 to 5 bytes"},
      {user_points(R"("点点点": [1, 2])"), "has 6 bytes", "at /user", "1 to 5 bytes"},
      {user_points(R"("é": [1, 2])"), "code page 932 lacks", "at /user", ""},
      {user_points(R"("": [1, 2])"), "has 0 bytes", "at /user_points/", ""},
      {user_points(R"("a]": [1, 2])"), "bracket", "at /user_points/a]", ""},
      {user_points(R"("Xi": [1, 2])"), "name of a landmark", "at /user_points/Xi", ""},
      {virtual_point(R"("midpoint", "refs": ["S", "Q9"])"), "\"Q9\"", "at /virtual_points/0/refs/1", ""},
      {virtual_point(R"("foot", "refs": ["S", "N"])"), "2 references", "/0/refs", "3 for \"foot\""},
      {virtual_point(R"("middle", "refs": [])"), "unknown construction", "/0/type", "one of foot, midpoint"},
      {virtual_point(R"("extension", "refs": ["S", "N"], "distance": 12.345678)"), "9 characters",
       "/0/distance", "at most 7"},
      {virtual_point(
           R"("midpoint", "refs": ["S", "N"]}, {"name": "M", "type": "midpoint", "refs": ["S", "N"])"),
       "name of another point", "at /virtual_points/1", ""},
      {patient(R"("sex": "woman")"), "unknown sex \"woman\"", "at /patient/sex", "female"},
      {patient(R"("birth": "2001-02-29")"), "unreadable date", "at /patient/birth", "2001-04-12"},
      {patient(R"("birth": "2001-04-12", "date": "2001-04-11")"), "older than", "at /patient", ""},
      {patient(R"("birth": "2001-04-12", "date": "2011-04-12", "age": 24)"), "age 24", "/patient",
       "10 years"},
      {patient(R"("dental_stage": "iiib")"), "unknown dental stage", "at /patient/dental_stage", "\"IIIB\"?"},
      {cast(R"("upper": [)" + no_teeth + R"(], "lower": [])"), "5 teeth", "at /cast/upper", "six teeth"},
      {cast(R"("upper": [null, )" + no_teeth + "]"), "\"lower\" is missing", "at /cast", "six teeth"},
      {cast(R"("upper": [{"rigth": null}, )" + no_teeth + "]"), "\"rigth\"", "at /cast/upper/0/rigth",
       "\"right\"?"},
      {lateral(R"(, "vertebrae": {"P11": [1, 2]})"), "\"P12\" is missing", "at /vertebrae", "P21"},
  };
  support::expect_refused([](const std::string &text) { read_json_tracing(text); }, rows);
}

TEST(JsonTracing, NeverPutsControlCharactersIntoAMessage) {
  try {
    read_json_tracing("{\"kind\": \"\\u001b[31m\\u009b\"}");
    FAIL();
  } catch (const InputError &error) {
    EXPECT_EQ(std::string(error.what()).find('\x1B'), std::string::npos);
    EXPECT_EQ(std::string(error.what()).find("\xC2\x9B"), std::string::npos);
  }
}

TEST(JsonTracing, TakesAScaleFromOutsideOnlyWhenItStatesNone) {
  const std::string without = R"json({"kind": "lateral", "landmarks": {}})json";
  EXPECT_EQ(read_json_tracing(without, {0.2}).scale(), 0.2);
  EXPECT_EQ(read_json_tracing(lateral(""), {0.2}).scale(), 0.1);
}

struct AgeRow {
  app::Date birth, film;
  double years;
};

TEST(YearsBetween, CountsFullYearsAndTheFractionOfTheRunningOne) {
  const AgeRow rows[] = {
      {{2001, 4, 12}, {2025, 4, 12}, 24.0},
      {{2001, 4, 12}, {2025, 4, 11}, 23.0 + 364.0 / 365.0},
      {{2001, 4, 12}, {2001, 4, 12}, 0.0},
      {{2001, 1, 1}, {2004, 7, 1}, 3.0 + 182.0 / 366.0},  // a leap year has 366 days
      {{2000, 2, 29}, {2001, 3, 1}, 1.0},                 // the birthday is 1 March in other years
      {{2000, 2, 29}, {2001, 2, 28}, 365.0 / 366.0},
      {{2000, 2, 29}, {2004, 2, 29}, 4.0},
  };
  for (const AgeRow &row : rows)
    EXPECT_NEAR(app::years_between(row.birth, row.film), row.years, 1e-12)
        << row.film.year << '-' << row.film.month << '-' << row.film.day;
  EXPECT_LT(app::years_between({2001, 4, 12}, {2001, 4, 11}), 0.0);
}

TEST(ParseDate, KnowsTwoFormsAndTheCalendar) {
  for (const char *good : {"2001-04-12", "20010412", "2000-02-29"})
    EXPECT_TRUE(app::parse_date(good)) << good;
  for (const char *bad : {"", "2001-4-12", "2001/04/12", "1900-02-29", "2001-13-01", "2001-00-10", "20010400",
                          "0000-01-01", "+0010101", "2001-04-1x", "2001-04-123"})
    EXPECT_FALSE(app::parse_date(bad)) << bad;
}

TEST(PatientInfo, PrefersDatesToTheStatedAge) {
  const TracingFile file = read_json_tracing(
      lateral(R"json(, "patient": {"birth": "2001-04-12", "date": "2025-04-12", "age": 24.9})json"));
  EXPECT_EQ(file.patient.age(), 24.0);
  EXPECT_EQ(read_json_tracing(lateral(R"json(, "patient": {"age": 24.9})json")).patient.age(), 24.9);
  EXPECT_EQ(read_json_tracing(lateral("")).patient.age(), std::nullopt);
}

}  // namespace
