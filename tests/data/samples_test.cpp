// The shipped tracings through the shipped analyses: what a clinician reads in the tables. The expected
// ranges come from the published norms (mean and SD of the sample's sex and age) and from the diagnosis that
// each sample stands for, never from a table printed by this library.

#include <gtest/gtest.h>

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

  static app::TracingFile read(const std::string &name, const char *film = "") {
    return app::read_tracing_file(TOOL_SOURCE_DIR "/data/samples/" + name, film);
  }

  /// Position of a definition file in its folder's list.
  static int file_index(int mode, const std::string &name) {
    for (int index = 0;; ++index) {
      const std::string path = CCephCalc::FormFile(mode, index).str();
      if (path.empty()) throw std::runtime_error(name + " is not listed");
      if (path.ends_with(name)) return index;
    }
  }

  static Table table(app::TracingFile &file, int mode, const std::string &analysis, int sex, int column) {
    CListCtrl list;
    for (int i = 0; i < 5; ++i) list.InsertColumn(i, "");
    unsigned short virtual_count = file.virtual_count(), user_count = file.user_count();
    CCephCalc::User_Calc(mode, &list, file.record_address(), file_index(mode, analysis), &virtual_count,
                         file.virtual_points.data(), &user_count, file.user_points.data(), sex, column,
                         film_magnification, 2);
    Table rows;
    for (int i = 0; i < list.GetItemCount(); ++i)
      rows[text_at(list, i, 0)] = {text_at(list, i, 1), text_at(list, i, 2), text_at(list, i, 3),
                                   text_at(list, i, 4)};
    return rows;
  }

  static std::vector<std::string> sentences(app::TracingFile &file, int sex, int column) {
    CListCtrl list;
    list.InsertColumn(0, "");
    unsigned short none = 0;
    CCephCalc::User_Diag(diagnosis, &list, file.record_address(), 0, &none, nullptr, &none, nullptr, sex,
                         column, 0, film_magnification, 0);
    std::vector<std::string> rows;
    for (int i = 0; i < list.GetItemCount(); ++i) rows.push_back(text_at(list, i, 0));
    return rows;
  }
};

bool holds(const std::vector<std::string> &rows, const std::string &part) {
  for (const std::string &row : rows)
    if (row.find(part) != std::string::npos) return true;
  return false;
}

struct Expected {
  const char *analysis, *item;
  double low, high;
};

const std::vector<std::string> adult_norms{
    "Ricketts.txt", "Ricketts_1981.txt", "Steiner.txt", "Downs.txt",    "Northwestern.txt",
    "Tweed.txt",    "McNamara.txt",      "Jarabak.txt", "Wits_Kim.txt", "Soft_Tissue.txt"};

// The adult
// -----------------------------------------------------------------------------------------------------------

TEST_F(SampleTable, EveryLandmarkOfTheLateralSamplesIsPlacedInsideTheFilm) {
  std::vector<app::TracingFile> films;
  for (const char *name : {"adult.json", "child-before.json", "child-after.json"})
    films.push_back(read(name));
  for (const char *film : {"M1", "F2", "M3"}) films.push_back(read("film.csv", film));
  for (const app::TracingFile &film : films)
    for (int k = 0; k < 51; ++k) {
      const POINT &point = film.lateral()->pt[8 + k];
      EXPECT_TRUE(point.x > 0 && point.x < 1935 && point.y > 0 && point.y < 2400) << k;
    }
}

TEST_F(SampleTable, AdultLiesWithinTheNormsOfEveryAnalysis) {
  app::TracingFile adult = read("adult.json");
  int measured = 0, near = 0;
  for (const std::string &analysis : adult_norms)
    for (const auto &[item, row] : table(adult, lateral, analysis, female, column_of_18)) {
      if (!row.has_norm()) continue;
      // Jarabak's SD of one degree for SNA and SNB is that of his selection, not of a population.
      if (analysis == "Jarabak.txt" && (item == "SNA" || item == "SNB")) continue;
      ++measured;
      near += std::abs(row.deviation()) <= 1.0 ? 1 : 0;
      EXPECT_LT(std::abs(row.deviation()), 2.5) << analysis << " " << item << " " << row.value;
    }
  EXPECT_GT(measured, 120);
  EXPECT_GT(near, measured * 3 / 4);
}

