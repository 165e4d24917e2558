#include "apps/ceph/check_references.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "tool/framework/text/cp932.h"

namespace app::check {
namespace {

/// What one evaluation needs of another: the value of an item, or its norms. A norm is a node of its own,
/// because a norm formula may refer to the value of its item without a cycle.
struct Need {
  std::size_t node;
  std::size_t line;
  std::string_view place;  // of the item text in the reference
};

class ReferenceCheck {
 public:
  ReferenceCheck(Source &source, const std::vector<ItemLine> &items, const std::vector<NormLine> &norms)
      : source_(source), items_(items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
      texts_.push_back(items[i].text);
      index_.emplace(items[i].text, i);
    }
    for (const NormLine &norm : norms)
      for (const int sex : {1, 2})
        if (norm.applies_to(sex)) (norm.is_mean() ? means_ : sds_)[sex - 1].insert(norm.item);
    needs_.resize(2 * items.size());
  }

  /// Node of the value; the norms are the node after it.
  static std::size_t value_node(std::size_t item) { return 2 * item; }

  void formula(const FormulaLine &line, std::vector<Need> *needs) {
    for (const ItemUse &use : line.report.items) {
      const std::string_view place = line.formula.substr(use.position, use.item.size());
      const auto found = index_.find(place);
      if (found == index_.end()) {
        if (!place.empty())
          source_.report_at(
              line.line, place, Severity::error,
              "item " + show(place) + " is not in this file" + source_.did_you_mean(place, texts_));
        continue;
      }
      use_of(line, use, place, found->second);
      if (!needs) continue;
      needs->push_back(
          {value_node(found->second), line.line, place});  // also a norm evaluates the item first
      if (use.wants_mean || use.wants_sd) needs->push_back({value_node(found->second) + 1, line.line, place});
    }
  }

  void items_and_norms(const std::vector<NormLine> &norms) {
    for (std::size_t i = 0; i < items_.size(); ++i) formula(items_[i], &needs_[value_node(i)]);
    for (const NormLine &norm : norms) {
      const auto owner = index_.find(norm.item);
      for (const FormulaLine &field : norm.fields)
        formula(field, owner == index_.end() ? nullptr : &needs_[value_node(owner->second) + 1]);
    }
  }

  /// Depth first without recursion, so that a chain of any length is walked.
  void cycles() {
    enum class Mark { fresh, open, done };
    std::vector<Mark> marks(needs_.size(), Mark::fresh);
    struct Visit {
      std::size_t node;
      std::size_t next = 0;
    };
    for (std::size_t start = 0; start < needs_.size(); ++start) {
      std::vector<Visit> path;
      if (marks[start] == Mark::fresh) path.push_back({start});
      while (!path.empty()) {
        Visit &visit = path.back();
        marks[visit.node] = Mark::open;
        if (visit.next == needs_[visit.node].size()) {
          marks[visit.node] = Mark::done;
          path.pop_back();
          continue;
        }
        const Need &need = needs_[visit.node][visit.next++];
        if (marks[need.node] == Mark::fresh) path.push_back({need.node});
        if (marks[need.node] == Mark::open) report_cycle(path, need);
      }
    }
  }

 private:
  void use_of(const FormulaLine &line, const ItemUse &use, std::string_view place, std::size_t item) {
    if (!items_[item].has_formula())
      return source_.report_at(line.line, place, Severity::error,
                               show(place) + " in line " +
                                   std::to_string(source_.number_of(items_[item].line)) +
                                   " is a heading without a formula; the reference counts 0");
    missing_norm(line, place, use.wants_mean, means_, "mean");
    missing_norm(line, place, use.wants_sd, sds_, "standard deviation");
  }

  void missing_norm(const FormulaLine &line, std::string_view place, bool wanted,
                    const std::set<std::string_view> (&norms)[2], const char *name) {
    const bool male = norms[0].contains(place);
    const bool female = norms[1].contains(place);
    if (!wanted || (male && female)) return;
    const char *whom = male ? " for females" : female ? " for males" : "";
    source_.report_at(line.line, place, Severity::error,
                      "item " + show(place) + " has no " + name + whom + "; it counts 0");
  }

  template <typename Path>
  void report_cycle(const Path &path, const Need &closing) {
    constexpr std::size_t max_shown = 8;
    auto from = std::find_if(path.begin(), path.end(), [&](const auto &v) { return v.node == closing.node; });
    std::string chain;
    std::size_t shown = 0;
    const std::size_t *last = nullptr;
    for (auto visit = from; visit != path.end(); ++visit) {
      if (last && *last / 2 == visit->node / 2) continue;  // value and norm of the same item
      last = &visit->node;
      if (shown++ == max_shown) chain += "... -> ";
      if (shown <= max_shown) chain += show(items_[visit->node / 2].text) + " -> ";
    }
    chain += show(items_[closing.node / 2].text);
    // One report an edge: mean and value of the same reference close the same cycle.
    if (reported_.insert(closing.place.data()).second)
      source_.report_at(closing.line, closing.place, Severity::error, "the item refers to itself: " + chain);
  }

  Source &source_;
  const std::vector<ItemLine> &items_;
  std::vector<std::string_view> texts_;
  std::map<std::string_view, std::size_t> index_;  // the first item of a text
  std::set<std::string_view> means_[2], sds_[2];   // items with a norm, males then females
  std::vector<std::vector<Need>> needs_;           // by node
  std::set<const char *> reported_;
};

}  // namespace

bool NormLine::applies_to(int sex) const {
  using analysis::LineClass;
  const auto first_set = static_cast<LineClass>(static_cast<int>(block) % 100);
  if (first_set == LineClass::mean || first_set == LineClass::sd) return true;
  const bool male = first_set == LineClass::mean_male || first_set == LineClass::sd_male;
  return male == (sex == 1);
}

void check_references(Source &source, const std::vector<ItemLine> &items, const std::vector<NormLine> &norms,
                      const std::vector<FormulaLine> &other_formulas) {
  ReferenceCheck check(source, items, norms);
  check.items_and_norms(norms);
  for (const FormulaLine &line : other_formulas) check.formula(line, nullptr);
  check.cycles();
}

}  // namespace app::check
