#include "tool/analysis/points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/tracings.h"
#include "tool/tool.h"

namespace {

template <std::size_t Width>
void set(char (&field)[Width], const char *text) {
  std::strncpy(field, text, Width);
}

tagKPOINT virtual_point(const char *name, const char *type, const char *r1, const char *r2,
                        const char *r3 = "", const char *r4 = "", const char *value = "") {
  tagKPOINT point{};
  set(point.name, name);
  set(point.type, type);
  set(point.ref1, r1);
  set(point.ref2, r2);
  set(point.ref3, r3);
  set(point.ref4, r4);
  set(point.value, value);
  return point;
}

/// A lateral tracing of simple numbers, with two user points.
struct Scene {
  tagPOINTLAT record = support::lateral_record(0.5, {{"S", {100, 100}},
                                                     {"N", {300, 100}},
                                                     {"A", {300, 200}},
                                                     {"B", {100, 100}},
                                                     {"Pog(R)", {280, 400}},
                                                     {"Pog(s)", {310, 400}}});
  tagUPOINT users[3] = {};
  unsigned short user_count = 3;

  Scene() {
    const struct {
      const char *name;
      POINT position;
    } points[] = {{"Co", {120, 300}}, {"", {1, 1}}, {"S", {7, 8}}};
    for (std::size_t i = 0; i < 3; ++i) {
      set(record.userName[i], points[i].name);
      set(users[i].name, points[i].name);
      record.userPoint[i] = points[i].position;
    }
  }

  CPointD position(const char *name, std::vector<tagKPOINT> points = {}, int mode = 0) {
    auto count = static_cast<unsigned short>(points.size());
    return CCephCalc::PointPos(mode, name, &record, &count, points.data(), &user_count, users);
  }
};

}  // namespace

TEST(Points, ResolveLandmarksThenUserPoints) {
  Scene scene;
  EXPECT_EQ(scene.position("Pog(R)"), CPointD(280, 400));
  EXPECT_EQ(scene.position("Pog(s)"), CPointD(310, 400));
  EXPECT_EQ(scene.position("Co"), CPointD(120, 300));
  EXPECT_EQ(scene.position("S"), CPointD(100, 100)) << "the landmark wins over a user point of its name";
  for (const char *name : {"", "s", "Pog(R", "nobody"})
    EXPECT_TRUE(scene.position(name).IsPointNull()) << name;
  EXPECT_TRUE(CCephCalc::PointPos(0, "S", nullptr, nullptr, nullptr, nullptr, nullptr).IsPointNull());
}

TEST(Points, ConstructVirtualPoints) {
  const struct {
    tagKPOINT point;
    CPointD expected;
  } rows[] = {
      {virtual_point("V", "0", "N", "A", "Co"), {300, 300}},
      {virtual_point("V", "1", "N", "A"), {300, 150}},
      {virtual_point("V", "2", "N", "A", "Co", "Pog(R"), {300, 412.5}},
      // both arms 100 pixels along: midpoint (250, 150); the longer arm is 200 pixels
      {virtual_point("V", "3", "B", "N", "A"), {300 - 200 / std::sqrt(2.0), 100 + 200 / std::sqrt(2.0)}},
      {virtual_point("V", "3", "N", "N", "N"), {300, 200}},
      // 10 mm at 0.5 mm per pixel, turned clockwise on the screen
      {virtual_point("V", "4", "Co", "N", "0", "", "0"), {300, 100}},
      {virtual_point("V", "4", "A", "N", "90", "", "10"), {320, 100}},
      // inside a construction the user point overrides the landmark of its name
      {virtual_point("V", "1", "S", "S"), {7, 8}},
  };
  for (const auto &row : rows) {
    Scene scene;
    const CPointD p = scene.position("V", {row.point});
    EXPECT_NEAR(p.x, row.expected.x, 1e-6) << row.point.type << row.point.ref1;
    EXPECT_NEAR(p.y, row.expected.y, 1e-6) << row.point.type << row.point.ref1;
  }
}

TEST(Points, ConstructFromOtherVirtualPointsButNotInCircles) {
  Scene scene;
  const tagKPOINT middle = virtual_point("M", "1", "N", "A");
  EXPECT_EQ(scene.position("V", {virtual_point("V", "1", "M", "A"), middle}), CPointD(300, 175));
  const tagKPOINT a = virtual_point("Va", "1", "Vb", "N");
  const tagKPOINT b = virtual_point("Vb", "1", "Va", "N");
  EXPECT_TRUE(scene.position("Va", {a, b}).IsPointNull());
  EXPECT_TRUE(scene.position("V", {virtual_point("V", "1", "nobod", "A")}).IsPointNull());
  EXPECT_TRUE(scene.position("V", {virtual_point("V", "2", "N", "A", "N", "A")}).IsPointNull())
      << "no crossing";
}

TEST(Points, EndTangledVirtualPointsInTime) {
  Scene scene;
  std::vector<tagKPOINT> all;
  for (int i = 0; i < 60; ++i) {
    const std::string name = "V" + std::to_string(i);
    const std::string next = "V" + std::to_string((i + 1) % 60);
    const std::string after = "V" + std::to_string((i + 2) % 60);
    all.push_back(virtual_point(name.c_str(), "1", next.c_str(), after.c_str()));
  }
  EXPECT_TRUE(scene.position("V0", all).IsPointNull());
}

TEST(Points, KnowNoLandmarksInsideConstructionsOfTheOtherModes) {
  Scene scene;
  const tagKPOINT middle = virtual_point("V", "1", "N", "A");
  for (const int mode : {10, 20}) {
    EXPECT_TRUE(scene.position("V", {middle}, mode).IsPointNull()) << mode;
    EXPECT_EQ(scene.position("V", {virtual_point("V", "1", "Co", "Co")}, mode), CPointD(120, 300)) << mode;
    EXPECT_EQ(scene.position("N", {}, mode), CPointD(300, 100)) << mode;
  }
}

