#include "tool/analysis/points.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "tool/analysis/landmarks.h"
#include "tool/framework/text/decimal.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/transforms.h"

namespace analysis {
namespace {

void note(std::optional<Reason> *reason, Reason::Kind kind, std::string_view subject) {
  if (reason && !*reason) *reason = Reason{kind, std::string(subject)};
}

template <std::size_t Width>
std::string_view text_of(const char (&field)[Width]) {
  return {field, static_cast<std::size_t>(std::find(field, field + Width, '\0') - field)};
}

CPointD to_double(const POINT &p) {
  return CPointD(CPoint(p));
}

CPointD placed(const POINT &p, std::string_view name, std::optional<Reason> *reason) {
  if (p.x == 0 && p.y == 0) note(reason, Reason::Kind::unplaced_point, name);
  return to_double(p);
}

int reference_count(char type) {
  switch (type) {
    case '0':
    case '3':
      return 3;
    case '1':
      return 2;
    case '2':
      return 4;
    default:
      return 2;  // extension
  }
}

/// Evaluates virtual points. `path` holds the definitions under evaluation, so that a definition which leads
/// back to itself is found; `steps` bounds the work that a tangled set of definitions may cause. A point that
/// others are built from is evaluated once, so that ladders of them do not double the work at every step.
class VirtualPoints {
 public:
  VirtualPoints(const PointTables &tables, std::optional<Reason> *reason)
      : tables_(tables), reason_(reason) {}

  std::optional<CPointD> evaluate(const tagKPOINT &definition) {
    const std::string_view own_name = text_of(definition.name);
    constexpr std::size_t max_depth = 200;
    constexpr int max_steps = 20000;
    if (std::find(path_.begin(), path_.end(), &definition) != path_.end() || path_.size() >= max_depth ||
        ++steps_ > max_steps) {
      ++cuts_;
      note(reason_, Reason::Kind::cycle, own_name);
      return std::nullopt;
    }
    path_.push_back(&definition);
    const std::optional<CPointD> result = construct(definition);
    path_.pop_back();
    return result;
  }

 private:
  /// What came of one of the table's definitions.
  struct Known {
    bool is_known = false;
    std::optional<CPointD> position;
  };

  std::optional<CPointD> evaluate_once(std::size_t index) {
    if (!known_.empty() && known_[index].is_known) return known_[index].position;
    const int cuts_before = cuts_;
    const std::optional<CPointD> position = evaluate(tables_.virtual_points[index]);
    // What rests on a reference that was not followed depends on where the evaluation came from.
    if (cuts_ == cuts_before) {
      known_.resize(tables_.virtual_points.size());
      known_[index] = {true, position};
    }
    return position;
  }

  struct Reference {
    explicit Reference(std::string_view reference_name) : name(reference_name) {}

    std::string_view name;
    bool found = false;
    CPointD position;
    std::string_view matched;  ///< the landmark or user point behind it, while it may be unplaced

    void set(const CPointD &p, std::string_view source) {
      found = true;
      position = p;
      matched = source;
    }
  };
  using References = std::array<Reference, 4>;

  std::optional<CPointD> construct(const tagKPOINT &definition) {
    const int count = reference_count(definition.type[0]);
    References refs{Reference(text_of(definition.ref1)), Reference(text_of(definition.ref2)),
                    Reference(text_of(definition.ref3)), Reference(text_of(definition.ref4))};
    const std::span<Reference> used(refs.data(), static_cast<std::size_t>(count));
    // Later steps overwrite earlier ones: a user point wins over a landmark, a virtual point over both.
    match_landmarks(used);
    match_user_points(used);
    match_virtual_points(definition, used);
    for (const Reference &reference : used) {
      if (!reference.found) {
        note(reason_, Reason::Kind::unknown_point, reference.name);
        return std::nullopt;
      }
      if (!reference.matched.empty() && reference.position.IsPointNull()) {
        note(reason_, Reason::Kind::unplaced_point, reference.matched);
      }
    }
    return compute(definition, refs);
  }

  void match_landmarks(std::span<Reference> refs) const {
    if (!tables_.landmarks) return;
    const bool is_lateral = tables_.mode == Mode::lateral;
    if (!is_lateral && tables_.mode != Mode::frontal) return;
    constexpr std::size_t lateral_name_limit = 5;  // a reference field holds five characters
    const std::span<const std::string_view> names = vocabulary(record_kind(tables_.mode));
    for (std::size_t k = 0; k < names.size(); ++k) {
      const std::string_view name = is_lateral ? names[k].substr(0, lateral_name_limit) : names[k];
      for (Reference &reference : refs) {
        if (reference.name == name) reference.set(to_double(tables_.landmarks[k]), names[k]);
      }
    }
  }

