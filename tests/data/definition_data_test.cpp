// The shipped analyses: what `ceph check` asks of any folder, and what is promised of these files besides.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "apps/ceph/check_folder.h"
#include "tool/framework/text/cp932.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
/// Lines by the keyword before them, in small letters: "calc:", "mean_m:".
using Blocks = std::map<std::string, Lines>;

const std::string root = TOOL_SOURCE_DIR "/data/ANAITEM";

Lines split(const std::string &text, char separator) {
  Lines pieces(1);
  for (const char c : text)
    if (c == separator)
      pieces.emplace_back();
    else
      pieces.back() += c;
  return pieces;
}

std::string key_of(const std::string &line) {
  return line.substr(0, line.find('='));
}
Lines values_of(const std::string &line) {
  return split(line.substr(line.find('=') + 1), ',');
}

Blocks blocks_of(const fs::path &path) {
  Blocks blocks;
  std::ifstream file(path, std::ios::binary);
  std::string line, block;
  while (std::getline(file, line, '\n')) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.ends_with(':'))
      std::transform(line.begin(), line.end(), (block = line).begin(),
                     [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    else
      blocks[block].push_back(line);
  }
  return blocks;
}

/// Every analysis with its path inside the folder.
std::map<std::string, Blocks> analyses() {
  std::map<std::string, Blocks> all;
  for (const auto &entry : fs::recursive_directory_iterator(root)) {
    const std::string name = entry.path().lexically_relative(root).string();
    if (entry.is_regular_file() && name.starts_with("CalcForm") && entry.path().filename() != "list.txt")
      all[name] = blocks_of(entry.path());
  }
  return all;
}

TEST(ShippedData, HasNothingThatTheCheckerFinds) {
  const auto report = app::check::check_folder(root);
  EXPECT_GE(report.files, 29U);
  for (const auto &finding : report.findings) ADD_FAILURE() << finding.file << ": " << finding.message;
}

TEST(ShippedData, EveryAnalysisSaysWhereItsFiguresComeFrom) {
  for (auto &[name, blocks] : analyses()) EXPECT_EQ(blocks["comment:"].size(), 1U) << name;
}

TEST(ShippedData, EverySdIsAboveZeroAndHasAMeanForTheSameSex) {
  for (auto &[name, blocks] : analyses())
    for (const std::string sex : {"_m", "_f"}) {
      std::set<std::string> means;
      for (const std::string &block : {"mean" + sex + ":", std::string("mean:")})
        for (const std::string &line : blocks[block]) means.insert(key_of(line));
      for (const std::string &block : {"sd" + sex + ":", std::string("sd:")})
        for (const std::string &line : blocks[block]) {
          EXPECT_TRUE(means.contains(key_of(line))) << name << " " << line;
          for (const std::string &value : values_of(line)) EXPECT_GT(std::stod(value), 0.0) << name << line;
        }
    }
}

TEST(ShippedData, GrowthStagesAreOneForEachNormColumnAndFollowEachOther) {
  for (auto &[name, blocks] : analyses()) {
    std::size_t columns = 0;
    for (const auto &[keyword, lines] : blocks)
      if (keyword.starts_with("mean")) columns = std::max(columns, values_of(lines.at(0)).size());
    for (const char *block : {"stage_m:", "stage_f:"}) {
      EXPECT_EQ(blocks[block].size(), columns == 1 ? 0 : columns) << name;
      std::string expected_low = "0";
      for (const std::string &line : blocks[block]) {
        const Lines range = split(line.substr(line.find('=') + 1), '-');
        ASSERT_EQ(range.size(), 2U) << line;
        EXPECT_EQ(range[0], expected_low) << line;
        expected_low = range[1];
      }
      EXPECT_EQ(expected_low, columns == 1 ? "0" : "") << name << ": the last stage is open";
    }
  }
}

TEST(ShippedData, JapaneseTextsHoldTheSecondBytesThatLookLikeDelimiters) {
  std::set<char> second_bytes;
  bool half_width = false;
  Blocks blocks = blocks_of(root + "/CalcForm/Japanese.txt");
  for (const std::string &line : blocks["calc:"])
    for (std::size_t i = 0; i < key_of(line).size(); ++i) {
      const auto byte = static_cast<unsigned char>(line[i]);
      if (framework::is_lead_byte(line[i]))
        second_bytes.insert(line[++i]);
      else
        half_width = half_width || (byte >= 0xA1 && byte <= 0xDF);
    }
  for (const char c : {'\\', '|', '['}) EXPECT_TRUE(second_bytes.contains(c)) << c;
  EXPECT_TRUE(half_width);
}

// Figures looked up again in the publications, not in the files. McNamara: 8 % films brought to 10 %.
TEST(ShippedData, PublishedFiguresStandInTheFiles) {
  const struct {
    const char *file, *block, *item;
    std::size_t column;
    double expected;
  } rows[] = {
      {"CalcForm/Steiner.txt", "mean:", "SNA", 0, 82},
      {"CalcForm/Steiner.txt", "mean:", "GoGn-SN", 0, 32},
      {"CalcForm/Downs.txt", "sd:", "Facial angle", 0, 3.6},
      {"CalcForm/Tweed.txt", "mean:", "FMIA", 0, 65},
      {"CalcForm/Northwestern.txt", "mean:", "SNA", 5, 80.79},
      {"CalcForm/Northwestern.txt", "mean:", "SNA", 6, 82.01},
      {"CalcForm/McNamara.txt", "mean_f:", "Cd-A", 0, 91.0 * 1.1 / 1.08},
      {"CalcForm/McNamara.txt", "sd_m:", "Cd-Gn", 0, 6.8 * 1.1 / 1.08},
      {"CalcForm/McNamara.txt", "mean_m:", "SNA", 0, 83.9},
      {"CalcForm/Jarabak.txt", "mean:", "Sum", 0, 396},
      {"CalcForm/Wits_Kim.txt", "sd:", "ODI", 0, 6.07},
      {"CalcForm/Soft_Tissue.txt", "mean:", "Facial convexity", 0, 12},
      {"CalcForm/Ricketts.txt", "mean_m:", "U6-PTV", 12, 21},
      {"CalcForm/Ricketts.txt", "mean_f:", "U6-PTV", 12, 18},
      {"CalcForm/Ricketts.txt", "mean_f:", "Facial depth", 3, 87},
      {"CalcForm_PA/Ricketts_PA.txt", "mean:", "Mandibular width", 3, 76.1},
      {"CalcForm_PA/Ricketts_PA.txt", "mean:", "Lower canine width", 12, 25.9},
      {"CalcForm_Model/Cast.txt", "mean:", "Overall ratio", 0, 91.3},
      {"CalcForm_Model/Cast.txt", "sd:", "Anterior ratio", 0, 1.65},
      {"CalcForm_Surg/Surgery.txt", "mean_f:", "N-ANS", 0, 50.0},
  };
  for (const auto &row : rows) {
    Blocks blocks = blocks_of(root + "/" + row.file);
    const auto &lines = blocks[row.block];
    const auto line = std::find_if(lines.begin(), lines.end(),
                                   [&](const std::string &text) { return key_of(text) == row.item; });
    ASSERT_NE(line, lines.end()) << row.file << " " << row.item;
    EXPECT_NEAR(std::stod(values_of(*line)[row.column]), row.expected, 0.0051) << row.file << " " << row.item;
  }
}

}  // namespace
