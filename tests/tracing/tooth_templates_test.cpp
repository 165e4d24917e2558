#include "tool/tracing/tooth_templates.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace tracing;

/// Counts and sums of a template, for comparison with those of the published tables.
struct Figures {
  std::vector<int> counts;  ///< points of each piece
  int x = 0;                ///< sums over all points
  int y = 0;
  int order = 0;  ///< sum of (i + 1) (x + 3 y) over the points in order
  bool operator==(const Figures &) const = default;
};

template <std::size_t Pieces>
Figures figures(const TemplatePiece (&pieces)[Pieces]) {
  Figures sum;
  int i = 0;
  for (const TemplatePiece &piece : pieces) {
    int count = 0;
    while (count < 18 && (count == 0 || piece[count][0] != 0 || piece[count][1] != 0)) {
      const auto &[x, y] = piece[count++];
      sum.x += x;
      sum.y += y;
      sum.order += ++i * (x + 3 * y);
    }
    EXPECT_LT(count, 18) << "no (0, 0) at the end";
    sum.counts.push_back(count);
  }
  return sum;
}

void expect_join(const TemplatePiece &piece, int count, CPoint from, CPoint to) {
  EXPECT_EQ(CPoint(piece[0][0], piece[0][1]), from);
  EXPECT_EQ(CPoint(piece[count - 1][0], piece[count - 1][1]), to);
}

TEST(ToothTemplates, AreAsPublished) {
  EXPECT_EQ(figures(upper_incisor_templates[0].pieces), (Figures{{11, 7, 12, 9}, 5483, 10586, 754243}));
  EXPECT_EQ(figures(upper_incisor_templates[1].pieces), (Figures{{11, 8, 12, 12}, 5446, 12113, 912277}));
  EXPECT_EQ(figures(lower_incisor_templates[0].pieces), (Figures{{8, 8, 8, 13}, 4722, 7611, 467423}));
  EXPECT_EQ(figures(lower_incisor_templates[1].pieces), (Figures{{7, 8, 11, 8}, 4409, 7307, 430369}));
  EXPECT_EQ(figures(upper_molar_templates[0].pieces), (Figures{{8, 10, 6, 5, 11, 7}, 6101, 9224, 835508}));
  EXPECT_EQ(figures(upper_molar_templates[1].pieces), (Figures{{8, 14, 6, 6, 13, 9}, 6254, 11717, 1253668}));
  EXPECT_EQ(figures(lower_molar_templates[0].pieces), (Figures{{10, 10, 7, 6, 11, 9}, 6624, 10635, 1004274}));
  EXPECT_EQ(figures(lower_molar_templates[1].pieces),
            (Figures{{12, 16, 12, 10, 17, 12}, 10497, 16274, 2164022}));
}

TEST(ToothTemplates, IncisorPiecesRunBetweenTheReferencePoints) {
  for (const auto *templates : {&upper_incisor_templates, &lower_incisor_templates}) {
    for (const IncisorTemplate &shape : *templates) {
      const auto counts = figures(shape.pieces).counts;
      expect_join(shape.pieces[0], counts[0], shape.tip, shape.side_3);
      expect_join(shape.pieces[1], counts[1], shape.side_3, shape.apex);
      expect_join(shape.pieces[2], counts[2], shape.apex, shape.side_4);
      expect_join(shape.pieces[3], counts[3], shape.side_4, shape.tip);
    }
  }
}

}  // namespace
