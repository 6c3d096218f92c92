// Grayscale: every pixel's red, green and blue become its Rec.601 luma; depth and alpha stay.
#include "imaging/effects/effects.h"
#include "imaging/effects/page_access.h"
#include "imaging/effects/pixel_math.h"

namespace velmora::imaging::effects {

bool Grayscale(FIBITMAP* dib) {
  const auto layout = AcceptedLayout(dib);
  if (!layout) return false;
  for (int y = 0; y < layout->height; ++y) {
    std::uint8_t* pixel = TopRow(dib, *layout, y);
    for (int x = 0; x < layout->width; ++x, pixel += layout->bytes_per_pixel) {
      const auto luma =
          static_cast<std::uint8_t>(Luma601(pixel[FI_RGBA_RED], pixel[FI_RGBA_GREEN], pixel[FI_RGBA_BLUE]));
      pixel[FI_RGBA_RED] = pixel[FI_RGBA_GREEN] = pixel[FI_RGBA_BLUE] = luma;
    }
  }
  return true;
}

}  // namespace velmora::imaging::effects
