#include "tool/analysis/reason.h"

namespace analysis {

std::string describe(const Reason &reason) {
  const std::string quoted = "\"" + reason.subject + "\"";
  switch (reason.kind) {
    case Reason::Kind::unknown_point:
      return "point " + quoted + " is unknown";
    case Reason::Kind::unplaced_point:
      return reason.subject.empty() ? "a point is not placed" : "point " + quoted + " is not placed";
    case Reason::Kind::unknown_item:
      return "item " + quoted + " is not in the file";
    case Reason::Kind::cycle:
      return quoted + " refers back to itself";
    case Reason::Kind::no_norm:
      return "item " + quoted + " has no norm";
    case Reason::Kind::malformed_formula:
      return "the formula cannot be read from character " + std::to_string(reason.position + 1) +
             " on: " + reason.subject;
    case Reason::Kind::not_formed:
      return "the cast does not yield this measurement";
  }
  return {};
}

}  // namespace analysis
