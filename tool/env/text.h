#pragma once
// Text and number helpers. All texts are code page 932.

#include <cstddef>
#include <string>
#include <string_view>

namespace env {

/// Without the blanks (space characters only) at the end.
std::string_view without_trailing_blanks(std::string_view text);

/// With every '&' doubled, so that a menu shows it literally.
std::string doubled_ampersands(std::string_view text);

/// A line cut at its first '='. Without one the key is the whole line and the value empty.
struct KeyValue {
  std::string_view key;
  std::string_view value;
  bool has_separator;
};
constexpr KeyValue split_at_equals(std::string_view line) {
  const std::size_t separator = line.find('=');
  if (separator == std::string_view::npos) return {line, {}, false};
  return {line.substr(0, separator), line.substr(separator + 1), true};
}

/// What printf makes of a text that is the format itself, with no arguments: "%%" is a percent sign; a
/// conversion has nothing to print and leaves nothing; a '%' that begins no conversion disappears.
std::string printed_without_arguments(std::string_view format);

/// One line of a text buffer.
struct TextLine {
  std::string_view text;  ///< without its carriage return
  std::size_t
      consumed;  ///< bytes up to the next line: a line feed is taken for granted after a carriage return
};
inline constexpr std::size_t longest_line = 511;
/// The line at the front: up to a carriage return, a zero character, the end, or `most` bytes (at most
/// `longest_line`). Without a carriage return one byte more than the line counts as consumed.
TextLine read_line(std::string_view text, std::size_t most);

/// Whether a text reads as a number: an empty one does; any other when the text without trailing white space
/// does not come after its own value, printed with six decimals and cut to the same length, in byte order. So
/// "1.5", "007" and
/// "." are numbers, "12a" and "1e5" are not.
bool is_number(std::string_view text);
/// Whether a text is sure to begin the print of its own value with six decimals: an optional minus sign, at
/// most nine digits without needless zeros in front, at most six decimals.
bool is_plainly_printed(std::string_view text);

/// A number as text with zeros cut off its end as long as it keeps at least `digits` decimals; at most six
/// decimals, rounded. The point stays even without decimals: 2.0 with 0 digits is "2.". Not-a-number and
/// infinities read "nan", "inf" and "-inf".
std::string number_text(double value, int digits);

}  // namespace env
