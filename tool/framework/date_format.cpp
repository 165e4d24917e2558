#include "tool/framework/date_format.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "tool/framework/text/copy_text.h"
#include "tool/framework/text/cp932.h"

namespace {

using framework::cp932;

struct Era {
  int year, month, day;  ///< of its first day
  framework::Cp932Literal<7> name;
};

// Newest first. data/Era.dat tells the same days.
constexpr std::array<Era, 5> japanese_eras{{{2019, 5, 1, cp932("令和")},
                                            {1989, 1, 8, cp932("平成")},
                                            {1926, 12, 25, cp932("昭和")},
                                            {1912, 7, 30, cp932("大正")},
                                            {1868, 10, 23, cp932("明治")}}};
constexpr auto christian_era = cp932("西暦");

int days_in_month(int year, int month) {
  constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap_year = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap_year ? 29 : days[static_cast<std::size_t>(month - 1)];
}

bool exists(const SYSTEMTIME &date) {
  return date.wYear >= 1601 && date.wYear <= 30827 && date.wMonth >= 1 && date.wMonth <= 12 &&
         date.wDay >= 1 && date.wDay <= days_in_month(date.wYear, date.wMonth);
}

struct Fields {
  std::string_view era;
  int year, month, day;
};

std::optional<Fields> fields_of(const SYSTEMTIME &date, bool japanese) {
  if (!exists(date)) return std::nullopt;
  if (!japanese) return Fields{christian_era.view(), date.wYear, date.wMonth, date.wDay};
  const std::tuple<int, int, int> day{date.wYear, date.wMonth, date.wDay};
  const auto *const era = std::find_if(japanese_eras.begin(), japanese_eras.end(), [&](const Era &one) {
    return std::tuple(one.year, one.month, one.day) <= day;
  });
  if (era == japanese_eras.end()) return std::nullopt;
  return Fields{era->name.view(), date.wYear - era->year + 1, date.wMonth, date.wDay};
}

std::string number(int value, bool leading_zero) {
  return (leading_zero && value < 10 ? "0" : "") + std::to_string(value);
}

/// One field of the picture: a letter repeated `count` times.
std::optional<std::string> field_text(char letter, std::size_t count, const Fields &fields) {
  if (letter == 'g' && count <= 2) return std::string(fields.era);
  if (letter == 'd' && count <= 2) return number(fields.day, count == 2);
  if (letter == 'M' && count <= 2) return number(fields.month, count == 2);
  if (letter == 'y' && count <= 2) return number(fields.year % 100, count == 2);
  if (letter == 'y' && count == 4) return number(fields.year, false);
  return std::nullopt;
}

/// Takes a quoted text off the picture, which begins with its quote.
std::optional<std::string> take_quoted(std::string_view &picture) {
  std::string text;
  for (std::size_t at = 1; at < picture.size();) {
    const std::size_t next = framework::next_character(picture, at);
    if (picture[at] != '\'') {
      text += picture.substr(at, next - at);
      at = next;
    } else if (next < picture.size() && picture[next] == '\'') {
      text += '\'';
      at = next + 1;
    } else {
      picture.remove_prefix(next);
      return text;
    }
  }
  return std::nullopt;
}

/// Takes a field, a quoted text or a character off the picture.
std::optional<std::string> take_piece(std::string_view &picture, const Fields &fields) {
  constexpr std::string_view field_letters = "gyMd";
  const char first = picture.front();
  if (first == '\'') return take_quoted(picture);
  const bool is_field = field_letters.find(first) != std::string_view::npos;
  const std::size_t length = is_field ? std::min(picture.find_first_not_of(first), picture.size())
                                      : framework::next_character(picture, 0);
  const std::string_view piece = picture.substr(0, length);
  picture.remove_prefix(length);
  return is_field ? field_text(first, length, fields) : std::string(piece);
}

std::optional<std::string> formatted(const Fields &fields, std::string_view picture) {
  std::string text;
  while (!picture.empty()) {
    const std::optional<std::string> piece = take_piece(picture, fields);
    if (!piece) return std::nullopt;
    text += *piece;
  }
  return text;
}

}  // namespace

int GetDateFormatA(LCID, DWORD flags, const SYSTEMTIME *date, const char *picture, char *buffer, int size) {
  if (!date || !picture) return 0;
  const auto fields = fields_of(*date, (flags & DATE_USE_ALT_CALENDAR) != 0);
  const auto text = fields ? formatted(*fields, picture) : std::nullopt;
  if (!text || text->size() >= static_cast<std::size_t>(std::numeric_limits<int>::max())) return 0;
  const int needed = static_cast<int>(text->size()) + 1;
  if (size == 0) return needed;
  if (!buffer || size < needed) return 0;
  framework::copy_text(*text, buffer, size);
  return needed;
}
