// Outline geometry of the skinned button's twelve shapes as functions of its pixel size: the size
// rules, the polygon points and the pixel regions that clip the control's window.
#pragma once

#include <QPolygon>
#include <QRegion>
#include <QSize>
#include <optional>

namespace velmora::controls {

// The smallest side in pixels (375 twips).
inline constexpr int kMinButtonSide = 25;

// Corner size of the rounded rectangle, in pixels.
inline constexpr int kRoundCorner = 15;

// Rounds to the nearest integer, halves to the even neighbour.
int round_half_even(double value);

// The rounded rectangle's corner size drawn at `scale` device pixels to a pixel.
inline int scaled_corner(double scale) {
  return static_cast<int>(kRoundCorner * scale + 0.5);
}

// The size the control takes for a requested size: each side at least kMinButtonSide, and for
// every shape but the two rectangles the height made equal to the width.
QSize button_surface_size(int shape, QSize requested);

// Whether a shape has a region of its own (1 to 11). The rectangle and unknown shapes clip nothing.
bool shape_has_region(int shape);

// Points of the polygon shapes 3 to 11 in region order, divisions rounded; empty for the others.
QPolygon shape_polygon(int shape, int width, int height);

// Pixels a shape covers, by pixel centre: polygons with the winding rule, the ellipse inside
// (0, 0)-(W, H), the rounded rectangle with 15 by 15 corners. Other shapes cover the rectangle.
QRegion shape_area(int shape, int width, int height, int corner = kRoundCorner);

// The window region a shape sets, or nothing when the window stays unclipped.
std::optional<QRegion> shape_clip_region(int shape, int width, int height, int corner = kRoundCorner);

QRegion polygon_region(const QPolygon& points, int height);
QRegion ellipse_region(int width, int height);
QRegion round_rect_region(int width, int height, int corner_width, int corner_height);

// Whether a point lies inside a polygon by the winding rule.
bool polygon_contains(const QPolygonF& points, QPointF p);

}  // namespace velmora::controls
