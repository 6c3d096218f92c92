// Places a measured line of text on the image: the anchor rules of the layout box, and the turn
// of the line about its anchor (counter-clockwise as seen on screen, y pointing down).
#pragma once

#include "imaging/imaging_library.h"
#include "imaging/text/line_geometry.h"

namespace velmora::imaging::text {

// The size of a shaped line, in pixels.
struct LineExtent {
  double advance = 0;  // from the pen's start to its end
  int ascent = 0;      // ascent line to baseline
  int descent = 0;     // baseline to descent line
};

// A point of the line, in its own whole-pixel coordinates, and the image point it is pinned to.
struct LineAnchor {
  int line_x = 0, line_y = 0;
  int image_x = 0, image_y = 0;
};

// Horizontal anchor 3 pins the line's left edge to `left`, 4 its right edge to `right`, 0 its
// middle to `left`. Vertical anchor 1 pins the ascent line to `top`, 2 the descent line to
// `bottom`, 0 the middle of the two to `top`. Unknown anchor values count as 3 and 1.
LineAnchor AnchorLine(const LineExtent& extent, const TextDrawRequest& request);

// Maps between line and image coordinates for a line turned about its anchor.
class LineTransform {
 public:
  LineTransform(const LineAnchor& anchor, int angle_degrees);

  PointF ToImage(PointF line_point) const;
  PointF ToLine(PointF image_point) const;

 private:
  LineAnchor anchor_;
  double cos_ = 1;
  double sin_ = 0;
};

// The part of the line's plane, in line coordinates and rounded outwards, that can land on an
// image of this size.
PixelRect VisibleLineArea(const LineTransform& transform, int image_width, int image_height);

// The image pixels that the given line area can touch, clipped to the image.
PixelRect TouchedImageArea(const LineTransform& transform, const PixelRect& line_area, int image_width,
                           int image_height);

}  // namespace velmora::imaging::text
