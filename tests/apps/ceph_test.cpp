// Every subcommand, run as a program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "tests/apps/run_ceph.h"

namespace {

using nlohmann::json;
using test::data;
using test::Outcome;
using test::run_ceph;
using test::sample;
using test::Scratch;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Vector {
  double x, y;
};

/// From one landmark of a sample to another, in pixels.
Vector between(const json &landmarks, const char *from, const char *to) {
  return {landmarks[to][0].get<double>() - landmarks[from][0].get<double>(),
          landmarks[to][1].get<double>() - landmarks[from][1].get<double>()};
}

json sample_landmarks(const char *name) {
  return json::parse(test::read_file(sample(name)))["landmarks"];
}

double angle_deg(Vector a, Vector b) {
  const double difference = std::abs(std::atan2(a.y, a.x) - std::atan2(b.y, b.x)) * 180.0 / std::acos(-1.0);
  return difference > 180.0 ? 360.0 - difference : difference;
}

json json_of(const Outcome &outcome) {
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  return json::parse(outcome.out);
}

/// The row of an item in the first table of a JSON report.
json row_of(const json &report, const std::string &item) {
  for (const json &row : report["analyses"][0]["rows"])
    if (row.value("item", "") == item) return row;
  ADD_FAILURE() << item << " is not in the table";
  return {};
}

// A lateral film with few landmarks
const char *const four_points =
    R"({"kind": "lateral", "scale": 0.1, "landmarks": {"S": [100, 500], "N": [800, 500], "A": [800, 1100]}})";

TEST(CephAnalyses, ListsEveryModeInListOrder) {
  const Outcome text = run_ceph({"analyses", "--data", data()});
  EXPECT_EQ(text.exit_code, 0) << text.err;
  for (const char *title :
       {"Ricketts lateral analysis", "Steiner analysis", "Lateral diagnosis", "日本人成人"})
    EXPECT_THAT(text.out, HasSubstr(title));
  const json report = json_of(run_ceph({"analyses", "--data", data(), "--format", "json"}));
  EXPECT_EQ(report["modes"].size(), 5U);
  EXPECT_EQ(report["modes"][0]["rows"][0]["index"], 0);
  EXPECT_EQ(report["modes"][0]["rows"][0]["file"], "Ricketts.txt");
}

TEST(CephAnalyses, ShowsAListedFileThatIsMissing) {
  const Scratch scratch;
  scratch.write("CalcForm/list.txt", "There.txt\r\nGone.txt\r\n");
  scratch.write("CalcForm/There.txt", "title:\r\nThere\r\n");
  const Outcome outcome = run_ceph({"analyses", "--data", scratch.path("")});
  EXPECT_THAT(outcome.out, HasSubstr("0  There"));
  EXPECT_THAT(outcome.out, HasSubstr("Gone.txt is listed but cannot be read"));
}

TEST(CephTable, HoldsValuesNormsAndDeviations) {
  const json landmarks = sample_landmarks("adult.json");
  const double sna = angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "A"));
  const json report = json_of(run_ceph(
      {"table", sample("adult.json"), "--data", data(), "--analysis", "Steiner", "--format", "json"}));
  EXPECT_EQ(report["title"], "Steiner analysis");
  EXPECT_EQ(report["sex"], "female");
  const json row = row_of(report, "SNA");
  EXPECT_NEAR(row["value"].get<double>(), sna, 1e-6);
  EXPECT_NEAR(row["deviation"].get<double>(), (sna - row["mean"].get<double>()) / row["sd"].get<double>(),
              1e-6);
  EXPECT_FALSE(report["growth_stage"].empty());
  EXPECT_GT(report["diagnosis"].size(), 3U);
}

