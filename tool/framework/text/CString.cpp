#include "tool/framework/text/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"

namespace {

using framework::lower;
using framework::next_character;
using framework::upper;

constexpr std::string_view white_space = " \t\n\v\f\r";

std::string_view view_of(const char *text) {
  return text ? std::string_view(text) : std::string_view();
}

std::size_t clamped(int index, std::size_t length) {
  return index < 0 ? 0 : std::min(static_cast<std::size_t>(index), length);
}

std::size_t bounded_length(const char *text, int length) {
  return text && length > 0 ? static_cast<std::size_t>(length) : 0;
}

std::string_view character_at(std::string_view text, std::size_t position) {
  return text.substr(position, next_character(text, position) - position);
}

/// Whether a (one- or two-byte) character occurs in a set of characters.
bool is_among(std::string_view character, std::string_view set) {
  for (std::size_t i = 0; i < set.size(); i = next_character(set, i))
    if (character_at(set, i) == character) return true;
  return false;
}

/// Length of the longest beginning whose characters all are (or all are not) in the set.
std::size_t span(std::string_view text, std::string_view set, bool included) {
  std::size_t i = 0;
  while (i < text.size() && is_among(character_at(text, i), set) == included) i = next_character(text, i);
  return i;
}

/// Length without the characters of the set at the end.
std::size_t length_without_tail(std::string_view text, std::string_view set) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t next = next_character(text, i);
    if (!is_among(text.substr(i, next - i), set)) length = next;
    i = next;
  }
  return length;
}

/// Position of `part` at a character boundary at or after `start`; npos when absent.
std::size_t find_text(std::string_view text, std::string_view part, std::size_t start) {
  std::size_t i = 0;
  while (i < start) i = next_character(text, i);
  for (; i + part.size() <= text.size(); i = next_character(text, i)) {
    if (text.compare(i, part.size(), part) == 0) return i;
    if (i == text.size()) break;
  }
  return std::string_view::npos;
}

int as_position(std::size_t position) {
  return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

template <class Change>
void change_single_bytes(std::string &text, Change change) {
  for (std::size_t i = 0; i < text.size(); i = next_character(text, i))
    if (!framework::is_lead_byte(text[i])) text[i] = change(text[i]);
}

std::string lowered(std::string_view text) {
  std::string copy(text);
  change_single_bytes(copy, lower);
  return copy;
}

std::string formatted(const char *format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  std::string text;
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  if (length > 0) {
    text.resize(static_cast<std::size_t>(length));
    std::vsnprintf(text.data(), text.size() + 1, format, again);
  }
  va_end(again);
  return text;
}

}  // namespace

CString::CString(const char *text, int length) : text_(text ? text : "", bounded_length(text, length)) {}

CString::CString(char repeated, int count) : text_(static_cast<std::size_t>(std::max(count, 0)), repeated) {}

CString &CString::operator=(const char *text) {
  text_ = std::string(view_of(text));  // `text` may point into this text
  return *this;
}

CString &CString::operator=(char c) {
  text_.assign(1, c);
  return *this;
}

CString &CString::operator=(std::string text) noexcept {
  text_ = std::move(text);
  return *this;
}

void CString::SetAt(int index, char c) {
  if (is_inside(index)) text_[static_cast<std::size_t>(index)] = c;
}

CString &CString::operator+=(const CString &text) {
  text_ += text.text_;
  return *this;
}

CString &CString::operator+=(const char *text) {
  text_ += view_of(text);
  return *this;
}

CString &CString::operator+=(char c) {
  text_ += c;
  return *this;
}

void CString::Append(const char *text, int length) {
  const std::size_t count = bounded_length(text, length);
  if (count > 0) text_.append(text, count);
}

int CString::Compare(const char *text) const {
  return std::strcmp(text_.c_str(), text ? text : "");
}

int CString::CompareNoCase(const char *text) const {
  return std::strcmp(lowered(text_).c_str(), lowered(view_of(text)).c_str());
}

CString CString::Mid(int first, int count) const {
  const std::size_t begin = clamped(first, text_.size());
  return CString(text_.substr(begin, clamped(count, text_.size() - begin)));
}

CString CString::Right(int count) const {
  return CString(text_.substr(text_.size() - clamped(count, text_.size())));
}

CString CString::SpanIncluding(const char *characters) const {
  return CString(text_.substr(0, span(text_, view_of(characters), true)));
}

CString CString::SpanExcluding(const char *characters) const {
  return CString(text_.substr(0, span(text_, view_of(characters), false)));
}

