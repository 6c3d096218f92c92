// One line of text shaped with HarfBuzz and rasterised by FreeType into an antialiased mask.
// All in the line's own pixels: x from the pen's start, y down from the ascent line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "imaging/text/face_cache.h"
#include "imaging/text/line_geometry.h"
#include "imaging/text/line_placement.h"

namespace velmora::imaging::text {

struct LineStyle {
  double pixel_size = 16;  // em size in pixels
  bool underline = false;
  bool strikeout = false;
};

// A glyph and its origin in 26.6 fixed point: x from the pen's start, y upwards from the baseline.
struct PlacedGlyph {
  unsigned id = 0;
  long x = 0;
  long y = 0;
};

struct ShapedLine {
  std::vector<PlacedGlyph> glyphs;  // in visual order
  LineExtent extent;
  std::vector<PixelRect> bars;  // underline and strikeout, solid ink
  long embolden_strength = 0;   // 26.6 outline growth for synthetic bold, 0 for none
  bool oblique = false;         // shear the outlines for synthetic italic
};

// Coverage of the line's ink, 0 to 255, over `area`.
struct CoverageMask {
  PixelRect area;
  std::vector<std::uint8_t> coverage;  // area.width() * area.height(), top row first

  // Coverage at a line pixel; 0 outside the area.
  std::uint8_t at(int x, int y) const {
    if (x < area.left || y < area.top || x >= area.right || y >= area.bottom) return 0;
    return coverage[static_cast<std::size_t>(y - area.top) * area.width() + (x - area.left)];
  }
};

// Sizes the face, shapes the UTF-8 text and measures the line. False when the face refuses
// the size.
bool ShapeLine(const StyledFace& face, const std::string& text, const LineStyle& style, ShapedLine& line);

// The line's ink inside `clip`. Must follow ShapeLine on the same face and thread, which leaves
// the face sized. Glyphs that fall wholly outside `clip` are not rendered at all.
CoverageMask RasterizeLine(const StyledFace& face, const ShapedLine& line, const PixelRect& clip);

}  // namespace velmora::imaging::text