TEST(CephTable, ChoosesNormsBySexAgeAndMagnification) {
  // boys' facial depth: 86.0 at 6, 88.0 at 12, 90.0 at 18 years; girls keep 89.0 from 15 on; Xi-PM 79.4 mm
  const struct {
    std::vector<std::string> options;
    const char *item;
    double mean;
  } rows[] = {
      {{"--sex", "male", "--age", "5"}, "Facial depth", 86.0},
      {{"--sex", "male", "--age", "12.9"}, "Facial depth", 88.0},
      {{"--sex", "male", "--age", "40"}, "Facial depth", 90.0},
      {{"--sex", "female", "--age", "40"}, "Facial depth", 89.0},
      {{"--sex", "male", "--age", "40", "--age-code", "6"}, "Facial depth", 88.0},
      {{"--sex", "male", "--age", "18", "--magnification", "1.1"}, "Corpus Xi-PM", 79.4},
      {{"--sex", "male", "--age", "18", "--magnification", "1"}, "Corpus Xi-PM", 72.1},  // 72.18, cut
      {{"--sex", "male", "--age", "18", "--magnification", "1"}, "Facial depth", 90.0},
  };
  for (const auto &row : rows) {
    std::string options;
    for (const std::string &option : row.options) options += ' ' + option;
    const Outcome outcome =
        run_ceph({"table", sample("adult.json"), "--data", data(), "--format", "json"}, options);
    EXPECT_NEAR(row_of(json_of(outcome), row.item)["mean"].get<double>(), row.mean, 1e-9) << options;
  }
}

TEST(CephTable, TellsTheReasonInsteadOfTheNumber) {
  const Scratch scratch;
  const std::string film = scratch.write("film.json", four_points);
  const Outcome text = run_ceph({"table", film, "--data", data(), "--analysis", "Steiner"});
  EXPECT_EQ(text.exit_code, 0);
  EXPECT_THAT(text.out, testing::ContainsRegex("SNB +[0-9.]+ +[0-9.]+  point \"B\" is not placed"));
  EXPECT_THAT(text.out, testing::ContainsRegex("SNA +[0-9.]+ +[0-9.]+ +90\\.0"));
  EXPECT_THAT(text.out, HasSubstr("the sex is not stated"));
  EXPECT_THAT(text.out, HasSubstr("the age is not stated"));
}

TEST(CephTable, WritesEveryFormat) {
  const auto table = [](const char *format) {
    return run_ceph(
               {"table", sample("adult.json"), "--data", data(), "--analysis", "all", "--format", format})
        .out;
  };
  EXPECT_THAT(table("csv"), StartsWith("table,item,mean,sd,value,deviation,reason\r\n"));
  EXPECT_THAT(table("html"), StartsWith("<!DOCTYPE html>"));
  EXPECT_GT(json::parse(table("json"))["analyses"].size(), 9U);
  EXPECT_THAT(table("text"), HasSubstr("Bjork-Jarabak analysis"));
}

TEST(CephTable, UsesThePrecision) {
  const Scratch scratch;
  const std::string film = scratch.write("film.json", R"({"kind": "lateral", "scale": 0.1, "landmarks": {
      "S": [0, 500], "N": [800, 500], "A": [820, 1100]}})");  // SNA = 90 + atan(20 / 600) = 91.909
  const struct {
    const char *precision, *value;
  } rows[] = {{"1", " 91.9 "}, {"2", " 91.91 "}, {"half", " 92.0 "}};
  for (const auto &row : rows)
    EXPECT_THAT(run_ceph({"item", film, "SNA", "--data", data(), "--precision", row.precision}).out,
                HasSubstr(row.value));
}

TEST(CephTable, ColoursOnlyATerminalUnlessTold) {
  const auto table = [](const char *when, const char *environment) {
    return run_ceph({"table", sample("adult.json"), "--data", data(), "--color", when}, "", environment).out;
  };
  EXPECT_THAT(table("auto", ""), Not(HasSubstr("\x1B[")));
  EXPECT_THAT(table("never", ""), Not(HasSubstr("\x1B[")));
  EXPECT_THAT(table("always", "NO_COLOR=1"), HasSubstr("\x1B[32m"));
}

TEST(CephItem, FindsTheFirstAnalysisThatHoldsIt) {
  const json report =
      json_of(run_ceph({"item", sample("adult.json"), "ANB", "--data", data(), "--format", "json"}));
  const json landmarks = sample_landmarks("adult.json");
  const double anb = angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "A")) -
                     angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "B"));
  EXPECT_NEAR(report["items"][0]["rows"][0]["value"].get<double>(), anb, 1e-6);
}

TEST(CephItem, EndsWithOneWhenItCannotBeFormed) {
  const Scratch scratch;
  const Outcome outcome =
      run_ceph({"item", scratch.write("film.json", four_points), "SNB", "--data", data()});
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.out, HasSubstr("point \"B\" is not placed"));
}

