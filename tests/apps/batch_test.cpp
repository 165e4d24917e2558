// ceph batch: lines of bounded length, many threads, results in the order of the input, bad lines apart.

#include "apps/ceph/batch_run.h"

#include <gtest/gtest.h>

#include <atomic>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <thread>

#include "apps/ceph/batch_progress.h"
#include "apps/ceph/data_folder.h"
#include "apps/ceph/exit_code.h"
#include "apps/common/tracing_file.h"
#include "tests/apps/run_ceph.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::batch::BatchOptions;
using app::batch::BatchStreams;
using app::batch::InputLine;
using app::batch::LineReader;
using app::batch::LineResult;
using app::batch::PipelineEvents;
using app::batch::PipelineOutcome;
using app::batch::Progress;

/// Gives a text away in pieces of a size.
LineReader::Read pieces_of(std::string text, std::size_t piece) {
  return [text = std::move(text), piece, at = std::size_t{0}](char *data, std::size_t size) mutable {
    const std::size_t count = text.copy(data, std::min(size, piece), at);
    at += count;
    return count;
  };
}

// Lines
// ---------------------------------------------------------------------------------------------------
struct LinesRow {
  const char *name;
  std::string input;
  std::string lines;  // number:text| of every line; "!" in place of a text that is too long
};

TEST(BatchLines, AreTheSameHoweverTheStreamIsCut) {
  const LinesRow rows[] = {
      {"empty", "", ""},
      {"one without end", "abc", "1:abc|"},
      {"LF and CR LF", "a\r\nb\nc\r\n", "1:a|2:b|3:c|"},
      {"blank lines count", "\n\na\n\n", "1:|2:|3:a|4:|"},
      {"CR inside stays", "a\rb\r\r\n", "1:a\rb\r|"},
      {"byte order mark", "\xEF\xBB\xBF{}\n\xEF\xBB\xBF\n", "1:{}|2:\xEF\xBB\xBF|"},
      {"longest", "0123456789\r\n0123456789\nx", "1:0123456789|2:0123456789|3:x|"},
      {"too long", "0123456789A\nx\n0123456789AB\r\n", "1:!|2:x|3:!|"},
      {"too long at the end", "x\n" + std::string(200000, 'y'), "1:x|2:!|"},
      {"NUL bytes", std::string("a\0b\n", 4), std::string("1:a\0b|", 6)},
  };
  for (const LinesRow &row : rows) {
    for (const std::size_t piece : {1UL, 2UL, 3UL, 7UL, 100000UL}) {
      LineReader reader(pieces_of(row.input, piece), 10);
      std::string seen;
      std::size_t bytes = 0;
      while (const auto line = reader.next()) {
        seen += std::to_string(line->number) + ":" + (line->too_long ? "!" : line->text) + "|";
        bytes += line->bytes;
      }
      EXPECT_EQ(seen, row.lines) << row.name << " in pieces of " << piece;
      EXPECT_EQ(bytes, row.input.size()) << row.name;
    }
  }
}

// Pipeline
// ---------------------------------------------------------------------------------------------------
struct Collected {
  std::string output;
  std::string faults;
  PipelineEvents events() {
    PipelineEvents all;
    all.write = [this](std::string_view text) {
      output += text;
      return true;
    };
    all.bad_line = [this](std::size_t number, std::string_view fault) {
      faults += std::to_string(number) + ": " + std::string(fault) + "\n";
    };
    return all;
  }
};

LineResult same_text(const InputLine &line) {
  return {line.text + ";", {}};
}

std::string numbered_lines(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + "\n";
  return text;
}

TEST(BatchPipeline, KeepsTheOrderWithManyThreads) {
  const std::string input = numbered_lines(5000);
  const auto work = [](const InputLine &line) {
    for (int i = std::stoi(line.text) * 7919 % 13; i > 0; --i) std::this_thread::yield();
    return LineResult{line.text + "\n", {}};
  };
  for (const std::size_t jobs : {1UL, 2UL, 16UL}) {
    LineReader lines(pieces_of(input, 1000), 100);
    Collected collected;
    const PipelineOutcome outcome =
        run_pipeline(lines, work, collected.events(), {.jobs = jobs, .window_lines = 40});
    EXPECT_EQ(collected.output, input) << jobs;
    EXPECT_EQ(outcome.total.lines, 5000U);
    EXPECT_EQ(outcome.total.bytes, input.size());
    EXPECT_FALSE(outcome.output_closed);
  }
}

