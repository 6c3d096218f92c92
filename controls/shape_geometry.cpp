#include "controls/shape_geometry.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "controls/button_properties.h"

namespace velmora::controls {
namespace {

// Pixels of one row whose centres fall in [left, right].
void add_span(QRegion& region, int y, double left, double right) {
  const int first = static_cast<int>(std::ceil(left - 0.5));
  const int last = static_cast<int>(std::floor(right - 0.5));
  if (last >= first) region += QRect(first, y, last - first + 1, 1);
}

}  // namespace

int round_half_even(double value) {
  return static_cast<int>(std::nearbyint(value));
}

QSize button_surface_size(int shape, QSize requested) {
  const int width = std::max(requested.width(), kMinButtonSide);
  int height = std::max(requested.height(), kMinButtonSide);
  if (shape != shape::kRectangle && shape != shape::kRoundedRectangle) height = width;
  return {width, height};
}

bool shape_has_region(int shape) {
  return shape >= 1 && shape < shape::kCount;
}

QPolygon shape_polygon(int shape, int width, int height) {
  const int w = width;
  const int h = height;
  const int w2 = round_half_even(w / 2.0);
  const int h2 = round_half_even(h / 2.0);
  const int w3 = round_half_even(w / 3.0);
  const int h3 = round_half_even(h / 3.0);
  const int w15 = round_half_even(w / 1.5);
  const int h15 = round_half_even(h / 1.5);
  switch (shape) {
    case shape::kDiamond: return QPolygon({{w, h2}, {w2, 0}, {0, h2}, {w2, h}});
    case shape::kTriangleUp: return QPolygon({{0, h}, {w2, 0}, {w, h}});
    case shape::kTriangleLeft: return QPolygon({{0, h2}, {w, 0}, {w, h}});
    case shape::kTriangleRight: return QPolygon({{w, h2}, {0, 0}, {0, h}});
    case shape::kTriangleDown: return QPolygon({{0, 1}, {w2, h}, {w, 1}});
    case shape::kArrowUp: return QPolygon({{w2, 0}, {0, h15}, {w3, h15}, {w3, h}, {w15, h}, {w15, h15}, {w, h15}});
    case shape::kArrowLeft: return QPolygon({{0, h2}, {w15, 0}, {w15, h3}, {w, h3}, {w, h15}, {w15, h15}, {w15, h}});
    case shape::kArrowRight: return QPolygon({{w, h2}, {w3, 0}, {w3, h3}, {0, h3}, {0, h15}, {w3, h15}, {w3, h}});
    case shape::kArrowDown: return QPolygon({{w2, h}, {0, h3}, {w3, h3}, {w3, 0}, {w15, 0}, {w15, h3}, {w, h3}});
    default: return {};
  }
}

QRegion polygon_region(const QPolygon& points, int height) {
  QRegion region;
  const qsizetype n = points.size();
  if (n < 3) return region;
  std::vector<std::pair<double, int>> crossings;
  for (int y = 0; y < height; ++y) {
    const double yc = y + 0.5;
    crossings.clear();
    for (qsizetype i = 0; i < n; ++i) {
      const QPoint a = points[i];
      const QPoint b = points[(i + 1) % n];
      if (a.y() == b.y()) continue;
      const double lo = std::min(a.y(), b.y());
      const double hi = std::max(a.y(), b.y());
      if (yc < lo || yc >= hi) continue;
      const double x = a.x() + (yc - a.y()) * (b.x() - a.x()) / double(b.y() - a.y());
      crossings.emplace_back(x, b.y() > a.y() ? 1 : -1);
    }
    std::sort(crossings.begin(), crossings.end());
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
      winding += crossings[i].second;
      if (winding != 0) add_span(region, y, crossings[i].first, crossings[i + 1].first);
    }
  }
  return region;
}

QRegion ellipse_region(int width, int height) {
  QRegion region;
  const double a = width / 2.0;
  const double b = height / 2.0;
  for (int y = 0; y < height; ++y) {
    const double dy = (y + 0.5 - b) / b;
    if (std::abs(dy) >= 1.0) continue;
    const double half = a * std::sqrt(1.0 - dy * dy);
    add_span(region, y, a - half, a + half);
  }
  return region;
}

QRegion round_rect_region(int width, int height, int corner_width, int corner_height) {
  QRegion region;
  const double rx = std::min(corner_width, width) / 2.0;
  const double ry = std::min(corner_height, height) / 2.0;
  for (int y = 0; y < height; ++y) {
    const double yc = y + 0.5;
    double dy = 0.0;
    if (yc < ry) dy = ry - yc;
    if (yc > height - ry) dy = yc - (height - ry);
    double inset = 0.0;
    if (dy > 0.0) {
      const double t = std::min(dy / ry, 1.0);
      inset = rx - rx * std::sqrt(1.0 - t * t);
    }
    add_span(region, y, inset, width - inset);
  }
  return region;
}

QRegion shape_area(int shape, int width, int height, int corner) {
  switch (shape) {
    case shape::kRoundedRectangle: return round_rect_region(width, height, corner, corner);
    case shape::kEllipse: return ellipse_region(width, height);
    default: break;
  }
  if (shape_has_region(shape)) return polygon_region(shape_polygon(shape, width, height), height);
  return QRegion(0, 0, width, height);
}

std::optional<QRegion> shape_clip_region(int shape, int width, int height, int corner) {
  if (!shape_has_region(shape)) return std::nullopt;
  return shape_area(shape, width, height, corner);
}

bool polygon_contains(const QPolygonF& points, QPointF p) {
  int winding = 0;
  const qsizetype n = points.size();
  for (qsizetype i = 0; i < n; ++i) {
    const QPointF a = points[i];
    const QPointF b = points[(i + 1) % n];
    const double cross = (b.x() - a.x()) * (p.y() - a.y()) - (p.x() - a.x()) * (b.y() - a.y());
    if (a.y() <= p.y() && b.y() > p.y() && cross > 0) ++winding;
    if (a.y() > p.y() && b.y() <= p.y() && cross < 0) --winding;
  }
  return winding != 0;
}

}  // namespace velmora::controls
