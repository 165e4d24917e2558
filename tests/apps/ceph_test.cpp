// Every subcommand, run as a program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/apps/run_ceph.h"

namespace {

using nlohmann::json;
using support::Outcome;
using support::run_ceph;
using support::sample;
using support::TemporaryFolder;
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
  return json::parse(std::ifstream(sample(name)))["landmarks"];
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

const std::string data_folder = TOOL_SOURCE_DIR "/data/ANAITEM";

/// With the shipped analyses.
Outcome ceph(std::vector<std::string> words, const std::string &redirection = "",
             const std::string &environment = "") {
  words.insert(words.end(), {"--data", data_folder});
  return run_ceph(words, redirection, environment);
}

/// What it answers in JSON.
json ask(std::vector<std::string> words) {
  words.insert(words.end(), {"--format", "json"});
  return json_of(ceph(std::move(words)));
}

class Ceph : public testing::Test {
 protected:
  TemporaryFolder folder_;
  /// A lateral film with few landmarks.
  std::string film_ = folder_.write("film.json", R"({"kind": "lateral", "scale": 0.1,
      "landmarks": {"S": [100, 500], "N": [800, 500], "A": [800, 1100]}})");
};

TEST_F(Ceph, ListsTheAnalysesOfEveryMode) {
  const json report = ask({"analyses"});
  EXPECT_EQ(report["modes"].size(), 5U);
  EXPECT_EQ(report["modes"][0]["rows"][0]["index"], 0);
  EXPECT_EQ(report["modes"][0]["rows"][0]["file"], "Ricketts.txt");
  EXPECT_THAT(ceph({"analyses"}).out, HasSubstr("日本人成人"));
  folder_.write("CalcForm/list.txt", "There.txt\r\nGone.txt\r\n");
  folder_.write("CalcForm/There.txt", "title:\r\nThere\r\n");
  const Outcome outcome = run_ceph({"analyses", "--data", folder_.path()});
  EXPECT_THAT(outcome.out, HasSubstr("0  There"));
  EXPECT_THAT(outcome.out, HasSubstr("Gone.txt is listed but cannot be read"));
}

TEST_F(Ceph, TableHoldsValuesNormsAndDeviations) {
  const json landmarks = sample_landmarks("adult.json");
  const double sna = angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "A"));
  const json report = ask({"table", sample("adult.json"), "--analysis", "Steiner"});
  EXPECT_EQ(report["title"], "Steiner analysis");
  EXPECT_EQ(report["sex"], "female");
  const json row = row_of(report, "SNA");
  EXPECT_NEAR(row["value"].get<double>(), sna, 1e-6);
  EXPECT_NEAR(row["deviation"].get<double>(), (sna - row["mean"].get<double>()) / row["sd"].get<double>(),
              1e-6);
  EXPECT_FALSE(report["growth_stage"].empty());
  EXPECT_GT(report["diagnosis"].size(), 3U);
}

TEST_F(Ceph, TableChoosesNormsBySexAgeAndMagnification) {
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
    std::vector<std::string> words{"table", sample("adult.json")};
    words.insert(words.end(), row.options.begin(), row.options.end());
    EXPECT_NEAR(row_of(ask(words), row.item)["mean"].get<double>(), row.mean, 1e-9)
        << testing::PrintToString(row.options);
  }
}

TEST_F(Ceph, TableTellsTheReasonInsteadOfTheNumber) {
  const Outcome text = ceph({"table", film_, "--analysis", "Steiner"});
  EXPECT_EQ(text.exit_code, 0);
  EXPECT_THAT(text.out, testing::ContainsRegex("SNB +[0-9.]+ +[0-9.]+  point \"B\" is not placed"));
  EXPECT_THAT(text.out, testing::ContainsRegex("SNA +[0-9.]+ +[0-9.]+ +90\\.0"));
  EXPECT_THAT(text.out, HasSubstr("the sex is not stated"));
  EXPECT_THAT(text.out, HasSubstr("the age is not stated"));
}

