#include "tool/framework/files/ini_document.h"

#include <algorithm>

#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"

namespace framework {
namespace {

constexpr std::string_view hex_mark = "hex:";

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view unquoted(std::string_view text) {
  const bool quoted =
      text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

/// The name between the brackets of a heading line.
std::optional<std::string_view> heading(std::string_view line) {
  line = trimmed(line);
  if (line.empty() || line.front() != '[') return std::nullopt;
  return trimmed(line.substr(1, line.find(']') - 1));
}

std::optional<IniEntry> entry(std::string_view line) {
  line = trimmed(line);
  const std::size_t separator = line.find('=');
  if (separator == std::string_view::npos || line.front() == ';' || line.front() == '[') return std::nullopt;
  return IniEntry{trimmed(line.substr(0, separator)), unquoted(trimmed(line.substr(separator + 1)))};
}

bool fits_on_a_line(std::string_view text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

bool is_key(std::string_view key) {
  key = trimmed(key);
  return !key.empty() && fits_on_a_line(key) && key.find('=') == std::string_view::npos &&
         key.front() != ';' && key.front() != '[';
}

bool is_section(std::string_view section) {
  return fits_on_a_line(section) && section.find(']') == std::string_view::npos;
}

int hex_digit(char c) {
  if (is_digit(c)) return c - '0';
  const char letter = lower(c);
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

bool is_control(char c) {
  return static_cast<unsigned char>(c) < 0x20;
}

}  // namespace

IniDocument::IniDocument(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view rest = text.substr(length);
    const std::size_t end = rest.empty() ? 0 : rest.starts_with("\r\n") ? 2 : 1;
    lines_.push_back({std::string(text.substr(0, length)), std::string(rest.substr(0, end))});
    text.remove_prefix(length + end);
  }
}

IniDocument::Position IniDocument::section_begin(std::string_view section) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const Line &line) {
    const auto name = heading(line.text);
    return name && equal_ignoring_case(*name, trimmed(section));
  });
  return found == lines_.end() ? lines_.size() + 1 : static_cast<Position>(found - lines_.begin()) + 1;
}

IniDocument::Position IniDocument::section_end(Position begin) const {
  while (begin < lines_.size() && !heading(lines_[begin].text)) ++begin;
  return begin;
}

IniDocument::Position IniDocument::key_line(std::string_view section, std::string_view key) const {
  const Position begin = section_begin(section);
  const Position end = section_end(begin);
  for (Position i = begin; i < end; ++i) {
    const auto found = entry(lines_[i].text);
    if (found && equal_ignoring_case(found->key, trimmed(key))) return i;
  }
  return lines_.size();
}

std::optional<std::string_view> IniDocument::find(std::string_view section, std::string_view key) const {
  const Position line = key_line(section, key);
  if (line == lines_.size()) return std::nullopt;
  return entry(lines_[line].text)->value;
}

std::vector<std::string_view> IniDocument::sections() const {
  std::vector<std::string_view> names;
  for (const Line &line : lines_)
    if (const auto name = heading(line.text)) names.push_back(*name);
  return names;
}

std::vector<std::string_view> IniDocument::keys(std::string_view section) const {
  std::vector<std::string_view> names;
  for (const IniEntry &one : entries(section)) names.push_back(one.key);
  return names;
}

std::vector<IniEntry> IniDocument::entries(std::string_view section) const {
  std::vector<IniEntry> found;
  const Position begin = section_begin(section);
  const Position end = section_end(begin);
  for (Position i = begin; i < end; ++i)
    if (const auto one = entry(lines_[i].text)) found.push_back(*one);
  return found;
}

void IniDocument::insert_line(Position position, std::string text) {
  if (position > 0 && lines_[position - 1].end.empty()) lines_[position - 1].end = "\r\n";
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(position), {std::move(text), "\r\n"});
}

bool IniDocument::set(std::string_view section, std::string_view key, std::string_view value) {
  if (!is_section(section) || !is_key(key) || !fits_on_a_line(value)) return false;
  std::string text = std::string(trimmed(key)) + "=" + std::string(value);
  if (const Position line = key_line(section, key); line < lines_.size()) {
    lines_[line].text = std::move(text);
    return true;
  }
  if (section_begin(section) > lines_.size())
    insert_line(lines_.size(), "[" + std::string(trimmed(section)) + "]");
  const Position begin = section_begin(section);
  Position end = section_end(begin);
  while (end > begin && trimmed(lines_[end - 1].text).empty())
    --end;  // before the blank lines of the section
  insert_line(end, std::move(text));
  return true;
}

void IniDocument::remove(std::string_view section, std::string_view key) {
  const Position line = key_line(section, key);
  if (line < lines_.size()) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
}

void IniDocument::remove_section(std::string_view section) {
  const Position begin = section_begin(section);
  if (begin > lines_.size()) return;
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(begin - 1),
               lines_.begin() + static_cast<std::ptrdiff_t>(section_end(begin)));
}

std::string IniDocument::text() const {
  std::string text;
  for (const Line &line : lines_) text.append(line.text).append(line.end);
  return text;
}

std::string protected_value(std::string_view value) {
  if (value.starts_with(hex_mark) || std::any_of(value.begin(), value.end(), is_control)) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string stored(hex_mark);
    for (const char c : value) {
      const auto byte = static_cast<unsigned char>(c);
      stored += {digits[byte >> 4], digits[byte & 0xFU]};
    }
    return stored;
  }
  if (unquoted(trimmed(value)).size() != value.size()) return '"' + std::string(value) + '"';
  return std::string(value);
}

std::string unprotected_value(std::string_view stored) {
  if (!stored.starts_with(hex_mark)) return std::string(stored);
  const std::string_view digits = stored.substr(hex_mark.size());
  std::string value;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    const int high = hex_digit(digits[i]);
    const int low = hex_digit(digits[i + 1]);
    if (high < 0 || low < 0) break;
    value += static_cast<char>(high * 16 + low);
  }
  return value;
}

}  // namespace framework
