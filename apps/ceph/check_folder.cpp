#include "apps/ceph/check_folder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <map>
#include <optional>

#include "apps/ceph/check_coefficients.h"
#include "apps/ceph/check_definition.h"
#include "apps/ceph/check_display.h"
#include "apps/ceph/check_files.h"
#include "apps/common/names.h"
#include "tool/framework/files/file_system.h"
#include "tool/framework/text/cp932.h"

namespace app::check {
namespace {

using analysis::RecordKind;

enum class Role { definitions, displays, surgery };

struct FolderRule {
  std::string_view name;  // empty: the analysis-item folder itself
  Role role;
  RecordKind kind;
  std::string_view direct_file;  // read without standing in the list
};
constexpr std::array<FolderRule, 8> folder_rules{{
    {"CalcForm", Role::definitions, RecordKind::lateral, "Ricketts.txt"},
    {"CalcForm_PA", Role::definitions, RecordKind::frontal, ""},
    {"CalcForm_Model", Role::definitions, RecordKind::model, ""},
    {"CalcForm_Diag", Role::definitions, RecordKind::lateral, ""},
    {"CalcForm_Surg", Role::surgery, RecordKind::lateral, "Surgery.txt"},
    {"CalcMode", Role::displays, RecordKind::lateral, ""},
    {"CalcMode_PA", Role::displays, RecordKind::frontal, ""},
    {"CalcMode_Model", Role::displays, RecordKind::model, ""},
}};

bool is_text_file(std::string_view name) {
  const std::string small = lower_case(name);
  return small.size() > 4 && small.compare(small.size() - 4, 4, ".txt") == 0;
}

/// Reads a file; reports the one that cannot be read.
std::optional<Source> open_source(const std::string &path, std::string shown, FolderReport &report) {
  ++report.files;
  FileText file = read_file(path);
  if (file.fault.empty()) return Source(std::move(shown), std::move(file.text), report.findings);
  report.findings.push_back({std::move(shown), 0, 0, Severity::error, std::move(file.fault)});
  return std::nullopt;
}

class FolderCheck {
 public:
  FolderCheck(std::string path, std::string shown, const FolderRule &rule, const CheckOptions &options,
              FolderReport &report)
      : path_(std::move(path)),
        shown_(std::move(shown)),
        rule_(rule),
        vocabulary_{rule.kind, options.user_points},
        report_(report) {
    auto names = framework::file_system().list(path_.c_str());
    if (!names) {
      finding(shown_.empty() ? "." : shown_,
              std::string("the folder cannot be listed: ") + std::strerror(errno));
      return;
    }
    names_ = std::move(*names);
  }

  void run() {
    if (rule_.role == Role::surgery) return surgery();
    if (names_.empty()) return;
    list();
    if (!rule_.direct_file.empty()) direct_file();
    if (!rule_.name.empty()) unlisted();
  }

 private:
  std::string shown(const std::string &name) const { return shown_.empty() ? name : shown_ + "/" + name; }

  void finding(const std::string &file, std::string message, Severity severity = Severity::error) {
    report_.findings.push_back({file, 0, 0, severity, std::move(message)});
  }

  std::optional<Source> open(const std::string &name) {
    return open_source(path_ + "/" + name, shown(name), report_);
  }

  void surgery() {
    const auto name = find_name(names_, rule_.direct_file);
    if (!name)
      return finding(shown(std::string(rule_.direct_file)),
                     "the file is missing: the surgery analysis is empty");
    examine(*name, false);
  }

  void direct_file() {
    const auto name = find_name(names_, rule_.direct_file);
    if (!name)
      finding(shown(std::string(rule_.direct_file)),
              "the file is missing: the built-in lateral analysis has no norms", Severity::warning);
    else if (examined_.emplace(lower_case(*name), 0).second)
      examine(*name, false);
  }

  // The list
  // ---------------------------------------------------------------------------------------------------
  void list() {
    const auto name = find_name(names_, "list.txt");
    if (!name) return finding(shown("list.txt"), "the list is missing: no file of this folder is found");
    auto source = open(*name);
    if (!source) return;
    source->check_bytes();
    bool empty = true;
    for (std::size_t i = 0; i < source->lines().size(); ++i) {
      const std::string_view line = source->lines()[i].text;
      if (line.empty()) continue;
      empty = false;
      entry(*source, i, line);
    }
    if (empty) source->report_file(Severity::warning, "the list names no file");
  }