TEST_F(Ceph, TableComesInEveryFormatAndColour) {
  const auto table = [](const char *option, const char *value, const char *environment = "") {
    return ceph({"table", sample("adult.json"), "--analysis", "all", option, value}, "", environment).out;
  };
  EXPECT_THAT(table("--format", "csv"), StartsWith("table,item,mean,sd,value,deviation,reason\r\n"));
  EXPECT_THAT(table("--format", "html"), StartsWith("<!DOCTYPE html>"));
  EXPECT_GT(json::parse(table("--format", "json"))["analyses"].size(), 9U);
  EXPECT_THAT(table("--format", "text"), HasSubstr("Bjork-Jarabak analysis"));
  EXPECT_THAT(table("--color", "auto"), Not(HasSubstr("\x1B[")));
  EXPECT_THAT(table("--color", "always", "NO_COLOR=1"), HasSubstr("\x1B[32m"));
}

TEST_F(Ceph, ItemIsTakenFromTheFirstAnalysisThatHoldsIt) {
  const json landmarks = sample_landmarks("adult.json");
  const double anb = angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "A")) -
                     angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "B"));
  const json report = ask({"item", sample("adult.json"), "ANB"});
  EXPECT_NEAR(report["items"][0]["rows"][0]["value"].get<double>(), anb, 1e-6);
  const Outcome outcome = ceph({"item", film_, "SNB"});
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.out, HasSubstr("point \"B\" is not placed"));
  const std::string slanted =
      folder_.write("slanted.json", R"({"kind": "lateral", "scale": 0.1, "landmarks": {
      "S": [0, 500], "N": [800, 500], "A": [820, 1100]}})");  // SNA = 90 + atan(20 / 600) = 91.909
  for (const auto &[precision, value] : {std::pair{"1", " 91.9 "}, {"2", " 91.91 "}, {"half", " 92.0 "}})
    EXPECT_THAT(ceph({"item", slanted, "SNA", "--precision", precision}).out, HasSubstr(value));
}

TEST_F(Ceph, EvalAnswersWithTheBareValue) {
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
    const Outcome outcome = run_ceph({"eval", row.formula, "--on", film_});
    EXPECT_EQ(outcome.out, row.answer) << row.formula;
    EXPECT_EQ(outcome.exit_code, row.exit_code) << row.formula;
  }
  EXPECT_THAT(run_ceph({"eval", "case(\"SNA\")", "--on", film_}).out, HasSubstr("item \"SNA\""));
  EXPECT_EQ(ceph({"eval", "mean(\"SNA\")", "--on", film_, "--analysis", "Steiner"}).out, "82\n");
  EXPECT_EQ(run_ceph({"eval", "len([S],[N])", "--on", "-"}, "< " + support::shell_word(film_)).out, "70\n");
}

std::size_t count_rows(const json &report) {
  std::size_t count = 0;
  for (const json &group : report["groups"]) count += group["rows"].size();
  return count;
}

TEST_F(Ceph, CatalogueShowsAllFixedMeasurementsAndWhatIsMissing) {
  EXPECT_EQ(count_rows(ask({"catalogue", sample("adult.json")})), 148U);
  EXPECT_EQ(count_rows(ask({"catalogue", sample("frontal.json")})), 18U);
  const json groups = ask({"catalogue", film_})["groups"];
  EXPECT_NEAR(groups[0]["rows"][0]["value"].get<double>(), 70.0, 1e-9);  // S to N
  EXPECT_FALSE(groups[0]["rows"][0].contains("reason"));
  EXPECT_EQ(groups[0]["rows"][1]["reason"], "not placed: ANS");       // N to ANS
  EXPECT_EQ(groups[0]["rows"][10]["reason"], "not placed: U1, UMo");  // both ends are missing
  EXPECT_EQ(groups[1]["rows"][7]["reason"], "not placed: B");         // ANB
}

