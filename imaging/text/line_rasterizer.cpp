// Rasterising half of the glyph run: FreeType renders each glyph's outline, clipped pieces are
// gathered, then summed with the decoration bars into one coverage mask.
#include <ft2build.h>
#include FT_OUTLINE_H

#include <algorithm>

#include "imaging/text/glyph_run.h"

namespace velmora::imaging::text {
namespace {

// Synthetic italic leans outlines by about 12 degrees (x += 0.2126 * y), as FreeType's own does.
constexpr FT_Fixed kObliqueShear = 0x0366A;

// The visible part of one rendered glyph, copied out of the glyph slot.
struct GlyphPiece {
  PixelRect area;
  std::vector<std::uint8_t> coverage;
};

// Glyph outlines are loaded unhinted so that they match HarfBuzz's unhinted advances.
constexpr FT_Int32 kLoadFlags = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;

// Leans and widens the outline as the line asks, then moves it by the sub-pixel part of its
// origin so that the bitmap lands on whole pixels. Returns the whole-pixel part of the origin.
void PrepareOutline(FT_Outline* outline, const ShapedLine& line, const PlacedGlyph& glyph, long& whole_x,
                    long& whole_y) {
  if (line.oblique) {
    FT_Matrix shear{0x10000, kObliqueShear, 0, 0x10000};
    FT_Outline_Transform(outline, &shear);
  }
  if (line.embolden_strength > 0) FT_Outline_Embolden(outline, line.embolden_strength);
  whole_x = glyph.x >> 6;  // floor, also for negative positions
  whole_y = glyph.y >> 6;
  FT_Outline_Translate(outline, glyph.x - whole_x * 64, glyph.y - whole_y * 64);
}

// Pixel box of the outline in line coordinates, from its control box (which holds every point).
PixelRect OutlineBox(FT_Outline* outline, const ShapedLine& line, long whole_x, long whole_y) {
  FT_BBox box;
  FT_Outline_Get_CBox(outline, &box);
  const long baseline = line.extent.ascent - whole_y;
  return {static_cast<int>(whole_x + (box.xMin >> 6)), static_cast<int>(baseline - ((box.yMax + 63) >> 6)),
          static_cast<int>(whole_x + ((box.xMax + 63) >> 6)), static_cast<int>(baseline - (box.yMin >> 6))};
}

// Copies the part of the slot's grey bitmap that lies inside `clip`.
bool CopyPiece(const FT_GlyphSlot slot, int left, int top, const PixelRect& clip, GlyphPiece& piece) {
  const FT_Bitmap& bitmap = slot->bitmap;
  if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY || bitmap.buffer == nullptr) return false;
  const PixelRect whole{left, top, left + static_cast<int>(bitmap.width), top + static_cast<int>(bitmap.rows)};
  piece.area = Intersect(whole, clip);
  if (piece.area.empty()) return false;
  // The pitch says how far down one row is; the top row comes first in memory only when it is
  // positive.
  const unsigned char* top_row =
      bitmap.pitch >= 0 ? bitmap.buffer : bitmap.buffer - static_cast<long>(bitmap.rows - 1) * bitmap.pitch;
  piece.coverage.resize(static_cast<std::size_t>(piece.area.width()) * piece.area.height());
  for (int y = piece.area.top; y < piece.area.bottom; ++y) {
    const unsigned char* source = top_row + static_cast<long>(y - top) * bitmap.pitch + (piece.area.left - left);
    std::copy_n(source, piece.area.width(),
                piece.coverage.begin() + static_cast<long>(y - piece.area.top) * piece.area.width());
  }
  return true;
}

bool RenderGlyph(FT_Face face, const ShapedLine& line, const PlacedGlyph& glyph, const PixelRect& clip,
                 GlyphPiece& piece) {
  if (FT_Load_Glyph(face, glyph.id, kLoadFlags) != 0) return false;
  FT_GlyphSlot slot = face->glyph;
  if (slot->format != FT_GLYPH_FORMAT_OUTLINE || slot->outline.n_points == 0) return false;
  long whole_x = 0, whole_y = 0;
  PrepareOutline(&slot->outline, line, glyph, whole_x, whole_y);
  if (Intersect(OutlineBox(&slot->outline, line, whole_x, whole_y), clip).empty()) return false;
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return false;
  const int left = static_cast<int>(whole_x + slot->bitmap_left);
  const int top = static_cast<int>(line.extent.ascent - whole_y - slot->bitmap_top);
  return CopyPiece(slot, left, top, clip, piece);
}

// Adds coverage, saturating at full ink, where glyphs or bars touch or overlap.
void AddCoverage(CoverageMask& mask, const PixelRect& area, const std::uint8_t* source) {
  const int width = mask.area.width();
  for (int y = area.top; y < area.bottom; ++y) {
    std::uint8_t* target =
        &mask.coverage[static_cast<std::size_t>(y - mask.area.top) * width + (area.left - mask.area.left)];
    for (int x = 0; x < area.width(); ++x) {
      const int sum = target[x] + (source ? source[x] : 255);
      target[x] = static_cast<std::uint8_t>(std::min(sum, 255));
    }
    if (source) source += area.width();
  }
}

}  // namespace

CoverageMask RasterizeLine(const StyledFace& styled, const ShapedLine& line, const PixelRect& clip) {
  std::vector<GlyphPiece> pieces;
  PixelRect ink;
  for (const PlacedGlyph& glyph : line.glyphs) {
    GlyphPiece piece;
    if (!RenderGlyph(styled.face, line, glyph, clip, piece)) continue;
    ink = Unite(ink, piece.area);
    pieces.push_back(std::move(piece));
  }
  std::vector<PixelRect> bars;
  for (const PixelRect& bar : line.bars) {
    const PixelRect visible = Intersect(bar, clip);
    if (visible.empty()) continue;
    ink = Unite(ink, visible);
    bars.push_back(visible);
  }

  CoverageMask mask;
  if (ink.empty()) return mask;
  mask.area = ink;
  mask.coverage.assign(static_cast<std::size_t>(ink.width()) * ink.height(), 0);
  for (const GlyphPiece& piece : pieces) AddCoverage(mask, piece.area, piece.coverage.data());
  for (const PixelRect& bar : bars) AddCoverage(mask, bar, nullptr);
  return mask;
}

}  // namespace velmora::imaging::text