  void entry(Source &source, std::size_t line, std::string_view text) {
    std::string_view file = text;
    if (rule_.role == Role::displays) {
      const std::size_t comma = text.find(',');
      if (comma == std::string_view::npos)
        return source.report(line, 0, Severity::warning, "ignored: a line is written number,file");
      const std::string_view number = trim(text.substr(0, comma));
      if (!is_plain_number(number) || number.find('.') != std::string_view::npos)
        source.report(line, 0, Severity::error, show(number) + " is not a whole number");
      file = text.substr(comma + 1);
    }
    const std::string wanted = framework::utf8_for_display(file);
    const auto name = find_name(names_, wanted);
    if (!name) return missing(source, line, file);
    const auto [first, fresh] = examined_.emplace(lower_case(*name), line + 1);
    if (fresh)
      examine(*name, true);
    else
      source.report_at(line, file, Severity::warning,
                       show(file) + " already stands in line " + std::to_string(first->second));
  }

  void missing(Source &source, std::size_t line, std::string_view file) {
    if (find_name(names_, framework::utf8_for_display(trim(file))))
      return source.report_at(line, file, Severity::error,
                              show(file) + " has blanks around the name of a file");
    std::vector<std::string_view> candidates;
    for (const std::string &name : names_)
      if (lower_case(name) != "list.txt") candidates.push_back(name);
    const auto near = nearest_name(framework::utf8_for_display(file), candidates);
    source.report_at(
        line, file, Severity::error,
        "file " + show(file) + " is missing" + (near ? "; did you mean " + in_quotes(*near) + "?" : ""));
  }

  void unlisted() {
    for (const std::string &name : names_) {
      if (!is_text_file(name) || lower_case(name) == "list.txt" || examined_.contains(lower_case(name)))
        continue;
      const DefinitionSummary summary = examine(name, false);
      const bool linked_norms = rule_.kind == RecordKind::model && summary.has_norms && !summary.has_items;
      if (!linked_norms)
        finding(shown(name), "the file is not in list.txt and is never shown", Severity::warning);
    }
  }

  DefinitionSummary examine(const std::string &name, bool listed) {
    auto source = open(name);
    if (!source) return {};
    if (rule_.role == Role::displays) {
      check_display(*source, vocabulary_);
      return {};
    }
    const DefinitionSummary summary = check_definition(*source, vocabulary_);
    if (listed && !summary.has_title) source->report_file(Severity::warning, "the file has no title");
    return summary;
  }

  std::string path_;
  std::string shown_;
  const FolderRule &rule_;
  Vocabulary vocabulary_;
  FolderReport &report_;
  std::vector<std::string> names_;
  std::map<std::string, std::size_t> examined_;  // line of the list, 0: read without it
};

/// Findings of a file in the order of its lines; files stay in the order of examination.
void sort_by_line(std::vector<Finding> &findings) {
  std::map<std::string, std::size_t> order;
  for (const Finding &finding : findings) order.emplace(finding.file, order.size());
  std::stable_sort(findings.begin(), findings.end(), [&](const Finding &a, const Finding &b) {
    const auto key = [&](const Finding &f) { return std::tuple(order[f.file], f.line, f.column); };
    return key(a) < key(b);
  });
}

const FolderRule *rule_for(std::string_view folder_name) {
  const auto found = std::find_if(folder_rules.begin(), folder_rules.end(), [&](const FolderRule &rule) {
    return lower_case(rule.name) == lower_case(folder_name);
  });
  return found == folder_rules.end() ? nullptr : &*found;
}

/// The second frontal set lies in the analysis-item folder itself.
constexpr FolderRule own_definitions{"", Role::definitions, RecordKind::frontal, ""};

std::string_view last_part(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

std::size_t FolderReport::count(Severity severity) const {
  return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(),
                                                [&](const Finding &f) { return f.severity == severity; }));
}

FolderReport check_folder(const std::string &path, const CheckOptions &options) {
  FolderReport report;
  if (const FolderRule *rule = rule_for(last_part(path))) {
    FolderCheck(path, "", *rule, options, report).run();
  } else if (const auto names = framework::file_system().list(path.c_str())) {
    for (const FolderRule &folder : folder_rules) {
      const auto name = find_name(*names, folder.name);
      if (name) FolderCheck(path + "/" + *name, *name, folder, options, report).run();
    }
    if (find_name(*names, "list.txt")) FolderCheck(path, "", own_definitions, options, report).run();
    if (const auto name = find_name(*names, "cvba.dat"))
      if (auto source = open_source(path + "/" + *name, *name, report)) check_coefficients(*source);
  }
  sort_by_line(report.findings);
  return report;
}

}  // namespace app::check
