#pragma once
// Classes of single characters, the same in every locale.

namespace framework {

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool is_letter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
/// Space, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool is_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace framework
