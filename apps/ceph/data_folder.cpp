#include "apps/ceph/data_folder.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "apps/ceph/exit_code.h"
#include "apps/common/names.h"
#include "tool/analysis/definition_folder.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/ui/CWinApp.h"

namespace app {
namespace {

namespace fs = std::filesystem;

/// The application object whose profile tells the library its folder. The profile is this run's alone: what
/// the command line says must not outlive it.
CWinApp &application() {
  static CWinApp the_application("ceph");
  static const bool in_memory = (the_application.UseMemoryProfile(), true);
  static_cast<void>(in_memory);
  return the_application;
}

bool is_folder(const fs::path &path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

fs::path program_folder() {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

fs::path find_folder() {
  const fs::path candidates[] = {program_folder() / ".." / "share" / "tool" / "ANAITEM",
                                 CEPH_INSTALLED_DATA_DIR, program_folder() / "ANAITEM", CEPH_SOURCE_DATA_DIR};
  for (const fs::path &candidate : candidates)
    if (is_folder(candidate)) return candidate;
  throw CommandError(ExitCode::bad_data, "no analysis-item folder was found; name one with --data DIR");
}

std::string utf8_file_name(const std::string &path) {
  std::string utf8 = framework::utf8_for_display(path);
  std::replace(utf8.begin(), utf8.end(), '\\', '/');
  return utf8.substr(utf8.rfind('/') + 1);
}

std::string single_line(std::string_view cp932) {
  return framework::utf8_for_display(cp932);
}

std::optional<LoadedAnalysis> load(analysis::Mode mode, int index, const std::string &path) {
  auto analysis = analysis::Analysis::load(mode, index);
  if (!analysis) return std::nullopt;
  std::string title = single_line(analysis->file().title());
  if (title.empty()) title = utf8_file_name(path);
  return LoadedAnalysis{index, std::move(title), std::move(*analysis)};
}

std::vector<LoadedAnalysis> load_all(analysis::Mode mode) {
  std::vector<LoadedAnalysis> all;
  const std::vector<std::string> paths = analysis::definition_paths(mode);
  for (std::size_t i = 0; i < paths.size(); ++i)
    if (auto one = load(mode, static_cast<int>(i), paths[i])) all.push_back(std::move(*one));
  return all;
}

std::optional<int> as_index(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// Position of the analysis with this index, with this title, or the only one whose title holds the text;
/// letter case does not count.
std::optional<std::size_t> position_of(const std::vector<LoadedAnalysis> &all, std::string_view wanted) {
  const std::optional<int> index = as_index(wanted);
  const std::string text = lower_case(wanted);
  std::vector<std::size_t> holding;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (index ? all[i].index == *index : lower_case(all[i].title) == text) return i;
    if (!index && lower_case(all[i].title).find(text) != std::string::npos) holding.push_back(i);
  }
  if (holding.size() != 1) return std::nullopt;
  return holding.front();
}

[[noreturn]] void not_found(analysis::Mode mode, std::string_view wanted,
                            const std::vector<LoadedAnalysis> &all) {
  std::vector<std::string_view> titles;
  titles.reserve(all.size());
  for (const LoadedAnalysis &one : all) titles.push_back(one.title);
  const std::string right =
      as_index(wanted) ? "0 to " + std::to_string(all.back().index) : suggest(wanted, titles);
  throw CommandError(ExitCode::usage, "no " + std::string(mode_name(mode)) +
                                          " analysis, or more than one, is called " + in_quotes(wanted) +
                                          "; --analysis; " + right);
}

}  // namespace

void use_data_folder(const std::string &folder) {
  if (!folder.empty() && !is_folder(folder))
    throw CommandError(ExitCode::bad_data, folder + ": is not a folder; --data; the analysis-item folder");
  std::error_code error;
  const fs::path absolute = fs::weakly_canonical(folder.empty() ? find_folder() : fs::path(folder), error);
  const auto path = framework::cp932_from_utf8(absolute.string());
  if (error || !path)
    throw CommandError(ExitCode::bad_data,
                       folder + ": the path has letters that code page 932 lacks; --data; another place");
  application().WriteProfileString("DB_DIR", "ANAITEMPATH", path->c_str());
}

std::string data_folder() {
  return analysis::analysis_item_directory();
}

std::string_view mode_name(analysis::Mode mode) {
  switch (mode) {
    case analysis::Mode::lateral:
      return "lateral";
    case analysis::Mode::frontal:
      return "frontal";
    case analysis::Mode::model:
      return "cast";
    case analysis::Mode::lateral_diagnosis:
      return "diagnosis";
    case analysis::Mode::surgery:
      return "surgery";
    case analysis::Mode::frontal_second:
      break;
  }
  return "frontal, second set";
}

std::vector<LoadedAnalysis> load_analyses(analysis::Mode mode, std::string_view wanted) {
  if (mode == analysis::Mode::lateral && wanted == "-1") {
    std::vector<LoadedAnalysis> norm_file;
    if (auto one = load(mode, analysis::lateral_norm_file, "Ricketts.txt"))
      norm_file.push_back(std::move(*one));
    if (!norm_file.empty()) return norm_file;
  }
  std::vector<LoadedAnalysis> all = load_all(mode);
  if (all.empty())
    throw CommandError(ExitCode::bad_data, framework::utf8_for_display(data_folder()) + ": holds no " +
                                               std::string(mode_name(mode)) +
                                               " analysis; its list.txt; the analysis-item folder (--data)");
  if (wanted == "all") return all;
  const auto position = wanted.empty() ? std::optional<std::size_t>(0) : position_of(all, wanted);
  if (!position) not_found(mode, wanted, all);
  std::vector<LoadedAnalysis> chosen;
  chosen.push_back(std::move(all[*position]));
  return chosen;
}

std::vector<ListedAnalysis> list_analyses(analysis::Mode mode) {
  std::vector<ListedAnalysis> all;
  const std::vector<std::string> paths = analysis::definition_paths(mode);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const auto file = analysis::DefinitionFile::read(paths[i].c_str());
    all.push_back({static_cast<int>(i), utf8_file_name(paths[i]), file.has_value(),
                   file ? single_line(file->title()) : "", file ? single_line(file->comment()) : ""});
  }
  return all;
}

}  // namespace app
