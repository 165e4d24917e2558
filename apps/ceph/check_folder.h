#pragma once
// All rules over an analysis-item folder: its lists, and every definition and display-setting file.

#include <set>
#include <string>
#include <vector>

#include "apps/ceph/check_source.h"

namespace app::check {

struct CheckOptions {
  std::set<std::string, std::less<>> user_points;  ///< known besides the landmarks, code page 932
};

struct FolderReport {
  std::size_t files = 0;  ///< examined, lists included
  std::vector<Finding> findings;
  std::size_t count(Severity severity) const;
};

/// `path` (UTF-8) is an analysis-item folder or one of the folders in it. A folder that holds nothing to
/// examine yields no files.
FolderReport check_folder(const std::string &path, const CheckOptions &options = {});

}  // namespace app::check
