#include "controls/shape_rims.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "controls/button_properties.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {
namespace {

constexpr double kTie = 1e-9;

// Sums the outward normals of the nearest sides of a polygon.
QPointF polygon_normal(const QPolygon& polygon, QPointF p) {
  const QPolygonF shape(polygon);
  const qsizetype n = shape.size();
  double best = std::numeric_limits<double>::max();
  QPointF sum;
  for (qsizetype i = 0; i < n; ++i) {
    const QPointF a = shape[i];
    const QPointF b = shape[(i + 1) % n];
    const QPointF d = b - a;
    const double length = std::hypot(d.x(), d.y());
    if (length == 0.0) continue;
    const double t = std::clamp(QPointF::dotProduct(p - a, d) / (length * length), 0.0, 1.0);
    const QPointF nearest = a + t * d;
    const double distance = std::hypot(p.x() - nearest.x(), p.y() - nearest.y());
    QPointF normal(d.y() / length, -d.x() / length);
    if (polygon_contains(shape, (a + b) / 2.0 + 0.5 * normal)) normal = -normal;
    if (distance < best - kTie) {
      best = distance;
      sum = normal;
    } else if (distance <= best + kTie) {
      sum += normal;
    }
  }
  return sum;
}

QPointF rectangle_normal(double width, double height, QPointF p) {
  const double distances[4] = {p.x(), p.y(), width - p.x(), height - p.y()};
  const QPointF normals[4] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}};
  double best = std::numeric_limits<double>::max();
  for (double d : distances) best = std::min(best, d);
  QPointF sum;
  for (int i = 0; i < 4; ++i) {
    if (distances[i] <= best + kTie) sum += normals[i];
  }
  return sum;
}

QPointF round_rect_normal(double width, double height, QPointF p, int corner) {
  const double rx = std::min<double>(corner, width) / 2.0;
  const double ry = std::min<double>(corner, height) / 2.0;
  const double cx = p.x() < rx ? rx : (p.x() > width - rx ? width - rx : p.x());
  const double cy = p.y() < ry ? ry : (p.y() > height - ry ? height - ry : p.y());
  const bool in_corner = cx != p.x() && cy != p.y();
  if (!in_corner) return rectangle_normal(width, height, p);
  return {(p.x() - cx) / (rx * rx), (p.y() - cy) / (ry * ry)};
}

}  // namespace

QRegion erode(const QRegion& region) {
  return region & region.translated(1, 0) & region.translated(-1, 0) & region.translated(0, 1) &
         region.translated(0, -1);
}

QPointF outward_normal(int shape, int width, int height, QPointF p, int corner) {
  switch (shape) {
    case shape::kRoundedRectangle: return round_rect_normal(width, height, p, corner);
    case shape::kEllipse: {
      const double a = width / 2.0;
      const double b = height / 2.0;
      return {(p.x() - a) / (a * a), (p.y() - b) / (b * b)};
    }
    default: break;
  }
  if (shape_has_region(shape)) return polygon_normal(shape_polygon(shape, width, height), p);
  return rectangle_normal(width, height, p);
}

ShapeRings::ShapeRings(int shape, int width, int height, int corner)
    : shape_(shape), width_(width), height_(height), corner_(corner) {
  eroded_.push_back(shape_area(shape, width, height, corner));
}

const QRegion& ShapeRings::eroded(int steps) {
  while (static_cast<int>(eroded_.size()) <= steps) eroded_.push_back(erode(eroded_.back()));
  return eroded_[steps];
}

QRegion ShapeRings::ring(int inset) {
  const QRegion inner = eroded(inset + 1);
  return eroded(inset) - inner;
}

std::vector<QPoint> ShapeRings::rim(int inset, RimSide side) {
  std::vector<QPoint> out;
  for (const QRect& rect : ring(inset)) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) {
        const QPointF n = outward_normal(shape_, width_, height_, QPointF(x + 0.5, y + 0.5), corner_);
        const bool lit = n.x() + n.y() < -kTie;
        if (lit == (side == RimSide::Lit)) out.emplace_back(x, y);
      }
    }
  }
  return out;
}

}  // namespace velmora::controls
