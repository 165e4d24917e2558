// ceph check on folders like the field's: a healthy one, and broken ones where every finding is expected with
// its file, line and column, and none besides.

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/ceph/check_folder.h"
#include "tests/apps/run_program.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

using support::ProgramOutcome;
using support::run_ceph;
using support::TemporaryFolder;

std::string fixture(const std::string &name) {
  return TOOL_SOURCE_DIR "/tests/fixtures/check/" + name;
}

struct BrokenFolder {
  const char *name;
  const char *findings;
};

void PrintTo(const BrokenFolder &folder, std::ostream *out) {
  *out << folder.name;
}

class CheckBroken : public testing::TestWithParam<BrokenFolder> {};

TEST_P(CheckBroken, ReportsEveryFaultAndNothingElse) {
  const ProgramOutcome outcome = run_ceph({"check", fixture(GetParam().name)});
  EXPECT_EQ(outcome.out, GetParam().findings + 1);  // the rows begin with a line end
  EXPECT_EQ(outcome.exit_code, 1);
}

const BrokenFolder broken_folders[] = {
    {"lists", R"~(
CalcForm/list.txt:1:1: error: file "Stiener.txt" is missing; did you mean "Steiner.txt"?
CalcForm/list.txt:3:1: warning: "STEINER.TXT" already stands in line 2
CalcForm/list.txt:4:1: error: "Other.txt " has blanks around the name of a file
CalcForm/list.txt:5:1: error: file "sub\Far.txt" is missing
CalcForm/Ricketts.txt: warning: the file is missing: the built-in lateral analysis has no norms
CalcForm/Other.txt: warning: the file is not in list.txt and is never shown
CalcForm_PA/list.txt: error: the list is missing: no file of this folder is found
CalcForm_PA/Frontal.txt: warning: the file is not in list.txt and is never shown
CalcForm_Model/list.txt: warning: the list names no file
CalcForm_Diag/Quiet.txt: warning: the file has no title
CalcForm_Surg/Surgery.txt: error: the file is missing: the surgery analysis is empty
CalcMode/list.txt:2:1: warning: ignored: a line is written number,file
CalcMode/list.txt:3:1: error: "first" is not a whole number
CalcMode/list.txt:3:7: warning: "Lines.txt" already stands in line 1
CalcMode/list.txt:4:3: error: file "Gone.txt" is missing
)~"},
    {"items", R"~(
CalcForm/Items.txt:1:1: warning: this line stands before the first keyword and is ignored
CalcForm/Items.txt:7:11: error: item "SNA" is not in this file; did you mean "SNA "?
CalcForm/Items.txt:7:23: error: "Heading" in line 5 is a heading without a formula; the reference counts 0
CalcForm/Items.txt:8:1: warning: item "SNA " already stands in line 6; references and norms take that one
CalcForm/Items.txt:9:25: error: the item text has 50 bytes; only the first 49 are read
CalcForm/Items.txt:10:16: warning: point "Nx" is unknown unless the user defines it; did you mean "N"?
CalcForm/Items.txt:11:10: warning: point "Gox" is unknown unless the user defines it; did you mean "Go"?
CalcForm/Items.txt:11:16: error: point "Pog(r)" is no landmark and too long for a user point (5 bytes); did you mean "Pog(R)"?
CalcForm/Items.txt:12:1: warning: without "=" this line is a heading; it looks like a formula
CalcForm/Items.txt:13:6: warning: a switch without alternatives shows no value; write them after ';'
CalcForm/Items.txt:16:8: warning: item "B" has no mean; it counts 0
CalcForm/Items.txt:16:8: warning: item "B" has no standard deviation; it counts 0
CalcForm/Items.txt:16:8: error: the item refers to itself: "B" -> "C" -> "B"
CalcForm/Items.txt:17:12: warning: item "Self" has no mean; it counts 0
CalcForm/Items.txt:17:12: error: the item refers to itself: "Self" -> "Self"
)~"},
    {"norms", R"~(
CalcForm/Norms.txt:7:10: warning: item "ANB" has no mean; it counts 0
CalcForm/Norms.txt:10:5: warning: 2 norm columns; the other lists have 3
CalcForm/Norms.txt:11:1: error: item "SND" is not in this file; did you mean "SNA"?
CalcForm/Norms.txt:12:1: error: a norm line is written: item=value,value,...
CalcForm/Norms.txt:15:8: warning: an empty norm counts as 0
CalcForm/Norms.txt:17:1: warning: never used: line 14 already gives this norm of "SNA"
CalcForm/Norms.txt:19:5: error: "(1+2)|1" is taken for the number 0.0, not evaluated as a formula: begin a norm formula with a letter
CalcForm/Norms.txt:20:5: error: a norm has at most six decimals
CalcForm/Norms.txt:21:17: error: a norm formula ends with a separator and its number of decimals, such as |1
CalcForm/Norms.txt:22:5: error: "len([S]" is cut at a comma: commas separate norm columns and cannot stand in a formula
CalcForm/Norms.txt:22:5: warning: 4 norm columns; the other lists have 3
CalcForm/Norms.txt:22:13: error: "[N])|1" is cut at a comma: commas separate norm columns and cannot stand in a formula
CalcForm/Norms.txt:23:1: warning: never used: line 21 already gives this norm of "ANB"
CalcForm/Norms.txt:23:11: error: item "SNX" is not in this file; did you mean "SNA"?
)~"},
    {"keywords", R"~(
CalcForm/Keys.txt:1:1: error: the keyword "title:" must stand alone; its content begins on the next line
CalcForm/Keys.txt:4:1: error: "Calcs:" is not a keyword; did you mean "Calc:"?
CalcForm/Keys.txt:7:1: error: blanks make this an ordinary line; the keyword "Mean_M1:" must stand alone on its line
CalcForm/Keys.txt:8:1: warning: "SD" lacks its ':'; the keyword is "SD:"
CalcForm/Keys.txt:9:1: error: "Mean2_M:" is not a keyword; did you mean "Mean_M2:"?
CalcForm/Keys.txt:10:1: warning: item "SNA" already stands in line 6; references and norms take that one
CalcForm/Keys.txt:10:5: warning: a number without any term or operator counts as 0
CalcForm/Keys.txt:11:1: warning: "Stage" lacks its ':'; the keyword is "Stage:"
CalcForm/Keys.txt:12:1: warning: the comment must stand on the line right after its keyword
)~"},
    {"bytes", R"~(
CalcForm/Bytes.txt:4:2: error: the byte at offset 23 begins no character of code page 932
CalcForm/Bytes.txt:5:26: error: a NUL byte ends the line here
CalcForm/Bytes.txt:6:512: error: the line has 524 bytes; only the first 511 are read
CalcForm/Bytes.txt:8:1: error: the byte at offset 612 begins no character of code page 932
CalcForm/Unix.txt:2:5: warning: 2 lines end with LF alone; definition files have CR LF
CalcForm/Mark.txt: error: the file starts with a UTF-8 byte order mark; save the file as Shift-JIS (code page 932)
CalcForm/Mark.txt: warning: the file has no title
CalcForm/Mark.txt:1:1: warning: this line stands before the first keyword and is ignored
CalcForm/Mark.txt:2:1: warning: this line stands before the first keyword and is ignored
CalcForm/Utf8.txt:4:4: error: the byte at offset 24 begins no character of code page 932; the file is UTF-8, save it as Shift-JIS
)~"},
    {"stages", R"~(
CalcForm/Stages.txt:5:1: warning: overlaps the stage in line 4; where both match this one decides
CalcForm/Stages.txt:6:5: error: "twelve" is no age in years; a range is written low-high, such as 6-12
CalcForm/Stages.txt:7:7: error: this range is empty and never matches
CalcForm/Stages.txt:8:1: error: a stage line is written: name=low-high
CalcForm/Stages.txt:9:6: error: this range is empty and never matches
CalcForm/Stages.txt:11:5: error: this range is empty and never matches
CalcForm/Stages.txt:13:1: error: "age" makes the ranges dental stages; "Age" is written exactly so
CalcForm/Stages.txt:15:11: error: "IIID" is no dental stage; did you mean "IIIA"?
CalcForm/Stages.txt:17:1: warning: overlaps the stage in line 16; where both match this one decides
CalcForm/Stages.txt:18:1: error: the next line must say "Age" or name the dental stages
CalcForm/Stages.txt:21:1: warning: ignored: stage lines follow one of the "Stage" keywords
)~"},
    {"diagnosis", R"~(
CalcForm_Diag/Few.txt:6:1: error: 5 thresholds instead of 6
CalcForm_Diag/Few.txt:6:5: error: "x" is not a number
CalcForm_Diag/Few.txt:6:11: error: 3 labels instead of 7
CalcForm_Diag/Few.txt:7:1: warning: ignored: only the line right after "Param:" is read
CalcForm_Diag/Few.txt:9:7: error: item "SNB" is not in this file; did you mean "SNA"?
CalcForm_Diag/Few.txt:9:13: error: 3 fields; a diagnosis line has 5: name;low;middle;high;tail
CalcForm_Diag/Few.txt:10:13: warning: 6 fields; a diagnosis line has 5: name;low;middle;high;tail
CalcForm_Diag/Few.txt:10:24: error: a percent sign is written twice: %%
CalcForm_Diag/Few.txt:10:37: warning: [NEXT] counts only at the very end of the text
CalcForm_Diag/Few.txt:11:10: warning: point "Q" is unknown unless the user defines it
CalcForm_Diag/Few.txt:11:17: warning: "[ENTR]" is shown as it stands; did you mean "[ENTER]"?
CalcForm_Diag/Few.txt:12:51: warning: only the first 50 bytes of a plain line are shown
CalcForm_Diag/Few.txt:12:67: warning: [BOTTOM] counts only at the start of a "Param:" label
CalcForm_Diag/Few.txt:13:1: warning: ends in [NEXT] but no line follows: the text is not shown
CalcForm_Diag/Early.txt:4:1: error: no "Param:" line before this: no sentence is ever chosen
CalcForm_Diag/Early.txt:5:1: error: the parameters must stand on the line right after "Param:"
CalcForm_Diag/Early.txt:8:1: error: a parameter line is written: six thresholds, ':', seven labels, separated by ';'
CalcForm_Diag/Early.txt:10:7: warning: the thresholds do not rise; this category is never reached
)~"},
    {"displays", R"~(
CalcMode/Lines.txt:1:1: warning: this line stands before the first section and is ignored
CalcMode/Lines.txt:4:1: error: "point:" opens no section; it is written exactly "Point:"
CalcMode/Lines.txt:7:1: warning: point "Sx" is unknown unless the user defines it; did you mean "S"?
CalcMode/Lines.txt:8:1: error: "SuppLine :" opens no section; it is written exactly "SuppLine:"
CalcMode/Lines.txt:10:7: error: a colour is written red,green,blue
CalcMode/Lines.txt:11:7: error: "256" is no colour component from 0 to 255
CalcMode/Lines.txt:11:13: error: "red" is no colour component from 0 to 255
CalcMode/Lines.txt:12:1: error: "COLOR" is no setting; did you mean "Color"?
CalcMode/Lines.txt:13:1: error: "Colour" is no setting; did you mean "Color"?
CalcMode/Lines.txt:14:6: warning: "bolt" means a normal line; did you mean "BOLD"?
CalcMode/Lines.txt:15:9: warning: "0.50" means two decimals; write 0, 1, 2 or 0.5
CalcMode/Lines.txt:16:6: error: "big" is no size: a whole number is expected
CalcMode/Lines.txt:17:2: error: "len" takes 2 points, not 1
CalcMode/Lines.txt:18:1: error: a label needs a formula after "="
CalcMode/Lines.txt:19:1: error: neither a setting nor a label nor a line between two points, such as [S][N]
CalcMode/Lines.txt:20:5: warning: only the first 5 bytes of "Pog(R)" reach the program
CalcMode/Lines.txt:21:5: warning: point "Q" is unknown unless the user defines it
CalcMode/Many.txt: warning: the file has no title; the setting is left out of the list
CalcMode/Many.txt:32:1: error: only 30 lines are read; this one and all that follows is not
)~"},
    {"cast", R"~(
CalcForm_Model/Cast.txt:4:14: error: "([U7])" is no cast measurement: did you mean "([U1])"?
CalcForm_Model/Cast.txt:5:11: error: "([UCAX])" is no cast measurement: did you mean "([UCAW])"?
CalcForm_Model/Cast.txt:6:16: error: "EffectiveA" exists on lateral films only
CalcForm_Model/Cast.txt:7:16: error: point "UCAW12" is no landmark and too long for a user point (5 bytes)
)~"},
};

