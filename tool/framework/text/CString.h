#pragma once
// The framework's 8-bit text, code page 932. It may hold zero characters; as a `const char *` it then ends at
// the first one. Positions and counts are bytes; positions outside the text are brought inside, never
// followed. Searching, trimming and letter case step over two-byte characters, so the second byte of one is
// never taken for a letter, a blank or a delimiter. Comparison is by byte value.

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "tool/framework/types.h"

class CString {
 public:
  CString() = default;
  CString(const char *text) : text_(text ? text : "") {}
  CString(const char *text, int length);
  explicit CString(char repeated, int count = 1);
  explicit CString(std::string text) noexcept : text_(std::move(text)) {}
  explicit CString(std::string_view text) : text_(text) {}
  CString &operator=(const char *text);
  CString &operator=(char c);
  CString &operator=(std::string text) noexcept;

  // Access
  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }
  void Empty() { text_.clear(); }
  /// The zero character outside the text.
  char GetAt(int index) const { return is_inside(index) ? text_[static_cast<std::size_t>(index)] : '\0'; }
  char operator[](int index) const { return GetAt(index); }
  /// Nothing outside the text.
  void SetAt(int index, char c);
  operator const char *() const { return text_.c_str(); }
  const char *GetString() const { return text_.c_str(); }
  std::string_view view() const { return text_; }
  const std::string &str() const { return text_; }

  // Joining
  CString &operator+=(const CString &text);
  CString &operator+=(const char *text);
  CString &operator+=(char c);
  void Append(const char *text) { *this += text; }
  void Append(const char *text, int length);
  void AppendChar(char c) { *this += c; }
  friend CString operator+(CString a, const CString &b) { return std::move(a += b); }
  friend CString operator+(CString a, const char *b) { return std::move(a += b); }
  friend CString operator+(CString a, char b) { return std::move(a += b); }
  friend CString operator+(const char *a, const CString &b) { return std::move(CString(a) += b); }
  friend CString operator+(char a, const CString &b) { return std::move(CString(a) += b); }

  // Comparing: negative, 0 or positive
  int Compare(const char *text) const;
  int CompareNoCase(const char *text) const;
  friend bool operator==(const CString &a, const CString &b) { return a.text_ == b.text_; }
  friend bool operator==(const CString &a, const char *b) { return a.Compare(b) == 0; }
  friend std::strong_ordering operator<=>(const CString &a, const CString &b) {
    return a.text_.compare(b.text_) <=> 0;
  }
  friend std::strong_ordering operator<=>(const CString &a, const char *b) { return a.Compare(b) <=> 0; }

  // Parts
  CString Mid(int first) const { return Mid(first, GetLength()); }
  CString Mid(int first, int count) const;
  CString Left(int count) const { return Mid(0, count); }
  CString Right(int count) const;
  /// The longest beginning made of (made without) the characters of a set.
  CString SpanIncluding(const char *characters) const;
  CString SpanExcluding(const char *characters) const;
  /// The next piece from `start` on, cut at any of the delimiters; runs of delimiters count as one. `start`
  /// moves behind the piece and is -1 once there is none.
  CString Tokenize(const char *delimiters, int &start) const;

  // Searching: a position, or -1
  int Find(char c, int start = 0) const;
  int Find(const char *text, int start = 0) const;
  int FindOneOf(const char *characters) const;
  int ReverseFind(char c) const;

  // Changing
  int Replace(char from, char to);                ///< number of replacements
  int Replace(const char *from, const char *to);  ///< number of replacements
  int Remove(char c);                             ///< number of characters removed
  int Insert(int index, char c);                  ///< new length
  int Insert(int index, const char *text);        ///< new length
  int Delete(int index, int count = 1);           ///< new length
  CString &MakeUpper();                           ///< ASCII letters
  CString &MakeLower();                           ///< ASCII letters
  CString &Trim();                                ///< white space
  CString &Trim(char c) { return TrimRight(c).TrimLeft(c); }
  CString &Trim(const char *characters) { return TrimRight(characters).TrimLeft(characters); }
  CString &TrimLeft();
  CString &TrimLeft(char c);
  CString &TrimLeft(const char *characters);
  CString &TrimRight();
  CString &TrimRight(char c);
  CString &TrimRight(const char *characters);

  // Formatting, as printf does
  void Format(const char *format, ...) __attribute__((format(printf, 2, 3)));
  void AppendFormat(const char *format, ...) __attribute__((format(printf, 2, 3)));

  // Writing into the text directly
  /// Room for at least `length` bytes and a terminator; call ReleaseBuffer afterwards.
  char *GetBuffer(int length = 0);
  /// Fixes the new length; -1: up to the first zero character.
  void ReleaseBuffer(int length = -1);
  char *GetBufferSetLength(int length);

 private:
  bool is_inside(int index) const { return index >= 0 && index < GetLength(); }

  std::string text_;
};

template <>
struct std::hash<CString> {
  std::size_t operator()(const CString &text) const noexcept { return std::hash<std::string>()(text.str()); }
};
