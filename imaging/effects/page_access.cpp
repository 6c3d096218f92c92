// Decides which pages the effects accept.
#include "imaging/effects/page_access.h"

namespace velmora::imaging::effects {
namespace {

// Sides up to 2^22 pixels keep fixed-point coordinates (8 fraction bits) inside an int.
constexpr unsigned kLongestSide = 1u << 22;

}  // namespace

std::optional<PageLayout> AcceptedLayout(FIBITMAP* dib) {
  if (dib == nullptr || !FreeImage_HasPixels(dib)) return std::nullopt;
  if (FreeImage_GetImageType(dib) != FIT_BITMAP) return std::nullopt;
  const unsigned bpp = FreeImage_GetBPP(dib);
  if (bpp != 24 && bpp != 32) return std::nullopt;
  const unsigned width = FreeImage_GetWidth(dib);
  const unsigned height = FreeImage_GetHeight(dib);
  if (width == 0 || height == 0 || width > kLongestSide || height > kLongestSide) return std::nullopt;
  return PageLayout{static_cast<int>(width), static_cast<int>(height), static_cast<int>(bpp / 8)};
}

}  // namespace velmora::imaging::effects
