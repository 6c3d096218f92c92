// Clipped, colour-keyed, alpha-blended pasting of a 32-bit watermark.
#include "imaging/watermark_paste.h"

#include <algorithm>

namespace velmora::imaging {
namespace {

struct ColourKey {
  bool active = false;
  BYTE red = 0, green = 0, blue = 0;
};

ColourKey KeyOf(std::int32_t colour) {
  if (colour < 0 || colour > 0xFFFFFF) return {};
  return {true, static_cast<BYTE>(colour & 0xFF), static_cast<BYTE>((colour >> 8) & 0xFF),
          static_cast<BYTE>((colour >> 16) & 0xFF)};
}

bool IsKeyed(const BYTE* pixel, const ColourKey& key) {
  return key.active && pixel[FI_RGBA_RED] == key.red && pixel[FI_RGBA_GREEN] == key.green &&
         pixel[FI_RGBA_BLUE] == key.blue;
}

BYTE Mix(unsigned over, unsigned under, unsigned alpha) {
  return static_cast<BYTE>((over * alpha + under * (255 - alpha) + 127) / 255);
}

// Source-over of a straight-alpha pixel onto a page pixel of `bytes` bytes (3 or 4).
void Blend(const BYTE* over, BYTE* under, unsigned bytes) {
  const unsigned alpha = over[FI_RGBA_ALPHA];
  if (alpha == 0) return;
  if (alpha == 255 || bytes == 3) {
    for (int channel : {FI_RGBA_RED, FI_RGBA_GREEN, FI_RGBA_BLUE})
      under[channel] = Mix(over[channel], under[channel], alpha);
    if (bytes == 4 && alpha == 255) under[FI_RGBA_ALPHA] = 255;
    return;
  }
  // Both have alpha: weigh the page's colour by what shows of it through the watermark.
  const unsigned below = under[FI_RGBA_ALPHA] * (255 - alpha);  // scaled by 255
  const unsigned total = alpha * 255 + below;                   // result alpha, scaled by 255
  for (int channel : {FI_RGBA_RED, FI_RGBA_GREEN, FI_RGBA_BLUE}) {
    under[channel] = static_cast<BYTE>((over[channel] * alpha * 255 + under[channel] * below + total / 2) / total);
  }
  under[FI_RGBA_ALPHA] = static_cast<BYTE>((total + 127) / 255);
}

}  // namespace

bool PasteClipped(FIBITMAP* page, FIBITMAP* mark, std::int64_t left, std::int64_t top, std::int32_t transparent_color) {
  if (!(IsBitmapOfDepth(page, 24) || IsBitmapOfDepth(page, 32)) || !IsBitmapOfDepth(mark, 32)) return false;
  const std::int64_t page_width = FreeImage_GetWidth(page), page_height = FreeImage_GetHeight(page);
  const std::int64_t mark_width = FreeImage_GetWidth(mark), mark_height = FreeImage_GetHeight(mark);
  const unsigned bytes = FreeImage_GetBPP(page) / 8;
  const ColourKey key = KeyOf(transparent_color);
  // The part of the watermark that lands on the page, in watermark coordinates from the top-left.
  const std::int64_t first_x = std::max<std::int64_t>(0, -left);
  const std::int64_t last_x = std::min(mark_width, page_width - left);
  const std::int64_t first_y = std::max<std::int64_t>(0, -top);
  const std::int64_t last_y = std::min(mark_height, page_height - top);
  for (std::int64_t y = first_y; y < last_y; ++y) {
    const BYTE* from = FreeImage_GetScanLine(mark, static_cast<int>(mark_height - 1 - y));
    BYTE* to = FreeImage_GetScanLine(page, static_cast<int>(page_height - 1 - (top + y)));
    for (std::int64_t x = first_x; x < last_x; ++x) {
      const BYTE* pixel = from + x * 4;
      if (!IsKeyed(pixel, key)) Blend(pixel, to + (left + x) * bytes, bytes);
    }
  }
  return true;
}

}  // namespace velmora::imaging