TEST(CephEval, AnswersWithTheBareValue) {
  const Scratch scratch;
  const std::string film = scratch.write("film.json", four_points);
  const struct {
    const char *formula, *answer;
    int exit_code;
  } rows[] = {
      {"len([S],[N])", "70\n", 0},
      {"2+3*4", "14\n", 0},
      {"angle1([S],[N],[A]):1", "90\n", 0},
      {" [N] ", "(800, 500)\n", 0},
      {"mid([S],[N])", "(450, 500)\n", 0},
      {"vertical([S],[N],mid([N],[A]))", "(800, 500)\n", 0},
      {"len([S],[B])", "point \"B\" is not placed\n", 1},
      {"[B]", "point \"B\" is not placed\n", 1},
      {"mid([S],[Q])", "point \"Q\" is unknown\n", 1},
  };
  for (const auto &row : rows) {
    const Outcome outcome = run_ceph({"eval", row.formula, "--on", film});
    EXPECT_EQ(outcome.out, row.answer) << row.formula;
    EXPECT_EQ(outcome.exit_code, row.exit_code) << row.formula;
  }
}

TEST(CephEval, LooksUpItemsOfAnAnalysis) {
  const Outcome alone = run_ceph({"eval", "case(\"SNA\")", "--on", sample("adult.json")});
  EXPECT_EQ(alone.exit_code, 1);
  EXPECT_THAT(alone.out, HasSubstr("item \"SNA\""));
  const Outcome outcome = run_ceph(
      {"eval", "mean(\"SNA\")", "--on", sample("adult.json"), "--analysis", "Steiner", "--data", data()});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_EQ(outcome.out, "82\n");
}

std::size_t count_rows(const json &report) {
  std::size_t count = 0;
  for (const json &group : report["groups"]) count += group["rows"].size();
  return count;
}

TEST(CephCatalogue, ShowsAllFixedMeasurements) {
  EXPECT_EQ(count_rows(json_of(run_ceph({"catalogue", sample("adult.json"), "--format", "json"}))), 148U);
  EXPECT_EQ(count_rows(json_of(run_ceph({"catalogue", sample("frontal.json"), "--format", "json"}))), 18U);
  const Outcome cast = run_ceph({"catalogue", sample("cast.json")});
  EXPECT_EQ(cast.exit_code, 2);
  EXPECT_THAT(cast.err, HasSubstr("is a cast"));
}

TEST(CephCatalogue, NamesTheLandmarksThatAreMissing) {
  const Scratch scratch;
  const json report =
      json_of(run_ceph({"catalogue", scratch.write("film.json", four_points), "--format", "json"}));
  const json &first = report["groups"][0]["rows"];
  EXPECT_NEAR(first[0]["value"].get<double>(), 70.0, 1e-9);  // S to N
  EXPECT_FALSE(first[0].contains("reason"));
  EXPECT_EQ(first[1]["reason"], "not placed: ANS");       // N to ANS
  EXPECT_EQ(first[10]["reason"], "not placed: U1, UMo");  // U1 to UMo: both ends are missing
  const json &second = report["groups"][1]["rows"];
  EXPECT_EQ(second[6]["reason"], "not placed: B");  // SNB
  EXPECT_EQ(second[7]["reason"], "not placed: B");  // ANB
}

TEST(CephCatalogue, TurnsTheNasalFloorAngleRound) {
  const auto values = [](const char *nf_to_fh) {
    return json_of(
        run_ceph({"catalogue", sample("adult.json"), "--format", "json", "--nf-to-fh", nf_to_fh}))["groups"];
  };
  const json negated = values("1"), measured = values("0");
  for (std::size_t group = 0; group < negated.size(); ++group)
    for (std::size_t item = 0; item < negated[group]["rows"].size(); ++item) {
      const bool turned = (group == 1 && item == 10) || (group == 3 && item == 1);
      const auto value = [&](const json &all) { return all[group]["rows"][item]["value"].get<double>(); };
      EXPECT_EQ(value(measured), turned ? -value(negated) : value(negated)) << group << '.' << item;
    }
  EXPECT_NE(negated[1]["rows"][10]["value"], 0.0);
  EXPECT_EQ(run_ceph({"catalogue", sample("frontal.json"), "--nf-to-fh", "0"}).exit_code, 2);
}

