// The shipped tracings through the shipped analyses: what a clinician reads in the tables. The expected
// ranges come from the published norms (mean and SD of the sample's sex and age) and from the diagnosis that
// each sample stands for, never from a table printed by this library.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "apps/common/tracing_file.h"
#include "tool/api/CCephCalc.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/ui/CListCtrl.h"
#include "tool/framework/ui/CWinApp.h"

namespace {

constexpr int male = 1, female = 2;
constexpr int lateral = 0, frontal = 1, cast = 2, diagnosis = 10;
constexpr int column_of_10 = 4, column_of_12 = 6, column_of_18 = 12;
constexpr double film_magnification = 1.1;

struct Sample {
  const char *file, *film;
  int mode, sex, column;
};
constexpr Sample adult{"adult.json", "", lateral, female, column_of_18};
constexpr Sample child{"child-before.json", "", lateral, male, column_of_10};
constexpr Sample later{"child-after.json", "", lateral, male, column_of_12};
constexpr Sample class_one{"film.csv", "M1", lateral, male, column_of_18};
constexpr Sample class_two{"film.csv", "F2", lateral, female, column_of_18};
constexpr Sample class_three{"film.csv", "M3", lateral, male, column_of_18};
constexpr Sample face{"frontal.json", "", frontal, male, column_of_18};
constexpr Sample teeth{"cast.json", "", cast, female, 0};

struct Row {
  std::string mean, sd, value, second;
  double number() const { return std::strtod(value.c_str(), nullptr); }
  bool has_norm() const { return !value.empty() && !mean.empty() && !sd.empty(); }
  double deviation() const {
    return (number() - std::strtod(mean.c_str(), nullptr)) / std::strtod(sd.c_str(), nullptr);
  }
};
using Table = std::map<std::string, Row>;

std::string text_at(const CListCtrl &list, int row, int column) {
  return list.GetItemText(row, column).str();
}

class SampleTable : public testing::Test {
 protected:
  void SetUp() override {
    AfxGetApp()->WriteProfileString("DB_DIR", "ANAITEMPATH", TOOL_SOURCE_DIR "/data/ANAITEM/");
  }

  static app::TracingFile read(const Sample &sample) {
    return app::read_tracing_file(std::string(TOOL_SOURCE_DIR "/data/samples/") + sample.file, sample.film);
  }

  /// Position of a definition file in its folder's list.
  static int file_index(int mode, const std::string &name) {
    for (int index = 0;; ++index) {
      const std::string path = CCephCalc::FormFile(mode, index).str();
      if (path.empty()) throw std::runtime_error(name + " is not listed");
      if (path.ends_with(name)) return index;
    }
  }

  static Table rows_of(const CListCtrl &list) {
    Table rows;
    for (int i = 0; i < list.GetItemCount(); ++i)
      rows[text_at(list, i, 0)] = {text_at(list, i, 1), text_at(list, i, 2), text_at(list, i, 3),
                                   text_at(list, i, 4)};
    return rows;
  }

  static Table table(app::TracingFile &file, const Sample &sample, const std::string &analysis) {
    CListCtrl list;
    for (int i = 0; i < 5; ++i) list.InsertColumn(i, "");
    unsigned short virtual_count = file.virtual_count(), user_count = file.user_count();
    CCephCalc::User_Calc(sample.mode, &list, file.record_address(), file_index(sample.mode, analysis),
                         &virtual_count, file.virtual_points.data(), &user_count, file.user_points.data(),
                         sample.sex, sample.column, film_magnification, 2);
    return rows_of(list);
  }
  static Table table(const Sample &sample, const std::string &analysis) {
    app::TracingFile file = read(sample);
    return table(file, sample, analysis);
  }

