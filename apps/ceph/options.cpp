#include "apps/ceph/options.h"

#include <CLI/CLI.hpp>
#include <map>

#include "apps/ceph/exit_code.h"
#include "apps/common/tracing_parts.h"

namespace app {
namespace {

/// A check whose message is what throws InputError.
template <typename Check>
std::function<std::string(const std::string &)> checked(Check check) {
  return [check](const std::string &text) -> std::string {
    try {
      check(text);
      return {};
    } catch (const InputError &error) {
      return error.what();
    }
  };
}

double as_number(const std::string &text) {
  double value = 0.0;
  if (!CLI::detail::lexical_cast(text, value)) throw InputError("\"" + text + "\" is not a number", "");
  return value;
}

}  // namespace

void DataOptions::add_to(CLI::App &command) {
  command.add_option("--data", folder, "Analysis-item folder (default: the installed one)")->type_name("DIR");
}

void InputOptions::add_to(CLI::App &command) {
  command.add_option("--film", film, "Film of a CSV file that holds several")->type_name("ID");
  command.add_option("--scale", scale, "Millimetres per pixel, for a file that states none")
      ->type_name("MM")
      ->check(checked([](const std::string &text) { checked_scale(as_number(text), ""); }));
}

TracingFile InputOptions::read(const std::string &path) const {
  try {
    return read_tracing_file(path, film, ReadOptions{scale});
  } catch (const InputError &error) {
    throw CommandError(ExitCode::bad_input, (path == "-" ? "standard input" : path) + ": " + error.what());
  }
}

void PatientOptions::add_to(CLI::App &command) {
  static const std::map<std::string, int> sexes{{"male", 1}, {"female", 2}};
  command.add_option("--sex", sex, "male or female; wins over the file")
      ->type_name("SEX")
      ->transform(CLI::CheckedTransformer(sexes).description(""));
  command.add_option("--age", age, "Age in years; wins over the file")
      ->type_name("YEARS")
      ->check(checked([](const std::string &text) { checked_age(as_number(text), ""); }));
  command.add_option("--age-code", age_code, "Norm columns themselves: second set x 100 + first set, from 0")
      ->type_name("N")
      ->check(CLI::Range(0, 9999));
  command
      .add_option("--magnification", magnification, "Of the radiograph; wins over the file (default: 1.1)")
      ->type_name("M")
      ->check(checked([](const std::string &text) { checked_magnification(as_number(text), ""); }));
}

void PrecisionOption::add_to(CLI::App &command) {
  static const std::map<std::string, int> codes{{"1", 1}, {"2", 2}, {"half", 9}};
  command.add_option("--precision", chosen, "Decimals of values: 1, 2 or half (nearest half)")
      ->type_name("P")
      ->transform(CLI::CheckedTransformer(codes).description(""));
}

void OutputOptions::add_to(CLI::App &command) {
  static const std::map<std::string, Format> formats{
      {"text", Format::text}, {"csv", Format::csv}, {"json", Format::json}, {"html", Format::html}};
  static const std::map<std::string, ColorChoice> colors{
      {"auto", ColorChoice::automatic}, {"always", ColorChoice::always}, {"never", ColorChoice::never}};
  command.add_option("--format", format, "text, csv, json or html")
      ->type_name("FORMAT")
      ->transform(CLI::CheckedTransformer(formats).description(""));
  command.add_option("--color", color, "auto, always or never (NO_COLOR is respected)")
      ->type_name("WHEN")
      ->transform(CLI::CheckedTransformer(colors).description(""));
  command.add_option("-o,--output", path, "Write to a file, which appears only when complete")
      ->type_name("FILE");
}

void TracingOptions::add_analysis_to(CLI::App &command, const char *help) {
  command.add_option("--analysis", analysis, help)->type_name("N");
}

void TracingOptions::add_rest_to(CLI::App &command) {
  input.add_to(command);
  data.add_to(command);
  patient.add_to(command);
  precision.add_to(command);
  output.add_to(command);
}

}  // namespace app
