#include "tool/analysis/frontal_catalogue.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tool/analysis/landmarks.h"

namespace {

using namespace analysis;
using namespace analysis::frontal;

void place(tagPOINTPA &film, Landmark k, int x, int y) {
  film.pt[first_landmark_entry + k] = {x, y};
}

/// Mirror-symmetric about x = 1000, the patient's right side at small x; 0.1 mm per pixel.
tagPOINTPA symmetric_film() {
  tagPOINTPA film{};
  film.scale = 0.1;
  const auto pair = [&](Landmark right, Landmark left, int off, int y) {
    place(film, right, 1000 - off, y);
    place(film, left, 1000 + off, y);
  };
  pair(U3R, U3L, 170, 1400);
  pair(U6R, U6L, 290, 1350);
  pair(AGR, AGL, 430, 1600);
  pair(L3R, L3L, 130, 1450);
  pair(L6R, L6L, 270, 1420);
  pair(JR, JL, 320, 1250);
  pair(NCR, NCL, 150, 1100);
  pair(ZR, ZL, 470, 800);
  pair(ZAR, ZAL, 670, 950);
  pair(SixR, SixL, 300, 1400);
  place(film, Me, 1000, 1800);
  place(film, ANS, 1000, 1120);
  place(film, UMid, 1000, 1420);
  place(film, LMid, 1000, 1440);
  return film;
}

TEST(FrontalCatalogue, ValuesOfASymmetricFilm) {
  const tagPOINTPA film = symmetric_film();
  // J to AG-Z: the line runs from (430, 1600) to (470, 800) off the middle, J lies at (320, 1250).
  const double to_jaw_line =
      std::abs((320 - 430) * -800.0 - (1250 - 1600) * 40.0) / std::hypot(40, 800) * 0.1;
  // The foot of L6 on the molar line is (270, 1400); J-AG runs from (320, 1250) to (430, 1600).
  const double molar_to_jaw =
      std::abs((270 - 320) * 350.0 - (1400 - 1250) * 110.0) / std::hypot(110, 350) * 0.1;
  const double expected[frontal_catalogue_size] = {
      2.0,          2.0, 54.0, 26.0, 0.0,  to_jaw_line, to_jaw_line, 90.0, molar_to_jaw,
      molar_to_jaw, 0.0, 0.0,  0.0,  30.0, 32.0,        64.0,        86.0, 134.0};
  for (int item = 0; item < frontal_catalogue_size; ++item) {
    EXPECT_NEAR(frontal_catalogue(film, item), expected[item], 1e-6) << item;
  }
}

TEST(FrontalCatalogue, SignsOfMovedPoints) {
  tagPOINTPA film = symmetric_film();
  std::swap(film.pt[8 + L6L], film.pt[8 + U6L]);
  EXPECT_NEAR(frontal_catalogue(film, 0), -2.0, 1e-9) << "the molar relation is signed outward";
  for (const int tilt : {-60, 60}) {
    film = symmetric_film();
    film.pt[8 + ZL].y += tilt;
    film.pt[8 + ZAL].x += tilt;
    film.pt[8 + LMid].x += tilt;
    for (const int unsigned_asymmetry : {4, 10, 11})
      EXPECT_NEAR(frontal_catalogue(film, unsigned_asymmetry), 6.0, 1e-9) << unsigned_asymmetry;
    EXPECT_GT(frontal_catalogue(film, 12), 1.0);
  }
}

TEST(FrontalCatalogue, EdgesOfTheCatalogue) {
  const tagPOINTPA empty{};
  EXPECT_EQ(frontal_catalogue(empty, 0), 0.0) << "no line to project on";
  for (const int item : {-1, 18, INT32_MAX}) {
    EXPECT_EQ(frontal_catalogue(symmetric_film(), item), 0.0);
    EXPECT_EQ(frontal_catalogue_name(item), nullptr);
  }
  for (int item = 0; item < frontal_catalogue_size; ++item) EXPECT_NE(frontal_catalogue_name(item), nullptr);
}

}  // namespace