  void match_user_points(std::span<Reference> refs) const {
    if (!tables_.user_positions) return;
    for (std::size_t i = 0; i < tables_.user_points.size(); ++i) {
      const std::string_view name = text_of(tables_.user_points[i].name);
      for (Reference &reference : refs) {
        if (reference.name == name) reference.set(to_double(tables_.user_positions[i]), name);
      }
    }
  }

  void match_virtual_points(const tagKPOINT &definition, std::span<Reference> refs) {
    const std::string_view own_name = text_of(definition.name);
    for (std::size_t i = 0; i < tables_.virtual_points.size(); ++i) {
      const std::string_view name = text_of(tables_.virtual_points[i].name);
      if (name == own_name) continue;
      for (Reference &reference : refs) {
        if (reference.name != name) continue;
        if (const std::optional<CPointD> p = evaluate_once(i)) reference.set(*p, {});
      }
    }
  }

  std::optional<CPointD> compute(const tagKPOINT &definition, const References &refs) {
    const CPointD &a = refs[0].position;
    const CPointD &b = refs[1].position;
    const CPointD &c = refs[2].position;
    switch (definition.type[0]) {
      case '0':
        return geometry::foot(a, b, c);
      case '1':
        return geometry::midpoint(a, b);
      case '2': {
        const std::optional<CPointD> crossing = geometry::intersection(a, b, c, refs[3].position);
        if (!crossing) note(reason_, Reason::Kind::unknown_point, text_of(definition.name));
        return crossing;
      }
      case '3': {
        const double arm = std::max(geometry::length(b, a, 1.0), geometry::length(b, c, 1.0));
        return bisector_point(a, b, c, arm);
      }
      default:
        return geometry::turned_offset(a, b, framework::decimal_value(text_of(definition.value)),
                                       framework::decimal_value(text_of(definition.ref3)), tables_.scale);
    }
  }

  const PointTables &tables_;
  std::optional<Reason> *reason_;
  std::vector<const tagKPOINT *> path_;
  std::vector<Known> known_;  ///< parallel to the table, once something is known
  int steps_ = 0;
  int cuts_ = 0;  ///< definitions that were not followed
};

}  // namespace

CPointD bisector_point(const CPointD &p1, const CPointD &vertex, const CPointD &p2, double distance) {
  constexpr double arm_pixels = 100.0;
  const CPointD t1 = geometry::turned_offset(vertex, p1, vertex, arm_pixels, 0.0, 1.0);
  const CPointD t2 = geometry::turned_offset(vertex, p2, vertex, arm_pixels, 0.0, 1.0);
  const CPointD middle = geometry::midpoint(t1, t2);
  if (distance == 0.0) return middle;
  return geometry::turned_offset(vertex, middle, vertex, distance, 0.0, 1.0);
}

std::optional<CPointD> virtual_point(const tagKPOINT &definition, const PointTables &tables,
                                     std::optional<Reason> *reason) {
  return VirtualPoints(tables, reason).evaluate(definition);
}

CPointD point_position(std::string_view name, const Tracing &tracing, std::optional<Reason> *reason) {
  if (!tracing.has_record()) {
    note(reason, Reason::Kind::unplaced_point, name);
    return {};
  }
  if (const std::optional<int> k = find_landmark(record_kind(tracing.mode()), name)) {
    return placed(tracing.landmarks()[static_cast<std::size_t>(*k)], name, reason);
  }
  for (std::size_t i = 0; i < tracing.user_point_count(); ++i) {
    const UserPoint user = tracing.user_point(i);
    if (!user.name.empty() && user.name == name) return placed(user.position, name, reason);
  }
  for (const tagKPOINT &definition : tracing.virtual_points()) {
    if (text_of(definition.name) != name) continue;
    const PointTables tables{tracing.mode(),           tracing.scale(),
                             tracing.virtual_points(), tracing.user_definitions(),
                             tracing.user_positions(), tracing.landmarks().data()};
    return virtual_point(definition, tables, reason).value_or(CPointD());
  }
  note(reason, Reason::Kind::unknown_point, name);
  return {};
}

}  // namespace analysis
