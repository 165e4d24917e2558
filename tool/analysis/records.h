#pragma once
// Landmark records and point tables of the head films. The application owns them, the library borrows them.

#include <cstddef>

#include "tool/framework/types.h"
#include "tool/model/records.h"

/// The lateral tracing, 3000 bytes. Landmark k of the lateral vocabulary is pt[8 + k]; (0, 0) is not placed.
struct tagPOINTLAT {
  POINT pt[63];           ///< image pixels
  double scale;           ///< millimetres per pixel
  char userName[100][6];  ///< names of the user points, NUL-terminated
  unsigned char reserved1[100];
  signed char lineWidth;       ///< tracing on screen, device pixels
  signed char printLineWidth;  ///< tracing on a printer, tenths of a millimetre
  unsigned char reserved2[2];
  POINT userPoint[100];  ///< coordinates of the user points, image pixels
  unsigned char reserved3[492];
  std::int16_t chinOffset;  ///< tenths of a millimetre
  unsigned char mandibleMode;
  unsigned char molarClass;
  unsigned char reserved4[482];
  std::int16_t planAngle;   ///< degrees
  std::int16_t planShift1;  ///< millimetres
  std::int16_t planShift2;  ///< millimetres
};

/// The frontal (postero-anterior) tracing. Landmark k of the frontal vocabulary is pt[8 + k].
struct tagPOINTPA {
  POINT pt[58];
  double scale;  ///< millimetres per pixel
  char userName[100][6];
  POINT userPoint[100];
};

/// Cervical vertebra tracing, image pixels; entries 11 to 21 enter the bone age.
struct tagCVBA {
  POINT pt[22];
};

/// A point that the user placed by hand: only the name is read here.
struct tagUPOINT {
  char name[6];
  char rest[21];
};

/// A point that the user defined as a construction from other points. All fields are text.
struct tagKPOINT {
  char name[6];
  char type[2];  ///< '0' foot, '1' midpoint, '2' intersection, '3' bisector, other: extension
  char ref1[6];
  char ref2[6];
  char ref3[6];  ///< for the extension: the angle in degrees as text
  char ref4[6];
  char value[8];  ///< for the extension: the distance in millimetres as text
};

/// One key and value typed into the application's input sheet.
struct tagHINPUT {
  char key[20];
  char value[12];
};

static_assert(offsetof(tagPOINTLAT, scale) == 504);
static_assert(offsetof(tagPOINTLAT, userName) == 512);
static_assert(offsetof(tagPOINTLAT, lineWidth) == 1212);
static_assert(offsetof(tagPOINTLAT, printLineWidth) == 1213);
static_assert(offsetof(tagPOINTLAT, userPoint) == 1216);
static_assert(offsetof(tagPOINTLAT, chinOffset) == 2508);
static_assert(offsetof(tagPOINTLAT, mandibleMode) == 2510);
static_assert(offsetof(tagPOINTLAT, molarClass) == 2511);
static_assert(offsetof(tagPOINTLAT, planAngle) == 2994);
static_assert(offsetof(tagPOINTLAT, planShift1) == 2996);
static_assert(offsetof(tagPOINTLAT, planShift2) == 2998);
static_assert(sizeof(tagPOINTLAT) == 3000);
static_assert(offsetof(tagPOINTPA, scale) == 464);
static_assert(sizeof(tagUPOINT) == 27);
static_assert(sizeof(tagKPOINT) == 40);
static_assert(sizeof(tagHINPUT) == 32);
static_assert(sizeof(tagCVBA) == 176);
