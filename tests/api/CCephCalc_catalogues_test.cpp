#include <gtest/gtest.h>

#include "tests/support/lateral_film.h"
#include "tests/support/temporary_folder.h"
#include "tool/analysis/lateral_catalogue.h"
#include "tool/api/CCephCalc.h"
#include "tool/api/CTools.h"
#include "tool/framework/ui/CWinApp.h"

namespace {

TEST(CCephCalcCatalogues, TheProfileNegatesAnsPns) {
  CWinApp app("CatalogueTest");
  app.UseMemoryProfile();
  tagPOINTLAT film = support::lateral_film();
  int flag = -1;
  for (const auto &[number, item] : {std::pair{1, 10}, std::pair{3, 1}}) {
    app.WriteProfileString("CALC", "NFtoFH", nullptr);
    const double by_default = CCephCalc::Lat_Calc(&film, number, item, &flag);
    EXPECT_EQ(flag, 1);
    app.WriteProfileInt("CALC", "NFtoFH", 1);
    EXPECT_EQ(CCephCalc::Lat_Calc(&film, number, item, &flag), by_default);
    app.WriteProfileInt("CALC", "NFtoFH", 0);
    EXPECT_EQ(CCephCalc::Lat_Calc(&film, number, item, &flag), -by_default) << "read at every call";
    EXPECT_NE(by_default, 0.0);
  }
  EXPECT_EQ(CCephCalc::Lat_Calc(&film, 1, 22, &flag), 0.1);
  EXPECT_EQ(flag, 1);
}

TEST(CCephCalcCatalogues, BoneAgeReadsTheFileOfTheItemDirectory) {
  CWinApp app("CatalogueTest");
  app.UseMemoryProfile();
  const support::TemporaryFolder folder;
  folder.write("cvba.dat", "[CVB_AGE]\r\nPARAM_M0=100\r\n");
  tagCVBA record{};
  const POINT points[] = {{30, 50},  {0, 0},   {100, 0},  {0, 100}, {90, 100}, {10, 320},
                          {50, 320}, {0, 300}, {60, 380}, {0, 400}, {90, 400}};
  std::copy(std::begin(points), std::end(points), record.pt + 11);
  EXPECT_NEAR(CCephCalc::Calc_CVBA(&record, 1), 12.415, 1e-9);
  for (const char *ending : {"", "/"}) {
    app.WriteProfileString("DB_DIR", "ANAITEMPATH", (folder.path() + ending).c_str());
    EXPECT_NEAR(CCephCalc::Calc_CVBA(&record, 1), 100 + 12.415 - 0.82, 1e-9);
  }
  EXPECT_NEAR(CCephCalc::Calc_CVBA(&record, 2), 12.36, 1e-9);
}

TEST(CTools, SplineCalClampsUnlessTheRectangleIsEmpty) {
  struct Row {
    CRect clip;
    int mode;
    double x, y;
  };
  for (const Row &row : {Row{{0, 0, 100, 100}, 0, 100, 0}, Row{{0, 0, 0, 0}, 0, 150, -5},
                         Row{{100, 0, 0, 100}, 1, 150, -5}, Row{{140, -20, 200, -10}, 1, 150, -10}}) {
    double x = 0, y = 0;
    CTools::SplineCal(&x, &y, 0, 0, 7, 7, 150, -5, 9, 9, 1.0, row.clip, row.mode);
    EXPECT_EQ(x, row.x);
    EXPECT_EQ(y, row.y);
  }
}

TEST(CTools, SplineLengthsOfBothPointKinds) {
  tagPOINT whole[] = {{0, 0}, {100, 0}, {200, 0}, {300, 0}};
  tagDPOINT real[] = {{0, 0}, {100, 0}, {200, 0}, {300, 0}};
  EXPECT_NEAR(CTools::Get_SPLineLength(whole, 4, 0, 4, 0.1), 30.0, 1e-9);
  EXPECT_NEAR(CTools::Get_SPLineLengthd(real, 4, 0, 4, 0.1), 30.0, 1e-9);
  EXPECT_NEAR(CTools::Get_SPLineLength(whole, 2, 3, 1, 0.1), 10.0, 1e-9);
}

}  // namespace
