#pragma once
// Colours that stay apart for colour-blind readers, after Okabe and Ito, "Color Universal Design" (2008); and
// the inks that go with a white sheet or a dark film.

#include "tool/tool.h"

namespace app {

namespace hue {
inline constexpr COLORREF black = RGB(0, 0, 0);
inline constexpr COLORREF grey = RGB(110, 110, 110);
inline constexpr COLORREF pale = RGB(200, 200, 200);
inline constexpr COLORREF white = RGB(255, 255, 255);
inline constexpr COLORREF orange = RGB(230, 159, 0);
inline constexpr COLORREF sky = RGB(86, 180, 233);
inline constexpr COLORREF green = RGB(0, 158, 115);
inline constexpr COLORREF yellow = RGB(240, 228, 66);
inline constexpr COLORREF blue = RGB(0, 114, 178);
inline constexpr COLORREF vermilion = RGB(213, 94, 0);
inline constexpr COLORREF purple = RGB(204, 121, 167);
}  // namespace hue

/// What each part of a picture is drawn in.
struct Palette {
  COLORREF landmark, label, outline, tooth, cranial, frankfort, palatal, occlusal, mandibular, aesthetic,
      profilogram, second;
};

inline constexpr Palette paper_palette{hue::black,  hue::grey,      hue::black, hue::blue,
                                       hue::blue,   hue::green,     hue::sky,   hue::orange,
                                       hue::purple, hue::vermilion, hue::grey,  hue::vermilion};
inline constexpr Palette film_palette{hue::yellow, hue::white,     hue::white,  hue::sky,
                                      hue::sky,    hue::green,     hue::purple, hue::orange,
                                      hue::yellow, hue::vermilion, hue::pale,   hue::vermilion};

}  // namespace app