INSTANTIATE_TEST_SUITE_P(Folders, CheckBroken, testing::ValuesIn(broken_folders),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(Check, AHealthyFolderIsClean) {
  const ProgramOutcome outcome = run_ceph({"check", fixture("healthy")});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "14 files: 0 errors, 0 warnings\n");
  EXPECT_EQ(outcome.exit_code, 0);
}

TEST(Check, ASingleFolderIsCheckedByItsName) {
  const ProgramOutcome outcome = run_ceph({"check", fixture("cast") + "/CalcForm_Model/"});
  EXPECT_EQ(outcome.out.substr(0, 21), "Cast.txt:4:14: error:");
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 4);
}

TEST(Check, WarningsAloneAreNoFailure) {
  const TemporaryFolder folder;
  folder.write("CalcForm/list.txt", "One.txt\r\n");
  folder.write("CalcForm/One.txt", "title:\r\nOne\r\nCalc:\r\nA=len([S],[Xq])\r\n");
  const ProgramOutcome outcome = run_ceph({"check", folder.path()});
  EXPECT_NE(outcome.out.find("CalcForm/One.txt:4:12: warning: point \"Xq\""), std::string::npos)
      << outcome.out;
  EXPECT_EQ(outcome.exit_code, 0);
  const ProgramOutcome told = run_ceph({"check", folder.path(), "--user-point", "Xq"});
  EXPECT_EQ(told.out.find("Xq"), std::string::npos) << told.out;
}

TEST(Check, JsonHasTheSameFindings) {
  const ProgramOutcome outcome = run_ceph({"check", fixture("items"), "--format", "json"});
  const auto json = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(json["files"], 4);
  EXPECT_EQ(json["errors"], 6);
  EXPECT_EQ(json["warnings"], 9);
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
    const ProgramOutcome outcome = run_ceph({"check", path});
    EXPECT_EQ(outcome.exit_code, 4) << path;
    EXPECT_NE(outcome.err.find("CalcForm"), std::string::npos) << outcome.err;
  }
}

TEST(Check, TheSecondFrontalSetLiesInTheFolderItself) {
  const TemporaryFolder folder;
  folder.write("list.txt", "Second.txt\r\n");
  folder.write("Second.txt", "title:\r\nSecond\r\nCalc:\r\nWidth=len([JR],[Go(L)])\r\n");
  const ProgramOutcome outcome = run_ceph({"check", folder.path()});
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
