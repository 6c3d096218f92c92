// Small geometry types shared by the text module's layout, rasteriser and compositor.
// A line's own coordinates run x right from the pen's start and y down from the ascent line.
#pragma once

#include <algorithm>

namespace velmora::imaging::text {

struct PointF {
  double x = 0;
  double y = 0;
};

// Whole-pixel rectangle, half open: [left, right) x [top, bottom).
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool empty() const { return right <= left || bottom <= top; }
};

inline PixelRect Intersect(const PixelRect& a, const PixelRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

// Smallest rectangle that holds both; an empty rectangle counts as nothing.
inline PixelRect Unite(const PixelRect& a, const PixelRect& b) {
  if (a.empty()) return b;
  if (b.empty()) return a;
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

}  // namespace velmora::imaging::text
