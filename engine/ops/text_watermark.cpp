// Text watermark: the layout box from alignment, offsets and the page's size, then one text draw.
#include "engine/number_text.h"
#include "engine/ops/chain_state.h"

namespace velmora::engine {
namespace {

// Left, top and centre anchors take a fixed far edge of 100 that doesn't follow the page; a
// positive offset moves text away from the edge it is anchored to.
void SetAxis(TextAxis& axis, std::int16_t align, std::int32_t offset, std::uint32_t size, std::int32_t near_anchor,
             std::int32_t far_anchor) {
  switch (align) {
    case 0: axis = {near_anchor, offset, 100}; break;
    case 2: axis = {0, static_cast<std::int32_t>(RoundHalfEven(size / 2.0)) + offset, 100}; break;
    case 1: axis = {far_anchor, 0, static_cast<std::int32_t>(size) - offset}; break;
    default: break;  // keeps what the last text watermark of the run set
  }
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos;
}

}  // namespace

bool ApplyTextWatermark(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain) {
  ParseWatermarkFont(chain.font, block.WatermarkFont);
  std::uint32_t w = 0, h = 0;
  lib.FreeImage_GetWidth(page, w);
  lib.FreeImage_GetHeight(page, h);
  SetAxis(chain.text_horizontal, block.HAlign, block.HOffset, w, 3, 4);
  SetAxis(chain.text_vertical, block.VAlign, block.VOffset, h, 1, 2);
  if (IsBlank(block.WatermarkSource)) return true;

  imaging::TextDrawRequest request;
  request.text = block.WatermarkSource;
  request.top = chain.text_vertical.near_edge;
  request.left = chain.text_horizontal.near_edge;
  request.bottom = chain.text_vertical.far_edge;
  request.right = chain.text_horizontal.far_edge;
  request.horizontal_anchor = chain.text_horizontal.anchor;
  request.vertical_anchor = chain.text_vertical.anchor;
  request.face = chain.font.FontFace;
  request.size_points = chain.font.FontSize;
  request.bold = chain.font.FontBold != kFalse;
  request.italic = chain.font.FontItalic != kFalse;
  request.underline = chain.font.FontUnderline != kFalse;
  request.strikeout = chain.font.FontStrikeOut != kFalse;
  request.color = chain.font.FontColor;
  request.angle_degrees = block.WatermarkAngle;
  imaging::CallResult result = 0;
  lib.DrawWatermarkText(page, request, result);
  return result != 0;
}

}  // namespace velmora::engine
