// ceph check on folders like the field's: a healthy one, and broken ones where every finding is expected with
// its file, line and column, and none besides.

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
                                         "diagnosis", "displays", "cast", "coefficients"),
                         [](const auto &row) { return std::string(row.param); });

TEST(Check, AHealthyFolderIsClean) {
  const Outcome outcome = run_ceph({"check", fixture("healthy"), "--user-point", "ゾー"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "16 files: 0 errors, 0 warnings\n");
  EXPECT_EQ(outcome.exit_code, 0);
}

TEST(Check, ASingleFolderIsCheckedByItsName) {
  const Outcome outcome = run_ceph({"check", fixture("cast") + "/CalcForm_Model/"});
  EXPECT_EQ(outcome.out.substr(0, 21), "Cast.txt:4:15: error:");
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 4);
}

TEST(Check, WarningsAloneAreNoFailure) {
  const TemporaryFolder folder;
  folder.write("CalcForm/list.txt", "One.txt\r\n");
  folder.write("CalcForm/One.txt", "title:\r\nOne\r\nCalc:\r\nA=len([S],[Xq])\r\n");
  const Outcome outcome = run_ceph({"check", folder.path()});
  EXPECT_NE(outcome.out.find("CalcForm/One.txt:4:12: warning: point \"Xq\""), std::string::npos)
      << outcome.out;
  EXPECT_EQ(outcome.exit_code, 0);
  const Outcome told = run_ceph({"check", folder.path(), "--user-point", "Xq"});
  EXPECT_EQ(told.out.find("Xq"), std::string::npos) << told.out;
}

TEST(Check, JsonHasTheSameFindings) {
  const Outcome outcome = run_ceph({"check", fixture("items"), "--format", "json"});
  const auto json = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(json["files"], 4);
  EXPECT_EQ(json["errors"], 9);
  EXPECT_EQ(json["warnings"], 6);
  const auto &second = json["findings"][1];
  EXPECT_EQ(second["file"], "CalcForm/Items.txt");
  EXPECT_EQ(second["line"], 7);
  EXPECT_EQ(second["column"], 11);
  EXPECT_EQ(second["severity"], "error");
  EXPECT_EQ(outcome.exit_code, 1);
}

TEST(Check, AFolderWithoutAnalysesIsBadData) {
  const TemporaryFolder folder;
  for (const std::string &path : {folder.path(), folder.path("absent")}) {
    const Outcome outcome = run_ceph({"check", path});
    EXPECT_EQ(outcome.exit_code, 4) << path;
    EXPECT_NE(outcome.err.find("CalcForm"), std::string::npos) << outcome.err;
  }
}

TEST(Check, TheSecondFrontalSetLiesInTheFolderItself) {
  const TemporaryFolder folder;
  folder.write("list.txt", "Second.txt\r\n");
  folder.write("Second.txt", "title:\r\nSecond\r\nCalc:\r\nWidth=len([JR],[Go(L)])\r\n");
  const Outcome outcome = run_ceph({"check", folder.path()});
  EXPECT_NE(outcome.out.find("Second.txt:4:17: "), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.out.find("Second.txt:4:12: "), std::string::npos) << outcome.out;
}

TEST(Check, UnreadableFilesAreFindingsAndTheRestIsChecked) {
  support::FaultyFileSystem disk;
  disk.unreadable = "Items.txt";
  const framework::FileSystemScope scope(disk);
  const auto report = app::check::check_folder(fixture("items"));
  ASSERT_EQ(report.findings.size(), 1U);
  EXPECT_EQ(report.findings[0].file, "CalcForm/Items.txt");
  EXPECT_NE(report.findings[0].message.find("cannot be opened: "), std::string::npos);
  EXPECT_EQ(report.files, 4U);
  EXPECT_EQ(disk.opened, disk.closed);
}

TEST(Check, ShortReadsChangeNothing) {
  const auto whole = app::check::check_folder(fixture("norms"));
  support::FaultyFileSystem disk;
  disk.largest_read = 7;
  const framework::FileSystemScope scope(disk);
  EXPECT_EQ(app::check::check_folder(fixture("norms")).findings.size(), whole.findings.size());
}

TEST(Check, AReadThatFailsMidwayIsAFinding) {
  support::FaultyFileSystem disk;
  disk.readable = 20;
  const framework::FileSystemScope scope(disk);
  const auto report = app::check::check_folder(fixture("norms"));
  ASSERT_FALSE(report.findings.empty());
  for (const auto &finding : report.findings)
    EXPECT_NE(finding.message.find("cannot be read: "), std::string::npos) << finding.file << finding.message;
}

TEST(Check, AFolderInPlaceOfAFileIsReported) {
  const TemporaryFolder folder;
  folder.write("CalcForm/list.txt", "Sub.txt\r\n");
  folder.write("CalcForm/Sub.txt/inner", "");
  EXPECT_NE(run_ceph({"check", folder.path()}).out.find("CalcForm/Sub.txt: error: "), std::string::npos);
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
  const auto cycle = std::find_if(report.findings.begin(), report.findings.end(), [](const auto &finding) {
    return finding.file == "CalcForm/Chain.txt" &&
           finding.message.find("refers to itself") != std::string::npos;
  });
  ASSERT_NE(cycle, report.findings.end());
  EXPECT_EQ(cycle->line, 3U + items);  // the last item closes the circle
  EXPECT_LT(cycle->message.size(), 300U);
}

}  // namespace
