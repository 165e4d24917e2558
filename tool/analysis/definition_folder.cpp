#include "tool/analysis/definition_folder.h"

#include <optional>

#include "tool/analysis/definition_file.h"
#include "tool/env/files.h"
#include "tool/env/path.h"
#include "tool/env/settings.h"
#include "tool/framework/text/decimal.h"
#include "tool/framework/ui/CWinApp.h"

namespace analysis {
namespace {

const char *analysis_folder(Mode mode) {
  switch (mode) {
    case Mode::lateral:
      return "CalcForm";
    case Mode::frontal:
      return "CalcForm_PA";
    case Mode::model:
      return "CalcForm_Model";
    case Mode::lateral_diagnosis:
      return "CalcForm_Diag";
    default:
      return "";
  }
}

const char *display_folder(Mode mode) {
  switch (mode) {
    case Mode::lateral:
      return "CalcMode";
    case Mode::frontal:
      return "CalcMode_PA";
    case Mode::model:
      return "CalcMode_Model";
    default:
      return "";
  }
}

std::string analysis_path(Mode mode) {
  return env::with_trailing_delimiter(analysis_item_directory() + analysis_folder(mode));
}

/// The non-empty lines of a folder's list, in order.
class ListFile {
 public:
  explicit ListFile(const std::string &folder) : file_(DefinitionFile::read((folder + "list.txt").c_str())) {}

  std::optional<std::string_view> entry(int index) const {
    if (!file_ || index < 0) return std::nullopt;
    for (const Line &line : file_->lines()) {
      if (!line.text.empty() && index-- == 0) return line.text;
    }
    return std::nullopt;
  }
  std::span<const Line> lines() const { return file_ ? file_->lines() : std::span<const Line>(); }

 private:
  std::optional<DefinitionFile> file_;
};

}  // namespace

std::string analysis_item_directory() {
  const CString configured = AfxGetApp()->GetProfileString("DB_DIR", "ANAITEMPATH", "");
  if (!configured.IsEmpty()) return env::with_trailing_delimiter(std::string(configured.view()));
  return env::application_folder(false) + "ANAITEM\\";
}

std::string definition_path(Mode mode, int index) {
  if (mode == Mode::surgery) return analysis_item_directory() + "CalcForm_Surg\\Surgery.txt";
  if (mode == Mode::lateral && index == lateral_norm_file)
    return analysis_item_directory() + "CalcForm\\Ricketts.txt";
  std::string folder = analysis_path(mode);
  const ListFile list(folder);
  const std::optional<std::string_view> name = list.entry(index);
  if (!name) return {};
  return folder.append(*name);
}

std::vector<std::string> definition_paths(Mode mode) {
  if (mode == Mode::surgery) return {definition_path(mode, 0)};
  const std::string folder = analysis_path(mode);
  const ListFile list(folder);
  std::vector<std::string> paths;
  for (const Line &line : list.lines()) {
    if (!line.text.empty()) paths.push_back(std::string(folder).append(line.text));
  }
  return paths;
}

std::vector<DisplayListEntry> display_setting_list(Mode mode) {
  const std::string folder = env::with_trailing_delimiter(analysis_item_directory() + display_folder(mode));
  const ListFile list(folder);
  std::vector<DisplayListEntry> entries;
  for (const Line &line : list.lines()) {
    const std::size_t comma = line.text.find(',');
    if (comma == std::string_view::npos) continue;
    entries.push_back({framework::whole_number(line.text.substr(0, comma)),
                       std::string(folder).append(line.text.substr(comma + 1))});
  }
  return entries;
}

std::string display_setting_path(Mode mode, int index) {
  for (const DisplayListEntry &entry : display_setting_list(mode)) {
    if (env::file_exists(entry.path.c_str()) && index-- == 0) return entry.path;
  }
  return {};
}

}  // namespace analysis
