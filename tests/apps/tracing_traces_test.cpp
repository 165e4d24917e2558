// "traces" of a JSON tracing become entries of the free-line store.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "apps/common/tracing_file.h"

namespace {

using app::TracingFile;

std::string film_with(const std::string &traces) {
  return R"({"kind": "lateral", "scale": 0.1, "landmarks": {}, "traces": )" + traces + "}";
}

std::int16_t word(const TracingFile &file, std::size_t entry, std::size_t index) {
  std::int16_t value;
  std::memcpy(
      &value,
      file.traces.data() + entry * TracingFile::trace_bytes + TracingFile::trace_runs_offset + 2 * index,
      sizeof value);
  return value;
}

TEST(TracingTraces, LieInTheStoreWordByWord) {
  const TracingFile file = app::read_json_tracing(film_with(
      R"([{"name": "Symphysis", "code": 12, "curves": [{"points": [[1, 2], [-3, 4.6]]},
                                                      {"closed": true, "points": [[5, 6]]}]},
          {"name": "U1", "code": 8, "curves": []}])"));
  ASSERT_EQ(file.traces.size(), 40000U);
  EXPECT_STREQ(file.traces.data(), "Symphysis");
  EXPECT_STREQ(file.traces.data() + 35, "12");
  const std::int16_t expected[] = {0, 2, 1, 2, -3, 5, 1, 1, 5, 6, 0, 0};
  for (std::size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(word(file, 0, i), expected[i]) << i;
  EXPECT_STREQ(file.traces.data() + 2000, "U1");
  EXPECT_STREQ(file.traces.data() + 2035, "8");
  EXPECT_EQ(file.traces[4000], '\0');
}

TEST(TracingTraces, RefuseWhatTheStoreCannotHold) {
  std::string points = "[0, 0]";
  for (int i = 1; i < 243; ++i) points += ", [1, 1]";  // 2 + 2 x 243 = 488 words and the ending one
  const auto with_points = [](const std::string &list) {
    return film_with(R"([{"name": "T", "code": 0, "curves": [{"points": [)" + list + "]}]}]");
  };
  EXPECT_NO_THROW(app::read_json_tracing(with_points(points)));
  const std::string faults[] = {
      with_points(points + ", [1, 1]"),
      with_points("[40000, 1]"),
      with_points(""),
      film_with(R"([{"name": "", "code": 0, "curves": []}])"),
      film_with(R"([{"name": "T", "code": 1.5, "curves": []}])"),
      film_with(R"([{"name": "12345678901234567890123456789012345", "code": 1, "curves": []}])"),
      R"({"kind": "frontal", "scale": 0.1, "landmarks": {}, "traces": []})",
  };
  for (const std::string &fault : faults)
    EXPECT_THROW(app::read_json_tracing(fault), app::InputError) << fault;
}

}  // namespace
