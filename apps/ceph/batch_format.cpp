#include "apps/ceph/batch_format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "apps/common/csv.h"

namespace app::batch {
namespace {

using Json = nlohmann::ordered_json;

/// The columns of a CSV row after line, film and analysis; a table may lack some of them.
constexpr std::array<std::string_view, 6> csv_columns{"item",  "mean",         "sd",
                                                      "value", "second_value", "deviation"};

bool is_silent(const Table &table, const Row &row, std::size_t column) {
  return !row.reason.empty() && column >= table.value_column;
}

Json cell_value(const Cell &cell) {
  if (cell.number) return std::isfinite(*cell.number) ? Json(*cell.number) : Json(nullptr);
  return cell.text.empty() ? Json(nullptr) : Json(cell.text);
}

Json row_object(const Table &table, const Row &row) {
  if (row.heading) return {{"heading", row.cells.front().text}};
  Json object = Json::object();
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (table.columns[i].audience == Audience::shown) continue;
    object[table.columns[i].key] = is_silent(table, row, i) ? Json(nullptr) : cell_value(row.cells[i]);
  }
  if (!row.reason.empty()) object["reason"] = row.reason;
  return object;
}

std::string cell_text(const Table &table, const Row &row, std::string_view key) {
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    if (table.columns[i].key == key) return is_silent(table, row, i) ? std::string() : row.cells[i].text;
  return {};
}

}  // namespace

std::string json_line(const ResultHead &head, std::span<const Table> tables) {
  Json analyses = Json::array();
  for (const Table &table : tables) {
    Json rows = Json::array();
    for (const Row &row : table.rows) rows.push_back(row_object(table, row));
    analyses.push_back({{"title", table.title}, {"rows", std::move(rows)}});
  }
  const Json object{{"line", head.line}, {"film", head.film}, {"analyses", std::move(analyses)}};
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string csv_header() {
  std::string text = "line,film,analysis";
  for (const std::string_view column : csv_columns) text.append(",").append(column);
  return text + ",reason\r\n";
}

std::string csv_rows(const ResultHead &head, std::span<const Table> tables) {
  std::string text;
  for (const Table &table : tables) {
    const std::string start =
        std::to_string(head.line) + ',' + csv_field(head.film) + ',' + csv_field(table.title);
    for (const Row &row : table.rows) {
      if (row.heading) continue;
      text += start;
      for (const std::string_view column : csv_columns)
        text += ',' + csv_field(cell_text(table, row, column));
      text += ',' + csv_field(row.reason) + "\r\n";
    }
  }
  return text;
}

}  // namespace app::batch
