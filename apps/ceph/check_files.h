#pragma once
// Files of an analysis-item folder, found and read with distrust.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app::check {

/// The name as it is on the disk; letter case counts only where two names differ in nothing else, because
/// these folders come from disks that do not tell it apart.
std::optional<std::string> find_name(const std::vector<std::string> &names, std::string_view wanted);

struct FileText {
  std::string text;
  std::string fault;  ///< why it cannot be examined; empty: it can
};

FileText read_file(const std::string &path);

}  // namespace app::check