TEST(BatchPipeline, BadLinesAreToldByNumberAndHarmNothing) {
  LineReader lines(pieces_of("a\n\nbad\nthrow\n \nthis line is too long\nb", 4), 10);
  Collected collected;
  const auto work = [](const InputLine &line) -> LineResult {
    if (line.text == "throw") throw std::runtime_error("thrown");
    if (line.text == "bad") return {{}, "refused"};
    return {line.text + ";", {}};
  };
  const PipelineOutcome outcome = run_pipeline(lines, work, collected.events(), {.jobs = 3});
  EXPECT_EQ(collected.output, "a;b;");
  EXPECT_EQ(collected.faults, "3: refused\n4: thrown\n6: the line is too long\n");
  EXPECT_EQ(outcome.total.bad, 3U);
  EXPECT_EQ(outcome.total.lines, 5U);
}

/// The stream gives one line a call: what was read and not yet written is what the pipeline holds.
TEST(BatchPipeline, ReadsNoFurtherAheadThanItsWindow) {
  constexpr std::size_t window = 8;
  std::atomic<std::size_t> read{0}, written{0};
  std::size_t most_held = 0;
  const LineReader::Read one_line = [&](char *data, std::size_t) -> std::size_t {
    most_held = std::max(most_held, read.load() - written.load());
    if (read == 2000) return 0;
    ++read;
    data[0] = 'x';
    data[1] = '\n';
    return 2;
  };
  LineReader lines(one_line, 10);
  PipelineEvents events;
  events.write = [&](std::string_view) {
    std::this_thread::yield();
    ++written;
    return true;
  };
  run_pipeline(lines, same_text, events, {.jobs = 4, .window_lines = window});
  EXPECT_EQ(written, 2000U);
  EXPECT_LE(most_held, window + 2);  // one at the reader, one at the writer
}

TEST(BatchPipeline, EndsWhenNobodyReadsTheOutput) {
  const LineReader::Read endless = [](char *data, std::size_t size) {
    std::fill_n(data, size, '\n');
    std::fill_n(data, size / 2, 'x');
    return size;
  };
  LineReader lines(endless, std::size_t{1} << 20);
  int writes = 0;
  PipelineEvents events;
  events.write = [&](std::string_view) { return ++writes < 3; };
  const PipelineOutcome outcome = run_pipeline(lines, same_text, events, {.jobs = 4});
  EXPECT_TRUE(outcome.output_closed);
  EXPECT_EQ(writes, 3);
  EXPECT_EQ(outcome.total.lines, 2U);
}

TEST(BatchPipeline, AFailureIsPassedOnAndWhatWasReadBeforeIsWritten) {
  const LineReader::Read failing = [calls = 0](char *data, std::size_t) mutable -> std::size_t {
    if (++calls > 2) throw std::runtime_error("disk gone");
    data[0] = 'x';
    data[1] = '\n';
    return 2;
  };
  LineReader lines(failing, 10);
  Collected collected;
  EXPECT_THROW(run_pipeline(lines, same_text, collected.events(), {.jobs = 2}), std::runtime_error);
  EXPECT_EQ(collected.output, "x;x;");
  LineReader many(pieces_of(numbered_lines(1000), 100), 10);
  PipelineEvents events;
  events.write = [](std::string_view) -> bool { throw std::runtime_error("disk full"); };
  EXPECT_THROW(run_pipeline(many, same_text, events, {.jobs = 2, .window_lines = 4}), std::runtime_error);
}

TEST(BatchPipeline, ALineBeyondTheByteWindowStillPasses) {
  const std::string line(1000, 'x');
  LineReader lines(pieces_of(line + "\n" + line + "\n", 500), 2000);
  Collected collected;
  run_pipeline(lines, same_text, collected.events(), {.jobs = 2, .window_bytes = 100});
  EXPECT_EQ(collected.output, line + ";" + line + ";");
}

