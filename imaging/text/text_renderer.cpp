#include "imaging/text/text_renderer.h"

#include <cmath>

#include "imaging/text/coverage_blend.h"
#include "imaging/text/face_cache.h"
#include "imaging/text/glyph_run.h"
#include "imaging/text/line_placement.h"

namespace velmora::imaging::text {
namespace {

// A font size of 0 or less (a cancelled font dialog leaves 0) is drawn at the usual 12 points.
constexpr int kDefaultPoints = 12;
// 0.75 points to the pixel is 96 dots per inch.
constexpr double kDefaultPointsPerPixel = 0.75;
// Beyond any watermark a page can show; keeps single glyph bitmaps within reasonable memory.
constexpr double kLargestPixelSize = 4096;

bool IsDrawable(FIBITMAP* dib) {
  if (dib == nullptr || !FreeImage_HasPixels(dib)) return false;
  if (FreeImage_GetImageType(dib) != FIT_BITMAP) return false;
  const unsigned bpp = FreeImage_GetBPP(dib);
  return bpp == 24 || bpp == 32;
}

double PixelSize(const TextDrawRequest& request) {
  const double points = request.size_points > 0 ? request.size_points : kDefaultPoints;
  const double per_pixel = std::isfinite(request.points_per_pixel) && request.points_per_pixel > 0
                               ? request.points_per_pixel
                               : kDefaultPointsPerPixel;
  return points / per_pixel;
}

}  // namespace

// The fixed arguments of the request (fixed_flag1, fixed2, fixed3, fixed_flag4, fixed5) select
// nothing: every draw is a plain antialiased one.
bool DrawText(FIBITMAP* dib, const TextDrawRequest& request) {
  if (!IsDrawable(dib)) return false;
  if (request.text.empty()) return true;

  LineStyle style;
  style.pixel_size = PixelSize(request);
  style.underline = request.underline;
  style.strikeout = request.strikeout;
  if (style.pixel_size > kLargestPixelSize) return false;

  StyledFace face;
  if (!ThreadFaceCache().Acquire(request.face, request.bold, request.italic, face)) return false;
  ShapedLine line;
  if (!ShapeLine(face, request.text, style, line)) return false;

  const LineTransform transform(AnchorLine(line.extent, request), request.angle_degrees);
  const int width = static_cast<int>(FreeImage_GetWidth(dib));
  const int height = static_cast<int>(FreeImage_GetHeight(dib));
  const CoverageMask mask = RasterizeLine(face, line, VisibleLineArea(transform, width, height));
  BlendCoverage(dib, mask, transform, InkFromColorRef(request.color));
  return true;
}

}  // namespace velmora::imaging::text
