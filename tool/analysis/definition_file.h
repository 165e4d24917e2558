#pragma once
// An analysis definition file, split once into classified lines. The text is code page 932; lines end at CR
// LF (a lone LF or CR, a NUL byte and the end of the data end a line too) and are cut to 511 bytes.

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool/env/text.h"

namespace analysis {

/// Class of a line: 0 is a content line; classes above 100 are the second set.
enum class LineClass : int {
  content = 0,
  title = 1,
  calc = 2,
  stage = 3,
  stage_male = 4,
  stage_female = 5,
  mean = 6,
  mean_male = 7,
  mean_female = 8,
  sd = 9,
  sd_male = 10,
  sd_female = 11,
  stage_type = 12,
  comment = 13,
  diag = 14,
  param = 15,
  calc2 = 102,
  stage2 = 103,
  stage2_male = 104,
  stage2_female = 105,
  mean2 = 106,
  mean2_male = 107,
  mean2_female = 108,
  sd2 = 109,
  sd2_male = 110,
  sd2_female = 111,
  stage2_type = 112,
};

/// A keyword alone on its line, letter case ignored, makes a class; every other line is content.
LineClass classify_line(std::string_view line);

inline constexpr std::size_t max_line_bytes = 511;
inline constexpr std::size_t max_item_text_bytes = 49;

struct Line {
  std::string_view text;  ///< without its line end, at most 511 bytes
  LineClass own;          ///< class of the line itself
  LineClass block;        ///< class of the last keyword line before it (content: before the first keyword)
  std::size_t offset;     ///< byte offset in the file
  bool cut;               ///< the line was longer than 511 bytes
};

/// Key and value of an item, norm or stage line, split at the first '='; the key is cut like an item text.
using env::KeyValue;
KeyValue split_key_value(std::string_view line);

/// Field number `index` of a comma-separated list: below 0 the first, beyond the end the last; at most 99
/// bytes.
std::string_view list_field(std::string_view list, int index);

/// The suffix ":N" of a formula.
struct KindSuffix {
  int kind;                  ///< 0: a length in millimetres, its norms scale with the magnification
  int display_flag;          ///< bit 0: chart scale grows to the right; bit 1: narrow value scale
  std::string_view formula;  ///< the text before the last ':'
};
KindSuffix split_kind_suffix(std::string_view formula);

class DefinitionFile {
 public:
  /// Takes the bytes of a file as they are; never fails.
  explicit DefinitionFile(std::string text);
  /// Reads the file at a code page 932 path; empty when it cannot be read.
  static std::optional<DefinitionFile> read(const char *path);

  std::string_view text() const { return *text_; }
  std::span<const Line> lines() const { return lines_; }
  std::string_view title() const;    ///< first non-empty content line after "title:"
  std::string_view comment() const;  ///< the line right after the first "Comment:"

 private:
  bool split_lines(bool paired);

  std::unique_ptr<std::string> text_;  // its address is what the views of lines_ hold on to
  std::vector<Line> lines_;
};

}  // namespace analysis