TEST(Points, LeaveTheOutputOfAFailedConstructionAlone) {
  Scene scene;
  tagKPOINT point = virtual_point("V", "1", "N", "nobod");
  unsigned short none = 0;
  tagDPOINT out{5, 6};
  EXPECT_EQ(CCephCalc::GetVirtualPoint(0, 0.5, &point, &none, nullptr, &none, nullptr, scene.record.userPoint,
                                       scene.record.pt + 8, &out),
            0);
  EXPECT_EQ(out.x, 5);
  EXPECT_EQ(out.y, 6);
  set(point.ref2, "A");
  EXPECT_EQ(CCephCalc::GetVirtualPoint(0, 0.5, &point, &none, nullptr, &none, nullptr, nullptr,
                                       scene.record.pt + 8, &out),
            1);
  EXPECT_EQ(out.y, 150);
}

TEST(Points, TellWhyTheyCannotBeTrusted) {
  Scene scene;
  const analysis::Tracing tracing(analysis::Mode::lateral, &scene.record, nullptr, nullptr, nullptr, nullptr);
  const auto reason = [&](std::string_view name) {
    std::optional<analysis::Reason> why;
    analysis::point_position(name, tracing, &why);
    return why;
  };
  EXPECT_FALSE(reason("S"));
  EXPECT_EQ(reason("Xi")->kind, analysis::Reason::Kind::unplaced_point);
  EXPECT_EQ(reason("Xii")->kind, analysis::Reason::Kind::unknown_point);
}

TEST(PointUse, LooksForBracketsInTheFormulasOfTheFirstSet) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm/list.txt", "missing.txt\none.txt\n");
  folder.write(
      "CalcForm/one.txt",
      "title:\n[N]\nCalc:\n[Gn]\nitem [Me]=len(mid([S],[A]),[toolongname])\nCalc2:\nx=len([B],[Go])\n");
  for (const char *used : {"S", "A"}) EXPECT_EQ(CCephCalc::Use_Point(0, used), 1) << used;
  for (const char *unused : {"N", "Gn", "Me", "B", "toolongname", "s"}) {
    EXPECT_EQ(CCephCalc::Use_Point(0, unused), 0) << unused;
  }
}

TEST(PointExpressions, EvaluateAndConsume) {
  Scene scene;
  const double bisector = 100 * std::cos(std::acos(-1.0) / 4);
  const struct {
    const char *text;
    CPointD expected;
    const char *left;
  } rows[] = {
      {" [S],[N]", {100, 100}, "    ,[N]"},
      {"mid([N],mid([A],[S]))rest", {250, 125}, "                     rest"},
      {"vertical([N],[A],[S])", {300, 100}, ""},
      {"cross([S],[N],[A],[Pog(R)])", {310, 100}, ""},
      {"cross([S],[N],[S],[N])", {0, 0}, ""},
      {"AngleBisector([S],[N],[A])", {250, 150}, ""},
      {"AngleBisector([S],[N],[A],0)", {250, 150}, ""},
      {"AngleBisector([S],[N],[A],100.9)", {300 - bisector, 100 + bisector}, ""},
      {"extension([S],[N],5)", {310, 100}, ""},
      {"extension([S],[N],-5)", {290, 100}, ""},
      {"midd([S],[A])", {100, 100}, "        ,[A])"},
      {"mid([S])", {50, 50}, ""},
      {"[nobody]", {0, 0}, ""},
      {"[open", {0, 0}, " open"},
      {"nothing", {0, 0}, " othing"},
      // the second byte of a double-byte character is no bracket
      {"\x81[[S]", {100, 100}, ""},
  };
  for (const auto &row : rows) {
    std::string text = row.text;
    unsigned short none = 0;
    const CPointD p =
        CCephCalc::Calc_Point(0, text.data(), &scene.record, &none, nullptr, &scene.user_count, scene.users);
    EXPECT_NEAR(p.x, row.expected.x, 1e-6) << row.text;
    EXPECT_NEAR(p.y, row.expected.y, 1e-6) << row.text;
    std::string left = row.left;
    left.resize(std::max(left.size(), text.size()), ' ');
    EXPECT_EQ(text, left) << row.text;
  }
}

TEST(PointExpressions, PlaceTheEffectiveAPoint) {
  // N-A runs straight down and the incisor axis leans 30 degrees from it.
  const double lean = std::acos(-1.0) / 6;
  tagPOINTLAT record =
      support::lateral_record(0.1, {{"N", {500, 500}},
                                    {"A", {500, 1000}},
                                    {"U1C", {520, 1200}},
                                    {"U1R", {500, 1000}},
                                    {"U1",
                                     {500 + static_cast<int>(std::lround(10000 * std::sin(lean))),
                                      1000 + static_cast<int>(std::lround(10000 * std::cos(lean)))}}});
  char text[] = "EffectiveA()";
  const CPointD p = CCephCalc::Calc_Point(0, text, &record, nullptr, nullptr, nullptr, nullptr);
  // 0.4 x (30 - 12) = 7.2 mm = 72 pixels at right angles to N-A, against the sense of a positive angle
  EXPECT_NEAR(p.x, 520 - 72, 0.05);
  EXPECT_NEAR(p.y, 1200, 0.05);
  char frontal_text[] = "EffectiveA()";
  tagPOINTPA frontal{};
  EXPECT_TRUE(
      CCephCalc::Calc_Point(1, frontal_text, &frontal, nullptr, nullptr, nullptr, nullptr).IsPointNull());
}
