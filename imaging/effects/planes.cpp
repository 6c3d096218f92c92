// Moves colour between a page and its planar working copies.
#include "imaging/effects/planes.h"

#include "imaging/effects/pixel_math.h"

namespace velmora::imaging::effects {

bool Plane::Allocate(int width, int height) {
  bytes_ = TryAllocate<std::uint8_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  if (!bytes_) {
    width_ = height_ = 0;
    return false;
  }
  width_ = width;
  height_ = height;
  return true;
}

bool ColourPlanes::Allocate(int width, int height) {
  for (Plane& plane : channel) {
    if (!plane.Allocate(width, height)) return false;
  }
  return true;
}

bool ReadColour(FIBITMAP* dib, const PageLayout& layout, ColourPlanes& planes) {
  if (!planes.Allocate(layout.width, layout.height)) return false;
  const int step = layout.bytes_per_pixel;
  for (int y = 0; y < layout.height; ++y) {
    const std::uint8_t* pixel = TopRow(dib, layout, y);
    std::uint8_t* red = planes.channel[0].row(y);
    std::uint8_t* green = planes.channel[1].row(y);
    std::uint8_t* blue = planes.channel[2].row(y);
    for (int x = 0; x < layout.width; ++x, pixel += step) {
      red[x] = pixel[FI_RGBA_RED];
      green[x] = pixel[FI_RGBA_GREEN];
      blue[x] = pixel[FI_RGBA_BLUE];
    }
  }
  return true;
}

void WriteColour(const ColourPlanes& planes, FIBITMAP* dib, const PageLayout& layout) {
  const int step = layout.bytes_per_pixel;
  for (int y = 0; y < layout.height; ++y) {
    std::uint8_t* pixel = TopRow(dib, layout, y);
    const std::uint8_t* red = planes.channel[0].row(y);
    const std::uint8_t* green = planes.channel[1].row(y);
    const std::uint8_t* blue = planes.channel[2].row(y);
    for (int x = 0; x < layout.width; ++x, pixel += step) {
      pixel[FI_RGBA_RED] = red[x];
      pixel[FI_RGBA_GREEN] = green[x];
      pixel[FI_RGBA_BLUE] = blue[x];
    }
  }
}

bool ReadLuma(FIBITMAP* dib, const PageLayout& layout, Plane& luma) {
  if (!luma.Allocate(layout.width, layout.height)) return false;
  const int step = layout.bytes_per_pixel;
  for (int y = 0; y < layout.height; ++y) {
    const std::uint8_t* pixel = TopRow(dib, layout, y);
    std::uint8_t* out = luma.row(y);
    for (int x = 0; x < layout.width; ++x, pixel += step) {
      out[x] = static_cast<std::uint8_t>(Luma601(pixel[FI_RGBA_RED], pixel[FI_RGBA_GREEN], pixel[FI_RGBA_BLUE]));
    }
  }
  return true;
}

void WriteGrey(const Plane& grey, FIBITMAP* dib, const PageLayout& layout) {
  const int step = layout.bytes_per_pixel;
  for (int y = 0; y < layout.height; ++y) {
    std::uint8_t* pixel = TopRow(dib, layout, y);
    const std::uint8_t* in = grey.row(y);
    for (int x = 0; x < layout.width; ++x, pixel += step) {
      pixel[FI_RGBA_RED] = pixel[FI_RGBA_GREEN] = pixel[FI_RGBA_BLUE] = in[x];
    }
  }
}

}  // namespace velmora::imaging::effects
