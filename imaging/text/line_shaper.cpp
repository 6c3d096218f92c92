// Shaping and measuring half of the glyph run: HarfBuzz positions, line metrics, decoration bars.
#include <hb-ft.h>

#include <algorithm>
#include <cmath>

#include "imaging/text/glyph_run.h"

namespace velmora::imaging::text {
namespace {

// Synthetic bold grows each outline by a 24th of the em, as FreeType's own emboldening does.
constexpr long kEmboldenDivisor = 24;
// Strikeout runs through the middle of lower-case letters, this far above the baseline in ems.
constexpr double kStrikeoutHeightEm = 0.3;

// A solid bar across [0, width) centred `centre_up` pixels above the baseline.
PixelRect Bar(const LineExtent& extent, int width, double centre_up, double thickness) {
  const double centre = extent.ascent - centre_up;
  const int rows = std::max(1, static_cast<int>(std::lround(thickness)));
  const int top = static_cast<int>(std::lround(centre - rows / 2.0));
  return {0, top, width, top + rows};
}

void AddBars(FT_Face face, const LineStyle& style, ShapedLine& line) {
  const int width = static_cast<int>(std::lround(line.extent.advance));
  if (width <= 0 || (!style.underline && !style.strikeout)) return;

  const FT_Fixed y_scale = face->size->metrics.y_scale;
  double thickness = FT_MulFix(face->underline_thickness, y_scale) / 64.0;
  double underline_up = FT_MulFix(face->underline_position, y_scale) / 64.0;
  if (thickness <= 0) {  // the font says nothing: use common proportions
    thickness = style.pixel_size / 14;
    underline_up = -style.pixel_size / 10;
  }
  if (style.underline) line.bars.push_back(Bar(line.extent, width, underline_up, thickness));
  if (style.strikeout) {
    line.bars.push_back(Bar(line.extent, width, kStrikeoutHeightEm * style.pixel_size, thickness));
  }
}

}  // namespace

bool ShapeLine(const StyledFace& styled, const std::string& text, const LineStyle& style, ShapedLine& line) {
  FT_Face face = styled.face;
  const auto size_26_6 = static_cast<FT_F26Dot6>(std::lround(style.pixel_size * 64));
  if (face == nullptr || size_26_6 <= 0 || FT_Set_Char_Size(face, 0, size_26_6, 72, 72) != 0) {
    return false;
  }
  HbFontPtr font(hb_ft_font_create_referenced(face));
  HbBufferPtr buffer(hb_buffer_create());
  if (!font || !buffer || !hb_buffer_allocation_successful(buffer.get())) return false;
  hb_buffer_add_utf8(buffer.get(), text.data(), static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
  hb_buffer_guess_segment_properties(buffer.get());
  hb_shape(font.get(), buffer.get(), nullptr, 0);

  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer.get(), &count);

  line = ShapedLine{};
  line.oblique = styled.oblique;
  if (styled.embolden) {
    line.embolden_strength = FT_MulFix(face->units_per_EM, face->size->metrics.y_scale) / kEmboldenDivisor;
  }
  // HarfBuzz on an hb_ft font reports in the face's 26.6 pixel units.
  long pen_x = 0, pen_y = 0;
  line.glyphs.reserve(count);
  for (unsigned i = 0; i < count; ++i) {
    line.glyphs.push_back({infos[i].codepoint, pen_x + positions[i].x_offset, pen_y + positions[i].y_offset});
    pen_x += positions[i].x_advance + line.embolden_strength;
    pen_y += positions[i].y_advance;
  }

  const FT_Size_Metrics& metrics = face->size->metrics;
  line.extent.advance = pen_x / 64.0;
  line.extent.ascent = static_cast<int>(std::ceil(metrics.ascender / 64.0));
  line.extent.descent = static_cast<int>(std::ceil(-metrics.descender / 64.0));
  AddBars(face, style, line);
  return true;
}

}  // namespace velmora::imaging::text
