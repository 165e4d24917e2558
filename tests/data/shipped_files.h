#pragma once
// The shipped analysis-item folder, read byte by byte without the library, for the tests that judge the data.

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace shipped {

inline const std::filesystem::path root = TOOL_SOURCE_DIR "/data/ANAITEM";

inline std::string read_bytes(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Pieces between the separators; a text without one is one piece.
inline std::vector<std::string> split(const std::string &text, std::string_view separator) {
  std::vector<std::string> pieces;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(separator, from)) != std::string::npos; from = at + separator.size())
    pieces.push_back(text.substr(from, at - from));
  pieces.push_back(text.substr(from));
  return pieces;
}

/// Without the empty piece behind the last line end.
inline std::vector<std::string> lines_of(const std::filesystem::path &path) {
  auto lines = split(read_bytes(path), "\r\n");
  if (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

inline std::vector<std::filesystem::path> all_files() {
  std::vector<std::filesystem::path> files;
  for (const auto &entry : std::filesystem::recursive_directory_iterator(root))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

using KeyValue = std::pair<std::string, std::string>;
inline KeyValue key_value(const std::string &line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) return {line, ""};
  return {line.substr(0, equals), line.substr(equals + 1)};
}

/// Content lines by keyword, the keyword in small letters: "calc:", "mean_m:" and so on.
using Blocks = std::map<std::string, std::vector<std::string>>;

inline constexpr std::array<std::string_view, 18> keywords{
    "title:",   "comment:", "calc:",  "calc2:",  "stage_type:",  "stage_m:",
    "stage_f:", "stage:",   "mean:",  "mean_m:", "mean_f:",      "sd:",
    "sd_m:",    "sd_f:",    "param:", "diag:",   "stage_type2:", "stage2:"};

inline Blocks blocks_of(const std::filesystem::path &path) {
  Blocks blocks;
  std::string block;
  for (const std::string &line : lines_of(path)) {
    std::string small = line;
    std::transform(small.begin(), small.end(), small.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (std::find(keywords.begin(), keywords.end(), small) != keywords.end())
      blocks[block = small];
    else
      blocks[block].push_back(line);
  }
  return blocks;
}

inline std::vector<std::filesystem::path> definition_files() {
  auto files = all_files();
  std::erase_if(files, [](const auto &path) {
    return !path.parent_path().filename().string().starts_with("CalcForm") || path.filename() == "list.txt";
  });
  return files;
}

/// Texts between an opening and the next closing mark.
inline std::vector<std::string> between(const std::string &text, char open, char close) {
  std::vector<std::string> found;
  for (std::size_t at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
    const std::size_t end = text.find(close, at + 1);
    if (end == std::string::npos) break;
    found.push_back(text.substr(at + 1, end - at - 1));
    at = end + 1;
  }
  return found;
}

}  // namespace shipped
