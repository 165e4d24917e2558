#include <cmath>
#include <nlohmann/json.hpp>

#include "apps/common/report_writers.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;

Json number_or_text(const std::optional<double> &number, const std::string &text) {
  if (number) return std::isfinite(*number) ? Json(*number) : Json(nullptr);
  return text.empty() ? Json(nullptr) : Json(text);
}

Json row_object(const Table &table, const Row &row) {
  if (row.heading) return {{"heading", row.cells.front().text}};
  Json object = Json::object();
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Column &column = table.columns[i];
    if (column.audience == Audience::shown) continue;
    const bool silent = !row.reason.empty() && i >= table.value_column;
    object[column.key] = silent ? Json(nullptr) : number_or_text(row.cells[i].number, row.cells[i].text);
  }
  if (!row.reason.empty()) object["reason"] = row.reason;
  return object;
}

Json table_object(const Table &table) {
  Json object = Json::object();
  if (!table.title.empty()) object["title"] = table.title;
  if (!table.comment.empty()) object["comment"] = table.comment;
  object["rows"] = Json::array();
  for (const Row &row : table.rows) object["rows"].push_back(row_object(table, row));
  return object;
}

}  // namespace

std::string write_json(const Report &report) {
  Json document = Json::object();
  document["title"] = report.title;
  for (const Fact &fact : report.facts) document[fact.key] = number_or_text(fact.number, fact.text);
  for (const Table &table : report.tables) {
    Json &list = document[table.key];
    if (list.is_null()) list = Json::array();
    list.push_back(table_object(table));
  }
  for (const Sentences &paragraph : report.paragraphs) document[paragraph.key] = paragraph.sentences;
  if (!report.notes.empty()) document["notes"] = report.notes;
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace app
