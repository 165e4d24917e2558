#include "bench/support/films.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "tool/analysis/landmarks.h"
#include "tool/framework/ui/CWinApp.h"

namespace bench {
namespace {

struct Mean {
  int landmark;
  POINT position;
};

/// Mean positions of a profile at 0.1 mm per pixel; landmarks without one are spread around the middle of the
/// face.
constexpr Mean profile[] = {
    {analysis::lateral::S, {800, 1050}},    {analysis::lateral::N, {1400, 960}},
    {analysis::lateral::Or, {1260, 1230}},  {analysis::lateral::Po, {620, 1240}},
    {analysis::lateral::A, {1390, 1530}},   {analysis::lateral::B, {1370, 1860}},
    {analysis::lateral::Pog, {1360, 1990}}, {analysis::lateral::PogR, {1360, 1990}},
    {analysis::lateral::Me, {1300, 2050}},  {analysis::lateral::Gn, {1340, 2030}},
    {analysis::lateral::Go, {730, 1760}},   {analysis::lateral::GoL, {760, 1780}},
    {analysis::lateral::GoP, {700, 1700}},  {analysis::lateral::L1, {1440, 1700}},
    {analysis::lateral::U1, {1470, 1710}},  {analysis::lateral::PNS, {970, 1440}},
    {analysis::lateral::ANS, {1420, 1450}}, {analysis::lateral::Ar, {690, 1330}},
};

POINT mean_position(int landmark) {
  for (const Mean &mean : profile) {
    if (mean.landmark == landmark) return mean.position;
  }
  return {900 + 11 * landmark, 1100 + 17 * landmark};
}

void write(const std::string &path, const std::string &text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string with_crlf(const std::string &text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

}  // namespace

std::vector<tagPOINTLAT> generated_films(std::size_t count) {
  std::fprintf(stderr, "films generated from seed %u\n", film_seed);
  std::mt19937 random(film_seed);
  std::uniform_int_distribution<int> spread(-80, 80);
  std::vector<tagPOINTLAT> films(count);
  for (tagPOINTLAT &film : films) {
    film.scale = 0.1;
    for (int k = 0; k < analysis::lateral_landmark_count; ++k) {
      const POINT mean = mean_position(k);
      film.pt[analysis::first_landmark_entry + k] = {mean.x + spread(random), mean.y + spread(random)};
    }
  }
  return films;
}

DefinitionFolder::DefinitionFolder(const std::string &analysis_text) {
  std::string pattern = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
  if (!mkdtemp(pattern.data())) std::abort();
  root_ = pattern + "/";
  std::filesystem::create_directory(root_ + "CalcForm");
  list_path_ = root_ + "CalcForm/list.txt";
  analysis_path_ = root_ + "CalcForm/Analysis.txt";
  write(list_path_, "Analysis.txt\r\n");
  write(analysis_path_, with_crlf(analysis_text));
  AfxGetApp()->WriteProfileString("DB_DIR", "ANAITEMPATH", root_.c_str());
}

DefinitionFolder::~DefinitionFolder() {
  std::filesystem::remove_all(root_);
}

std::string forty_item_analysis() {
  struct Row {
    const char *item;
    const char *formula;
    const char *mean;
    const char *sd;
  };
  constexpr Row rows[] = {
      {"SNA", "angle1([S],[N],[A]):1", "82.0,82.5,83.0", "3.0"},
      {"SNB", "angle1([S],[N],[B]):1", "79.0,79.5,80.0", "3.0"},
      {"ANB", "case(\"SNA\")-case(\"SNB\"):1", "3.0,2.5,2.0", "1.8"},
      {"Facial axis", "angle2([PT],cross([N],[Pog(R)],[Me],[Go(L)]),[N],[Ba]):1", "90.0", "3.5"},
      {"Facial depth", "angle2([N],[Pog(R)],[Or],[Po]):1", "86.0,86.3,86.7", "3.0"},
      {"MP-FH", "angle2([Po],[Or],[Go(L)],[Me]):1", "27.0,26.7,26.3", "4.5"},
      {"LFH", "angle1([ANS],[Xi],[PM]):1", "47.0", "4.0"},
      {"Mand arc", "angle2([PM],[Xi],[Xi],[DC]):1", "24.5,25.0,25.5", "4.0"},
      {"Convexity", "lenR(vertical([N],[Pog(R)],[A]),[A])", "2.6,2.4,2.2", "2.0"},
      {"L1-APo mm", "lenR(vertical([A],[Pog(R)],[L1]),[L1])", "1.0", "2.3"},
      {"L1-APo", "angle2([Pog(R)],[A],[L1R],[L1]):1", "22.0", "4.0"},
      {"U6-PTV", "lenR(vertical([PT],vertical([Po],[Or],[PT]),[UMo(D)]),[UMo(D)])", "9.0,10.0,11.0", "3.0"},
      {"LL-E", "lenR(vertical([TN],[TC],[TLL]),[TLL])", "-1.4,-1.6,-1.8", "2.0"},
      {"IIA", "angle2([L1],[L1R],[U1],[U1R]):1", "130.0", "6.0"},
      {"Cranial deflection", "angle2([Ba],[N],[Po],[Or]):1", "27.0", "3.0"},
      {"Corpus Xi-PM", "len([Xi],[PM])", "60.2,61.8,63.4", "2.7"},
      {"Facial taper", "angle1([N],cross([N],[Pog(R)],[Me],[Go(L)]),[Go(L)]):1", "68.0", "3.5"},
      {"PP-FH", "angle2([Po],[Or],[PNS],[ANS]):1", "1.0", "3.5"},
      {"U1-APo mm", "lenR(vertical([A],[Pog(R)],[U1]),[U1])", "3.5", "2.3"},
      {"Overbite", "lenD([L1],[U1])", "2.5", "2.0"},
      {"Vert",
       "(sdu(\"Facial axis\")+sdu(\"Facial depth\")-sdu(\"MP-FH\")-sdu(\"LFH\")+sdu(\"Mand arc\"))/5:1",
       "0.0", "1.0"},
      {"Saddle", "angle1([N],[S],[Ar]):1", "123.0", "5.0"},
      {"Articular", "angle2([Ar],[S],[Ar],[Go(P)]):1", "143.0", "6.0"},
      {"Gonial", "angle2([Go(P)],[Ar],[Go(L)],[Me]):1", "130.0", "7.0"},
      {"Sum", "case(\"Saddle\")+case(\"Articular\")+case(\"Gonial\"):1", "396.0", "6.0"},
      {"S-N", "len([S],[N])", "71.0", "3.0"},
      {"S-Ar", "len([S],[Ar])", "32.0", "3.0"},
      {"Ar-Go", "len([Ar],cross([Ar],[Go(P)],[Me],[Go(L)]))", "44.0", "5.0"},
      {"S-Go", "len([S],[Go])", "77.5", "7.5"},
      {"N-Me", "len([N],[Me])", "112.5", "7.5"},
      {"Height ratio", "case(\"S-Go\")/case(\"N-Me\")*100:1", "63.5", "1.5"},
      {"Cd-A", "len([Cd],[A])", "91.0", "4.3"},
      {"Cd-Gn", "len([Cd],[Gn])", "120.2", "5.3"},
      {"Difference", "case(\"Cd-Gn\")-case(\"Cd-A\")", "29.2", "3.3"},
      {"ANS-Me", "len([ANS],[Me])", "66.7", "4.1"},
      {"IMPA", "angle2([Me],[Go(L)],[L1R],[L1]):1", "93.1", "6.8"},
      {"FMIA", "angle2([L1],[L1R],[Or],[Po]):1", "65.0", "5.0"},
      {"U1-SN", "angle2([U1R],[U1],[N],[S]):1", "104.0", "5.8"},
      {"Occ-SN", "angle2([S],[N],mid([UMo],[LMo]),mid([U1],[L1])):1", "14.0", "4.0"},
      {"Class", "switch(case(\"ANB\")>4,case(\"ANB\")<0,1);\"II\";\"III\";\"I\":1", "0.0", "1.0"},
  };
  std::string calc = "title:\nForty items\nCalc:\n";
  std::string mean = "Mean:\n";
  std::string sd = "SD:\n";
  for (const Row &row : rows) {
    calc += std::string(row.item) + "=" + row.formula + "\n";
    mean += std::string(row.item) + "=" + row.mean + "\n";
    sd += std::string(row.item) + "=" + row.sd + "\n";
  }
  return calc + mean + sd;
}

std::string eight_measures_analysis() {
  return "title:\nEight measures\nCalc:\n"
         "SNA=angle1([S],[N],[A]):1\n"
         "SNB=angle1([S],[N],[B]):1\n"
         "ANB=angle1([S],[N],[A])-angle1([S],[N],[B]):1\n"
         "ODI=angle2([Me],[Go],[B],[A])+angle2([Po],[Or],[PNS],[ANS]):1\n"
         "APDI=angle2([N],[Pog],[Or],[Po])-angle2([N],[Pog],[A],[B])+angle2([Po],[Or],[PNS],[ANS]):1\n"
         "FHI=len([S],[Go])/len([N],[Me]):1\n"
         "FHA=angle2([S],[N],[Go],[Gn]):1\n"
         "MW=lenR([L1],[U1])\n";
}

}  // namespace bench
