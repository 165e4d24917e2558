#include "tool/analysis/lateral_catalogue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <string>

#include "tests/support/lateral_film.h"
#include "tests/support/straight_line_catalogue.h"
#include "tests/support/tracings.h"

namespace {

using namespace analysis;
using namespace analysis::lateral;

double value(const tagPOINTLAT &film, int number, int item) {
  return lateral_catalogue(film, number, item, true).value;
}

void place(tagPOINTLAT &film, Landmark k, int x, int y) {
  film.pt[first_landmark_entry + k] = {x, y};
}

TEST(LateralCatalogue, AgreesWithGeometryWrittenOutByHand) {
  SCOPED_TRACE("seed 71");
  std::mt19937 random(71);
  std::uniform_int_distribution<int> shift(-40, 40);
  for (int round = 0; round < 200; ++round) {
    tagPOINTLAT film = support::lateral_film();
    for (int k = 0; round > 0 && k < lateral_landmark_count; ++k) {
      film.pt[first_landmark_entry + k].x += shift(random);
      film.pt[first_landmark_entry + k].y += shift(random);
    }
    for (const bool negate : {true, false}) {
      const auto expected = support::straight_line_catalogue<support::SchoolGeometry>(film, negate);
      std::size_t next = 0;
      for (int number = 0; number < 9; ++number) {
        for (int item = 0; item < lateral_catalogue_sizes[number]; ++item, ++next) {
          EXPECT_NEAR(lateral_catalogue(film, number, item, negate).value, expected[next], 2e-6)
              << number << "." << item << " round " << round;
        }
      }
    }
  }
}

TEST(LateralCatalogue, ValuesOfAPlainDrawing) {
  // Frankfort horizontal level at y = 1000, S-N level at y = 800; 0.1 mm per pixel.
  tagPOINTLAT film = support::lateral_record(0.1, {{"Po", {700, 1000}},
                                                   {"Or", {1500, 1000}},
                                                   {"S", {900, 800}},
                                                   {"N", {1600, 800}},
                                                   {"A", {1550, 1250}},
                                                   {"B", {1510, 1650}},
                                                   {"Pog", {1600, 1800}},
                                                   {"Pog(R)", {1600, 1800}},
                                                   {"Go(L)", {900, 1500}},
                                                   {"Me", {1500, 1900}}});
  place(film, TN, 1800, 1100);
  place(film, TC, 1700, 1800);
  place(film, TLL, 1700, 1500);
  struct Row {
    const char *what;
    int number, item;
    double value;
  };
  const double to_degrees = 180 / std::acos(-1.0);
  const Row rows[] = {
      {"cranial base", 0, 0, 70.0},
      {"facial angle of a profile at a right angle to FH", 1, 0, 90.0},
      {"SNA", 1, 5, 90 - std::atan2(50, 450) * to_degrees},
      {"ANB", 1, 7, (std::atan2(90, 850) - std::atan2(50, 450)) * to_degrees},
      {"mandibular plane to FH is positive for a chin below the angle of the jaw", 1, 12,
       std::atan2(400, 600) * to_degrees},
      {"convexity: A 50 pixels behind the facial plane", 2, 6, -5.0},
      {"A to nasion perpendicular", 2, 17, -5.0},
      {"lip behind the esthetic line", 2, 10, -0.1 * std::hypot(42.0, 6.0)},  // foot (1742, 1506)
  };
  for (const Row &row : rows) EXPECT_NEAR(value(film, row.number, row.item), row.value, 2e-6) << row.what;
}

TEST(LateralCatalogue, WitsOfPointsThatProjectTogetherIsZero) {
  tagPOINTLAT film{};
  film.scale = 0.1;
  for (const Landmark incisor : {U1, L1}) place(film, incisor, 1600, 1500);
  for (const Landmark molar : {UMo, LMo}) place(film, molar, 1200, 1500);
  place(film, A, 1550, 1250);
  place(film, B, 1550, 1650);
  EXPECT_EQ(value(film, 8, 4), 0.0);
  EXPECT_FALSE(std::signbit(value(film, 8, 4))) << "a table would show -0.0";
  place(film, B, 1500, 1650);
  EXPECT_NEAR(value(film, 8, 4), 5.0, 1e-12);
}

TEST(LateralCatalogue, FlagsMarkAnglesAndNamesAreUnique) {
  const tagPOINTLAT film = support::lateral_film();
  // One character per item, in catalogue order.
  const std::string flags[9] = {"00000000000000000",
                                "1111111111111111111111",
                                "1111110010010010000",
                                "111111111111",
                                "11110101011100111",
                                "111111111111111",
                                "11111001110",
                                "111111111111111111111111111111",
                                "00000"};
  for (int number = 0; number < 9; ++number) {
    std::string found;
    std::set<std::string> names;
    for (int item = 0; item < lateral_catalogue_sizes[number]; ++item) {
      found += static_cast<char>('0' + lateral_catalogue(film, number, item, true).flag);
      names.insert(lateral_catalogue_name(number, item));
    }
    EXPECT_EQ(found, flags[number]) << number;
    EXPECT_EQ(names.size(), flags[number].size()) << number;
  }
}

TEST(LateralCatalogue, UnknownItems) {
  const tagPOINTLAT film = support::lateral_film();
  struct Row {
    int number, item;
    double value;
    int flag;
  };
  for (const Row &row : {Row{-1, 0, 0.1, 0}, Row{9, 0, 0.1, 0}, Row{0, 17, 0.1, 0}, Row{1, 22, 0.1, 1},
                         Row{1, -1, 0.1, 1}, Row{3, 12, 0.1, 0}, Row{5, 15, 0.1, 0}, Row{7, 30, 0.0, 1},
                         Row{7, -1, 0.0, 1}, Row{8, INT32_MAX, 0.1, 0}}) {
    const CatalogueValue result = lateral_catalogue(film, row.number, row.item, true);
    EXPECT_EQ(result.value, row.value) << row.number << "." << row.item;
    EXPECT_EQ(result.flag, row.flag) << row.number << "." << row.item;
    EXPECT_EQ(lateral_catalogue_name(row.number, row.item), nullptr);
  }
}

TEST(LateralCatalogue, SurvivesAnyRecord) {
  std::mt19937 random(72);
  for (int round = 0; round < 300; ++round) {
    tagPOINTLAT film{};
    const std::int32_t extremes[] = {INT32_MIN, INT32_MAX, 0, 1, -1};
    for (POINT &p : film.pt) p = {extremes[random() % 5], extremes[random() % 5]};
    film.scale = round % 3 == 0 ? std::nan("") : 0.0;
    for (int number = 0; number < 9; ++number) {
      for (int item = 0; item < lateral_catalogue_sizes[number]; ++item) (void)value(film, number, item);
    }
    complete_soft_tissue(film);
  }
}

TEST(SoftTissue, IsCompletedOnlyWhereNothingIsPlaced) {
  tagPOINTLAT film{};
  film.scale = 0.5;
  place(film, PT, 500, 400);
  place(film, Ns, 900, 300);
  place(film, Me, 800, 900);
  place(film, Pog, 850, 880);
  place(film, TLL, 910, 700);
  const tagPOINTLAT empty = film;
  complete_soft_tissue(film);
  struct Row {
    Landmark filled;
    int x, y;
  };
  for (const Row &row :
       {Row{PTV, 494, 410}, Row{Gl, 906, 280}, Row{Mes, 800, 910}, Row{Pogs, 860, 886}, Row{Vmi, 906, 704}}) {
    EXPECT_EQ(CPoint(film.pt[8 + row.filled]), CPoint(row.x, row.y)) << row.filled;
  }
  film = empty;
  place(film, PTV, 0, 7);
  complete_soft_tissue(film);
  EXPECT_EQ(CPoint(film.pt[8 + PTV]), CPoint(0, 7));
  film = empty;
  film.scale = 0.1;
  complete_soft_tissue(film);
  EXPECT_EQ(CPoint(film.pt[8 + PTV]), CPoint(500 - 29, 400 + 49)) << "3 / 0.1 and 5 / 0.1, exactly truncated";
  EXPECT_EQ(CPoint(film.pt[8 + Gl]), CPoint(900 + 29, 300 - 99));
}

}  // namespace
