#pragma once
// The options that several subcommands share, and how they are added to one.

#include <optional>
#include <string>

#include "apps/common/tracing_file.h"

namespace CLI {
class App;
}

namespace app {

/// The analysis-item folder.
struct DataOptions {
  std::string folder;  ///< empty: looked for
  void add_to(CLI::App &command);
};

/// How a tracing file is read.
struct InputOptions {
  std::string film;             ///< of a CSV file with several rows
  std::optional<double> scale;  ///< for a file that states none
  void add_to(CLI::App &command);
  /// Reads a tracing; a fault becomes a CommandError that names the file.
  TracingFile read(const std::string &path) const;
};

/// Who the norms are for; what is set here wins over the tracing file.
struct PatientOptions {
  std::optional<int> sex;  ///< 1 male, 2 female
  std::optional<double> age;
  std::optional<int> age_code;
  std::optional<double> magnification;
  void add_to(CLI::App &command);
};

/// Decimals of values: the library's precision code.
struct PrecisionOption {
  std::optional<int> chosen;
  int code() const { return chosen.value_or(1); }
  void add_to(CLI::App &command);
};

enum class Format { text, csv, json, html };
enum class ColorChoice { automatic, always, never };

struct OutputOptions {
  Format format = Format::text;
  ColorChoice color = ColorChoice::automatic;
  std::string path;  ///< empty: standard output
  void add_to(CLI::App &command);
};

/// What every command about one tracing takes.
struct TracingOptions {
  std::string path;      ///< "-": standard input
  std::string analysis;  ///< index, title or "all"; empty: the command's default
  InputOptions input;
  DataOptions data;
  PatientOptions patient;
  PrecisionOption precision;
  OutputOptions output;
  TracingFile read() const { return input.read(path); }
  void add_analysis_to(CLI::App &command, const char *help);
  /// All but the path and the analysis.
  void add_rest_to(CLI::App &command);
};

}  // namespace app
