#pragma once
// The compiled form of formulas. A formula becomes a straight list of instructions; instruction i appends its
// result to a table of values, the same table that the variables d01, d02, ... of the formula language name.

#include <array>
#include <cstdint>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <vector>

#include "tool/analysis/reason.h"

namespace analysis {

inline constexpr std::size_t value_table_size = 100;
inline constexpr std::size_t max_values = 99;  ///< no more entries than this are ever appended

/// A point that a term or a construction needs: a landmark of the mode's vocabulary, as most are, or one of
/// Program::points.
struct PointReference {
  std::uint32_t code;

  static constexpr std::uint32_t landmark_bit = 0x80000000;
  static constexpr PointReference to_landmark(int landmark) {
    return {landmark_bit | static_cast<std::uint32_t>(landmark)};
  }
  static constexpr PointReference to_node(std::size_t index) { return {static_cast<std::uint32_t>(index)}; }

  constexpr bool is_landmark() const { return (code & landmark_bit) != 0; }
  constexpr std::size_t landmark() const { return code & ~landmark_bit; }
  constexpr std::size_t node() const { return code; }
};

/// A point expression that is more than a landmark.
struct PointNode {
  enum class Kind : std::uint8_t {
    named,  ///< user or virtual point, looked up by `name`
    midpoint,
    foot,       ///< of argument 2 on the line through arguments 0 and 1
    crossing,   ///< of the lines 0-1 and 2-3
    bisector,   ///< of the angle 0-1-2, `number` pixels from the vertex
    extension,  ///< beyond argument 1 as seen from argument 0, `number` millimetres
    effective_a,
    missing,  ///< an argument that was not written: (0, 0)
  };
  // Written out: an implicit one would clear the whole node before it sets the members.
  PointNode() noexcept {}  // NOLINT(modernize-use-equals-default)

  Kind kind = Kind::missing;
  std::array<PointReference, 4> arguments{};
  double number = 0.0;
  std::string_view name;
};

enum class Operation : std::uint8_t {
  nothing,        ///< a term that cannot be formed: 0
  distance,       ///< len, millimetres
  distance_x,     ///< lenR: negative when point 1 lies to the left of point 0
  distance_y,     ///< lenD: negative when point 1 lies above point 0
  vertex_angle,   ///< angle1, angle3: at point 1, 0 to 180 degrees
  line_angle,     ///< angle2, angle4: from line 0-1 to line 2-3, -180 to 180 degrees
  model_item,     ///< a cast measurement by number
  item_value,     ///< case
  item_sd_units,  ///< sdu
  item_mean,      ///< mean
  item_sd,        ///< sdv
  multiply,
  divide,
  add,
  subtract,
  less,
  greater,
  equal,
  less_equal,
  greater_equal,
  choose,  ///< switch: index of the first argument that is not 0
};

/// A number written in the formula, or an entry of the value table.
struct Operand {
  double number = 0.0;
  std::int16_t variable = -1;  ///< index into the value table; -1: the number itself
};

struct Instruction {
  Instruction() noexcept {}  // NOLINT(modernize-use-equals-default): as for PointNode

  Operation operation = Operation::nothing;
  std::int8_t precision = -1;    ///< angle3 and angle4: the digit; -1: full precision
  std::uint8_t point_count = 0;  ///< points that the term needs
  bool on_landmarks = false;     ///< they are landmarks all
  std::int16_t model_number = -1;
  std::uint32_t position = 0;  ///< bytes from the start of the formula
  union {
    std::array<PointReference, 4> points{};  ///< measurement terms
    struct {
      std::uint32_t first;
      std::uint32_t count;
    } choices;           ///< choose: operands [first, first + count)
    std::uint32_t item;  ///< references: index of the item, no_item when the file has none
  };
  Operand left;
  Operand right;
  std::string_view item_text;

  static constexpr std::uint32_t no_item = 0xffffffff;
};

/// Instructions [first, first + count) of a program; their results go to the value table from entry `base`
/// on.
struct Formula {
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  std::uint32_t base = 0;
  Operand result;                  ///< the formula's value: its last entry, or 0 when it has none
  bool reads_ahead = false;        ///< names table entries before they are written: they read as 0
  std::int32_t malformed_at = -1;  ///< byte position of the first fault, found only when asked for
};

/// The storage that the formulas of one file share.
struct Program {
  explicit Program(std::pmr::memory_resource *memory = std::pmr::get_default_resource())
      : points(memory), instructions(memory), operands(memory) {}

  std::pmr::vector<PointNode> points;
  std::pmr::vector<Instruction> instructions;
  std::pmr::vector<Operand> operands;
};

}  // namespace analysis