TEST(CephCatalogue, ComputesTheBoneAge) {
  // d1 / l1 = 0.5, d2 / l2 = 0.8, d2 / d3 = 1 give 0.82 + 6.585 + 5.01 years for boys without a coefficient
  // file
  const Scratch scratch;
  const std::string film = scratch.write("film.json", R"({"kind": "lateral", "scale": 0.1, "landmarks": {},
    "patient": {"sex": "male"}, "vertebrae": {"P11": [50, 100], "P12": [100, 100], "P13": [200, 100], "P14": [10, 150],
    "P15": [90, 150], "P16": [400, 20], "P17": [500, 20], "P18": [100, 300], "P19": [200, 300], "P20": [300, 100],
    "P21": [600, 100]}})");
  scratch.write("data/CalcForm/list.txt", "");
  const json report =
      json_of(run_ceph({"catalogue", film, "--data", scratch.path("data"), "--format", "json"}));
  EXPECT_NEAR(report["bone_age"].get<double>(), 12.415, 1e-9);
}

TEST(CephSurgery, SetsThePlanBesideTheStart) {
  const json report = json_of(run_ceph({"surgery", sample("child-before.json"), sample("child-after.json"),
                                        "--data", data(), "--format", "json"}));
  const json before = sample_landmarks("child-before.json"), after = sample_landmarks("child-after.json");
  const json &row = report["surgery"][0]["rows"][1];
  ASSERT_EQ(row["item"], "SNA");
  EXPECT_NEAR(row["before"].get<double>(), angle_deg(between(before, "N", "S"), between(before, "N", "A")),
              1e-6);
  EXPECT_NEAR(row["after"].get<double>(), angle_deg(between(after, "N", "S"), between(after, "N", "A")),
              1e-6);
  const Outcome wrong = run_ceph({"surgery", sample("adult.json"), sample("frontal.json"), "--data", data()});
  EXPECT_EQ(wrong.exit_code, 3);
  EXPECT_THAT(wrong.err, HasSubstr("is not a lateral film"));
}

TEST(CephDiagnose, TellsSentencesAndWhatIsMissing) {
  const Outcome whole = run_ceph({"diagnose", sample("child-before.json"), "--data", data()});
  EXPECT_EQ(whole.exit_code, 0) << whole.err;
  EXPECT_THAT(whole.out, HasSubstr("Class II"));
  EXPECT_THAT(whole.out, Not(HasSubstr("incomplete")));
  const Scratch scratch;
  const Outcome part = run_ceph({"diagnose", scratch.write("film.json", four_points), "--data", data()});
  EXPECT_EQ(part.exit_code, 1);
  EXPECT_THAT(part.out, HasSubstr("Maxilla"));
  EXPECT_THAT(part.out,
              Not(testing::ContainsRegex("[Mm]andible behind|[Mm]andible ahead|[Mm]andible average")));
  EXPECT_THAT(part.out, HasSubstr("the diagnosis is incomplete: point \"B\" is not placed"));
}

TEST(CephModel, MeasuresTheCast) {
  const Scratch scratch;
  const std::string tooth = R"({"right": [[0, 0], [80, 0]], "left": [[0, 0], [0, 80]]})";
  const std::string jaw = "[" + tooth + "," + tooth + "," + tooth + ",null,null,null]";
  const std::string cast = scratch.write(
      "cast.json", R"({"kind": "cast", "scale": 0.1, "cast": {"upper": )" + jaw + R"(, "lower": )" + jaw +
                       R"(, "upper_arch": {"width_points": [[0, 0], [300, 400]]}}})");
  const json report = json_of(run_ceph({"model", cast, "--data", data(), "--format", "json"}));
  const json &rows = report["items"][0]["rows"];
  ASSERT_EQ(rows.size(), 28U);
  EXPECT_EQ(rows[0]["right"], 8.0);
  EXPECT_EQ(rows[0]["left"], 8.0);
  EXPECT_EQ(rows[3]["right"], "absent");
  EXPECT_EQ(rows[6]["value"], 50.0);
  EXPECT_EQ(rows[16]["value"], 48.0);
  EXPECT_EQ(rows[20]["value"], 100.0);
  EXPECT_THAT(rows[22]["reason"].get<std::string>(), HasSubstr("mixed dentition"));
  EXPECT_EQ(run_ceph({"model", sample("adult.json"), "--data", data()}).exit_code, 3);
}

