#include "apps/common/csv.h"

#include "apps/common/tracing_file.h"

namespace app {
namespace {

[[noreturn]] void misplaced_quote(std::size_t line_number, std::size_t column, const char *right) {
  throw InputError("a quote is out of place",
                   "line " + std::to_string(line_number) + ", character " + std::to_string(column + 1),
                   right);
}

/// Takes a quoted field; `position` stands behind its opening quote and is left behind its closing one.
std::string quoted_field(std::string_view line, std::size_t &position, std::size_t line_number) {
  const std::size_t start = position - 1;
  std::string field;
  for (;;) {
    const std::size_t quote = line.find('"', position);
    if (quote == std::string_view::npos)
      misplaced_quote(line_number, start, "a closing quote on the same line");
    field += line.substr(position, quote - position);
    position = quote + 1;
    if (position >= line.size() || line[position] != '"') return field;
    field += '"';
    ++position;
  }
}

}  // namespace

std::vector<std::string> split_csv(std::string_view line, std::size_t line_number) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
  std::vector<std::string> fields;
  for (std::size_t position = 0;; ++position) {
    if (position < line.size() && line[position] == '"') {
      fields.push_back(quoted_field(line, ++position, line_number));
      if (position < line.size() && line[position] != ',')
        misplaced_quote(line_number, position,
                        "a comma after a closing quote; a quote in a field is doubled");
    } else {
      const std::size_t end = std::min(line.find(',', position), line.size());
      const std::string_view field = line.substr(position, end - position);
      if (const auto quote = field.find('"'); quote != std::string_view::npos)
        misplaced_quote(line_number, position + quote, "quotes round the whole field");
      fields.emplace_back(field);
      position = end;
    }
    if (position >= line.size()) return fields;
  }
}

std::string csv_field(std::string_view text) {
  const bool plain = text.find_first_of(",\"\r\n") == std::string_view::npos &&
                     (text.empty() || (text.front() != ' ' && text.back() != ' '));
  if (plain) return std::string(text);
  std::string field = "\"";
  for (const char c : text) {
    if (c == '"') field += '"';
    field += c;
  }
  return field + '"';
}

}  // namespace app
