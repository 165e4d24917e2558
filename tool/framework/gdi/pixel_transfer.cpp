#include "tool/framework/gdi/pixel_transfer.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <span>
#include <vector>

#include "tool/framework/gdi/raster_operations.h"

namespace framework {
namespace {

/// One axis of a transfer: `to` target pixels show `from` source pixels, perhaps mirrored.
struct Axis {
  std::int64_t to_start, to;
  std::int64_t from_start, from;
  bool mirrored;

  Axis(LONG target_low, LONG target_high, LONG part_low, LONG part_high)
      : to_start(std::min(target_low, target_high)),
        to(std::abs(std::int64_t{target_high} - target_low)),
        from_start(std::min(part_low, part_high)),
        from(std::abs(std::int64_t{part_high} - part_low)),
        mirrored((target_low > target_high) != (part_low > part_high)) {}

  bool is_empty() const { return to == 0 || from == 0; }
  /// The place of a target pixel within the target, counted in the source's direction.
  std::int64_t place(std::int64_t target) const {
    return mirrored ? to - 1 - (target - to_start) : target - to_start;
  }
  /// The source pixel under the target pixel's centre.
  std::int64_t nearest(std::int64_t target) const {
    return from_start + (2 * place(target) + 1) * from / (2 * to);
  }
};

constexpr std::uint32_t no_pixel = 0;  // pixels have 0xFF in the highest byte

std::uint32_t source_pixel(PixelView source, std::int64_t x, std::int64_t y) {
  if (x < 0 || y < 0 || x >= source.width || y >= source.height) return no_pixel;
  return source.row(static_cast<int>(y))[x] | 0xFF000000U;
}

/// Calls with each source pixel that a target pixel covers, and how much of it (in 1 / `to` of a pixel).
template <typename Visit>
void for_covered(const Axis &axis, std::int64_t target, std::int64_t size, Visit visit) {
  const std::int64_t begin = axis.place(target) * axis.from, end = begin + axis.from;
  const std::int64_t first = std::max<std::int64_t>(begin / axis.to, -axis.from_start);
  for (std::int64_t k = first; k * axis.to < end && axis.from_start + k < size; ++k) {
    const std::int64_t weight = std::min(end, (k + 1) * axis.to) - std::max(begin, k * axis.to);
    visit(axis.from_start + k, static_cast<double>(weight));
  }
}

std::uint32_t mean_pixel(PixelView source, const Axis &across, const Axis &down, LONG x, LONG y) {
  double red = 0, green = 0, blue = 0, total = 0;
  for_covered(down, y, source.height, [&](std::int64_t source_y, double weight_y) {
    for_covered(across, x, source.width, [&](std::int64_t source_x, double weight_x) {
      const std::uint32_t pixel = source_pixel(source, source_x, source_y);
      const double weight = weight_x * weight_y;
      red += weight * (pixel >> 16 & 0xFF);
      green += weight * (pixel >> 8 & 0xFF);
      blue += weight * (pixel & 0xFF);
      total += weight;
    });
  });
  if (total == 0) return no_pixel;
  const auto channel = [total](double sum) { return static_cast<std::uint32_t>(std::lround(sum / total)); };
  return 0xFF000000U | channel(red) << 16 | channel(green) << 8 | channel(blue);
}

/// The source as it lies under the rows of the target.
class SourceRows {
 public:
  SourceRows(PixelView source, const Axis &across, const Axis &down, int stretch_mode, int target_width)
      : source_(source),
        across_(across),
        down_(down),
        means_(stretch_mode == HALFTONE && (across.to != across.from || down.to != down.from)) {
    columns_.resize(static_cast<std::size_t>(target_width));
    row_.resize(columns_.size());
    for (int x = 0; x < target_width; ++x) columns_[static_cast<std::size_t>(x)] = across.nearest(x);
  }

  /// The pixel for each target pixel [left, right) of row y, or no_pixel.
  std::span<const std::uint32_t> row(LONG y, LONG left, LONG right) {
    const std::int64_t source_y = down_.nearest(y);
    for (LONG x = left; x < right; ++x) {
      const auto i = static_cast<std::size_t>(x);
      row_[i] =
          means_ ? mean_pixel(source_, across_, down_, x, y) : source_pixel(source_, columns_[i], source_y);
    }
    return std::span(row_).subspan(static_cast<std::size_t>(left), static_cast<std::size_t>(right - left));
  }

 private:
  PixelView source_;
  Axis across_, down_;
  bool means_;
  std::vector<std::int64_t> columns_;
  std::vector<std::uint32_t> row_;
};

/// Combines a row with the pixels from (left, y) on.
void combine(PixelSpan target, LONG left, LONG y, std::span<const std::uint32_t> row, TernaryRop rop,
             const DeviceBrush &brush) {
  std::uint32_t *pixel = target.row(y) + left;
  for (std::size_t i = 0; i < row.size(); ++i, ++pixel) {
    if (row[i] == no_pixel) continue;
    const auto x = static_cast<LONG>(left + static_cast<LONG>(i));
    const std::uint32_t pattern = rop.uses_pattern() ? brush_pixel(brush, {x, y}).value_or(*pixel) : 0;
    *pixel = rop(pattern, row[i], *pixel);
  }
}

bool overlap(PixelView a, PixelSpan b) {
  const auto end = [](auto area) { return area.row(area.height - 1) + area.width; };
  const std::less<> before;
  return before(a.pixels, end(b)) && before(b.pixels, end(a));
}

std::vector<RECT> visible_parts(const Axis &across, const Axis &down, PixelSpan target, const Region *clip) {
  const auto within = [](std::int64_t value, int size) {
    return static_cast<LONG>(std::clamp<std::int64_t>(value, 0, size));
  };
  const RECT box{within(across.to_start, target.width), within(down.to_start, target.height),
                 within(across.to_start + across.to, target.width),
                 within(down.to_start + down.to, target.height)};
  const Region area = Region::rectangle(box);
  return (clip ? Region::combined(area, *clip, RGN_AND) : area).rectangles();
}

}  // namespace

void transfer_pixels(PixelSpan target, const RECT &to, PixelView source, const RECT &part, DWORD operation,
                     int stretch_mode, const Paint &paint) {
  const Axis across(to.left, to.right, part.left, part.right), down(to.top, to.bottom, part.top, part.bottom);
  if (across.is_empty() || down.is_empty() || source.width <= 0 || target.width <= 0) return;
  std::vector<std::uint32_t> copy;
  if (overlap(source, target)) {
    for (int y = 0; y < source.height; ++y)
      copy.insert(copy.end(), source.row(y), source.row(y) + source.width);
    source = {copy.data(), source.width, source.height, source.width};
  }
  SourceRows rows(source, across, down, stretch_mode, target.width);
  for (const RECT &box : visible_parts(across, down, target, paint.clip))
    for (LONG y = box.top; y < box.bottom; ++y)
      combine(target, box.left, y, rows.row(y, box.left, box.right), TernaryRop(operation), paint.brush);
}

}  // namespace framework
