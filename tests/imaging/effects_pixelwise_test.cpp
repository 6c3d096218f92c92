// Grayscale, Mosaic and Distort: luma values, blocks of their mean colour, a bounded ripple.
#include <gtest/gtest.h>

#include <cstdlib>

#include "imaging/effects/effects.h"
#include "tests/imaging/effects_test_images.h"

namespace velmora::testing {
namespace {

namespace fx = imaging::effects;

TEST(PixelwiseEffects, GrayscaleGivesRec601LumaInEveryChannel) {
  const Rgba colours[] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}, {0, 0, 0}};
  Page page = MakePage(5, 1, 24, [&](int x, int) { return colours[x]; });
  ASSERT_TRUE(fx::Grayscale(page.get()));
  const int luma[] = {76, 150, 29, 255, 0};
  for (int x = 0; x < 5; ++x) EXPECT_EQ(PixelAt(page.get(), x, 0), (Rgba{luma[x], luma[x], luma[x]}));
  const std::vector<Rgba> once = Pixels(page.get());
  ASSERT_TRUE(fx::Grayscale(page.get()));
  EXPECT_EQ(Pixels(page.get()), once);
}

TEST(PixelwiseEffects, MosaicFillsBlocksFromTheTopLeftWithTheirMean) {
  // 10 x 7 in blocks of 4: columns 0-3, 4-7, 8-9 and rows 0-3, 4-6.
  Page page = MakePage(10, 7, 32, [](int x, int y) { return Rgba{10 * x, 20 * y, x * y, 9}; });
  ASSERT_TRUE(fx::Mosaic(page.get(), 4));
  for (int y = 0; y < 7; ++y) {
    for (int x = 0; x < 10; ++x) EXPECT_EQ(PixelAt(page.get(), x, y), PixelAt(page.get(), x - x % 4, y - y % 4));
  }
  EXPECT_EQ(PixelAt(page.get(), 0, 0), (Rgba{15, 30, 2, 9}));    // blue 36 / 16
  EXPECT_EQ(PixelAt(page.get(), 8, 4), (Rgba{85, 100, 42, 9}));  // blue 255 / 6, half to even
}

TEST(PixelwiseEffects, MosaicOfOnePixelKeepsThePageAndOneLargerThanItAveragesAll) {
  Page noise = MakeNoise(13, 11, 24);
  ASSERT_TRUE(fx::Mosaic(noise.get(), 1));
  EXPECT_EQ(Pixels(noise.get()), Pixels(MakeNoise(13, 11, 24).get()));
  auto halves_colour = [](int x, int) { return x < 30 ? Rgba{0, 100, 255} : Rgba{255, 101, 0}; };
  Page halves = MakePage(60, 40, 24, halves_colour);
  ASSERT_TRUE(fx::Mosaic(halves.get(), 95));
  EXPECT_EQ(Pixels(halves.get()), Pixels(MakeFlat(60, 40, 24, {128, 100, 128}).get()));  // halves to even
}

TEST(PixelwiseEffects, DistortKeepsFlatPagesAndMovesPixelsAFewPlacesAtMost) {
  Page flat = MakeFlat(70, 50, 32, {1, 2, 3, 4});
  ASSERT_TRUE(fx::Distort(flat.get()));
  EXPECT_EQ(Pixels(flat.get()), Pixels(MakeFlat(70, 50, 32, {1, 2, 3, 4}).get()));
  // Red counts columns and green rows, so a pixel's colour tells where it was taken from.
  Page page = MakePage(200, 100, 24, [](int x, int y) { return Rgba{x, 2 * y, 0}; });
  ASSERT_TRUE(fx::Distort(page.get()));
  int moved = 0;
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 200; ++x) {
      const Rgba p = PixelAt(page.get(), x, y);
      EXPECT_TRUE(std::abs(p.r - x) <= 3 && std::abs(p.g - 2 * y) <= 6) << x << "," << y;
      moved += p.r != x || p.g != 2 * y;
    }
  }
  EXPECT_GT(moved, 200 * 100 / 2);
}

}  // namespace
}  // namespace velmora::testing
