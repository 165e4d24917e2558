// ceph check on folders like the field's: a healthy one, and broken ones where every finding is expected with
// its file, line and column, and none besides.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "apps/ceph/check_folder.h"
#include "tests/apps/run_ceph.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

using support::Outcome;
using support::run_ceph;
using support::TemporaryFolder;

std::string fixture(const std::string &name) {
  return TOOL_SOURCE_DIR "/tests/fixtures/check/" + name;
}

std::string read_file(const std::string &path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> lines_of(const std::string &text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// Whether the text starts with the first of the parts between ".." and holds the others behind it, in order.
bool has_parts(const std::string &text, std::string row) {
  std::size_t at = 0;
  row += " .. ";
  for (bool first = true; !row.empty(); first = false) {
    const std::size_t end = row.find(" .. ");
    const std::string part = row.substr(0, end);
    const std::size_t found = text.find(part, at);
    if (found == std::string::npos || (first && found != 0)) return false;
    at = found + part.size();
    row.erase(0, end + 4);
  }
  return true;
}

// NAME.findings beside each folder was written from the documents and the files, before the checker was
// asked: place, severity, and parts of the message.
class CheckBroken : public testing::TestWithParam<const char *> {};

TEST_P(CheckBroken, ReportsEveryFaultAndNothingElse) {
  const Outcome outcome = run_ceph({"check", fixture(GetParam())});
  std::vector<std::string> findings = lines_of(outcome.out);
  for (const std::string &row : lines_of(read_file(fixture(GetParam()) + ".findings"))) {
    const auto match = std::find_if(findings.begin(), findings.end(),
                                    [&](const auto &text) { return has_parts(text, row); });
    EXPECT_NE(match, findings.end()) << "not found: " << row;
    if (match != findings.end()) findings.erase(match);
  }
  EXPECT_EQ(findings, std::vector<std::string>()) << "not expected";
  EXPECT_EQ(outcome.exit_code, 1);
}

INSTANTIATE_TEST_SUITE_P(Folders, CheckBroken,
                         testing::Values("lists", "bytes", "keywords", "items", "norms", "stages",
                                         "diagnosis", "displays", "cast", "coefficients", "second"),
                         [](const auto &row) { return std::string(row.param); });

TEST(Check, AHealthyFolderIsClean) {
  const Outcome outcome = run_ceph({"check", fixture("healthy"), "--user-point", "ゾー"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "16 files: 0 errors, 0 warnings\n");
  EXPECT_EQ(outcome.exit_code, 0);
}

TEST(Check, OnlyErrorsAreAFailure) {
  const TemporaryFolder folder, empty;
  folder.write("CalcForm/list.txt", "One.txt\r\n");
  folder.write("CalcForm/One.txt", "title:\r\nOne\r\nCalc:\r\nA=len([S],[Xq])\r\n");
  for (const auto &[path, file] :
       {std::pair{folder.path(), "CalcForm/One.txt"}, {folder.path("CalcForm"), "One.txt"}}) {
    const Outcome outcome = run_ceph({"check", path});
    EXPECT_THAT(outcome.out, testing::HasSubstr(std::string(file) + ":4:12: warning: point \"Xq\"")) << path;
    EXPECT_EQ(outcome.exit_code, 0);
  }
  EXPECT_EQ(run_ceph({"check", fixture("cast") + "/CalcForm_Model/"}).exit_code, 1);
  for (const std::string &path : {folder.path("absent"), empty.path()}) {
    const Outcome outcome = run_ceph({"check", path});
    EXPECT_EQ(outcome.exit_code, 4) << path;
    EXPECT_THAT(outcome.err, testing::HasSubstr("CalcForm")) << path;
  }
}

TEST(Check, JsonHasTheSameFindings) {
  const auto json = nlohmann::json::parse(run_ceph({"check", fixture("items"), "--format", "json"}).out);
  EXPECT_EQ(json["files"], 4);
  EXPECT_EQ(json["errors"], 9);
  EXPECT_EQ(json["warnings"], 6);
  auto second = json["findings"][1];
  second.erase("message");
  EXPECT_EQ(second, nlohmann::json::parse(
                        R"({"file": "CalcForm/Items.txt", "line": 7, "column": 11, "severity": "error"})"));
}

TEST(Check, AFaultyDiskHidesNoFinding) {
  const auto whole = app::check::check_folder(fixture("items"));
  support::FaultyFileSystem disk;
  const framework::FileSystemScope scope(disk);
  disk.largest_read = 7;
  EXPECT_EQ(app::check::check_folder(fixture("items")).findings.size(), whole.findings.size());
  disk.unreadable = "Items.txt";
  const auto report = app::check::check_folder(fixture("items"));
  ASSERT_EQ(report.findings.size(), 1U);
  EXPECT_EQ(report.findings[0].file, "CalcForm/Items.txt");
  EXPECT_THAT(report.findings[0].message, testing::HasSubstr("cannot be opened: "));
  EXPECT_EQ(report.files, 4U);
  EXPECT_EQ(disk.opened, disk.closed);
  disk.readable = 20;
  const auto midway = app::check::check_folder(fixture("norms"));
  EXPECT_FALSE(midway.findings.empty());
  for (const auto &finding : midway.findings)
    EXPECT_THAT(finding.message, testing::HasSubstr("cannot be read: ")) << finding.file;
}

TEST(Check, HostileFilesEndInABoundedReport) {
  constexpr int items = 10000;
  std::string chain, faults, binary;
  for (int i = 0; i < items; ++i)
    chain += "I" + std::to_string(i) + "=case(\"I" + std::to_string((i + 1) % items) + "\")+1:1\r\n";
  for (int i = 0; i < 20000; ++i)
    faults += "A" + std::to_string(i) + "=case(\"B" + std::to_string(i) + "\")+lenn(\r\n";
  for (int i = 0; i < 100000; ++i) binary += static_cast<char>((i * 7919) >> 3);
  const TemporaryFolder folder;
  folder.write("CalcForm/list.txt", "Chain.txt\r\nFaults.txt\r\nBinary.txt\r\n");
  folder.write("CalcForm/Chain.txt", "title:\r\nC\r\nCalc:\r\n" + chain);
  folder.write("CalcForm/Faults.txt", "title:\r\nF\r\nCalc:\r\n" + faults);
  folder.write("CalcForm/Binary.txt", "Calc:\r\n" + binary);
  const auto report = app::check::check_folder(folder.path());
  EXPECT_LE(report.findings.size(), 3 * app::check::Source::max_findings + 1);
  for (const auto &finding : report.findings) EXPECT_LT(finding.message.size(), 400U);
  const auto &cycle = report.findings.front();
  EXPECT_THAT(cycle.message, testing::HasSubstr("refers to itself"));
  EXPECT_EQ(cycle.line, 3U + items);  // the last item closes the circle
}

}  // namespace
