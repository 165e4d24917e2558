#include "tests/support/analysis_item_folder.h"

#include <cstdlib>
#include <fstream>

#include "tool/framework/ui/CWinApp.h"

namespace support {

std::string crlf(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

AnalysisItemFolder::AnalysisItemFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "anaitem-XXXXXX").string();
  if (!mkdtemp(pattern.data())) std::abort();
  path_ = pattern + "/";
  AfxGetApp()->WriteProfileString("DB_DIR", "ANAITEMPATH", path_.c_str());
}

AnalysisItemFolder::~AnalysisItemFolder() {
  AfxGetApp()->WriteProfileString("DB_DIR", "ANAITEMPATH", "");
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void AnalysisItemFolder::write(const std::string &relative_path, std::string_view text) const {
  write_bytes(relative_path, crlf(text));
}

void AnalysisItemFolder::write_bytes(const std::string &relative_path, std::string_view bytes) const {
  const std::filesystem::path file = path_ + relative_path;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

void AnalysisItemFolder::write_lateral(std::string_view text) const {
  write("CalcForm/list.txt", "Analysis.txt\n");
  write("CalcForm/Analysis.txt", text);
}

}  // namespace support
