#include "tool/model/measurements.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tool/api/CModelTool.h"

namespace {

using namespace model;

/// Every tooth present, all widths typed, in millimetres.
struct Cast {
  tagPOINTMO tracing{};
  tagMOEX typed{};

  Cast(double upper, double lower) {
    tracing.scale = 0.1;
    std::fill(std::begin(tracing.present), std::end(tracing.present), static_cast<unsigned char>(1));
    for (double(*widths)[6] : {&typed.upperFirst, &typed.upperSecond}) std::fill_n(*widths, 6, upper);
    for (double(*widths)[6] : {&typed.lowerFirst, &typed.lowerSecond}) std::fill_n(*widths, 6, lower);
  }
  ItemValues item(int number, int sex = 1) const { return model::item(sex, tracing, typed, number); }
};

TEST(ToothWidth, IsTypedMeasuredOrNothing) {
  Cast cast(8, 7);
  cast.tracing.upper[2][0] = {100, 100};
  cast.tracing.upper[2][1] = {148, 164};  // 80 pixels
  const auto width = [&] { return tooth_width(cast.tracing, cast.typed, Jaw::upper, Side::first, 2); };
  struct Row {
    double typed, item, width;
  };
  for (const Row &row : {Row{0.0, 8.0, 8.0}, Row{-1.0, 0.0, -1.0}, Row{7.5, 7.5, 7.5}}) {
    cast.typed.upperFirst[2] = row.typed;
    EXPECT_DOUBLE_EQ(cast.item(2).b, row.item) << row.typed;
    EXPECT_DOUBLE_EQ(width(), row.width) << row.typed;
  }
  cast.tracing.present[5] = 0;  // first side of upper position 2
  EXPECT_EQ(cast.item(2).b, 0.0);
  EXPECT_EQ(width(), 7.5) << "present or not";
}

TEST(ToothWidth, FindsItsFlagSideAndJaw) {
  for (int flag = 0; flag < 24; ++flag) {
    Cast cast(8, 7);
    cast.tracing.present[flag] = 0;
    const int item = flag < 12 ? flag / 2 : 8 + (flag - 12) / 2;
    const double width = flag < 12 ? 8.0 : 7.0;
    const ItemValues values = cast.item(item);
    EXPECT_EQ(values.a, flag % 2 == 0 ? 0.0 : width) << flag;
    EXPECT_EQ(values.b, flag % 2 == 0 ? width : 0.0) << flag;
  }
}

TEST(ModelItems, FurtherDistancesIgnorePresence) {
  struct Row {
    int item, pair;
    bool upper;
  };
  for (const Row &row : {Row{6, 1, true}, Row{7, 0, true}, Row{14, 1, false}, Row{15, 0, false}}) {
    Cast cast(8, 7);
    for (unsigned char &flag : cast.tracing.present) flag = 0;
    POINT *points = (row.upper ? cast.tracing.upper : cast.tracing.lower)[6] + 2 * row.pair;
    points[1] = {300, 400};
    for (const auto &[typed, length] : {std::pair{0.0, 50.0}, {33.0, 33.0}, {-1.0, 0.0}}) {
      (row.upper ? cast.typed.upperExtra : cast.typed.lowerExtra)[row.pair][0] = typed;
      EXPECT_DOUBLE_EQ(cast.item(row.item).a, length) << row.item;
      EXPECT_EQ(cast.item(row.item).b, -2.0) << row.item;
    }
  }
}

TEST(ModelItems, SumsRatiosAndStoredValues) {
  Cast cast(8, 7);
  cast.typed.upperExtra[2][0] = 25.5;
  cast.typed.upperExtra[3][0] = 24.5;
  cast.typed.lowerExtra[2][0] = 27.5;
  cast.typed.lowerExtra[3][0] = 26.5;
  struct Row {
    int item;
    double value;
  };
  for (const Row &row :
       {Row{16, 48}, Row{17, 96}, Row{18, 42}, Row{19, 84}, Row{20, 87.5}, Row{21, 87.5}, Row{22, -1},
        Row{23, -1}, Row{24, 24.5}, Row{25, 25.5}, Row{26, 26.5}, Row{27, 27.5}}) {
    EXPECT_NEAR(cast.item(row.item).a, row.value, 1e-12) << row.item;
    EXPECT_EQ(cast.item(row.item).b, -2.0) << row.item;
  }
  for (const int unknown : {-1, 28, INT32_MAX}) {
    EXPECT_EQ(cast.item(unknown).a, -1.0);
    EXPECT_EQ(cast.item(unknown).b, -1.0);
  }
}

TEST(ModelItems, PredictionOfTheUneruptedSegment) {
  Cast cast(8, 6);
  cast.tracing.mixed = 1;
  for (double(*widths)[6] : {&cast.typed.upperFirst, &cast.typed.upperSecond}) {
    (*widths)[0] = 8.5;
    (*widths)[1] = 6.5;
  }
  struct Row {
    int item, sex;
    double value;
  };
  for (const Row &row : {Row{22, 1, 0.389 * 30 + 10.28}, Row{22, 2, 0.421 * 30 + 9.03},
                         Row{23, 1, 0.523 * 24 + 9.73}, Row{23, 0, 0.549 * 24 + 8.52}}) {
    EXPECT_NEAR(cast.item(row.item, row.sex).a, row.value, 1e-12) << row.item << " sex " << row.sex;
  }
  EXPECT_NEAR(cast.item(17).a, 30 + 8 * 8, 1e-12) << "all present: nothing predicted";
  cast.tracing.present[2 * 3 + 1] = 0;  // first side of upper position 3
  EXPECT_NEAR(cast.item(17).a, 30 + 2 * 8 + 3 * 8 + 21.95, 1e-9) << "one side predicted";
  cast.tracing.present[0] = 0;  // an incisor: no prediction, -1 enters the sum
  EXPECT_EQ(cast.item(22).a, -1.0);
  EXPECT_NEAR(cast.item(17).a, 30 - 8.5 + 2 * 8 + 3 * 8 - 1, 1e-9);
}

TEST(ModelItems, RatioOfASumThatIsMinusOneIsNotFormed) {
  Cast cast(0, 7);
  cast.tracing.mixed = 1;
  std::fill_n(cast.tracing.present, 12, static_cast<unsigned char>(0));
  for (const int second_side : {4, 6, 8}) cast.tracing.present[second_side] = 1;  // positions 2 to 4
  for (int i = 2; i < 5; ++i) cast.typed.upperSecond[i] = -1;                     // which counts 0
  EXPECT_EQ(cast.item(17).a, -1.0);
  EXPECT_EQ(cast.item(21).a, -1.0);
}

TEST(EntryShown, MapsEntriesToFlags) {
  const int flag_of[28] = {1,  0,  3,  2,  5,  4,  7,  6,  9,  8,  11, 10, -1, -1,
                           13, 12, 15, 14, 17, 16, 19, 18, 21, 20, 23, 22, -1, -1};
  for (int entry = 0; entry < 28; ++entry) {
    unsigned char flags[24] = {};
    EXPECT_EQ(CModelTool::ShowChack(entry, flags), flag_of[entry] == -1) << entry;
    if (flag_of[entry] >= 0) flags[flag_of[entry]] = 1;
    EXPECT_EQ(CModelTool::ShowChack(entry, flags), 1) << entry;
  }
  unsigned char all[24];
  std::fill(std::begin(all), std::end(all), static_cast<unsigned char>(1));
  EXPECT_EQ(CModelTool::ShowChack(28, all), 0);
  EXPECT_EQ(CModelTool::ShowChack(-1, all), 0);
}

TEST(CModelTool, ToothLengthByNumbers) {
  Cast cast(0, 0);
  const auto width = [&](int position, int jaw, int side) {
    return CModelTool::GetToothLen(position, jaw, side, &cast.typed, &cast.tracing);
  };
  for (int i = 0; i < 7; ++i) {
    for (int side = 0; side < 2; ++side) {
      cast.tracing.upper[i][2 * side + 1] = {10 * (i + 1) + 1000 * side, 0};
      cast.tracing.lower[i][2 * side + 1] = {10 * (i + 1) + 1000 * side + 5000, 0};
      EXPECT_DOUBLE_EQ(width(i, 0, 7 * side), i < 6 ? i + 1 + 100 * side : 0);
      EXPECT_DOUBLE_EQ(width(i, 1 + side, side), i < 6 ? i + 501 + 100 * side : 0);
    }
  }
  EXPECT_EQ(width(-1, 0, 0), 0.0);
}

}  // namespace