  static std::string sentences(const Sample &sample) {
    app::TracingFile file = read(sample);
    CListCtrl list;
    list.InsertColumn(0, "");
    unsigned short none = 0;
    CCephCalc::User_Diag(diagnosis, &list, file.record_address(), 0, &none, nullptr, &none, nullptr,
                         sample.sex, sample.column, 0, film_magnification, 0);
    std::string text;
    for (int i = 0; i < list.GetItemCount(); ++i) text += text_at(list, i, 0) + "\n";
    return text;
  }
};

struct Expected {
  const Sample *sample;
  const char *analysis, *item;
  double low, high;
};

// The adult and M1 are skeletal class I with an average face, the child and F2 class II, M3 class III. The
// frontal face has no crossbite; the cast has the arches of women, whose basal width of 44 % and more is
// sufficient.
const Expected ranges[] = {
    {&adult, "Steiner.txt", "ANB", 0, 4},
    {&adult, "Wits_Kim.txt", "Wits", -2, 2},
    {&adult, "Ricketts.txt", "Overjet", 1, 4},
    {&adult, "Ricketts.txt", "Overbite", 0.5, 4.5},
    {&adult, "Soft_Tissue.txt", "Upper incisor show", 1, 4},
    {&adult, "Soft_Tissue.txt", "Lip ratio", 0.42, 0.58},
    {&child, "Northwestern.txt", "ANB", 5, 7},
    {&child, "Ricketts.txt", "Convexity", 3.8, 8},
    {&child, "Ricketts.txt", "Overjet", 5, 9},
    {&child, "Ricketts.txt", "Molar relation", -1.5, 3},
    {&child, "Wits_Kim.txt", "Wits", 1.5, 7},
    {&child, "Soft_Tissue.txt", "Facial convexity", 14, 24},
    {&child, "Jarabak.txt", "S-N", 63, 71},
    {&child, "McNamara.txt", "Difference", 16, 25},
    {&class_one, "Steiner.txt", "ANB", 0, 4},
    {&class_two, "Steiner.txt", "ANB", 5, 9},
    {&class_two, "Wits_Kim.txt", "Wits", 2, 8},
    {&class_two, "Ricketts.txt", "Overjet", 4.5, 9},
    {&class_three, "Steiner.txt", "ANB", -5, -1},
    {&class_three, "Wits_Kim.txt", "Wits", -12, -4},
    {&class_three, "Ricketts.txt", "Overjet", -5, 0},
    {&face, "Ricketts_PA.txt", "Molar relation left", 0, 3},
    {&face, "Ricketts_PA.txt", "Molar relation right", 0, 3},
    {&face, "Ricketts_PA.txt", "Maxilla to mandible percent", 70, 80},
    {&face, "Ricketts_PA.txt", "Mandible minus maxilla", 15.6, 23.6},
    {&teeth, "Cast.txt", "Anterior ratio", 77.2 - 1.65, 77.2 + 1.65},
    {&teeth, "Cast.txt", "Overall ratio", 91.3 - 1.91, 91.3 + 1.91},
    {&teeth, "Cast.txt", "Lower overall excess", -2, 2},
    {&teeth, "Cast.txt", "Upper arch width", 37, 46},
    {&teeth, "Cast.txt", "Upper arch depth", 31, 40},
    {&teeth, "Cast.txt", "Upper basal width percent", 44, 52},
};

TEST_F(SampleTable, EverySampleIsThePatientItStandsFor) {
  for (const Expected &row : ranges) {
    const Table rows = table(*row.sample, row.analysis);
    ASSERT_TRUE(rows.contains(row.item)) << row.item;
    const double value = rows.at(row.item).number();
    EXPECT_TRUE(value >= row.low && value <= row.high)
        << row.sample->file << row.sample->film << " " << row.item << " " << value;
  }
  const struct {
    const Sample &sample;
    const char *kim_class;
  } classes[] = {{adult, "Class I"},
                 {child, "Class II tendency"},
                 {class_one, "Class I"},
                 {class_two, "Class II tendency"},
                 {class_three, "Class III tendency"}};
  for (const auto &row : classes) EXPECT_EQ(table(row.sample, "Wits_Kim.txt")["Class"].value, row.kim_class);
  EXPECT_EQ(table(adult, "Ricketts.txt")["Type"].value, "mesofacial");
  EXPECT_THAT(sentences(adult), testing::HasSubstr("- ANB Class I."));
  EXPECT_THAT(sentences(adult), testing::Not(testing::HasSubstr("extreme)")));
  EXPECT_THAT(sentences(child), testing::HasSubstr("- ANB Class II tendency (slight)."));
}

TEST_F(SampleTable, AdultAndFaceLieWithinTheNormsOfEveryAnalysis) {
  int measured = 0, near = 0;
  for (const char *analysis :
       {"Ricketts.txt", "Ricketts_1981.txt", "Steiner.txt", "Downs.txt", "Northwestern.txt", "Tweed.txt",
        "McNamara.txt", "Jarabak.txt", "Wits_Kim.txt", "Soft_Tissue.txt"})
    for (const auto &[item, row] : table(adult, analysis)) {
      if (!row.has_norm()) continue;
      // Jarabak's SD of one degree for SNA and SNB is that of his selection, not of a population.
      if (std::string(analysis) == "Jarabak.txt" && (item == "SNA" || item == "SNB")) continue;
      ++measured;
      near += std::abs(row.deviation()) <= 1.0 ? 1 : 0;
      EXPECT_LT(std::abs(row.deviation()), 2.5) << analysis << " " << item << " " << row.value;
    }
  EXPECT_GT(measured, 120);
  EXPECT_GT(near, measured * 3 / 4);
  Table rows = table(face, "Ricketts_PA.txt");
  EXPECT_EQ(std::count_if(rows.begin(), rows.end(), [](const auto &row) { return row.second.has_norm(); }),
            18);
  for (const auto &[item, row] : rows)
    EXPECT_FALSE(row.has_norm() && std::abs(row.deviation()) >= 2.0) << item << " " << row.value;
  for (const std::string pair : {"Molar relation", "Maxilla to face plane", "Molar to jaw"})
    EXPECT_NEAR(rows[pair + " left"].number(), rows[pair + " right"].number(), 1.0) << pair;
}

// Identities of the plane triangle hold whatever the tracing.
TEST_F(SampleTable, AnglesOfATriangleCloseInEverySample) {
  for (const Sample &sample : {adult, child, later}) {
    Table tweed = table(sample, "Tweed.txt"), jarabak = table(sample, "Jarabak.txt");
    EXPECT_NEAR(tweed["FMA"].number() + tweed["IMPA"].number() + tweed["FMIA"].number(), 180, 0.016);
    EXPECT_NEAR(jarabak["Sum"].number(), 360 + jarabak["SN-MP"].number(), 0.011);
  }
}

TEST_F(SampleTable, JapaneseAnalysisMeasuresTheSameFaceUnderJapaneseNames) {
  Table japanese = table(adult, "Japanese.txt"), steiner = table(adult, "Steiner.txt");
  Table tweed = table(adult, "Tweed.txt");
  const auto row = [&](const char *utf8) { return japanese[*framework::cp932_from_utf8(utf8)]; };
  EXPECT_EQ(japanese["SNA"].value, steiner["SNA"].value);
  EXPECT_EQ(japanese["SNA"].mean, "82.32");
  EXPECT_NEAR(japanese["FMIA"].number(), tweed["FMIA"].number(), 0.011);
  EXPECT_EQ(row("予測IMPA").value, "90.00") << "FMA of an average face is below 25";
  EXPECT_NEAR(row("予測IMPAとの差").number(), tweed["IMPA"].number() - 90, 0.011);
  EXPECT_EQ(row("ポゴニオン-N垂線").mean, "-7.3");
  for (const char *item : {"オーバージェット", "ｵｰﾊﾞｰﾊﾞｲﾄ"}) {
    EXPECT_GT(row(item).number(), 0.5) << item;
    EXPECT_LT(row(item).number(), 5.0) << item;
  }
}

// Two and a half years of growth: lengths by half to one and a half times the mean yearly growth of white
// children, and a correction of the Class II by the lower jaw.
TEST_F(SampleTable, ChildGrowsAsChildrenGrow) {
  const auto grown = [](double mm_a_year) { return std::pair(1.25 * mm_a_year, 3.75 * mm_a_year); };
  const struct {
    const char *analysis, *item;
    std::pair<double, double> range;
  } rows[] = {
      {"Jarabak.txt", "S-N", grown(0.8)},
      {"Jarabak.txt", "N-Me", grown(2.1)},
      {"Jarabak.txt", "S-Go", grown(1.6)},
      {"Jarabak.txt", "Go-Me", grown(1.6)},
      {"McNamara.txt", "Cd-Gn", grown(2.5)},
      {"McNamara.txt", "Cd-A", grown(1.2)},
      {"McNamara.txt", "ANS-Me", grown(1.0)},
      {"Ricketts.txt", "Corpus Xi-PM", grown(1.6)},
      {"Ricketts.txt", "Cranial N-CC", grown(0.8)},
      {"Northwestern.txt", "SNB", {0.5, 2.5}},
      {"Northwestern.txt", "ANB", {-3.5, -1}},
      {"Ricketts.txt", "U6-PTV", {0.5, 3.5}},
      {"Ricketts.txt", "Convexity", {-4, -1}},
      {"Ricketts.txt", "Overjet", {-5, -2}},
      {"Ricketts.txt", "Molar relation", {-5, -1.5}},
      {"Ricketts.txt", "Facial axis", {-2, 2}},
      {"Ricketts.txt", "MP-FH", {-3, 0.5}},
      {"Soft_Tissue.txt", "Nose prominence", {1, 5}},
  };
  for (const auto &row : rows) {
    const double change =
        table(later, row.analysis)[row.item].number() - table(child, row.analysis)[row.item].number();
    EXPECT_TRUE(change >= row.range.first && change <= row.range.second) << row.item << " " << change;
  }
}

TEST_F(SampleTable, BoneAgeOfTheChildIsWithinAYearOfHisAge) {
  for (const Sample &sample : {child, later}) {
    const app::TracingFile film = read(sample);
    ASSERT_TRUE(film.vertebrae && film.patient.age());
    tagCVBA vertebrae = *film.vertebrae;
    EXPECT_NEAR(CCephCalc::Calc_CVBA(&vertebrae, male), *film.patient.age(), 1.0) << sample.file;
  }
}

TEST_F(SampleTable, SurgeryTableComparesBothFilmsOfTheChild) {
  app::TracingFile before = read(child), after = read(later);
  CListCtrl list;
  for (int i = 0; i < 5; ++i) list.InsertColumn(i, "");
  unsigned short none = 0;
  CCephCalc::User_CalcSurg(&list, before.record_address(), after.record_address(), &none, nullptr, &none,
                           nullptr, male, 0, film_magnification, 1);
  Table rows = rows_of(list);
  EXPECT_EQ(rows["Skeletal class"].mean, "Class II");
  EXPECT_EQ(rows["Skeletal class"].value, "Class I");
  EXPECT_EQ(rows["ANB"].sd, "++") << "5 to 7 degrees are more than two working SDs above 2";
  EXPECT_EQ(rows["Ar-Go"].sd, "--") << "the ramus of a child against the norms of men";
}

TEST_F(SampleTable, CastSumsItsTeethAndPredictsTheSegmentsOfAMixedDentition) {
  app::TracingFile model = read(teeth);
  Table rows = table(model, teeth, "Cast.txt");
  const auto sum = [&](const char *jaw, std::initializer_list<const char *> names) {
    double total = 0;
    for (const char *tooth : names) {
      const Row &row = rows[std::string(jaw) + " " + tooth];
      EXPECT_LT(std::abs(row.deviation()), 2.0) << tooth << row.value;
      EXPECT_NEAR(row.number(), std::strtod(row.second.c_str(), nullptr), 0.3) << tooth;
      total += row.number() + std::strtod(row.second.c_str(), nullptr);
    }
    return total;
  };
  for (const std::string jaw : {"Upper", "Lower"})
    EXPECT_NEAR(rows[jaw + " 12-tooth sum"].number(),
                sum(jaw.c_str(), {"central incisor", "lateral incisor", "canine", "first premolar",
                                  "second premolar", "first molar"}),
                0.07);
  EXPECT_EQ(rows["Overall ratio"].mean, "91.3");
  EXPECT_FALSE(rows.contains("Model [PLTU] upper segment")) << "nothing to predict in a permanent dentition";
  model.model()->mixed = 1;
  model.model()->ex.upperExtra[3][0] = 0;
  rows = table(model, teeth, "Cast.txt");
  const auto incisors = [&](const char *jaw) { return sum(jaw, {"central incisor", "lateral incisor"}); };
  // Ono 1960, girls.
  EXPECT_NEAR(rows["Model [PLTU] upper segment"].number(), 0.421 * incisors("Upper") + 9.03, 0.02);
  EXPECT_NEAR(rows["Model [PLTL] lower segment"].number(), 0.549 * incisors("Lower") + 8.52, 0.02);
  EXPECT_EQ(rows["Upper basal width percent"].value, "") << "no basal width, no percentage";
}

// Goals of Tweed 1954: 68, from FMA 30 on 65, and below 20 what leaves an IMPA of 92.
TEST_F(SampleTable, TweedGoalsFollowTheMandibularPlane) {
  app::TracingFile flat = read(adult);
  flat.lateral()->pt[8 + 17].y -= 120;  // the chin 12 mm higher
  Table rows = table(adult, "Tweed.txt");
  EXPECT_EQ(rows["FMIA goal"].value, "68.00");
  EXPECT_EQ(rows["IMPA at this FMA"].mean, "90.0");
  rows = table(class_two, "Tweed.txt");
  ASSERT_GT(rows["FMA"].number(), 30);
  EXPECT_EQ(rows["FMIA goal"].value, "65.00");
  EXPECT_NEAR(std::stod(rows["IMPA at this FMA"].mean), 115 - rows["FMA"].number(), 0.06);
  EXPECT_NEAR(rows["Head film correction"].number(), (65 - rows["FMIA"].number()) * 0.8, 0.01);
  rows = table(flat, adult, "Tweed.txt");
  ASSERT_LT(rows["FMA"].number(), 20);
  EXPECT_NEAR(rows["FMIA goal"].number(), 180 - 92 - rows["FMA"].number(), 0.011);
}

}  // namespace
