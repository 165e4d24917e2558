#pragma once
// How DrawText breaks a text into lines. Widths are device pixels; what a text measures is asked.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool/framework/types.h"

namespace framework {

struct TextPiece {
  std::string text;
  int x = 0;  ///< from the start of the line: behind a tab
  int width = 0;
};

struct TextLine {
  std::vector<TextPiece> pieces;  ///< one, unless there are tabs
  int width = 0;
  int underline_x = 0;
  int underline_width = 0;  ///< of the character marked with &; 0: none
};

struct TextMeasures {
  std::function<int(std::string_view)> width;
  int tab_width = 1;  ///< tab stops lie at its multiples
};

/// Lines end at CR LF, CR or LF, with DT_SINGLELINE never. DT_WORDBREAK breaks lines wider than `width`
/// behind blanks and before and behind Japanese characters; a word wider than that stays whole. `&&` is &,
/// `&x` underlines x (unless DT_NOPREFIX). DT_END_ELLIPSIS ends a last line that is too wide with three dots.
/// Without DT_EXPANDTABS a tab is a blank, as all other control characters are.
std::vector<TextLine> lay_out_text(std::string_view text, UINT format, int width,
                                   const TextMeasures &measures);

/// Control characters as blanks; `buffer` is used when there are any.
std::string_view without_controls(std::string_view text, std::string &buffer);

}  // namespace framework
