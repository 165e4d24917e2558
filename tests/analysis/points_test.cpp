#include "tool/analysis/points.h"

#include <gtest/gtest.h>

#include <array>
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

tagKPOINT virtual_point(const char *name, const char *type, std::array<const char *, 4> references,
                        const char *value = "") {
  tagKPOINT point{};
  set(point.name, name);
  set(point.type, type);
  set(point.ref1, references[0]);
  set(point.ref2, references[1]);
  if (references[2]) set(point.ref3, references[2]);
  if (references[3]) set(point.ref4, references[3]);
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
  const double diagonal = 200 / std::sqrt(2.0);
  const struct {
    tagKPOINT point;
    CPointD expected;
  } rows[] = {
      {virtual_point("V", "0", {"N", "A", "Co"}), {300, 300}},
      {virtual_point("V", "1", {"N", "A"}), {300, 150}},
      {virtual_point("V", "2", {"N", "A", "Co", "Pog(R"}), {300, 412.5}},
      {virtual_point("V", "2", {"N", "A", "N", "A"}), {0, 0}},  // no crossing
      // both arms 100 pixels along: midpoint (250, 150); the longer arm is 200 pixels
      {virtual_point("V", "3", {"B", "N", "A"}), {300 - diagonal, 100 + diagonal}},
      {virtual_point("V", "3", {"N", "N", "N"}), {300, 200}},
      // 10 mm at 0.5 mm per pixel, turned clockwise on the screen
      {virtual_point("V", "4", {"Co", "N", "0"}, "0"), {300, 100}},
      {virtual_point("V", "4", {"A", "N", "90"}, "10"), {320, 100}},
      // inside a construction the user point overrides the landmark of its name
      {virtual_point("V", "1", {"S", "S"}), {7, 8}},
      {virtual_point("V", "1", {"nobod", "A"}), {0, 0}},
      {virtual_point("V", "1", {"M", "A"}), {300, 175}},  // M: the middle of N and A
      {virtual_point("V", "1", {"M2", "A"}), {0, 0}},     // a circle
  };
  for (const auto &row : rows) {
    const CPointD p = Scene().position(
        "V", {row.point, virtual_point("M", "1", {"N", "A"}), virtual_point("M2", "1", {"V", "N"})});
    EXPECT_NEAR(p.x, row.expected.x, 1e-6) << row.point.type << row.point.ref1;
    EXPECT_NEAR(p.y, row.expected.y, 1e-6) << row.point.type << row.point.ref1;
  }
}

TEST(Points, EndLaddersAndTanglesInTime) {
  const auto name = [](int i) { return "V" + std::to_string(i); };
  std::vector<tagKPOINT> tangle;
  for (int i = 0; i < 60; ++i) {
    const auto next = [&](int step) { return name((i + step) % 60); };
    tangle.push_back(virtual_point(name(i).c_str(), "2",
                                   {next(1).c_str(), next(2).c_str(), next(3).c_str(), next(5).c_str()}));
  }
  EXPECT_TRUE(Scene().position("V0", tangle).IsPointNull());
  // Each rung is the middle of the next one with itself, the last that of two landmarks.
  const auto ladder = [&](int rungs) {
    std::vector<tagKPOINT> points;
    for (int i = 0; i + 1 < rungs; ++i)
      points.push_back(virtual_point(name(i).c_str(), "1", {name(i + 1).c_str(), name(i + 1).c_str()}));
    points.push_back(virtual_point(name(rungs - 1).c_str(), "1", {"N", "A"}));
    return Scene().position("V0", points);
  };
  for (const int rungs : {1, 12, 150}) EXPECT_EQ(ladder(rungs), CPointD(300, 150)) << rungs;
  EXPECT_TRUE(std::isfinite(ladder(300).x));
}

TEST(Points, KnowNoLandmarksInsideConstructionsOfTheOtherModes) {
  Scene scene;
  const tagKPOINT middle = virtual_point("V", "1", {"N", "A"});
  for (const int mode : {10, 20}) {
    EXPECT_TRUE(scene.position("V", {middle}, mode).IsPointNull()) << mode;
    EXPECT_EQ(scene.position("V", {virtual_point("V", "1", {"Co", "Co"})}, mode), CPointD(120, 300)) << mode;
    EXPECT_EQ(scene.position("N", {}, mode), CPointD(300, 100)) << mode;
  }
}

TEST(Points, LeaveTheOutputOfAFailedConstructionAlone) {
  Scene scene;
  tagKPOINT point = virtual_point("V", "1", {"N", "nobod"});
  unsigned short none = 0;
  tagDPOINT out{5, 6};
  const auto construct = [&] {
    return CCephCalc::GetVirtualPoint(0, 0.5, &point, &none, nullptr, &none, nullptr, nullptr,
                                      scene.record.pt + 8, &out);
  };
  EXPECT_EQ(construct(), 0);
  EXPECT_TRUE(out.x == 5 && out.y == 6);
  set(point.ref2, "A");
  EXPECT_EQ(construct(), 1);
  EXPECT_EQ(out.y, 150);
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
  } rows[] = {{" [S],[N]", {100, 100}, "    ,[N]"},
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
              {"\x81[[S]", {100, 100}, ""}};
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
  // N-A runs straight down and the incisor axis leans 30 degrees from it: tangent 5000 / 8660.
  tagPOINTLAT record = support::lateral_record(0.1, {{"N", {500, 500}},
                                                     {"A", {500, 1000}},
                                                     {"U1C", {520, 1200}},
                                                     {"U1R", {500, 1000}},
                                                     {"U1", {5500, 9660}}});
  tagPOINTPA frontal{};
  const auto effective_a = [](int mode, void *any) {
    char text[] = "EffectiveA()";
    return CCephCalc::Calc_Point(mode, text, any, nullptr, nullptr, nullptr, nullptr);
  };
  // 0.4 x (30 - 12) = 7.2 mm = 72 pixels at right angles to N-A, against the sense of a positive angle
  EXPECT_NEAR(effective_a(0, &record).x, 520 - 72, 0.05);
  EXPECT_NEAR(effective_a(0, &record).y, 1200, 0.05);
  EXPECT_TRUE(effective_a(1, &frontal).IsPointNull());
}
