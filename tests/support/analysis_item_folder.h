#pragma once
// A throw-away analysis-item folder that the application's profile points to while it lives.

#include <filesystem>
#include <string>
#include <string_view>

namespace support {

class AnalysisItemFolder {
 public:
  AnalysisItemFolder();
  ~AnalysisItemFolder();
  AnalysisItemFolder(const AnalysisItemFolder &) = delete;
  AnalysisItemFolder &operator=(const AnalysisItemFolder &) = delete;

  /// Writes a text whose lines end in LF as a file with CR LF, as definition files come from the field.
  void write(const std::string &relative_path, std::string_view text) const;
  void write_bytes(const std::string &relative_path, std::string_view bytes) const;
  /// A lateral analysis listed as file 0 of its folder.
  void write_lateral(std::string_view text) const;
  /// The folder's path with a trailing '/'.
  const std::string &path() const { return path_; }

 private:
  std::string path_;
};

/// The text with CR LF line ends.
std::string crlf(std::string_view text);

}  // namespace support
