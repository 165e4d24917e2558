#include "tool/framework/gdi/text_layout.h"

#include <algorithm>
#include <cstddef>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/text/cp932.h"

namespace framework {
namespace {

constexpr std::size_t none = std::string_view::npos;

bool is_control(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '\x7F';
}

/// A text without its prefixes; `marked` is the place of the character to underline.
struct PlainText {
  std::string text;
  std::size_t marked = none;
};

PlainText resolve_prefixes(std::string_view text, bool keep_ampersands) {
  PlainText plain;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] == '&' && !keep_ampersands) {
      if (++at == text.size()) break;
      if (text[at] != '&') plain.marked = plain.text.size();
    }
    const std::size_t end = next_character(text, at);
    plain.text.append(text.substr(at, end - at));
    at = end;
  }
  return plain;
}

bool is_japanese(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]) >= 0x80;
}

/// Where a line may end: the offset of the first character of the next one. The end of the text is the last.
std::vector<std::size_t> break_places(std::string_view text) {
  std::vector<std::size_t> places;
  for (std::size_t before = 0; before < text.size();) {
    const std::size_t at = next_character(text, before);
    if (at == text.size()) break;
    const bool behind_blank = text[before] == ' ' && text[at] != ' ';
    const bool at_japanese = text[at] != ' ' && (is_japanese(text, before) || is_japanese(text, at));
    if (behind_blank || at_japanese) places.push_back(at);
    before = at;
  }
  places.push_back(text.size());
  return places;
}

std::string_view without_trailing_blanks(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

class Layout {
 public:
  Layout(UINT format, int width, const TextMeasures &measures)
      : format_(format), width_(width), measures_(measures) {}

  std::vector<TextLine> lines;

  void add_paragraph(std::string_view text, std::size_t marked) {
    if (!(format_ & DT_WORDBREAK) || (format_ & DT_SINGLELINE)) return add_line(text, marked);
    std::size_t start = 0;
    do {
      const std::size_t length = fitting_length(text.substr(start));
      std::string_view line = text.substr(start, length);
      if (start + length < text.size()) line = without_trailing_blanks(line);
      const bool holds_mark = marked != none && marked >= start && marked < start + line.size();
      add_line(line, holds_mark ? marked - start : none);
      start += length;
    } while (start < text.size());
  }

  void shorten_last_line(std::string_view text) {
    if (lines.empty() || lines.back().width <= width_) return;
    std::vector<std::size_t> ends{0};
    while (ends.back() < text.size()) ends.push_back(next_character(text, ends.back()));
    const auto shortened = [&](std::size_t end) { return std::string(text.substr(0, end)) + "..."; };
    // The longest beginning that fits; with none the dots stand alone.
    const auto end = std::partition_point(ends.begin() + 1, ends.end(), [&](std::size_t length) {
      return line_width(shortened(length)) <= width_;
    });
    lines.pop_back();
    add_line(shortened(*(end - 1)), none);
  }

 private:
  bool expands_tabs() const { return (format_ & DT_EXPANDTABS) != 0; }

  /// Calls with each piece between tabs and its place; gives the width of the whole.
  template <typename Visit>
  int walk(std::string_view line, Visit visit) const {
    int x = 0;
    for (std::size_t start = 0;;) {
      const std::size_t tab = expands_tabs() ? line.find('\t', start) : none;
      const std::string_view piece = line.substr(start, tab == none ? none : tab - start);
      const int width = piece.empty() ? 0 : measures_.width(piece);
      visit(piece, x, width, start);
      x += width;
      if (tab == none) return x;
      x = (x / measures_.tab_width + 1) * measures_.tab_width;
      start = tab + 1;
    }
  }

  int line_width(std::string_view line) const {
    return walk(line, [](auto...) {});
  }

  /// Bytes of a paragraph that one line takes.
  std::size_t fitting_length(std::string_view text) const {
    if (line_width(text) <= width_) return text.size();
    const std::vector<std::size_t> places = break_places(text);
    const auto end = std::partition_point(places.begin(), places.end(), [&](std::size_t place) {
      return line_width(without_trailing_blanks(text.substr(0, place))) <= width_;
    });
    return end == places.begin() ? places.front() : *(end - 1);
  }

  void add_line(std::string_view text, std::size_t marked) {
    TextLine line;
    std::string buffer;
    line.width = walk(text, [&](std::string_view piece, int x, int width, std::size_t start) {
      if (!piece.empty()) line.pieces.push_back({std::string(without_controls(piece, buffer)), x, width});
      if (marked == none || marked < start || marked >= start + piece.size()) return;
      const std::size_t offset = marked - start;
      const int before = offset == 0 ? 0 : measures_.width(piece.substr(0, offset));
      line.underline_x = x + before;
      line.underline_width = measures_.width(piece.substr(0, next_character(piece, offset))) - before;
    });
    lines.push_back(std::move(line));
  }

  UINT format_;
  int width_;
  const TextMeasures &measures_;
};

}  // namespace

std::string_view without_controls(std::string_view text, std::string &buffer) {
  if (std::ranges::none_of(text, is_control)) return text;
  buffer.assign(text);
  std::ranges::replace_if(buffer, is_control, ' ');
  return buffer;
}

std::vector<TextLine> lay_out_text(std::string_view text, UINT format, int width,
                                   const TextMeasures &measures) {
  const PlainText plain = resolve_prefixes(text, (format & DT_NOPREFIX) != 0);
  Layout layout(format, width, measures);
  std::string_view paragraph;
  for (std::size_t start = 0; start < plain.text.size();) {
    const std::string_view rest = std::string_view(plain.text).substr(start);
    const std::size_t length =
        format & DT_SINGLELINE ? rest.size() : std::min(rest.find_first_of("\r\n"), rest.size());
    paragraph = rest.substr(0, length);
    const bool holds_mark = plain.marked != none && plain.marked >= start && plain.marked < start + length;
    layout.add_paragraph(paragraph, holds_mark ? plain.marked - start : none);
    start += length + (rest.substr(length, 2) == "\r\n" ? 2 : 1);
  }
  if (format & DT_END_ELLIPSIS) layout.shorten_last_line(paragraph);
  return std::move(layout.lines);
}

}  // namespace framework