// Tracings
// ---------------------------------------------------------------------------------------------------
class Batch : public testing::Test {
 protected:
  Batch() {
    folder_.write("CalcForm/list.txt", "Plain.txt\r\nOther.txt\r\n");
    folder_.write(
        "CalcForm/Plain.txt",
        "title:\r\nPlain\r\nCalc:\r\nHeading\r\nDistance=len([S],[N]):1\r\nAngle=angle1([S],[N],[A]):1\r\n"
        "Mean:\r\nDistance=8.0\r\nSD:\r\nDistance=2.0\r\n");
    folder_.write("CalcForm/Other.txt", "title:\r\nOther\r\nCalc:\r\nDown=lenD([S],[N]):1\r\n");
    app::use_data_folder(folder_.path());
  }

  PipelineOutcome run(const BatchOptions &options, const std::string &input) {
    collected_ = {};
    return app::batch::run_batch(options, BatchStreams{pieces_of(input, 777), collected_.events()});
  }

  /// S, N and A at the corners of a square of `side` pixels.
  static std::string film(int number, int side) {
    const std::string far = std::to_string(100 + side);
    return R"({"kind":"lateral","film":"F)" + std::to_string(number) +
           R"(","scale":0.1,"landmarks":{"S":[100,100],"N":[)" + far + R"(,100],"A":[)" + far + "," + far +
           "]}}\n";
  }

  support::TemporaryFolder folder_;
  Collected collected_;
};

TEST_F(Batch, JsonLinesCarryValuesNormsDeviationsOrReasons) {
  const std::string without_a = R"({"kind":"lateral","scale":0.1,"landmarks":{"S":[100,100],"N":[140,100]}})";
  const PipelineOutcome outcome = run({}, film(1, 100) + "\n" + without_a);
  EXPECT_EQ(collected_.faults, "");
  EXPECT_EQ(outcome.total.lines, 2U);
  const std::size_t end = collected_.output.find('\n');
  const auto first = nlohmann::json::parse(collected_.output.substr(0, end));
  const auto second = nlohmann::json::parse(collected_.output.substr(end));
  EXPECT_EQ(first["line"], 1);
  EXPECT_EQ(first["film"], "F1");
  EXPECT_EQ(first["analyses"][0]["title"], "Plain");
  const auto &rows = first["analyses"][0]["rows"], &others = second["analyses"][0]["rows"];
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0]["heading"], "Heading");
  EXPECT_DOUBLE_EQ(rows[1]["value"].get<double>(), 10.0);
  EXPECT_DOUBLE_EQ(rows[1]["mean"].get<double>(), 8.0);
  EXPECT_DOUBLE_EQ(rows[1]["deviation"].get<double>(), 1.0);
  EXPECT_NEAR(rows[2]["value"].get<double>(), 90.0, 1e-6);
  EXPECT_FALSE(rows[2].contains("reason"));
  EXPECT_EQ(second["line"], 3);
  EXPECT_DOUBLE_EQ(others[1]["value"].get<double>(), 4.0);
  EXPECT_TRUE(others[2]["value"].is_null());
  EXPECT_NE(others[2]["reason"].get<std::string>().find("\"A\""), std::string::npos);
}

TEST_F(Batch, CsvInputAndCsvOutput) {
  BatchOptions options;
  options.output = app::batch::OutputFormat::csv;
  options.scale = 0.1;
  run(options,
      "film,S_x,S_y,N_x,N_y,A_x,A_y\r\n7,100,100,200,100,200,200\r\n8,100,100,x,100,,\r\n9,100,100,140,100,,"
      "\r\n");
  EXPECT_EQ(collected_.output.substr(0, collected_.output.find("4,9,Plain,Angle")),
            "line,film,analysis,item,mean,sd,value,second_value,deviation,reason\r\n"
            "2,7,Plain,Distance,8.0,2.0,10.0,,+1.0,\r\n"
            "2,7,Plain,Angle,,,90.0,,,\r\n"
            "4,9,Plain,Distance,8.0,2.0,4.0,,-2.0,\r\n");
  EXPECT_EQ(collected_.faults.substr(0, 3), "3: ");
  EXPECT_EQ(collected_.faults.find("line 3", 3), std::string::npos) << collected_.faults;
}

