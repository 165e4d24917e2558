#pragma once
// What a command has to tell, free of any output format: facts, tables, sentences and notes. All texts are
// UTF-8.

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace app {

/// How far a value lies from its norm, in SD units either way; unset where there is no norm.
enum class Tone { plain, heading, quiet, within, beyond_one, beyond_two, beyond_three, reason };

Tone tone_of_deviation(double sd_units);

struct Cell {
  std::string text;              ///< as shown
  std::optional<double> number;  ///< what JSON writes in its place; unset: the text
  Tone tone = Tone::plain;
  bool bar = false;       ///< the cell shows `number` on a scale of -3 to 3 SD units
  bool mirrored = false;  ///< of a bar: high values to the left
  bool spans = false;     ///< a text that takes the rest of its row when shown
};

enum class Align { left, right };
/// Data columns appear in CSV and JSON only, shown ones in text and HTML only.
enum class Audience { everyone, data, shown };

struct Column {
  std::string key;    ///< JSON member and CSV title
  std::string title;  ///< of the shown table
  Align align = Align::left;
  Audience audience = Audience::everyone;
};

struct Row {
  bool heading = false;
  std::vector<Cell> cells;  ///< as many as columns; a heading has just one
  std::string reason;       ///< not empty: shown in place of everything from the table's value column on
};

struct Table {
  std::string key;    ///< JSON member; several tables of one key become a list of them
  std::string title;  ///< may be empty
  std::string comment;
  std::vector<Column> columns;
  std::size_t value_column = 0;
  std::vector<Row> rows;
};

struct Fact {
  std::string key, title, text;
  std::optional<double> number;  ///< what JSON writes in place of the text
};

struct Sentences {
  std::string key, title;
  std::vector<std::string> sentences;
};

struct Report {
  std::string title;
  std::vector<Fact> facts;
  std::vector<Table> tables;
  std::vector<Sentences> paragraphs;
  std::vector<std::string> notes;  ///< what a reader must know to take the numbers at face value
};

}  // namespace app
