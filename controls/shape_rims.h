// The rings of pixels just inside a shape's edge, where the button draws its border, its 3D rims
// and its focus ring, and the split of each ring into the lit (upper-left) and shadow sides.
#pragma once

#include <QPoint>
#include <QPointF>
#include <QRegion>
#include <vector>

#include "controls/shape_geometry.h"

namespace velmora::controls {

enum class RimSide { Lit, Shadow };

// Removes every pixel with a 4-neighbour outside the region.
QRegion erode(const QRegion& region);

// Direction pointing out of the shape at a point inside it, from the nearest part of the
// outline (summed where two parts are equally near, as in a rectangle's corner).
QPointF outward_normal(int shape, int width, int height, QPointF p, int corner = kRoundCorner);

// Rings of one shape at one size. Ring 0 is the outermost pixel row of the shape's area, ring 1
// the row inside it, and so on.
class ShapeRings {
 public:
  // `corner` is the rounded rectangle's corner size.
  ShapeRings(int shape, int width, int height, int corner = kRoundCorner);

  const QRegion& area() const { return eroded_.front(); }
  QRegion ring(int inset);
  // Pixels of a ring whose outward direction faces up-left (lit) or else (shadow). A direction
  // exactly along the other diagonal, as at the upper-right and lower-left, counts as shadow.
  std::vector<QPoint> rim(int inset, RimSide side);

 private:
  const QRegion& eroded(int steps);

  int shape_;
  int width_;
  int height_;
  int corner_;
  std::vector<QRegion> eroded_;
};

}  // namespace velmora::controls