TEST_F(Batch, OneBadLineOfManyIsSkippedWhateverItIs) {
  const std::string bad_lines[] = {"{",
                                   "{}",
                                   "null",
                                   "\xFF\xFE",
                                   "[1,2]",
                                   std::string(100000, '['),
                                   std::string("{\0}", 3),
                                   R"({"kind":"lateral","scale":0,"landmarks":{}})",
                                   R"({"kind":"lateral","scale":0.1,"landmarks":{"S":[1e99,0]}})",
                                   R"({"kind":"frontal","scale":0.1,"landmarks":{}})",
                                   std::string(app::max_tracing_bytes + 1, ' ')};
  for (const std::string &bad : bad_lines) {
    const PipelineOutcome outcome = run({}, film(1, 100) + bad + "\n" + film(3, 100));
    EXPECT_EQ(outcome.total.bad, 1U) << bad.substr(0, 60);
    EXPECT_EQ(collected_.faults.substr(0, 3), "2: ") << bad.substr(0, 60);
    EXPECT_NE(collected_.output.find("\"film\":\"F1\""), std::string::npos);
    EXPECT_NE(collected_.output.find("\"film\":\"F3\""), std::string::npos);
  }
}

TEST_F(Batch, ManyThreadsGiveWhatOneGives) {
  std::string input;
  for (int i = 1; i <= 600; ++i) input += i % 50 == 0 ? "{}\n" : film(i, i);
  BatchOptions options;
  options.analysis = "all";
  run(options, input);
  const Collected alone = collected_;
  options.pipeline = {.jobs = 8, .window_lines = 16};
  EXPECT_EQ(run(options, input).total.bad, 12U);
  EXPECT_EQ(collected_.output, alone.output);
  EXPECT_EQ(collected_.faults, alone.faults);
}

TEST_F(Batch, TheAnalysisIsChosenByIndexOrTitle) {
  BatchOptions options;
  for (const char *wanted : {"1", "other"}) {
    options.analysis = wanted;
    run(options, film(1, 100));
    EXPECT_NE(collected_.output.find("\"item\":\"Down\""), std::string::npos) << wanted;
  }
  options.analysis = "Plane";
  EXPECT_THROW(run(options, film(1, 100)), app::CommandError);
  EXPECT_THROW(run({}, "film,Q_x,Q_y\r\n1,2,3\r\n"), app::InputError);  // a bad header ends everything
}

// Progress
// ---------------------------------------------------------------------------------------------------
TEST(BatchProgress, ShowsCountsAndTheShareOfAFile) {
  using app::batch::progress_line;
  EXPECT_EQ(progress_line({1, 0, 10}, std::nullopt, 79), "1 tracing");
  EXPECT_EQ(progress_line({12, 3, 10}, std::nullopt, 79), "12 tracings, 3 bad");
  EXPECT_EQ(progress_line({2, 0, 50}, 100, 79), "[###############...............] 50 % 2 tracings");
  EXPECT_EQ(progress_line({2, 0, 500}, 100, 79), "[##############################] 100 % 2 tracings");
  EXPECT_EQ(progress_line({0, 0, 0}, 0, 5), "[####");
}

TEST_F(Batch, AClosedOutputEndsTheProgramQuietly) {
  folder_.write("film.json", film(1, 100));
  const std::string ceph = "'" CEPH_PROGRAM "' batch --data '" + folder_.path() + "'";
  const std::string script = "cd '" + folder_.path() + "'; yes \"$(cat film.json)\" 2>/dev/null | (" + ceph +
                             " 2>fault; echo $? >code) | head -n 1 >first";
  ASSERT_EQ(support::run_shell(script), 0);
  EXPECT_EQ(folder_.read("first").substr(0, 10), "{\"line\":1,");
  EXPECT_EQ(folder_.read("fault"), "");
  EXPECT_EQ(folder_.read("code"), "0\n");
}

TEST_F(Batch, SkippedLinesShowInTheExitCode) {
  const std::string films = support::shell_word(folder_.write("films", film(1, 100) + "{}\n"));
  const auto outcome = support::run_ceph({"batch", "--data", folder_.path(), "--jobs", "3"}, "< " + films);
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_EQ(outcome.err.substr(0, 13), "ceph: line 2:");
}

}  // namespace
