#pragma once
// Films for the benchmarks: head films around a plausible profile, generated from a fixed, printed seed.

#include <cstdint>
#include <string>
#include <vector>

#include "tool/analysis/records.h"

namespace bench {

inline constexpr std::uint32_t film_seed = 20261122;

/// `count` lateral tracings at 0.1 mm per pixel, every landmark placed.
std::vector<tagPOINTLAT> generated_films(std::size_t count);

/// A throw-away analysis-item folder with one lateral analysis, in the application's profile while it lives.
class DefinitionFolder {
 public:
  explicit DefinitionFolder(const std::string &analysis_text);
  ~DefinitionFolder();
  DefinitionFolder(const DefinitionFolder &) = delete;
  DefinitionFolder &operator=(const DefinitionFolder &) = delete;
  const std::string &list_path() const { return list_path_; }
  const std::string &analysis_path() const { return analysis_path_; }

 private:
  std::string root_;
  std::string list_path_;
  std::string analysis_path_;
};

/// Forty items as an analysis of the field has them: angles, lengths, constructions, references, norms.
std::string forty_item_analysis();

/// The eight published measures of a head film as an analysis.
std::string eight_measures_analysis();

}  // namespace bench