TEST_F(SampleTable, AdultIsSkeletalClassOneWithAnAverageFace) {
  app::TracingFile adult = read("adult.json");
  const Expected rows[] = {
      {"Steiner.txt", "SNA", 78.5, 85.5},
      {"Steiner.txt", "SNB", 76.5, 83.5},
      {"Steiner.txt", "ANB", 0, 4},
      {"Wits_Kim.txt", "Wits", -2, 2},
      {"Wits_Kim.txt", "ODI", 68, 80},
      {"Wits_Kim.txt", "APDI", 77, 85},
      {"Tweed.txt", "FMA", 20, 30},
      {"Tweed.txt", "IMPA", 85, 95},
      {"Ricketts.txt", "Facial axis", 87, 93},
      {"Ricketts.txt", "Overjet", 1, 4},
      {"Ricketts.txt", "Overbite", 0.5, 4.5},
      {"Ricketts.txt", "Molar relation", -5, -1.5},
      {"McNamara.txt", "Difference", 25, 34},
      {"Jarabak.txt", "Sum", 390, 402},
      {"Jarabak.txt", "Height ratio percent", 62, 67},
      {"Soft_Tissue.txt", "Upper incisor show", 1, 4},
      {"Soft_Tissue.txt", "Lip ratio", 0.42, 0.58},
      {"Soft_Tissue.txt", "Vertical ratio", 0.8, 1.2},
  };
  for (const Expected &row : rows) {
    const Table rows_of_analysis = table(adult, lateral, row.analysis, female, column_of_18);
    ASSERT_TRUE(rows_of_analysis.contains(row.item)) << row.item;
    const double value = rows_of_analysis.at(row.item).number();
    EXPECT_TRUE(value >= row.low && value <= row.high) << row.analysis << " " << row.item << " " << value;
  }
  EXPECT_EQ(table(adult, lateral, "Ricketts.txt", female, column_of_18)["Type"].value, "mesofacial");
  EXPECT_EQ(table(adult, lateral, "Wits_Kim.txt", female, column_of_18)["Class"].value, "Class I");
  EXPECT_TRUE(holds(sentences(adult, female, column_of_18), "- ANB Class I."));
  EXPECT_FALSE(holds(sentences(adult, female, column_of_18), "extreme)"));
}

// Identities of the plane triangle and of the definitions hold whatever the tracing.
TEST_F(SampleTable, SumsOfAnglesCloseInEverySample) {
  for (const char *name : {"adult.json", "child-before.json", "child-after.json"}) {
    app::TracingFile film = read(name);
    Table tweed = table(film, lateral, "Tweed.txt", male, column_of_12);
    EXPECT_NEAR(tweed["FMA"].number() + tweed["IMPA"].number() + tweed["FMIA"].number(), 180, 0.016) << name;
    Table ricketts = table(film, lateral, "Ricketts.txt", male, column_of_12);
    EXPECT_NEAR(
        ricketts["Facial depth"].number() + ricketts["MP-FH"].number() + ricketts["Facial taper"].number(),
        180, 0.016)
        << name;
    Table jarabak = table(film, lateral, "Jarabak.txt", male, column_of_12);
    EXPECT_NEAR(jarabak["Sum"].number(), 360 + jarabak["SN-MP"].number(), 0.011) << name;
  }
}

TEST_F(SampleTable, JapaneseAnalysisMeasuresTheSameFaceUnderJapaneseNames) {
  app::TracingFile adult = read("adult.json");
  Table japanese = table(adult, lateral, "Japanese.txt", female, 0);
  Table steiner = table(adult, lateral, "Steiner.txt", female, 0);
  Table tweed = table(adult, lateral, "Tweed.txt", female, 0);
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
  int far = 0;
  for (const auto &[item, one] : japanese)
    if (one.has_norm() && std::abs(one.deviation()) > 2.0) ++far;
  EXPECT_LE(far, 2) << "a face of European norms: straighter incisors, little else";
}

// The child
// -----------------------------------------------------------------------------------------------------------

