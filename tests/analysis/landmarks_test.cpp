#include "tool/analysis/landmarks.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace analysis;

TEST(Landmarks, NamesAgreeWithTheIndices) {
  struct Row {
    int index;
    const char *name;
  };
  using namespace lateral;
  for (const Row &row :
       {Row{0, "S"}, Row{N, "N"}, Row{A, "A"}, Row{U1C, "U1C"}, Row{U1, "U1"}, Row{U1R, "U1R"},
        Row{PogR, "Pog(R)"}, Row{Pog, "Pog"}, Row{GoL, "Go(L)"}, Row{GoP, "Go(P)"}, Row{Xi, "Xi"},
        Row{UMoD, "UMo(D)"}, Row{LMoD, "LMo(D)"}, Row{Ns, "N(s)"}, Row{Sto, "Sto"}, Row{CdE, "CdE"},
        Row{Mes, "Me(s)"}, Row{Pogs, "Pog(s)"}, Row{50, "Vmi"}}) {
    EXPECT_EQ(lateral_landmarks[static_cast<std::size_t>(row.index)], row.name);
    EXPECT_EQ(find_landmark(RecordKind::lateral, row.name), row.index);
  }
  for (const Row &row : {Row{0, "U3R"}, Row{frontal::AGL, "AGL"}, Row{frontal::SixR, "6R"},
                         Row{frontal::SixL, "6L"}, Row{frontal::ANS, "ANS"}, Row{26, "CG"}}) {
    EXPECT_EQ(frontal_landmarks[static_cast<std::size_t>(row.index)], row.name);
    EXPECT_EQ(find_landmark(RecordKind::frontal, row.name), row.index);
  }
}

TEST(Landmarks, AreUniqueAndFitTheirSlots) {
  for (const RecordKind kind : {RecordKind::lateral, RecordKind::frontal}) {
    std::set<std::string_view> seen;
    for (const std::string_view name : vocabulary(kind)) {
      EXPECT_TRUE(seen.insert(name).second) << name;
      EXPECT_LE(name.size(), 6u) << name;
      EXPECT_FALSE(name.empty());
    }
  }
  EXPECT_TRUE(vocabulary(RecordKind::model).empty());
}

TEST(Landmarks, AreFoundByTheWholeNameInItsLetterCase) {
  for (const char *name : {"pog", "Pog(R", "", "AGR"})
    EXPECT_FALSE(find_landmark(RecordKind::lateral, name)) << name;
  EXPECT_FALSE(find_landmark(RecordKind::model, "S"));
}

}  // namespace
