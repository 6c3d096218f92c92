// Pixel probes of the controls' image tests: a pixel, the colour it should have (or kClear) and a
// per-channel tolerance for gradients.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QRect>
#include <cstdlib>
#include <vector>

#include "controls/ole_color.h"

namespace velmora::controls::testing {

// Asks for a fully transparent pixel; no colour value the controls use looks like it.
inline constexpr OleColor kClear = 0xFFFFFFFF;

struct Probe {
  int x, y;
  OleColor color;
  int tolerance = 0;
};

// The pixel is opaque and within the tolerance of the colour, or clear for kClear.
inline ::testing::AssertionResult PixelIs(const QImage& image, int x, int y, OleColor color, int tolerance = 0) {
  const QRgb got = image.pixel(x, y);
  const QRgb want = to_rgb(color);
  const bool ok = color == kClear ? qAlpha(got) == 0
                                  : qAlpha(got) == 255 && std::abs(qRed(got) - qRed(want)) <= tolerance &&
                                        std::abs(qGreen(got) - qGreen(want)) <= tolerance &&
                                        std::abs(qBlue(got) - qBlue(want)) <= tolerance;
  if (ok) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "pixel (" << x << "," << y << ") is " << std::hex << got << ", expected "
                                       << (color == kClear ? 0u : want) << " within " << std::dec << tolerance;
}

inline void ExpectPixels(const QImage& image, const std::vector<Probe>& probes) {
  for (const Probe& p : probes) EXPECT_TRUE(PixelIs(image, p.x, p.y, p.color, p.tolerance));
}

// Number of pixels of the box with exactly the colour.
inline int CountColor(const QImage& image, const QRect& box, OleColor color) {
  int count = 0;
  const QRect area = box & image.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) count += image.pixel(x, y) == to_rgb(color) ? 1 : 0;
  }
  return count;
}

// The bounding box of the pixels with exactly the colour.
inline QRect Ink(const QImage& image, OleColor color) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == to_rgb(color)) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

}  // namespace velmora::controls::testing