TEST_F(SampleTable, ChildStartsAsASkeletalClassTwo) {
  app::TracingFile before = read("child-before.json");
  const Expected rows[] = {
      {"Northwestern.txt", "ANB", 5, 7},
      {"Northwestern.txt", "SNB", 74, 78},
      {"Northwestern.txt", "SNA", 78, 85},
      {"Ricketts.txt", "Convexity", 3.8, 8},
      {"Ricketts.txt", "Overjet", 5, 9},
      {"Ricketts.txt", "Molar relation", -1.5, 3},
      {"Ricketts.txt", "Facial depth", 82, 87},
      {"Ricketts.txt", "Facial axis", 84, 92},
      {"Wits_Kim.txt", "Wits", 1.5, 7},
      {"Wits_Kim.txt", "APDI", 70, 77},
      {"Soft_Tissue.txt", "Facial convexity", 14, 24},
      {"Jarabak.txt", "S-N", 63, 71},
      {"McNamara.txt", "Difference", 16, 25},
  };
  for (const Expected &row : rows) {
    const double value = table(before, lateral, row.analysis, male, column_of_10)[row.item].number();
    EXPECT_TRUE(value >= row.low && value <= row.high) << row.analysis << " " << row.item << " " << value;
  }
  EXPECT_EQ(table(before, lateral, "Wits_Kim.txt", male, column_of_10)["Class"].value, "Class II tendency");
  EXPECT_TRUE(holds(sentences(before, male, column_of_10), "- ANB Class II tendency (slight)."));
}

// Two and a half years of growth: from half to one and a half times the mean yearly growth of white children,
// and a correction of the Class II by the lower jaw.
TEST_F(SampleTable, ChildGrowsAsChildrenGrow) {
  app::TracingFile before = read("child-before.json"), after = read("child-after.json");
  constexpr double years = 2.5;
  const struct {
    const char *analysis, *item;
    double a_year;
  } lengths[] = {
      {"Jarabak.txt", "S-N", 0.8},           {"Jarabak.txt", "N-Me", 2.1},
      {"Jarabak.txt", "S-Go", 1.6},          {"Jarabak.txt", "Go-Me", 1.6},
      {"McNamara.txt", "Cd-Gn", 2.5},        {"McNamara.txt", "Cd-A", 1.2},
      {"McNamara.txt", "ANS-Me", 1.0},       {"Ricketts.txt", "Corpus Xi-PM", 1.6},
      {"Ricketts.txt", "Cranial N-CC", 0.8},
  };
  const auto change = [&](const char *analysis, const char *item) {
    return table(after, lateral, analysis, male, column_of_12)[item].number() -
           table(before, lateral, analysis, male, column_of_10)[item].number();
  };
  for (const auto &row : lengths) {
    EXPECT_GT(change(row.analysis, row.item), 0.5 * years * row.a_year) << row.item;
    EXPECT_LT(change(row.analysis, row.item), 1.5 * years * row.a_year) << row.item;
  }
  const Expected changes[] = {
      {"Northwestern.txt", "SNB", 0.5, 2.5},  {"Northwestern.txt", "ANB", -3.5, -1},
      {"Ricketts.txt", "U6-PTV", 0.5, 3.5},   {"Ricketts.txt", "Convexity", -4, -1},
      {"Ricketts.txt", "Overjet", -5, -2},    {"Ricketts.txt", "Molar relation", -5, -1.5},
      {"Ricketts.txt", "Facial axis", -2, 2}, {"Ricketts.txt", "MP-FH", -3, 0.5},
      {"Ricketts.txt", "LFH", -2, 2},         {"Soft_Tissue.txt", "Nose prominence", 1, 5},
  };
  for (const Expected &row : changes) {
    const double value = change(row.analysis, row.item);
    EXPECT_TRUE(value >= row.low && value <= row.high) << row.analysis << " " << row.item << " " << value;
  }
}

TEST_F(SampleTable, BoneAgeOfTheChildIsWithinAYearOfHisAge) {
  for (const char *name : {"child-before.json", "child-after.json"}) {
    app::TracingFile film = read(name);
    ASSERT_TRUE(film.vertebrae && film.patient.age());
    EXPECT_NEAR(CCephCalc::Calc_CVBA(&*film.vertebrae, male), *film.patient.age(), 1.0) << name;
  }
}