TEST_F(Ceph, CatalogueTurnsTheNasalFloorAngleRound) {
  const json negated = ask({"catalogue", sample("adult.json"), "--nf-to-fh", "1"})["groups"];
  const json measured = ask({"catalogue", sample("adult.json"), "--nf-to-fh", "0"})["groups"];
  for (std::size_t group = 0; group < negated.size(); ++group)
    for (std::size_t item = 0; item < negated[group]["rows"].size(); ++item) {
      const bool turned = (group == 1 && item == 10) || (group == 3 && item == 1);
      const auto value = [&](const json &all) { return all[group]["rows"][item]["value"].get<double>(); };
      EXPECT_EQ(value(measured), turned ? -value(negated) : value(negated)) << group << '.' << item;
    }
  EXPECT_NE(negated[1]["rows"][10]["value"], 0.0);
}

TEST_F(Ceph, CatalogueComputesTheBoneAge) {
  // d1 / l1 = 0.5, d2 / l2 = 0.8, d2 / d3 = 1 give 0.82 + 6.585 + 5.01 years for boys without a coefficient
  // file
  const std::string film = folder_.write("neck.json", R"({"kind": "lateral", "scale": 0.1, "landmarks": {},
    "patient": {"sex": "male"}, "vertebrae": {"P11": [50, 100], "P12": [100, 100], "P13": [200, 100], "P14": [10, 150],
    "P15": [90, 150], "P16": [400, 20], "P17": [500, 20], "P18": [100, 300], "P19": [200, 300], "P20": [300, 100],
    "P21": [600, 100]}})");
  const json report = json_of(run_ceph({"catalogue", film, "--data", folder_.path(), "--format", "json"}));
  EXPECT_NEAR(report["bone_age"].get<double>(), 12.415, 1e-9);
}

TEST_F(Ceph, SurgerySetsThePlanBesideTheStart) {
  const json report = ask({"surgery", sample("child-before.json"), sample("child-after.json")});
  const json &row = report["surgery"][0]["rows"][1];
  ASSERT_EQ(row["item"], "SNA");
  for (const std::string side : {"before", "after"}) {
    const json landmarks = sample_landmarks(("child-" + side + ".json").c_str());
    EXPECT_NEAR(row[side].get<double>(),
                angle_deg(between(landmarks, "N", "S"), between(landmarks, "N", "A")), 1e-6);
  }
}

TEST_F(Ceph, DiagnoseTellsSentencesAndWhatIsMissing) {
  const Outcome whole = ceph({"diagnose", sample("child-before.json")});
  EXPECT_EQ(whole.exit_code, 0) << whole.err;
  EXPECT_THAT(whole.out, HasSubstr("Class II"));
  EXPECT_THAT(whole.out, Not(HasSubstr("incomplete")));
  const Outcome part = ceph({"diagnose", film_});
  EXPECT_EQ(part.exit_code, 1);
  EXPECT_THAT(part.out, HasSubstr("Maxilla"));
  EXPECT_THAT(part.out,
              Not(testing::ContainsRegex("[Mm]andible behind|[Mm]andible ahead|[Mm]andible average")));
  EXPECT_THAT(part.out, HasSubstr("the diagnosis is incomplete: point \"B\" is not placed"));
}

TEST_F(Ceph, ModelMeasuresTheCast) {
  const std::string tooth = R"({"right": [[0, 0], [80, 0]], "left": [[0, 0], [0, 80]]})";
  const std::string jaw = "[" + tooth + "," + tooth + "," + tooth + ",null,null,null]";
  const std::string cast = folder_.write(
      "cast.json", R"({"kind": "cast", "scale": 0.1, "cast": {"upper": )" + jaw + R"(, "lower": )" + jaw +
                       R"(, "upper_arch": {"width_points": [[0, 0], [300, 400]]}}})");
  const json rows = ask({"model", cast})["items"][0]["rows"];
  ASSERT_EQ(rows.size(), 28U);
  EXPECT_EQ(rows[0]["right"], 8.0);
  EXPECT_EQ(rows[0]["left"], 8.0);
  EXPECT_EQ(rows[3]["right"], "absent");
  EXPECT_EQ(rows[6]["value"], 50.0);
  EXPECT_EQ(rows[16]["value"], 48.0);
  EXPECT_EQ(rows[20]["value"], 100.0);
  EXPECT_THAT(rows[22]["reason"].get<std::string>(), HasSubstr("mixed dentition"));
}

