#include "imaging/text/line_placement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace velmora::imaging::text {
namespace {

constexpr int kAnchorCentre = 0;
constexpr int kAnchorRight = 4;
constexpr int kAnchorBottom = 2;

// Far enough out to be off any image, near enough that pixel arithmetic can't overflow.
constexpr double kCoordinateLimit = 1 << 29;

int FloorToInt(double value) {
  return static_cast<int>(std::floor(std::clamp(value, -kCoordinateLimit, kCoordinateLimit)));
}
int CeilToInt(double value) {
  return static_cast<int>(std::ceil(std::clamp(value, -kCoordinateLimit, kCoordinateLimit)));
}

// Bounding box of four points, widened by a pixel on each side so that bilinear sampling near
// the edge is never cut off.
PixelRect OutwardBox(const std::array<PointF, 4>& points) {
  double min_x = std::numeric_limits<double>::max(), min_y = min_x;
  double max_x = std::numeric_limits<double>::lowest(), max_y = max_x;
  for (const PointF& p : points) {
    min_x = std::min(min_x, p.x);
    min_y = std::min(min_y, p.y);
    max_x = std::max(max_x, p.x);
    max_y = std::max(max_y, p.y);
  }
  return {FloorToInt(min_x) - 1, FloorToInt(min_y) - 1, CeilToInt(max_x) + 1, CeilToInt(max_y) + 1};
}

}  // namespace

LineAnchor AnchorLine(const LineExtent& extent, const TextDrawRequest& request) {
  LineAnchor anchor;
  switch (request.horizontal_anchor) {
    case kAnchorRight:
      anchor.line_x = static_cast<int>(std::lround(extent.advance));
      anchor.image_x = request.right;
      break;
    case kAnchorCentre:
      anchor.line_x = static_cast<int>(std::lround(extent.advance / 2));
      anchor.image_x = request.left;
      break;
    default:
      anchor.line_x = 0;
      anchor.image_x = request.left;
      break;
  }
  const int height = extent.ascent + extent.descent;
  switch (request.vertical_anchor) {
    case kAnchorBottom:
      anchor.line_y = height;
      anchor.image_y = request.bottom;
      break;
    case kAnchorCentre:
      anchor.line_y = height / 2;
      anchor.image_y = request.top;
      break;
    default:
      anchor.line_y = 0;
      anchor.image_y = request.top;
      break;
  }
  return anchor;
}

LineTransform::LineTransform(const LineAnchor& anchor, int angle_degrees) : anchor_(anchor) {
  const int angle = ((angle_degrees % 360) + 360) % 360;
  // Quarter turns are kept exact so that upright and sideways text is copied pixel for pixel.
  switch (angle) {
    case 0:
      cos_ = 1;
      sin_ = 0;
      break;
    case 90:
      cos_ = 0;
      sin_ = 1;
      break;
    case 180:
      cos_ = -1;
      sin_ = 0;
      break;
    case 270:
      cos_ = 0;
      sin_ = -1;
      break;
    default: {
      const double radians = angle * std::numbers::pi / 180.0;
      cos_ = std::cos(radians);
      sin_ = std::sin(radians);
    }
  }
}

PointF LineTransform::ToImage(PointF line_point) const {
  const double dx = line_point.x - anchor_.line_x;
  const double dy = line_point.y - anchor_.line_y;
  return {anchor_.image_x + cos_ * dx + sin_ * dy, anchor_.image_y - sin_ * dx + cos_ * dy};
}

PointF LineTransform::ToLine(PointF image_point) const {
  const double dx = image_point.x - anchor_.image_x;
  const double dy = image_point.y - anchor_.image_y;
  return {anchor_.line_x + cos_ * dx - sin_ * dy, anchor_.line_y + sin_ * dx + cos_ * dy};
}

PixelRect VisibleLineArea(const LineTransform& transform, int image_width, int image_height) {
  const double w = image_width, h = image_height;
  return OutwardBox(
      {transform.ToLine({0, 0}), transform.ToLine({w, 0}), transform.ToLine({0, h}), transform.ToLine({w, h})});
}

PixelRect TouchedImageArea(const LineTransform& transform, const PixelRect& line_area, int image_width,
                           int image_height) {
  const double l = line_area.left, t = line_area.top, r = line_area.right, b = line_area.bottom;
  const PixelRect box = OutwardBox(
      {transform.ToImage({l, t}), transform.ToImage({r, t}), transform.ToImage({l, b}), transform.ToImage({r, b})});
  return Intersect(box, {0, 0, image_width, image_height});
}

}  // namespace velmora::imaging::text
