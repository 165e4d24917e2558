#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "apps/common/names.h"
#include "apps/common/report_writers.h"
#include "apps/common/text_width.h"

namespace app {
namespace {

constexpr std::size_t half = 6;  // bar cells either side of the norm, half an SD unit each
constexpr std::size_t bar_width = 2 * half + 1;
constexpr std::string_view bar_title = "-3    0    +3";
constexpr std::string_view gap = "  ";

/// Select Graphic Rendition parameters of a tone; empty: none.
std::string_view rendition(Tone tone) {
  switch (tone) {
    case Tone::heading:
      return "1";
    case Tone::quiet:
      return "2";
    case Tone::within:
      return "32";
    case Tone::beyond_one:
      return "33";
    case Tone::beyond_two:
      return "1;33";
    case Tone::beyond_three:
      return "1;31";
    case Tone::reason:
      return "36";
    case Tone::plain:
      break;
  }
  return {};
}

class Painter {
 public:
  explicit Painter(Color color) : color_(color == Color::on) {}
  std::string paint(std::string text, Tone tone) const {
    const std::string_view code = rendition(tone);
    if (!color_ || code.empty() || text.find_first_not_of(' ') == std::string::npos) return text;
    return "\x1B[" + std::string(code) + 'm' + text + "\x1B[0m";
  }

 private:
  bool color_;
};

/// "  ···│··●···" on a scale of half SD units; an arrow at the end that the value lies beyond.
std::string bar(const Cell &cell) {
  if (!cell.number || std::isnan(*cell.number)) return std::string(bar_width, ' ');
  const double units = cell.mirrored ? -*cell.number : *cell.number;
  const double steps = std::clamp(std::round(units * 2.0), -1.0 - half, 1.0 + half);
  const auto mark = static_cast<int>(steps) + static_cast<int>(half);
  std::string text;
  for (int i = 0; i < static_cast<int>(bar_width); ++i) {
    const bool last = i == static_cast<int>(bar_width) - 1;
    if (i == mark)
      text += "●";
    else if (i == 0 && mark < 0)
      text += "◀";
    else if (last && mark > i)
      text += "▶";
    else
      text += i == static_cast<int>(half) ? "│" : "·";
  }
  return text;
}

bool shown(const Column &column) {
  return column.audience != Audience::data;
}
bool is_bar_column(const Table &table, std::size_t column) {
  return std::any_of(table.rows.begin(), table.rows.end(),
                     [&](const Row &row) { return !row.heading && row.cells[column].bar; });
}

std::string column_title(const Table &table, std::size_t i) {
  return is_bar_column(table, i) ? std::string(bar_title) : printable(table.columns[i].title);
}

/// Widths of the shown columns. A row with a reason does not stretch the columns that the reason replaces.
std::vector<std::size_t> widths(const Table &table) {
  std::vector<std::size_t> all;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    std::size_t width = display_width(column_title(table, i));
    for (const Row &row : table.rows) {
      if (row.heading || row.cells[i].spans || (!row.reason.empty() && i >= table.value_column)) continue;
      width = std::max(width, row.cells[i].bar ? bar_width : display_width(printable(row.cells[i].text)));
    }
    all.push_back(width);
  }
  return all;
}

std::string padded(const std::string &text, Align align, std::size_t width) {
  return align == Align::right ? pad_left(text, width) : pad_right(text, width);
}

void drop_trailing_blanks(std::string &line) {
  line.erase(line.find_last_not_of(' ') + 1);
}

class TableWriter {
 public:
  TableWriter(const Table &table, const Painter &painter)
      : table_(table), painter_(painter), widths_(widths(table)), indent_(has_headings() ? "    " : "  ") {}

  std::string write() const {
    std::string text = titles();
    for (const Row &row : table_.rows) {
      std::string line = row.heading ? heading(row) : cells(row);
      drop_trailing_blanks(line);
      text += line + '\n';
    }
    return text;
  }