TEST_F(SampleTable, SurgeryTableComparesBothFilmsOfTheChild) {
  app::TracingFile before = read("child-before.json"), after = read("child-after.json");
  CListCtrl list;
  for (int i = 0; i < 5; ++i) list.InsertColumn(i, "");
  unsigned short none = 0;
  CCephCalc::User_CalcSurg(&list, before.record_address(), after.record_address(), &none, nullptr, &none,
                           nullptr, male, 0, film_magnification, 1);
  Table rows;
  for (int i = 0; i < list.GetItemCount(); ++i)
    rows[text_at(list, i, 0)] = {text_at(list, i, 1), text_at(list, i, 2), text_at(list, i, 3),
                                 text_at(list, i, 4)};
  EXPECT_EQ(rows["Skeletal class"].mean, "Class II");
  EXPECT_EQ(rows["Skeletal class"].value, "Class I");
  EXPECT_EQ(rows["ANB"].sd, "++") << "5 to 7 degrees are more than two working SDs above 2";
  EXPECT_EQ(rows["Ar-Go"].sd, "--") << "the ramus of a child against the norms of men";
}

// Frontal film, cast, CSV
// ---------------------------------------------------------------------------------------------

TEST_F(SampleTable, FrontalFilmIsNearlySymmetricAndOfNormalWidths) {
  app::TracingFile film = read("frontal.json");
  Table rows = table(film, frontal, "Ricketts_PA.txt", male, column_of_18);
  int measured = 0;
  for (const auto &[item, row] : rows) {
    if (!row.has_norm()) continue;
    ++measured;
    EXPECT_LT(std::abs(row.deviation()), 2.0) << item << " " << row.value;
  }
  EXPECT_EQ(measured, 18);
  for (const char *pair : {"Molar relation", "Maxilla to face plane", "Molar to jaw"})
    EXPECT_NEAR(rows[std::string(pair) + " left"].number(), rows[std::string(pair) + " right"].number(), 1.0)
        << pair;
  EXPECT_GT(rows["Molar relation left"].number(), 0) << "no crossbite";
  EXPECT_GT(rows["Molar relation right"].number(), 0) << "no crossbite";
  EXPECT_NEAR(rows["Maxilla to mandible percent"].number(), 75, 5);
  EXPECT_NEAR(rows["Mandible minus maxilla"].number(), 19.6, 4);
}

TEST_F(SampleTable, CastHasBoltonRatiosNearTheIdeal) {
  app::TracingFile model = read("cast.json");
  Table rows = table(model, cast, "Cast.txt", female, 0);
  EXPECT_NEAR(rows["Anterior ratio"].number(), 77.2, 1.65);
  EXPECT_NEAR(rows["Overall ratio"].number(), 91.3, 1.91);
  EXPECT_EQ(rows["Overall ratio"].mean, "91.3");
  double sums[2] = {0, 0};
  for (const char *tooth :
       {"central incisor", "lateral incisor", "canine", "first premolar", "second premolar", "first molar"})
    for (const int jaw : {0, 1}) {
      const Row &row = rows[std::string(jaw == 0 ? "Upper " : "Lower ") + tooth];
      const double left = row.number(), right = std::strtod(row.second.c_str(), nullptr);
      EXPECT_LT(std::abs(row.deviation()), 2.0) << tooth << row.value;
      EXPECT_NEAR(left, right, 0.3) << tooth;
      sums[jaw] += left + right;
    }
  EXPECT_NEAR(rows["Upper 12-tooth sum"].number(), sums[0], 0.07);
  EXPECT_NEAR(rows["Lower 12-tooth sum"].number(), sums[1], 0.07);
  EXPECT_NEAR(rows["Lower overall excess"].number(), 0, 2) << "an excess below 2 mm does not count";
  // Premolar widths and depths of women's arches; a basal width of 44 % and more is sufficient.
  const Expected arches[] = {{"", "Upper arch width", 37, 46},  {"", "Lower arch width", 30, 39},
                             {"", "Upper arch depth", 31, 40},  {"", "Lower arch depth", 28, 36},
                             {"", "Upper basal width", 40, 50}, {"", "Upper basal width percent", 44, 52}};
  for (const Expected &row : arches) {
    const double value = rows[row.item].number();
    EXPECT_TRUE(value >= row.low && value <= row.high) << row.item << " " << value;
  }
  EXPECT_FALSE(rows.contains("Model [PLTU] upper segment")) << "nothing to predict in a permanent dentition";
}

