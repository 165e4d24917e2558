// ceph date: Christian dates and Japanese eras, ages, and how the application shows them.

#include <CLI/CLI.hpp>
#include <memory>

#include "apps/ceph/commands.h"
#include "apps/ceph/date_argument.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "tool/api/CTools.h"
#include "tool/calendar/age.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

constexpr int date_modes = 5;  ///< 0 to 4
constexpr int age_modes = 6;   ///< 0 to 5

struct Options {
  std::string date;
  std::string reference;  ///< of the age; empty: no age
  std::string eras;       ///< file; empty: looked for
  OutputOptions output;
};

std::string utf8(const CString &text) {
  return framework::utf8_for_display(text.view());
}

Fact number_fact(const char *key, const char *title, int number) {
  return {key, title, std::to_string(number), static_cast<double>(number)};
}

/// "2020-01-05" as far as it is known.
std::string iso_text(calendar::Date date) {
  const std::string stored = calendar::stored_text(date);
  std::string text = stored.substr(0, 4);
  if (date.month != 0) text += '-' + stored.substr(4, 2);
  if (date.day != 0) text += '-' + stored.substr(6, 2);
  return text;
}

void add_era(Report &report, calendar::Date date, const calendar::EraTable &eras) {
  const calendar::EraYear found = calendar::find_era(eras.ranges, date);
  if (found.era < 0) {
    report.notes.emplace_back("The date belongs to no era of the table.");
    return;
  }
  report.facts.push_back({"era", "Era", utf8(eras.names[found.era]), {}});
  report.facts.push_back({"era_code", "Code", utf8(eras.codes[found.era]), {}});
  report.facts.push_back(number_fact("era_year", "Year", found.year));
  if (date.day == 0) report.notes.emplace_back("An unknown month or day counts as 1 to find the era.");
}

void add_age(Report &report, calendar::Date birth, calendar::Date reference) {
  const calendar::Age age = calendar::age(birth, reference);
  report.facts.push_back({"at", "Age at", iso_text(reference), {}});
  report.facts.push_back(number_fact("age_years", "Years", age.years));
  report.facts.push_back(number_fact("age_months", "Months", age.months));
  report.facts.push_back(
      number_fact("months_in_all", "Months in all", calendar::age_in_months(birth, reference)));
}

Row display_row(const char *what, int mode, const CString &text) {
  return {false, {{what, {}}, {std::to_string(mode), static_cast<double>(mode)}, {utf8(text), {}}}, {}};
}

Table displays(calendar::Date date, const std::optional<calendar::Date> &reference) {
  Table table;
  table.key = "displays";
  table.title = "Display modes";
  table.columns = {{"what", "What"}, {"mode", "Mode", Align::right}, {"text", "Text"}};
  table.value_column = 2;
  const std::string stored = calendar::stored_text(date);
  for (int mode = 0; mode < date_modes; ++mode) {
    const CString text = CTools::MakeDate(stored.c_str(), static_cast<unsigned>(mode), nullptr);
    table.rows.push_back(display_row("date", mode, text));
    if (text.IsEmpty())
      table.rows.back().reason = "the era calendar needs a whole date from its first day on";
  }
  if (!reference) return table;
  const std::string reference_stored = calendar::stored_text(*reference);
  for (int mode = 0; mode < age_modes; ++mode)
    table.rows.push_back(display_row(
        "age", mode,
        CTools::MakeAge(stored.c_str(), reference_stored.c_str(), static_cast<unsigned short>(mode))));
  return table;
}

int run(const Options &options) {
  const calendar::EraTable eras = load_eras(options.eras);
  const calendar::Date date = date_argument(options.date, eras);
  std::optional<calendar::Date> reference;
  if (!options.reference.empty()) reference = date_argument(options.reference, eras);
  Report report;
  report.title = "Date";
  report.facts.push_back({"date", "Date", iso_text(date), {}});
  add_era(report, date, eras);
  if (reference) add_age(report, date, *reference);
  report.tables.push_back(displays(date, reference));
  deliver(report, options.output);
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_date_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("date", "Christian dates, Japanese eras and ages");
  const auto options = std::make_shared<Options>();
  command->add_option("DATE", options->date, "2020-01-05, 20200105, an era date like R2.1.5, or today")
      ->required();
  command->add_option("--at", options->reference, "The age at this date of somebody born on DATE")
      ->type_name("DATE");
  command->add_option("--eras", options->eras, "Era table (default: the installed Era.dat)")
      ->type_name("FILE");
  options->output.add_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
