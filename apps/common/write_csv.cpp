#include "apps/common/csv.h"
#include "apps/common/report_writers.h"

namespace app {
namespace {

bool is_data(const Column &column) {
  return column.audience != Audience::shown;
}

std::string line(const std::vector<std::string> &fields) {
  std::string text;
  for (std::size_t i = 0; i < fields.size(); ++i) text += (i > 0 ? "," : "") + csv_field(fields[i]);
  return text + "\r\n";
}

std::vector<std::string> titles(const Table &table) {
  std::vector<std::string> all;
  for (const Column &column : table.columns)
    if (is_data(column)) all.push_back(column.key);
  all.emplace_back("reason");
  return all;
}

/// A heading row has its text in the first column; a reason empties the value and what follows it.
std::vector<std::string> fields(const Table &table, const Row &row) {
  std::vector<std::string> all;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (!is_data(table.columns[i])) continue;
    const bool silent = row.heading ? i > 0 : !row.reason.empty() && i >= table.value_column;
    all.push_back(silent ? "" : row.cells[i].text);
  }
  all.push_back(row.reason);
  return all;
}

}  // namespace

std::string write_csv(const Report &report) {
  std::string text;
  std::vector<std::string> header;
  const bool several = report.tables.size() > 1;
  for (const Table &table : report.tables) {
    if (titles(table) != header) {
      if (!text.empty()) text += "\r\n";
      header = titles(table);
      text += (several ? "table," : "") + line(header);
    }
    for (const Row &row : table.rows)
      text += (several ? csv_field(table.title) + ',' : "") + line(fields(table, row));
  }
  if (!report.tables.empty()) return text;
  for (const Sentences &paragraph : report.paragraphs) {
    text += "sentence\r\n";
    for (const std::string &sentence : paragraph.sentences) text += line({sentence});
  }
  return text;
}

}  // namespace app
