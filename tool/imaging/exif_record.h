#pragma once
// What the head of a photograph tells, owned by the application or by the reader.

#include <cstddef>

/// Texts end with a zero byte; a number of 0 was not stated.
struct tag_ExifInfo {
  char Version[5];       ///< of the EXIF standard, four digits
  char CameraMake[32];   ///< manufacturer
  char CameraModel[40];  ///< model
  char DateTime[20];     ///< of the exposure, "YYYY:MM:DD HH:MM:SS"
  int Height;            ///< pixels
  int Width;             ///< pixels
  int Orientation;       ///< 1 to 8
  int IsColor;           ///< 1: three components
  int Process;           ///< start-of-frame marker, 0xC0 baseline, 0xC2 progressive, ...
  int FlashUsed;         ///< 0 or 1
  float FocalLength;     ///< millimetres
  float ExposureTime;    ///< seconds
  float ApertureFNumber;
  float Distance;      ///< to the subject, metres
  float CCDWidth;      ///< of the sensor, inches
  float ExposureBias;  ///< EV
  int LightSource;
  int MeteringMode;
  int ExposureProgram;
  int ISOequivalent;
  int CompressionLevel;   ///< bits per pixel, whole
  float FocalplaneXRes;   ///< pixels per focal-plane unit
  float FocalplaneYRes;   ///< the same downward
  float FocalplaneUnits;  ///< inches per unit
  float Xresolution;      ///< pixels per resolution unit
  float Yresolution;      ///< the same downward
  float ResolutionUnit;   ///< inches per unit
  float Brightness;       ///< EV
  char Comments[1000];
  unsigned char *ThumbnailPointer;  ///< inside a section that the reader keeps; null: none
  int ThumbnailSize;                ///< bytes
  bool IsExif;                      ///< an EXIF block was there and could be read whole
};

static_assert(offsetof(tag_ExifInfo, Height) == 100);
static_assert(offsetof(tag_ExifInfo, ThumbnailPointer) == 1200);
static_assert(sizeof(void *) != 4 || sizeof(tag_ExifInfo) == 1208);