TEST(CephOutput, ReplacesAFileInOneStep) {
  const Scratch scratch;
  const std::string file = scratch.write("report.txt", "old");
  const Outcome shown = run_ceph({"table", sample("adult.json"), "--data", data()});
  const Outcome written = run_ceph({"table", sample("adult.json"), "--data", data(), "-o", file});
  EXPECT_EQ(written.exit_code, 0) << written.err;
  EXPECT_EQ(written.out, "");
  EXPECT_EQ(test::read_file(file), shown.out);
  const auto entries = std::filesystem::directory_iterator(std::filesystem::path(file).parent_path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);  // nothing is left beside it
}

TEST(CephOutput, ReportsWhatCannotBeWritten) {
  const Outcome folder = run_ceph({"analyses", "--data", data(), "-o", "/no/such/folder/report.txt"});
  EXPECT_EQ(folder.exit_code, 5);
  EXPECT_THAT(folder.err, StartsWith("ceph: /no/such/folder/report.txt: cannot be written"));
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  EXPECT_EQ(run_ceph({"analyses", "--data", data()}, "> /dev/full").exit_code, 5);
  EXPECT_EQ(run_ceph({"analyses", "--data", data(), "-o", "/dev/full"}).exit_code, 5);
}

TEST(CephErrors, HaveACodeAPlaceAndARemedy) {
  const Scratch scratch;
  const std::string broken =
      scratch.write("broken.json", R"({"kind": "lateral", "scale": 0, "landmarks": {}})");
  const struct {
    std::vector<std::string> words;
    int exit_code;
    std::string message;
  } rows[] = {
      {{}, 2, "ceph: A subcommand is required"},
      {{"tabel"}, 2, "ceph: "},
      {{"table"}, 2, "ceph: TRACING is required"},
      {{"table", sample("adult.json"), "--data", data(), "--format", "pdf"}, 2, "pdf"},
      {{"table", sample("adult.json"), "--data", data(), "--age", "-3"}, 2, "age -3"},
      {{"table", sample("adult.json"), "--data", data(), "--analysis", "Stiner analysis"},
       2,
       "did you mean \"Steiner analysis\"?"},
      {{"table", sample("adult.json"), "--data", data(), "--analysis", "99"}, 2, "0 to 10"},
      {{"item", sample("adult.json"), "Facial axs", "--data", data()}, 2, "did you mean \"Facial axis\"?"},
      {{"table", "no-such-file.json", "--data", data()}, 3, "ceph: no-such-file.json: cannot be opened"},
      {{"table", broken, "--data", data()},
       3,
       "broken.json: the scale 0 is not above 0; at /scale; millimetres"},
      {{"table", sample("film.csv"), "--data", data()}, 3, "choose one with --film"},
      {{"table", sample("adult.json"), "--data", "/no/such/folder"},
       4,
       "ceph: /no/such/folder: is not a folder"},
      {{"table", sample("adult.json"), "--data", scratch.path("")}, 4, "holds no lateral analysis"},
  };
  for (const auto &row : rows) {
    std::string words;
    for (const std::string &word : row.words) words += ' ' + test::shell_word(word);
    const Outcome outcome = run_ceph({}, words);
    EXPECT_EQ(outcome.exit_code, row.exit_code) << words << '\n' << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(row.message)) << words;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << words;
  }
}

TEST(CephInput, ReadsStandardInput) {
  const Scratch scratch;
  const std::string film = scratch.write("film.json", four_points);
  EXPECT_EQ(run_ceph({"eval", "len([S],[N])", "--on", "-"}, "< " + test::shell_word(film)).out, "70\n");
  const Outcome broken = run_ceph({"eval", "1", "--on", "-"}, "< /dev/null");
  EXPECT_EQ(broken.exit_code, 3);
  EXPECT_THAT(broken.err, StartsWith("ceph: standard input: "));
}

TEST(CephHelp, NamesEverySubcommand) {
  const Outcome help = run_ceph({"--help"});
  EXPECT_EQ(help.exit_code, 0);
  for (const char *name : {"analyses", "table", "item", "eval", "catalogue", "surgery", "diagnose", "model"})
    EXPECT_THAT(help.out, HasSubstr(name));
  EXPECT_THAT(run_ceph({"table", "--help"}).out, HasSubstr("--magnification"));
  EXPECT_THAT(run_ceph({"--version"}).out, testing::MatchesRegex("ceph [0-9.]+\n"));
}

}  // namespace
