// Access to the pages the effects accept: 24- or 32-bit FIT_BITMAP with pixels.
// Rows are addressed top row first, and only the red, green and blue bytes are named.
#pragma once

#include <FreeImage.h>

#include <cstdint>
#include <optional>

namespace velmora::imaging::effects {

// Byte offsets of red, green and blue inside one pixel, in that order.
inline constexpr int kColourOffsets[3] = {FI_RGBA_RED, FI_RGBA_GREEN, FI_RGBA_BLUE};

struct PageLayout {
  int width = 0;
  int height = 0;
  int bytes_per_pixel = 0;  // 3 or 4; the fourth byte is alpha and is never written
};

// The layout of `dib` when an effect may work on it, nothing otherwise (null, header only,
// another image type or depth, zero size, or a side too long for the integer arithmetic).
std::optional<PageLayout> AcceptedLayout(FIBITMAP* dib);

// Start of the visual row `y` (0 is the top row); FreeImage stores rows bottom-up.
inline std::uint8_t* TopRow(FIBITMAP* dib, const PageLayout& layout, int y) {
  return FreeImage_GetScanLine(dib, layout.height - 1 - y);
}

}  // namespace velmora::imaging::effects
