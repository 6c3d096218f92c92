#include "imaging/text/coverage_blend.h"

#include <cmath>

namespace velmora::imaging::text {
namespace {

// Coverage of the mask at a point of the line plane, interpolated between pixel centres.
int SampleCoverage(const CoverageMask& mask, PointF line_point) {
  const double sx = line_point.x - 0.5, sy = line_point.y - 0.5;
  const double fx0 = std::floor(sx), fy0 = std::floor(sy);
  const double fx = sx - fx0, fy = sy - fy0;
  const int x0 = static_cast<int>(fx0), y0 = static_cast<int>(fy0);
  const double top = mask.at(x0, y0) * (1 - fx) + mask.at(x0 + 1, y0) * fx;
  const double bottom = mask.at(x0, y0 + 1) * (1 - fx) + mask.at(x0 + 1, y0 + 1) * fx;
  return static_cast<int>(std::lround(top * (1 - fy) + bottom * fy));
}

std::uint8_t Mix(int source, int target, int coverage) {
  return static_cast<std::uint8_t>((source * coverage + target * (255 - coverage) + 127) / 255);
}

void BlendOpaque(BYTE* pixel, const InkColour& ink, int coverage) {
  pixel[FI_RGBA_RED] = Mix(ink.red, pixel[FI_RGBA_RED], coverage);
  pixel[FI_RGBA_GREEN] = Mix(ink.green, pixel[FI_RGBA_GREEN], coverage);
  pixel[FI_RGBA_BLUE] = Mix(ink.blue, pixel[FI_RGBA_BLUE], coverage);
}

// Straight (not premultiplied) alpha, ink over pixel: the ink weighs coverage, the pixel what
// its own alpha lets through the rest.
void BlendWithAlpha(BYTE* pixel, const InkColour& ink, int coverage) {
  const int ink_weight = coverage * 255;
  const int pixel_weight = pixel[FI_RGBA_ALPHA] * (255 - coverage);
  const int total = ink_weight + pixel_weight;
  auto over = [&](int source, int target) {
    return static_cast<BYTE>((source * ink_weight + target * pixel_weight + total / 2) / total);
  };
  pixel[FI_RGBA_RED] = over(ink.red, pixel[FI_RGBA_RED]);
  pixel[FI_RGBA_GREEN] = over(ink.green, pixel[FI_RGBA_GREEN]);
  pixel[FI_RGBA_BLUE] = over(ink.blue, pixel[FI_RGBA_BLUE]);
  pixel[FI_RGBA_ALPHA] = static_cast<BYTE>((total + 127) / 255);
}

}  // namespace

InkColour InkFromColorRef(std::int32_t color) {
  const auto bits = static_cast<std::uint32_t>(color);
  return {static_cast<std::uint8_t>(bits & 0xFF), static_cast<std::uint8_t>((bits >> 8) & 0xFF),
          static_cast<std::uint8_t>((bits >> 16) & 0xFF)};
}

void BlendCoverage(FIBITMAP* dib, const CoverageMask& mask, const LineTransform& transform, InkColour colour) {
  if (mask.area.empty()) return;
  const int width = static_cast<int>(FreeImage_GetWidth(dib));
  const int height = static_cast<int>(FreeImage_GetHeight(dib));
  const int bytes_per_pixel = static_cast<int>(FreeImage_GetBPP(dib)) / 8;
  const bool has_alpha = bytes_per_pixel == 4;
  const PixelRect area = TouchedImageArea(transform, mask.area, width, height);

  for (int y = area.top; y < area.bottom; ++y) {
    // FreeImage keeps scanlines bottom-up: visual row y is stored as line height - 1 - y.
    BYTE* row = FreeImage_GetScanLine(dib, height - 1 - y);
    for (int x = area.left; x < area.right; ++x) {
      const int coverage = SampleCoverage(mask, transform.ToLine({x + 0.5, y + 0.5}));
      if (coverage <= 0) continue;
      BYTE* pixel = row + static_cast<long>(x) * bytes_per_pixel;
      if (has_alpha) {
        BlendWithAlpha(pixel, colour, coverage);
      } else {
        BlendOpaque(pixel, colour, coverage);
      }
    }
  }
}

}  // namespace velmora::imaging::text
