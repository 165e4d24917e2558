#include "tool/model/measurements.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "tool/geometry/distances.h"

namespace model {

namespace {

constexpr double single_valued = -2.0;
constexpr double not_formed = -1.0;
constexpr int extra_slot = 6;

/// width of the canine and premolar segment = slope x (sum of the four incisors) + intercept
struct Prediction {
  double slope;
  double intercept;
};

/// One jaw of the records.
struct JawView {
  const POINT (*slots)[4];
  const double *typed_first;
  const double *typed_second;
  const double (*extra)[2];
  const unsigned char *present;
  double scale;

  double typed(Side side, int position) const {
    return (side == Side::first ? typed_first : typed_second)[position];
  }
  bool has_flag(Side side, int position, unsigned char flag) const {
    return present[2 * position + (side == Side::first ? 1 : 0)] == flag;
  }
  double measured(Side side, int slot) const {
    const POINT *pair = slots[slot] + (side == Side::first ? 0 : 2);
    return geometry::integer_length(pair[0], pair[1], scale);
  }
};

JawView view(const tagPOINTMO &tracing, const tagMOEX &typed, Jaw jaw) {
  if (jaw == Jaw::upper) {
    return {tracing.upper,    typed.upperFirst, typed.upperSecond,
            typed.upperExtra, tracing.present,  tracing.scale};
  }
  return {tracing.lower,    typed.lowerFirst,     typed.lowerSecond,
          typed.lowerExtra, tracing.present + 12, tracing.scale};
}

/// A typed value rules over the measured one; negative means "counts 0".
double typed_or_measured(double typed, double measured) {
  if (typed < 0.0) return 0.0;
  return typed == 0.0 ? measured : typed;
}

double width(const JawView &jaw, Side side, int position) {
  if (jaw.has_flag(side, position, 0)) return 0.0;
  return typed_or_measured(jaw.typed(side, position), jaw.measured(side, position));
}

double both_widths(const JawView &jaw, int position) {
  return width(jaw, Side::second, position) + width(jaw, Side::first, position);
}

/// The further distance between the slot's first or second pair of points.
double extra_distance(const JawView &jaw, Side pair) {
  return typed_or_measured(jaw.extra[pair == Side::first ? 0 : 1][0], jaw.measured(pair, extra_slot));
}

double anterior_sum(const JawView &jaw) {
  return both_widths(jaw, 0) + both_widths(jaw, 1) + both_widths(jaw, 2);
}

double predicted_segment(const JawView &jaw, bool mixed, const Prediction &line) {
  const auto erupted = [&](int position) {
    return jaw.has_flag(Side::first, position, 1) && jaw.has_flag(Side::second, position, 1);
  };
  if (!mixed || !erupted(0) || !erupted(1)) return not_formed;
  return line.slope * (both_widths(jaw, 0) + both_widths(jaw, 1)) + line.intercept;
}

/// Canine and premolars of one side, predicted unless all three are present.
double segment(const JawView &jaw, Side side, double predicted) {
  double sum = 0.0;
  for (int position = 2; position <= 4; ++position) {
    if (!jaw.has_flag(side, position, 1)) return predicted;
    sum += width(jaw, side, position);
  }
  return sum;
}

double twelve_tooth_sum(const JawView &jaw, bool mixed, const Prediction &line) {
  double sum = 0.0;
  for (int position = 0; position < tooth_positions; ++position) {
    if (!mixed || position < 2 || position > 4) sum += both_widths(jaw, position);
  }
  if (!mixed) return sum;
  const double predicted = predicted_segment(jaw, mixed, line);
  return sum + segment(jaw, Side::second, predicted) + segment(jaw, Side::first, predicted);
}

double percent(double part, double whole) {
  return part == not_formed || whole == not_formed ? not_formed : part / whole * 100.0;
}

}  // namespace

ItemValues item(int sex, const tagPOINTMO &tracing, const tagMOEX &typed, int number) {
  const JawView upper = view(tracing, typed, Jaw::upper);
  const JawView lower = view(tracing, typed, Jaw::lower);
  const Prediction upper_line = sex == 1 ? Prediction{0.389, 10.28} : Prediction{0.421, 9.03};
  const Prediction lower_line = sex == 1 ? Prediction{0.523, 9.73} : Prediction{0.549, 8.52};
  const bool mixed = tracing.mixed == 1;
  const auto per_tooth = [](const JawView &jaw, int position) {
    return ItemValues{width(jaw, Side::second, position), width(jaw, Side::first, position)};
  };
  const auto single = [](double value) { return ItemValues{value, single_valued}; };
  if (number >= 0 && number < 6) return per_tooth(upper, number);
  if (number >= 8 && number < 14) return per_tooth(lower, number - 8);
  switch (number) {
    case 6:
      return single(extra_distance(upper, Side::second));
    case 7:
      return single(extra_distance(upper, Side::first));
    case 14:
      return single(extra_distance(lower, Side::second));
    case 15:
      return single(extra_distance(lower, Side::first));
    case 16:
      return single(anterior_sum(upper));
    case 17:
      return single(twelve_tooth_sum(upper, mixed, upper_line));
    case 18:
      return single(anterior_sum(lower));
    case 19:
      return single(twelve_tooth_sum(lower, mixed, lower_line));
    case 20:
      return single(percent(anterior_sum(lower), anterior_sum(upper)));
    case 21:
      return single(
          percent(twelve_tooth_sum(lower, mixed, lower_line), twelve_tooth_sum(upper, mixed, upper_line)));
    case 22:
      return single(predicted_segment(upper, mixed, upper_line));
    case 23:
      return single(predicted_segment(lower, mixed, lower_line));
    case 24:
      return single(upper.extra[3][0]);
    case 25:
      return single(upper.extra[2][0]);
    case 26:
      return single(lower.extra[3][0]);
    case 27:
      return single(lower.extra[2][0]);
    default:
      return {};
  }
}

double tooth_width(const tagPOINTMO &tracing, const tagMOEX &typed, Jaw jaw, Side side, int position) {
  if (position < 0 || position >= tooth_positions) return 0.0;
  const JawView teeth = view(tracing, typed, jaw);
  const double by_hand = teeth.typed(side, position);
  return by_hand != 0.0 ? by_hand : teeth.measured(side, position);
}

bool entry_shown(int entry, std::span<const unsigned char, 24> present) {
  constexpr int entries_per_jaw = 14;
  if (entry < 0 || entry >= 2 * entries_per_jaw) return false;
  const int within_jaw = entry % entries_per_jaw;
  if (within_jaw >= 2 * tooth_positions) return true;  // the further distances of the jaw
  // Entries run first side, second side; the flags of a position are stored the other way round.
  const int flag = (entry < entries_per_jaw ? 0 : 2 * tooth_positions) + (within_jaw ^ 1);
  return present[static_cast<std::size_t>(flag)] != 0;
}

}  // namespace model
