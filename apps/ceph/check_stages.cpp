#include "apps/ceph/check_stages.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "apps/common/names.h"
#include "tool/analysis/stages.h"
#include "tool/framework/text/decimal.h"

namespace app::check {
namespace {

using analysis::LineClass;

constexpr std::array<std::string_view, 9> dental_codes{"I",    "IIA", "IIC", "IIIA", "IIIB",
                                                       "IIIC", "IVA", "IVC", "VA"};
constexpr double open_end_years = 200;
constexpr double open_end_dental = 100;

struct Stage {
  std::size_t line;
  bool chronological;
  double low;
  double high;
  LineClass block;

  bool applies_to(int sex) const {
    return block == LineClass::stage || (block == LineClass::stage_male) == (sex == 1);
  }
};

class StageCheck {
 public:
  StageCheck(Source &source, const std::vector<bool> &skip, bool second_set)
      : source_(source), skip_(skip), offset_(second_set ? 100 : 0) {}

  void run() {
    for (std::size_t i = 0; i < source_.lines().size(); ++i) {
      const analysis::Line &line = source_.lines()[i];
      if (in_set(line.own) == LineClass::stage_type) kind_keyword(i);
      if (line.own != LineClass::content || skip_[i] || trim(line.text).empty()) continue;
      const LineClass block = in_set(line.block);
      if (block == LineClass::stage_type && i != kind_line_)
        source_.report(i, 0, Severity::warning, "ignored: stage lines follow one of the \"Stage\" keywords");
      if (block == LineClass::stage || block == LineClass::stage_male || block == LineClass::stage_female)
        stage(i, line.text, block);
    }
    for (const int sex : {1, 2})
      for (const bool chronological : {true, false}) overlaps(sex, chronological);
  }

 private:
  /// The class as one of the first set; content for a keyword of the other set.
  LineClass in_set(LineClass own) const {
    const int number = static_cast<int>(own) - offset_;
    const bool other_set = number < 1 || number > 100;
    return other_set ? LineClass::content : static_cast<LineClass>(number);
  }

  void kind_keyword(std::size_t keyword) {
    kind_line_ = keyword + 1;
    const auto lines = source_.lines();
    if (kind_line_ >= lines.size() || lines[kind_line_].own != LineClass::content ||
        trim(lines[kind_line_].text).empty())
      return source_.report(keyword, 0, Severity::error,
                            "the next line must say \"Age\" or name the dental stages");
    const std::string_view kind = lines[kind_line_].text;
    chronological_ = kind == "Age";
    if (!chronological_ && lower_case(trim(kind)) == "age")
      source_.report(kind_line_, 0, Severity::error,
                     show(kind) + " makes the ranges dental stages; \"Age\" is written exactly so");
  }

  void stage(std::size_t line, std::string_view text, LineClass block) {
    const std::size_t separator = text.find('=');
    if (separator == std::string_view::npos)
      return source_.report(line, 0, Severity::error, "a stage line is written: name=low-high");
    const std::string_view range = text.substr(separator + 1);
    const std::size_t dash = range.find('-');
    const std::string_view low_text = range.substr(0, dash);
    const auto low = bound(line, low_text);
    if (!low) return;
    double high = chronological_ ? open_end_years : open_end_dental;
    if (dash != std::string_view::npos) {
      const auto written = upper_bound(line, range.substr(dash + 1), *low);
      if (!written) return;
      high = *written;
    }
    if (*low >= high)
      return source_.report_at(line, range, Severity::error, "this range is empty and never matches");
    stages_.push_back({line, chronological_, *low, high, block});
  }

  std::optional<double> upper_bound(std::size_t line, std::string_view text, double low) {
    if (!chronological_) return trim(text).empty() ? analysis::dental_stage("") : bound(line, text);
    const auto high = trim(text).empty() ? 0.0 : bound(line, text);
    return high && *high == 0 && low != 0 ? open_end_years : high;
  }

  std::optional<double> bound(std::size_t line, std::string_view text) {
    const std::string_view written = trim(text);
    if (chronological_) {
      if (is_plain_number(written) && written.front() != '+') return framework::decimal_value(written);
      source_.report_at(line, text, Severity::error,
                        show(written) + " is no age in years; a range is written low-high, such as 6-12");
      return std::nullopt;
    }
    if (std::find(dental_codes.begin(), dental_codes.end(), written) != dental_codes.end())
      return analysis::dental_stage(written);
    source_.report_at(line, text, Severity::error,
                      show(written) + " is no dental stage" + source_.did_you_mean(written, dental_codes));
    return std::nullopt;
  }

  void overlaps(int sex, bool chronological) {
    std::vector<const Stage *> sorted;
    for (const Stage &stage : stages_)
      if (stage.applies_to(sex) && stage.chronological == chronological) sorted.push_back(&stage);
    std::stable_sort(sorted.begin(), sorted.end(), [](auto *a, auto *b) { return a->low < b->low; });
    const Stage *farthest = nullptr;
    for (const Stage *stage : sorted) {
      if (farthest && stage->low < farthest->high) report_overlap(*farthest, *stage);
      if (!farthest || stage->high > farthest->high) farthest = stage;
    }
  }

  void report_overlap(const Stage &a, const Stage &b) {
    const auto [earlier, later] = std::minmax(a.line, b.line);
    if (!reported_.emplace(earlier, later).second) return;
    source_.report(later, 0, Severity::warning,
                   "overlaps the stage in line " + std::to_string(source_.number_of(earlier)) +
                       "; where both match this one decides");
  }

  Source &source_;
  const std::vector<bool> &skip_;
  int offset_;
  bool chronological_ = true;
  std::size_t kind_line_ = static_cast<std::size_t>(-1);
  std::vector<Stage> stages_;
  std::set<std::pair<std::size_t, std::size_t>> reported_;
};

}  // namespace

void check_stages(Source &source, const std::vector<bool> &skip) {
  StageCheck(source, skip, false).run();
  StageCheck(source, skip, true).run();
}

}  // namespace app::check
