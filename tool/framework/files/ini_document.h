#pragma once
// An ini text: sections in brackets, "key = value" lines, comments after ';'. Section and key names are
// compared with letter case ignored. Changing a value touches only its line; everything else stays byte for
// byte.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace framework {

struct IniEntry {
  std::string_view key;
  std::string_view value;  ///< as IniDocument::find gives it
};

class IniDocument {
 public:
  IniDocument() = default;
  explicit IniDocument(std::string_view text);

  /// The value without surrounding blanks and one pair of quotes; valid until the document changes. Of equal
  /// keys or sections the first counts.
  std::optional<std::string_view> find(std::string_view section, std::string_view key) const;
  std::vector<std::string_view> sections() const;
  std::vector<std::string_view> keys(std::string_view section) const;
  /// Every key of a section with its value, in order; of equal keys the first counts.
  std::vector<IniEntry> entries(std::string_view section) const;

  /// Sets a value as it is, without quotes; a missing key is added to the end of its section, a missing
  /// section to the end. False, with nothing changed, for names or values that an ini text cannot hold: line
  /// ends and zero characters anywhere, an empty key, '=' in a key, a key like a section or a comment, ']' in
  /// a section.
  bool set(std::string_view section, std::string_view key, std::string_view value);
  void remove(std::string_view section, std::string_view key);
  void remove_section(std::string_view section);

  std::string text() const;

 private:
  struct Line {
    std::string text;  ///< without its end
    std::string end;   ///< CR LF, LF, CR, or nothing in the last line
  };
  using Position = std::vector<Line>::size_type;

  Position section_begin(
      std::string_view section) const;  ///< the line after the heading; past the end if missing
  Position section_end(Position begin) const;
  Position key_line(std::string_view section, std::string_view key) const;
  void insert_line(Position position, std::string text);

  std::vector<Line> lines_;
};

/// Keeps any text on one line of an ini document, for the stores that must give back exactly what was
/// written: plain where it survives as it is, in quotes where blanks or quotes surround it, and as "hex:"
/// digits where it holds control characters.
std::string protected_value(std::string_view value);
std::string unprotected_value(std::string_view stored);

}  // namespace framework
