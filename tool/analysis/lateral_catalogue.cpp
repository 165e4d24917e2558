#include "tool/analysis/lateral_catalogue.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "tool/analysis/lateral_catalogue_items.h"
#include "tool/geometry/angles.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"

namespace analysis {

namespace {

using namespace lateral;

constexpr bool in_catalogue(int analysis, int item) {
  return analysis >= 0 && analysis < 9 && item >= 0 &&
         item < lateral_catalogue_sizes[static_cast<std::size_t>(analysis)];
}

constexpr const Item &item_at(int analysis, int item) {
  return items[static_cast<std::size_t>(starts[static_cast<std::size_t>(analysis)] + item)];
}

/// One tracing seen through the catalogue's point numbers.
class Film {
 public:
  Film(const tagPOINTLAT &record, bool negate_ans_pns)
      : landmarks_(record.pt + first_landmark_entry), scale_(record.scale), negate_ans_pns_(negate_ans_pns) {}

  double scale() const { return scale_; }
  bool negates(Sign sign) const {
    return sign == Sign::negated || (sign == Sign::negated_by_setting && negate_ans_pns_);
  }
  /// From line pq to line rt, landmarks all of them.
  double angle(int p, int q, int r, int t) const {
    return geometry::signed_angle(landmarks_[p], landmarks_[q], landmarks_[r], landmarks_[t]);
  }
  CPoint whole(int point) const {
    return point < lateral_landmark_count ? CPoint(landmarks_[point]) : constructed_whole(point);
  }
  geometry::Pair pair(int point) const {
    return point < lateral_landmark_count ? geometry::pair_of(landmarks_[point]) : constructed_pair(point);
  }
  CPointD real(int point) const {
    const geometry::Pair coordinates = pair(point);
    return {coordinates[0], coordinates[1]};
  }

 private:
  CPoint foot_on_horizontal(Landmark k) const {
    return geometry::integer_foot(landmarks_[Po], landmarks_[Or], landmarks_[k]);
  }
  CPoint middle(Landmark from, Landmark to) const {
    return geometry::integer_midpoint(landmarks_[from], landmarks_[to]);
  }
  CPoint constructed_whole(int point) const;
  geometry::Pair constructed_pair(int point) const;