TEST_F(SampleTable, CastWithoutBasalWidthHasNoBasalPercentage) {
  app::TracingFile model = read("cast.json");
  model.model()->ex.upperExtra[3][0] = 0;
  Table rows = table(model, cast, "Cast.txt", female, 0);
  EXPECT_EQ(rows["Upper basal width"].value, "");
  EXPECT_EQ(rows["Upper basal width percent"].value, "");
}

TEST_F(SampleTable, MixedDentitionOfTheSameCastPredictsTheSegments) {
  app::TracingFile model = read("cast.json");
  model.model()->mixed = 1;
  Table rows = table(model, cast, "Cast.txt", female, 0);
  const auto incisors = [&](const char *jaw) {
    double sum = 0;
    for (const char *tooth : {" central incisor", " lateral incisor"}) {
      const Row &row = rows[std::string(jaw) + tooth];
      sum += row.number() + std::strtod(row.second.c_str(), nullptr);
    }
    return sum;
  };
  // Ono 1960, girls.
  EXPECT_NEAR(rows["Model [PLTU] upper segment"].number(), 0.421 * incisors("Upper") + 9.03, 0.02);
  EXPECT_NEAR(rows["Model [PLTL] lower segment"].number(), 0.549 * incisors("Lower") + 8.52, 0.02);
}

TEST_F(SampleTable, FilmsOfTheCsvFileShowTheThreeClasses) {
  const struct {
    const char *film;
    int sex;
    double anb_low, anb_high, wits_low, wits_high, overjet_low, overjet_high;
    const char *apdi_class;
  } rows[] = {{"M1", male, 0, 4, -3, 2, 1, 5, "Class I"},
              {"F2", female, 5, 9, 2, 8, 4.5, 9, "Class II tendency"},
              {"M3", male, -5, -1, -12, -4, -5, 0, "Class III tendency"}};
  for (const auto &row : rows) {
    app::TracingFile film = read("film.csv", row.film);
    EXPECT_EQ(film.patient.sex, row.sex);
    const double anb = table(film, lateral, "Steiner.txt", row.sex, column_of_18)["ANB"].number();
    Table kim = table(film, lateral, "Wits_Kim.txt", row.sex, column_of_18);
    const double wits = kim["Wits"].number();
    const double overjet = table(film, lateral, "Ricketts.txt", row.sex, column_of_18)["Overjet"].number();
    EXPECT_TRUE(anb >= row.anb_low && anb <= row.anb_high) << row.film << " " << anb;
    EXPECT_TRUE(wits >= row.wits_low && wits <= row.wits_high) << row.film << " " << wits;
    EXPECT_TRUE(overjet >= row.overjet_low && overjet <= row.overjet_high) << row.film << " " << overjet;
    EXPECT_EQ(kim["Class"].value, row.apdi_class) << row.film;
  }
}

// Goals of Tweed 1954: 68, from FMA 30 on 65, and below 20 what leaves an IMPA of 92.
TEST_F(SampleTable, TweedGoalsFollowTheMandibularPlane) {
  app::TracingFile average = read("adult.json"), steep = read("film.csv", "F2"), flat = read("adult.json");
  flat.lateral()->pt[8 + 17].y -= 120;  // the chin 12 mm higher
  Table rows = table(average, lateral, "Tweed.txt", female, 0);
  EXPECT_EQ(rows["FMIA goal"].value, "68.00");
  EXPECT_EQ(rows["IMPA at this FMA"].mean, "90.0");
  rows = table(steep, lateral, "Tweed.txt", female, 0);
  ASSERT_GT(rows["FMA"].number(), 30);
  EXPECT_EQ(rows["FMIA goal"].value, "65.00");
  EXPECT_NEAR(std::stod(rows["IMPA at this FMA"].mean), 115 - rows["FMA"].number(), 0.06);
  EXPECT_NEAR(rows["Head film correction"].number(), (65 - rows["FMIA"].number()) * 0.8, 0.01);
  rows = table(flat, lateral, "Tweed.txt", female, 0);
  ASSERT_LT(rows["FMA"].number(), 20);
  EXPECT_NEAR(rows["FMIA goal"].number(), 180 - 92 - rows["FMA"].number(), 0.011);
}

}  // namespace