 private:
  bool has_headings() const {
    return std::any_of(table_.rows.begin(), table_.rows.end(), [](const Row &row) { return row.heading; });
  }

  std::string titles() const {
    std::string line = indent_;
    std::size_t total = indent_.size();
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      if (!shown(table_.columns[i])) continue;
      line += padded(column_title(table_, i), table_.columns[i].align, widths_[i]) + std::string(gap);
      total += widths_[i] + gap.size();
    }
    drop_trailing_blanks(line);
    std::string rule = "  ";
    for (std::size_t i = 4; i < total; ++i) rule += "─";
    return painter_.paint(line, Tone::heading) + '\n' + painter_.paint(rule, Tone::quiet) + '\n';
  }

  std::string heading(const Row &row) const {
    return "  " + painter_.paint(printable(row.cells.front().text), Tone::heading);
  }

  std::string cells(const Row &row) const {
    std::string line = indent_;
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      const Column &column = table_.columns[i];
      if (!row.reason.empty() && i == table_.value_column)
        return line + painter_.paint(printable(row.reason), Tone::reason);
      if (!shown(column)) continue;
      const Cell &cell = row.cells[i];
      if (cell.spans) return line + painter_.paint(printable(cell.text), cell.tone);
      const std::string content = cell.bar ? bar(cell) : printable(cell.text);
      line += painter_.paint(padded(content, column.align, widths_[i]), cell.tone) + std::string(gap);
    }
    return line;
  }

  const Table &table_;
  const Painter &painter_;
  std::vector<std::size_t> widths_;
  std::string indent_;
};

std::string facts(const Report &report) {
  std::size_t width = 0;
  for (const Fact &fact : report.facts) width = std::max(width, display_width(fact.title));
  std::string text;
  for (const Fact &fact : report.facts)
    text += "  " + pad_right(fact.title, width) + "  " + printable(fact.text) + '\n';
  return text;
}

/// The comment's lines, broken between words.
std::vector<std::string> comment_lines(std::string_view comment) {
  constexpr std::size_t longest = 100;
  std::vector<std::string> lines;
  while (!comment.empty()) {
    const std::string_view given = comment.substr(0, comment.find('\n'));
    comment.remove_prefix(std::min(comment.size(), given.size() + 1));
    std::string line;
    for (std::size_t start = 0; start < given.size();) {
      const std::size_t end = std::min(given.find(' ', start), given.size());
      const std::string word = printable(given.substr(start, end - start));
      if (!line.empty() && display_width(line) + 1 + display_width(word) > longest)
        lines.push_back(std::exchange(line, ""));
      line += (line.empty() ? "" : " ") + word;
      start = end + 1;
    }
    lines.push_back(line);
  }
  return lines;
}

void add_block(std::string &text, const std::string &block) {
  if (block.empty()) return;
  if (!text.empty()) text += '\n';
  text += block;
}

}  // namespace

std::string write_text(const Report &report, Color color) {
  const Painter painter(color);
  std::string text;
  if (!report.title.empty()) text += painter.paint(printable(report.title), Tone::heading) + '\n';
  add_block(text, facts(report));
  for (const Table &table : report.tables) {
    std::string block;
    if (!table.title.empty()) block += painter.paint(printable(table.title), Tone::heading) + '\n';
    for (const std::string &line : comment_lines(table.comment))
      block += painter.paint(line, Tone::quiet) + '\n';
    if (!table.rows.empty()) block += TableWriter(table, painter).write();
    add_block(text, block);
  }
  for (const Sentences &paragraph : report.paragraphs) {
    std::string block = painter.paint(paragraph.title, Tone::heading) + '\n';
    for (const std::string &sentence : paragraph.sentences) block += "  " + printable(sentence) + '\n';
    add_block(text, block);
  }
  std::string notes;
  for (const std::string &note : report.notes)
    notes += painter.paint("Note: " + printable(note), Tone::quiet) + '\n';
  add_block(text, notes);
  return text;
}

}  // namespace app
