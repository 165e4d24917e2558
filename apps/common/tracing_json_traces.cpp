#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "apps/common/names.h"
#include "apps/common/tracing_json_parts.h"
#include "apps/common/tracing_parts.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

constexpr std::size_t words_room = 489;  // 16-bit words of an entry's curves
constexpr std::size_t code_room = TracingFile::trace_runs_offset - TracingFile::trace_code_offset;
constexpr double max_code = 999;

/// Writes the curves of one entry word by word.
class RunWriter {
 public:
  RunWriter(char *entry, std::string where)
      : at_(entry + TracingFile::trace_runs_offset), where_(std::move(where)) {}

  void put(double value, const std::string &where) {
    const double rounded = std::round(value);
    if (!(rounded >= INT16_MIN && rounded <= INT16_MAX))
      throw InputError("a coordinate of a trace is out of range", where, "-32768 to 32767");
    // The last word stays zero: it ends the list.
    if (++words_ >= words_room)
      throw InputError("the trace has too many points", where_,
                       "at most 489 words: two a point, two a curve");
    const auto word = static_cast<std::int16_t>(rounded);
    std::memcpy(at_, &word, sizeof word);
    at_ += sizeof word;
  }

 private:
  char *at_;
  std::string where_;
  std::size_t words_ = 0;
};

void read_curve(const JsonNode &node, RunWriter &writer) {
  static constexpr std::array<std::string_view, 2> members{"closed", "points"};
  node.expect_members(members);
  const auto points = node.at_key("points", "a list of [x, y]").elements("a list of [x, y]");
  if (points.empty()) throw InputError("a curve has no points", node.where(), "one or more [x, y]");
  const auto closed = node.find("closed");
  writer.put(closed && closed->truth() ? 1 : 0, node.where());
  writer.put(static_cast<double>(points.size()), node.where());
  for (const JsonNode &one : points) {
    const POINT point = json_point(one);
    writer.put(point.x, one.where());
    writer.put(point.y, one.where());
  }
}

void read_trace(const JsonNode &node, char *entry) {
  static constexpr std::array<std::string_view, 3> members{"name", "code", "curves"};
  node.expect_members(members);
  const JsonNode name_node = node.at_key("name", "a short text");
  const auto name = framework::cp932_from_utf8(name_node.text("a short text"));
  if (!name || name->empty() || name->size() >= TracingFile::trace_code_offset)
    throw InputError("is not the name of a trace", name_node.where(), "1 to 34 bytes of code page 932");
  name->copy(entry, name->size());
  const JsonNode code_node = node.at_key("code", "a whole number");
  const double code = code_node.number("a whole number");
  if (!(code >= 0 && code <= max_code) || code != std::floor(code))
    throw InputError("is not the code of a trace", code_node.where(), "a whole number from 0 to 999");
  std::to_string(static_cast<int>(code)).copy(entry + TracingFile::trace_code_offset, code_room - 1);
  RunWriter writer(entry, node.where());
  for (const JsonNode &curve : node.at_key("curves", "a list of curves").elements("a list of curves"))
    read_curve(curve, writer);
}

}  // namespace

void read_json_traces(TracingFile &file, const JsonNode &list) {
  const auto all = list.elements("a list of traces");
  if (all.size() > TracingFile::trace_count) throw InputError("too many traces", list.where(), "at most 20");
  file.traces.assign(TracingFile::trace_count * TracingFile::trace_bytes, '\0');
  for (std::size_t i = 0; i < all.size(); ++i)
    read_trace(all[i], file.traces.data() + i * TracingFile::trace_bytes);
}

}  // namespace app
