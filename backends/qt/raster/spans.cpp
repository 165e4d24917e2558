#include "backends/qt/raster/spans.h"

#include <algorithm>

namespace raster {

namespace {

bool before(const Span &a, const Span &b) {
  return a.y != b.y ? a.y < b.y : a.left < b.left;
}

}  // namespace

void add_span(Spans &spans, int y, int left, int right, const RECT &limits) {
  if (y < limits.top || y >= limits.bottom) return;
  left = std::max(left, limits.left);
  right = std::min(right, limits.right);
  if (left < right) spans.push_back({y, left, right});
}

void normalise(Spans &spans) {
  if (spans.size() < 2) return;
  if (!std::is_sorted(spans.begin(), spans.end(), before)) std::sort(spans.begin(), spans.end(), before);
  auto last = spans.begin();
  for (auto next = last + 1; next != spans.end(); ++next) {
    if (next->y == last->y && next->left <= last->right) {
      last->right = std::max(last->right, next->right);
    } else {
      *++last = *next;
    }
  }
  spans.erase(last + 1, spans.end());
}

void subtract(const Spans &from, const Spans &taken, Spans &result) {
  result.clear();
  auto other = taken.begin();
  for (const Span &span : from) {
    int left = span.left;
    while (other != taken.end() && (other->y < span.y || (other->y == span.y && other->right <= left)))
      ++other;
    for (auto cut = other; cut != taken.end() && cut->y == span.y && cut->left < span.right; ++cut) {
      if (cut->left > left) result.push_back({span.y, left, cut->left});
      left = std::max(left, cut->right);
    }
    if (left < span.right) result.push_back({span.y, left, span.right});
  }
}

void intersect(const Spans &a, const Spans &b, Spans &result) {
  result.clear();
  auto other = b.begin();
  for (const Span &span : a) {
    while (other != b.end() && (other->y < span.y || (other->y == span.y && other->right <= span.left)))
      ++other;
    for (auto part = other; part != b.end() && part->y == span.y && part->left < span.right; ++part) {
      result.push_back({span.y, std::max(span.left, part->left), std::min(span.right, part->right)});
    }
  }
}

}  // namespace raster
