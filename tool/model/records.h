#pragma once
// Records of the dental cast model, owned by the application and borrowed by the library.

#include <cstddef>

#include "tool/framework/types.h"

/// Values typed in by hand, millimetres. A typed width of 0 means "measure it", a negative one counts as 0.
struct tagMOEX {
  double lead[7];           ///< the application's own
  double upperFirst[6];     ///< typed widths, upper positions 0 to 5, first side
  double upperSecond[6];    ///< upper, second side
  double lowerFirst[6];     ///< lower, first side
  double lowerSecond[6];    ///< lower, second side
  double upperExtra[4][2];  ///< first of each pair: typed items 7 and 6, stored items 25 and 24
  double lowerExtra[4][2];  ///< first of each pair: typed items 15 and 14, stored items 27 and 26
};

/// The model tracing: width points of every tooth position in image pixels.
struct tagPOINTMO {
  POINT lead[8];      ///< the application's own
  double scale;       ///< millimetres per pixel
  POINT upper[7][4];  ///< slot: first side's two width points, then the second side's; slot 6: two distances
  POINT lower[7][4];  ///< the same for the lower jaw
  unsigned char reserved1[616];  ///< the application's own
  unsigned char present[24];  ///< 2i: second side of upper position i, 2i + 1: first side; from 12: lower jaw
  unsigned char reserved2[24];  ///< the application's own
  unsigned char mixed;          ///< 1: mixed dentition
  char userName[100][6];        ///< names of the user points, NUL-terminated
  POINT userPoint[100];         ///< their coordinates, image pixels
  tagMOEX ex;
};

static_assert(offsetof(tagPOINTMO, scale) == 64);
static_assert(offsetof(tagPOINTMO, upper) == 72);
static_assert(offsetof(tagPOINTMO, lower) == 296);
static_assert(offsetof(tagPOINTMO, present) == 1136);
static_assert(offsetof(tagPOINTMO, mixed) == 1184);
static_assert(sizeof(tagMOEX) == 47 * sizeof(double));
