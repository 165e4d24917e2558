#include "tool/analysis/display_settings.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>

#include "tool/analysis/definition_file.h"
#include "tool/analysis/formula_scanner.h"
#include "tool/framework/text/decimal.h"

namespace analysis {
namespace {

constexpr std::int32_t weight_bold = 102;
constexpr std::int32_t weight_normal = 101;

/// What the setting lines have said so far.
struct DrawingState {
  int red = 0;
  int green = 0;
  int blue = 0;
  std::int32_t weight = weight_bold;
  int precision = 0;
  std::string_view position;
  int size = 15;

  COLORREF color() const {
    return static_cast<COLORREF>(red) | static_cast<COLORREF>(green) << 8 | static_cast<COLORREF>(blue) << 16;
  }
};

/// The text behind "Name=" or "name="; empty optional when the line begins otherwise.
std::optional<std::string_view> setting(std::string_view line, std::string_view capitalised) {
  const bool matches = line.size() >= capitalised.size() &&
                       (line.front() | 0x20) == (capitalised.front() | 0x20) &&
                       line.substr(1, capitalised.size() - 1) == capitalised.substr(1);
  if (!matches) return std::nullopt;
  return line.substr(capitalised.size());
}

int component(std::string_view text) {
  const int value = framework::whole_number(text) % 256;
  return value < 0 ? value + 256 : value;
}

void set_color(DrawingState &state, std::string_view text) {
  const std::size_t first = text.find(',');
  const std::size_t second = first == std::string_view::npos ? first : text.find(',', first + 1);
  if (second == std::string_view::npos) return;
  state.red = component(text.substr(0, first));
  state.green = component(text.substr(first + 1, second - first - 1));
  state.blue = component(text.substr(second + 1));
}

bool is_bold(std::string_view text) {
  constexpr std::string_view bold = "BOLD";
  const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  return text.size() == bold.size() &&
         std::equal(text.begin(), text.end(), bold.begin(), [&](char a, char b) { return upper(a) == b; });
}

int precision_code(std::string_view text) {
  if (text == "0") return 0;
  if (text == "1") return 1;
  if (text == "0.5") return 9;
  return 2;
}

/// Takes the line when it is a setting.
bool apply_setting(DrawingState &state, std::string_view line) {
  if (const auto color = setting(line, "Color=")) {
    set_color(state, *color);
  } else if (const auto weight = setting(line, "Line=")) {
    state.weight = is_bold(*weight) ? weight_bold : weight_normal;
  } else if (const auto decimals = setting(line, "Decimal=")) {
    state.precision = precision_code(*decimals);
  } else if (const auto position = setting(line, "Pos=")) {
    state.position = *position;
  } else if (const auto size = setting(line, "Size=")) {
    state.size = framework::whole_number(*size);
  } else {
    return false;
  }
  return true;
}

std::string three_digits(int value) {
  const std::string digits = std::to_string(value);
  return std::string(3 - std::min<std::size_t>(digits.size(), 3), '0') + digits;
}

/// Red, green and blue in three digits each, the precision code, the position, then SIZE= and CALC=.
std::string pack_label(const DrawingState &state, std::string_view formula) {
  std::string label = three_digits(state.red) + three_digits(state.green) + three_digits(state.blue);
  label += std::to_string(state.precision);
  label += state.position;
  label += "SIZE=" + std::to_string(state.size) + "CALC=";
  label += formula;
  return label;
}

/// The text of the next pair of brackets; `at` moves behind it.
std::string_view bracketed(std::string_view line, std::size_t &at) {
  const std::size_t open = find_character(line, '[', at);
  if (open == std::string_view::npos) return {};
  const std::size_t close = find_character(line, ']', open + 1);
  if (close == std::string_view::npos) return {};
  at = close + 1;
  return line.substr(open + 1, close - open - 1);
}

template <std::size_t Width>
void copy_name(char (&field)[Width], std::string_view name) {
  std::memset(field, 0, Width);
  std::memcpy(field, name.data(), std::min(name.size(), Width - 1));
}

std::optional<DisplaySegment> read_segment(const DrawingState &state, std::string_view line) {
  std::size_t at = 0;
  const std::string_view from = bracketed(line, at);
  const std::string_view to = bracketed(line, at);
  if (from.empty() || to.empty()) return std::nullopt;
  DisplaySegment segment{};
  copy_name(segment.from, from);
  copy_name(segment.to, to);
  segment.color = state.color();
  segment.weight = state.weight;
  return segment;
}

enum class Section { none, point, supplementary_line, point_setting };

std::optional<Section> section_keyword(std::string_view line) {
  if (line == "Point:") return Section::point;
  if (line == "SuppLine:") return Section::supplementary_line;
  if (line == "PointSetting:") return Section::point_setting;
  return std::nullopt;
}

}  // namespace

DisplaySettings parse_display_settings(std::string text) {
  DisplaySettings settings;
  const DefinitionFile file(std::move(text));
  Section section = Section::none;
  DrawingState state;
  for (const Line &line : file.lines()) {
    if (line.text == "[End]") break;
    if (const std::optional<Section> keyword = section_keyword(line.text)) {
      section = *keyword;
      continue;
    }
    switch (section) {
      case Section::none:
        break;
      case Section::point:
        // A blank line names no landmark; taken for one it would hide all the others.
        if (!line.text.empty()) settings.points.emplace_back(line.text);
        break;
      case Section::point_setting:
        settings.point_settings.emplace_back(line.text);
        break;
      case Section::supplementary_line:
        if (apply_setting(state, line.text)) break;
        if (!line.text.empty() && line.text.front() == '=') {
          settings.labels.push_back(pack_label(state, line.text.substr(1)));
        } else if (const std::optional<DisplaySegment> segment = read_segment(state, line.text)) {
          settings.segments.push_back(*segment);
          if (settings.segments.size() == DisplaySettings::max_segments) return settings;
        }
        break;
    }
  }
  return settings;
}

}  // namespace analysis