CString CString::Tokenize(const char *delimiters, int &start) const {
  const std::string_view set = view_of(delimiters);
  const std::string_view rest = view().substr(clamped(start, text_.size()));
  const std::string_view piece = start < 0 ? std::string_view() : rest.substr(span(rest, set, true));
  if (piece.empty()) {
    start = -1;
    return {};
  }
  const std::size_t length = span(piece, set, false);
  const auto end = static_cast<std::size_t>(piece.data() - text_.data()) + length;
  start = static_cast<int>(std::min(end + 1, text_.size()));
  return CString(piece.substr(0, length));
}

int CString::Find(char c, int start) const {
  return as_position(find_text(text_, std::string_view(&c, 1), clamped(start, text_.size())));
}

int CString::Find(const char *text, int start) const {
  if (start > GetLength()) return -1;
  return as_position(find_text(text_, view_of(text), clamped(start, text_.size())));
}

int CString::FindOneOf(const char *characters) const {
  const std::size_t position = span(text_, view_of(characters), false);
  return position == text_.size() ? -1 : static_cast<int>(position);
}

int CString::ReverseFind(char c) const {
  int found = -1;
  for (std::size_t i = 0; i < text_.size(); i = next_character(text_, i))
    if (text_[i] == c) found = static_cast<int>(i);
  return found;
}

int CString::Replace(char from, char to) {
  int count = 0;
  change_single_bytes(text_, [&](char c) {
    if (c == from) ++count;
    return c == from ? to : c;
  });
  return count;
}

int CString::Replace(const char *from, const char *to) {
  const std::string old_text(view_of(from));  // the arguments may point into this text
  const std::string new_text(view_of(to));
  if (old_text.empty()) return 0;
  std::string result;
  std::size_t done = 0;
  int count = 0;
  for (std::size_t at = find_text(text_, old_text, 0); at != std::string::npos;
       at = find_text(text_, old_text, done)) {
    result.append(text_, done, at - done).append(new_text);
    done = at + old_text.size();
    ++count;
  }
  result.append(text_, done);
  text_ = std::move(result);
  return count;
}

int CString::Remove(char c) {
  std::string result;
  int count = 0;
  for (std::size_t i = 0; i < text_.size(); i = next_character(text_, i)) {
    const std::string_view character = character_at(text_, i);
    if (character.size() == 1 && character[0] == c)
      ++count;
    else
      result += character;
  }
  text_ = std::move(result);
  return count;
}

int CString::Insert(int index, char c) {
  text_.insert(clamped(index, text_.size()), 1, c);
  return GetLength();
}

int CString::Insert(int index, const char *text) {
  text_.insert(clamped(index, text_.size()), std::string(view_of(text)));
  return GetLength();
}

int CString::Delete(int index, int count) {
  const std::size_t begin = clamped(index, text_.size());
  text_.erase(begin, clamped(count, text_.size() - begin));
  return GetLength();
}

CString &CString::MakeUpper() {
  change_single_bytes(text_, upper);
  return *this;
}

CString &CString::MakeLower() {
  change_single_bytes(text_, lower);
  return *this;
}

CString &CString::Trim() {
  return TrimRight().TrimLeft();
}

CString &CString::TrimLeft() {
  text_.erase(0, span(text_, white_space, true));
  return *this;
}

CString &CString::TrimLeft(char c) {
  text_.erase(0, span(text_, std::string_view(&c, 1), true));
  return *this;
}

CString &CString::TrimLeft(const char *characters) {
  text_.erase(0, span(text_, view_of(characters), true));
  return *this;
}

CString &CString::TrimRight() {
  text_.resize(length_without_tail(text_, white_space));
  return *this;
}

CString &CString::TrimRight(char c) {
  text_.resize(length_without_tail(text_, std::string_view(&c, 1)));
  return *this;
}

CString &CString::TrimRight(const char *characters) {
  text_.resize(length_without_tail(text_, view_of(characters)));
  return *this;
}

void CString::Format(const char *format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ = formatted(format, arguments);  // arguments may point into the old text, which lives until here
  va_end(arguments);
}

void CString::AppendFormat(const char *format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ += formatted(format, arguments);
  va_end(arguments);
}

char *CString::GetBuffer(int length) {
  text_.resize(std::max(text_.size(), static_cast<std::size_t>(std::max(length, 0))));
  return text_.data();
}

void CString::ReleaseBuffer(int length) {
  text_.resize(length < 0 ? std::strlen(text_.c_str()) : clamped(length, text_.size()));
}

char *CString::GetBufferSetLength(int length) {
  text_.resize(static_cast<std::size_t>(std::max(length, 0)));
  return text_.data();
}