TEST_F(Ceph, OutputFileAppearsInOneStep) {
  const std::string file = folder_.write("reports/report.txt", "old");
  const Outcome written = ceph({"table", sample("adult.json"), "-o", file});
  EXPECT_EQ(written.exit_code, 0) << written.err;
  EXPECT_EQ(written.out, "");
  EXPECT_EQ(folder_.read("reports/report.txt"), ceph({"table", sample("adult.json")}).out);
  EXPECT_THAT(folder_.names(), testing::ElementsAre("film.json", "reports", "reports/report.txt"));
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  EXPECT_EQ(ceph({"analyses"}, "> /dev/full").exit_code, 5);
  EXPECT_EQ(ceph({"analyses", "-o", "/dev/full"}).exit_code, 5);
}

TEST_F(Ceph, ErrorsHaveACodeAPlaceAndARemedy) {
  const std::string broken =
      folder_.write("broken.json", R"({"kind": "lateral", "scale": 0, "landmarks": {}})");
  const std::string adult = sample("adult.json"), frontal = sample("frontal.json"),
                    cast = sample("cast.json");
  const struct {
    std::vector<std::string> words;
    int exit_code;
    const char *message;
  } rows[] = {
      {{}, 2, "ceph: A subcommand is required"},
      {{"tabel"}, 2, "ceph: "},
      {{"table"}, 2, "ceph: TRACING is required"},
      {{"table", adult, "--format", "pdf"}, 2, "pdf"},
      {{"table", adult, "--age", "-3"}, 2, "age -3"},
      {{"table", adult, "--analysis", "Stiner analysis"}, 2, "did you mean \"Steiner analysis\"?"},
      {{"table", adult, "--analysis", "99"}, 2, "0 to 10"},
      {{"item", adult, "Facial axs"}, 2, "did you mean \"Facial axis\"?"},
      {{"catalogue", cast}, 2, "is a cast"},
      {{"catalogue", frontal, "--nf-to-fh", "0"}, 2, "is not a lateral film"},
      {{"table", "no-such-file.json"}, 3, "ceph: no-such-file.json: cannot be opened"},
      {{"table", broken}, 3, "broken.json: the scale 0 is not above 0; at /scale; millimetres"},
      {{"table", sample("film.csv")}, 3, "choose one with --film"},
      {{"table", "-"}, 3, "ceph: standard input: "},
      {{"surgery", adult, frontal}, 3, "is not a lateral film"},
      {{"model", adult}, 3, "is not a cast"},
      {{"table", adult, "--data", "/no/such/folder"}, 4, "ceph: /no/such/folder: is not a folder"},
      {{"table", adult, "--data", folder_.path()}, 4, "holds no lateral analysis"},
      {{"table", adult, "-o", "/no/such/folder/r.txt"}, 5, "ceph: /no/such/folder/r.txt: cannot be written"},
  };
  for (const auto &row : rows) {
    const Outcome outcome = run_ceph(row.words, "< /dev/null");
    EXPECT_EQ(outcome.exit_code, row.exit_code) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(row.message));
    EXPECT_EQ(outcome.out, "") << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  }
}

TEST_F(Ceph, HelpNamesEverySubcommand) {
  const Outcome help = run_ceph({"--help"});
  EXPECT_EQ(help.exit_code, 0);
  for (const char *name :
       {"analyses", "table", "item", "eval", "catalogue", "surgery", "diagnose", "model", "check", "batch"})
    EXPECT_THAT(help.out, HasSubstr(name));
  EXPECT_THAT(run_ceph({"--version"}).out, testing::MatchesRegex("ceph [0-9.]+\n"));
}

}  // namespace
