// Lays a line's coverage mask onto a 24- or 32-bit bitmap in one colour, turned about its anchor.
// 32-bit pixels are blended "source over": ink raises alpha, so text on clear areas shows.
#pragma once

#include <FreeImage.h>

#include <cstdint>

#include "imaging/text/glyph_run.h"
#include "imaging/text/line_placement.h"

namespace velmora::imaging::text {

struct InkColour {
  std::uint8_t red = 0, green = 0, blue = 0;
};

// Splits a 0x00BBGGRR colour; the top byte is ignored.
InkColour InkFromColorRef(std::int32_t color);

// Blends `colour` through the mask onto every image pixel the transformed mask covers, sampling
// the mask bilinearly at pixel centres. Pixels off the image are skipped.
void BlendCoverage(FIBITMAP* dib, const CoverageMask& mask, const LineTransform& transform, InkColour colour);

}  // namespace velmora::imaging::text
