// Helpers of the controls' image tests: pixel colours as plain RGB triples and loose colour
// comparisons for gradient ends.
#pragma once

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QRect>
#include <string>

#include "controls/ole_color.h"

namespace velmora::controls::testing {

inline std::string describe(QRgb c) {
  return "rgba(" + std::to_string(qRed(c)) + "," + std::to_string(qGreen(c)) + "," + std::to_string(qBlue(c)) + "," +
         std::to_string(qAlpha(c)) + ")";
}

// Exact opaque colour of a 0x00BBGGRR value at a pixel.
inline ::testing::AssertionResult PixelIs(const QImage& image, int x, int y, OleColor color) {
  const QRgb actual = image.pixel(x, y);
  const QRgb expected = to_rgb(color);
  if (actual == expected) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "pixel (" << x << "," << y << ") is " << describe(actual) << ", expected "
                                       << describe(expected);
}

inline ::testing::AssertionResult PixelTransparent(const QImage& image, int x, int y) {
  const QRgb actual = image.pixel(x, y);
  if (qAlpha(actual) == 0) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "pixel (" << x << "," << y << ") is " << describe(actual)
                                       << ", expected transparent";
}

// Each channel within `tolerance` of the colour's.
inline ::testing::AssertionResult PixelNear(const QImage& image, int x, int y, OleColor color, int tolerance) {
  const QRgb actual = image.pixel(x, y);
  const QRgb expected = to_rgb(color);
  if (std::abs(qRed(actual) - qRed(expected)) <= tolerance &&
      std::abs(qGreen(actual) - qGreen(expected)) <= tolerance &&
      std::abs(qBlue(actual) - qBlue(expected)) <= tolerance && qAlpha(actual) == 255) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "pixel (" << x << "," << y << ") is " << describe(actual)
                                       << ", expected near " << describe(expected);
}

// Number of pixels of the box with exactly the colour.
inline int CountColor(const QImage& image, const QRect& box, OleColor color) {
  const QRgb wanted = to_rgb(color);
  int count = 0;
  const QRect area = box & image.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) count += image.pixel(x, y) == wanted ? 1 : 0;
  }
  return count;
}

}  // namespace velmora::controls::testing