  const POINT *landmarks_;
  double scale_;
  bool negate_ans_pns_;
};

CPoint Film::constructed_whole(int point) const {
  switch (point) {
    case CF:
      return foot_on_horizontal(PT);
    case Nperp:
      return foot_on_horizontal(N);
    case Mi:
      return middle(L1, U1);
    case Mm:
      return middle(LMo, UMo);
    case MiU:
      return middle(U1, L1);
    case MmU:
      return middle(UMo, LMo);
    default:
      return {};
  }
}

geometry::Pair Film::constructed_pair(int point) const {
  using geometry::pair_of;
  const auto at = [this](Landmark k) { return CPointD(landmarks_[k].x, landmarks_[k].y); };
  switch (point) {
    case CFd:
      return pair_of(geometry::foot(at(Po), at(Or), at(PT)));
    case Mid:
      return pair_of(geometry::midpoint(at(L1), at(U1)));
    case Mmd:
      return pair_of(geometry::midpoint(at(LMo), at(UMo)));
    case GnX:
      return pair_of(geometry::cross_point(at(N), at(PogR), at(Me), at(GoL)));
    case CC:
      return pair_of(geometry::cross_point(at(Ba), at(N), at(PT), at(Gn)));
    case GoX:
      return pair_of(geometry::cross_point(at(GoL), at(Me), at(Ar), at(GoP)));
    case RamusGoX:
      return pair_of(geometry::cross_point(at(Ar), at(GoP), at(Me), at(GoL)));
    default:
      return pair_of(constructed_whole(point));
  }
}

double built_angle(const Film &film, int p, int q, int r, int t) {
  const geometry::Pair from_p = film.pair(p);
  const geometry::Pair u = film.pair(q) - from_p;
  const geometry::Pair from_r = film.pair(r);
  return geometry::signed_angle(u, film.pair(t) - from_r);
}

double setback(const Film &film, int p, int r, int t) {
  const CPoint point = film.whole(p);
  const CPoint foot = geometry::integer_foot(film.whole(r), film.whole(t), point);
  const double distance = geometry::integer_length(point, foot, film.scale());
  return foot.x > point.x ? -distance : distance;
}

double real_setback(const Film &film, int p, int r, int t) {
  const CPointD point = film.real(p);
  const CPointD foot = geometry::foot(film.real(r), film.real(t), point);
  const double distance = geometry::length(point, foot, film.scale());
  return foot.x > point.x ? -distance : distance;
}

double behind(const Film &film, int p, int q, int r, int t) {
  const CPoint point = film.whole(p);
  const CPoint foot = geometry::integer_foot(film.whole(r), film.whole(t), film.whole(q));
  const double distance = geometry::integer_length(point, foot, film.scale());
  return foot.x > point.x ? -distance : distance;
}

double to_foot(const Film &film, int p, int q, int r, int t) {
  const CPoint foot = geometry::integer_foot(film.whole(r), film.whole(t), film.whole(q));
  return geometry::integer_length(film.whole(p), foot, film.scale());
}

std::pair<CPoint, CPoint> feet(const Film &film, int p, int q, int r, int t) {
  const CPoint from = film.whole(r);
  const CPoint to = film.whole(t);
  return {geometry::integer_foot(from, to, film.whole(p)), geometry::integer_foot(from, to, film.whole(q))};
}

double wits(const Film &film, int p, int q, int r, int t) {
  const auto [upper, lower] = feet(film, p, q, r, t);
  const double distance = geometry::integer_length(upper, lower, film.scale());
  return lower.x < upper.x ? distance : 0.0 - distance;
}

/// A measure of points other than a plain angle.
[[gnu::noinline]] double point_measure(const Film &film, const Item &item) {
  const auto [p, q, r, t] = item.points;
  switch (item.measure) {
    case Measure::length:
      return geometry::integer_length(film.whole(p), film.whole(q), film.scale());
    case Measure::built_angle:
      return built_angle(film, p, q, r, t);
    case Measure::real_length:
      return geometry::length(film.real(p), film.real(q), film.scale());
    case Measure::to_foot:
      return to_foot(film, p, q, r, t);
    case Measure::between_feet: {
      const auto [from, to] = feet(film, p, q, r, t);
      return geometry::integer_length(from, to, film.scale());
    }
    case Measure::setback:
      return setback(film, p, r, t);
    case Measure::real_setback:
      return real_setback(film, p, r, t);
    case Measure::real_height:
      return geometry::distance_to_line(film.real(r), film.real(t), film.real(p), film.scale());
    case Measure::behind:
      return behind(film, p, q, r, t);
    case Measure::wits:
      return wits(film, p, q, r, t);
    default:
      return 0.0;
  }
}

double measured(const Film &film, int analysis, const Item &item);

/// A measure of other items of the same analysis.
[[gnu::noinline]] double item_measure(const Film &film, int analysis, const Item &item) {
  const auto [p, q, r, t] = item.points;
  const auto other = [&](int number) { return measured(film, analysis, item_at(analysis, number)); };
  switch (item.measure) {
    case Measure::difference:
      return other(p) - other(q);
    case Measure::sum:
      return other(p) + other(q);
    case Measure::sum_of_three:
      return other(p) + other(q) + other(r);
    case Measure::ratio:
      return other(p) / other(q);
    case Measure::extraction:
      return other(p) - (130.0 - other(q)) / 5.0 - (other(r) + other(t));
    default:
      return 0.0;
  }
}

double measured(const Film &film, int analysis, const Item &item) {
  double value = 0.0;
  if (item.measure == Measure::angle) [[likely]] {
    const auto [p, q, r, t] = item.points;
    value = film.angle(p, q, r, t);
  } else if (item.measure >= Measure::difference) {
    return item_measure(film, analysis, item);
  } else {
    value = point_measure(film, item);
  }
  return film.negates(item.sign) ? 0.0 - value : value;  // never minus zero
}

}  // namespace

CatalogueValue lateral_catalogue(const tagPOINTLAT &record, int analysis, int item, bool negate_ans_pns) {
  if (!in_catalogue(analysis, item)) [[unlikely]] {
    if (analysis == 7) return {0.0, 1};
    return {record.scale, analysis == 1 ? 1 : 0};
  }
  const Item &wanted = item_at(analysis, item);
  return {measured(Film(record, negate_ans_pns), analysis, wanted), wanted.flag};
}

const char *lateral_catalogue_name(int analysis, int item) {
  return in_catalogue(analysis, item) ? item_at(analysis, item).name : nullptr;
}

// Soft tissue -------------------------------------------------------------------------------------

namespace {

/// A soft-tissue landmark that can be set from another one, by millimetres subtracted from it.
struct SoftTissueSource {
  Landmark filled;
  Landmark source;
  double x_mm;
  double y_mm;
};

constexpr SoftTissueSource soft_tissue_sources[] = {
    {PTV, PT, 3, -5}, {Gl, Ns, -3, 10}, {Mes, Me, 0, -5}, {Pogs, Pog, -5, -3}, {Vmi, TLL, 2, -2},
};

}  // namespace

void complete_soft_tissue(tagPOINTLAT &record) {
  POINT *const landmarks = record.pt + first_landmark_entry;
  const auto shifted = [&](LONG from, double mm) {
    return geometry::integer_sum(from, geometry::truncated_quotient(-mm, record.scale));
  };
  for (const auto &[filled, source, x_mm, y_mm] : soft_tissue_sources) {
    if (landmarks[filled].x != 0 || landmarks[filled].y != 0) continue;
    landmarks[filled] = {shifted(landmarks[source].x, x_mm), shifted(landmarks[source].y, y_mm)};
  }
}

}  // namespace analysis
