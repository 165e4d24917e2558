#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "apps/common/report_writers.h"

namespace app {
namespace {

constexpr const char *style = R"css(
  :root { --ink: #1d2433; --quiet: #667085; --line: #d0d5dd; --within: #1a7f4b; --one: #a86400; --two: #c2410c;
          --three: #b42318; --reason: #175cd3; }
  * { box-sizing: border-box; }
  body { font: 14px/1.45 "Noto Sans", "Noto Sans JP", "Noto Sans CJK JP", "Hiragino Sans", "Yu Gothic", sans-serif;
         color: var(--ink); max-width: 56rem; margin: 2rem auto; padding: 0 1.5rem; }
  h1 { font-size: 1.5rem; margin: 0 0 .75rem; }
  h2 { font-size: 1.1rem; margin: 1.75rem 0 .25rem; }
  .comment { color: var(--quiet); margin: 0 0 .5rem; white-space: pre-line; }
  dl { display: grid; grid-template-columns: max-content 1fr max-content 1fr; gap: .15rem 1rem; margin: 0 0 .75rem;
       padding: .75rem 1rem; border: 1px solid var(--line); border-radius: 6px; }
  dt { color: var(--quiet); } dd { margin: 0; }
  table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
  th { text-align: left; font-weight: 600; border-bottom: 2px solid var(--ink); padding: .25rem .5rem; }
  td { border-bottom: 1px solid var(--line); padding: .2rem .5rem; }
  tr { break-inside: avoid; }
  thead { display: table-header-group; }
  .right { text-align: right; }
  .heading td { font-weight: 600; padding-top: .75rem; border-bottom-color: var(--ink); }
  .within { color: var(--within); } .beyond_one { color: var(--one); }
  .beyond_two { color: var(--two); font-weight: 600; } .beyond_three { color: var(--three); font-weight: 700; }
  .reason { color: var(--reason); } .quiet { color: var(--quiet); }
  .scale { width: 180px; } .scale svg { display: block; }
  .sentence { margin: .1rem 0; }
  .notes { margin-top: 1.5rem; color: var(--quiet); border-top: 1px solid var(--line); padding-top: .5rem; }
  @page { margin: 15mm; }
  @media print { body { margin: 0; max-width: none; padding: 0; font-size: 11px; } dl { border-color: #999; } }
)css";

std::string_view tone_class(Tone tone) {
  switch (tone) {
    case Tone::heading:
      return "heading";
    case Tone::quiet:
      return "quiet";
    case Tone::within:
      return "within";
    case Tone::beyond_one:
      return "beyond_one";
    case Tone::beyond_two:
      return "beyond_two";
    case Tone::beyond_three:
      return "beyond_three";
    case Tone::reason:
      return "reason";
    case Tone::plain:
      break;
  }
  return {};
}

// The drawing of a deviation, in its own units: 25 to an SD, the norm at x = 90.
constexpr double center = 90.0;
constexpr double unit = 25.0;
constexpr double reach = 3.2;  // SD units; farther values become an arrow at the end

std::string scale_lines() {
  std::string text;
  for (int sd = -3; sd <= 3; ++sd) {
    const auto x = std::to_string(static_cast<int>(center + sd * unit));
    text += "<line x1=\"" + x + "\" y1=\"0\" x2=\"" + x + "\" y2=\"14\" stroke=\"" +
            (sd == 0 ? "#1d2433" : "#d0d5dd") + "\"/>";
  }
  return text;
}

std::string scale_mark(double units) {
  const double x = center + std::clamp(units, -reach, reach) * unit;
  std::array<char, 128> text{};
  if (std::abs(units) <= reach)
    std::snprintf(text.data(), text.size(), "<circle cx=\"%.1f\" cy=\"7\" r=\"4\" fill=\"currentColor\"/>",
                  x);
  else
    std::snprintf(text.data(), text.size(), "<path d=\"M%.1f 2 L%.1f 7 L%.1f 12 Z\" fill=\"currentColor\"/>",
                  x, x + (units < 0 ? -8.0 : 8.0), x);
  return text.data();
}

std::string scale_drawing(const Cell &cell) {
  if (!cell.number || std::isnan(*cell.number)) return {};
  return "<svg width=\"180\" height=\"14\" role=\"img\" aria-label=\"" + escape_html(cell.text) + " SD\">" +
         scale_lines() + scale_mark(cell.mirrored ? -*cell.number : *cell.number) + "</svg>";
}

bool shown(const Column &column) {
  return column.audience != Audience::data;
}

std::string class_attribute(const std::string &classes) {
  return classes.empty() ? std::string() : " class=\"" + classes + '"';
}

std::string cell_html(const Column &column, const Cell &cell) {
  std::string classes(tone_class(cell.tone));
  if (column.align == Align::right) classes += classes.empty() ? "right" : " right";
  if (cell.bar) classes += classes.empty() ? "scale" : " scale";
  return "<td" + class_attribute(classes) + '>' + (cell.bar ? scale_drawing(cell) : escape_html(cell.text)) +
         "</td>";
}

std::string spanning(std::size_t columns, std::string_view classes, const std::string &text) {
  return "<td colspan=\"" + std::to_string(columns) + '"' + class_attribute(std::string(classes)) + '>' +
         escape_html(text) + "</td>";
}

std::string row_html(const Table &table, const Row &row) {
  const auto visible =
      static_cast<std::size_t>(std::count_if(table.columns.begin(), table.columns.end(), shown));
  if (row.heading)
    return "<tr class=\"heading\">" + spanning(visible, "", row.cells.front().text) + "</tr>\n";
  std::string text = "<tr>";
  std::size_t written = 0;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (!row.reason.empty() && i == table.value_column)
      return text + spanning(visible - written, "reason", row.reason) + "</tr>\n";
    if (!shown(table.columns[i])) continue;
    if (row.cells[i].spans) return text + spanning(visible - written, "", row.cells[i].text) + "</tr>\n";
    text += cell_html(table.columns[i], row.cells[i]);
    ++written;
  }
  return text + "</tr>\n";
}

std::string table_html(const Table &table) {
  std::string text;
  if (!table.title.empty()) text += "<h2>" + escape_html(table.title) + "</h2>\n";
  if (!table.comment.empty()) text += "<p class=\"comment\">" + escape_html(table.comment) + "</p>\n";
  if (table.rows.empty()) return text;
  text += "<table>\n<thead><tr>";
  for (const Column &column : table.columns)
    if (shown(column))
      text += std::string("<th") + (column.align == Align::right ? " class=\"right\"" : "") + '>' +
              escape_html(column.title) + "</th>";
  text += "</tr></thead>\n<tbody>\n";
  for (const Row &row : table.rows) text += row_html(table, row);
  return text + "</tbody>\n</table>\n";
}

std::string facts_html(const Report &report) {
  if (report.facts.empty()) return {};
  std::string text = "<dl>\n";
  for (const Fact &fact : report.facts)
    text += "<dt>" + escape_html(fact.title) + "</dt><dd>" + escape_html(fact.text) + "</dd>\n";
  return text + "</dl>\n";
}

std::string sentences_html(const Sentences &paragraph) {
  std::string text = "<h2>" + escape_html(paragraph.title) + "</h2>\n";
  for (const std::string &sentence : paragraph.sentences)
    text += "<p class=\"sentence\">" + escape_html(sentence) + "</p>\n";
  return text;
}

std::string notes_html(const std::vector<std::string> &notes) {
  if (notes.empty()) return {};
  std::string text = "<div class=\"notes\">\n";
  for (const std::string &note : notes) text += "<p class=\"sentence\">Note: " + escape_html(note) + "</p>\n";
  return text + "</div>\n";
}

}  // namespace

std::string escape_html(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&#39;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n') escaped += c;
    }
  }
  return escaped;
}

std::string write_html(const Report &report) {
  const std::string title = escape_html(report.title);
  std::string text = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
                     title + "</title>\n<style>" + style + "</style>\n</head>\n<body>\n<h1>" + title +
                     "</h1>\n" + facts_html(report);
  for (const Table &table : report.tables) text += table_html(table);
  for (const Sentences &paragraph : report.paragraphs) text += sentences_html(paragraph);
  text += notes_html(report.notes);
  return text + "</body>\n</html>\n";
}

}  // namespace app
