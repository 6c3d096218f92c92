// Blur, Motion and Sharpen on flat pages, noise, a single dot and a step edge.
#include <gtest/gtest.h>

#include "imaging/effects/effects.h"
#include "tests/imaging/effects_test_images.h"

namespace velmora::testing {
namespace {

namespace fx = imaging::effects;

// Black with one white pixel in the middle.
Page MakeDot(int size) {
  return MakePage(size, size, 32, [size](int x, int y) {
    const int v = x == size / 2 && y == size / 2 ? 255 : 0;
    return Rgba{v, v, v};
  });
}

double RedVariance(FIBITMAP* dib) {
  double sum = 0, squares = 0, n = 0;
  for (const Rgba& p : Pixels(dib)) sum += p.r, squares += p.r * p.r, ++n;
  return squares / n - (sum / n) * (sum / n);
}

TEST(BlurEffects, FlatPagesStayFlat) {
  for (bool strong : {false, true}) {
    const Rgba colour{13, 200, 255, 77};
    const std::vector<Rgba> flat = Pixels(MakeFlat(31, 17, 32, colour).get());
    Page blur = MakeFlat(31, 17, 32, colour), motion = MakeFlat(31, 17, 32, colour);
    Page sharp = MakeFlat(31, 17, 32, colour);
    ASSERT_TRUE(fx::Blur(blur.get(), strong) && fx::Motion(motion.get(), strong));
    ASSERT_TRUE(fx::Sharpen(sharp.get(), strong));
    EXPECT_EQ(Pixels(blur.get()), flat);
    EXPECT_EQ(Pixels(motion.get()), flat);
    EXPECT_EQ(Pixels(sharp.get()), flat);
  }
}

TEST(BlurEffects, BlurCutsNoiseVarianceAndStrongCutsMore) {
  Page plain = MakeNoise(64, 64, 24), strong = MakeNoise(64, 64, 24);
  const double before = RedVariance(plain.get());
  ASSERT_TRUE(fx::Blur(plain.get(), false) && fx::Blur(strong.get(), true));
  EXPECT_LT(RedVariance(plain.get()), before / 4);
  EXPECT_LT(RedVariance(strong.get()), RedVariance(plain.get()));
}

TEST(BlurEffects, BlurSpreadsADotAlikeInEveryDirection) {
  Page dot = MakeDot(31);
  ASSERT_TRUE(fx::Blur(dot.get(), true));
  const int c = 15;
  EXPECT_GT(PixelAt(dot.get(), c, c).r, PixelAt(dot.get(), c + 3, c).r);
  EXPECT_GT(PixelAt(dot.get(), c + 3, c).r, 0);
  for (int d = 1; d <= 6; ++d) {
    for (int e = 0; e <= 6; ++e) {
      const Rgba p = PixelAt(dot.get(), c + d, c + e);
      EXPECT_EQ(PixelAt(dot.get(), c - d, c + e), p);
      EXPECT_EQ(PixelAt(dot.get(), c + d, c - e), p);
      EXPECT_NEAR(PixelAt(dot.get(), c + e, c + d).r, p.r, 1);  // rows and columns round apart
    }
  }
}

TEST(BlurEffects, MotionSmearsAlongTheRowOnlyAndStrongReachesFurther) {
  Page plain = MakeDot(41), strong = MakeDot(41);
  ASSERT_TRUE(fx::Motion(plain.get(), false) && fx::Motion(strong.get(), true));
  const int c = 20;
  for (int d = 1; d <= 12; ++d) {
    EXPECT_EQ(PixelAt(strong.get(), c, c - d).r + PixelAt(strong.get(), c, c + d).r, 0);
    EXPECT_GT(PixelAt(strong.get(), c - d, c).r, 0);
    EXPECT_EQ(PixelAt(strong.get(), c - d, c), PixelAt(strong.get(), c + d, c));
    EXPECT_EQ(PixelAt(plain.get(), c + d, c).r > 0, d <= 5);
  }
  EXPECT_EQ(PixelAt(strong.get(), c + 13, c).r, 0);
}

TEST(BlurEffects, SharpenSteepensAnEdgeAndStrongSteepensMore) {
  // Grey 60 left of column 20, grey 190 from there on.
  auto step = [](int x, int) { return x < 20 ? Rgba{60, 60, 60} : Rgba{190, 190, 190}; };
  Page plain = MakePage(40, 8, 24, step), strong = MakePage(40, 8, 24, step);
  ASSERT_TRUE(fx::Sharpen(plain.get(), false) && fx::Sharpen(strong.get(), true));
  EXPECT_LT(PixelAt(plain.get(), 19, 4).r, 60);
  EXPECT_GT(PixelAt(plain.get(), 20, 4).r, 190);
  EXPECT_LT(PixelAt(strong.get(), 19, 4).r, PixelAt(plain.get(), 19, 4).r);
  EXPECT_GT(PixelAt(strong.get(), 20, 4).r, PixelAt(plain.get(), 20, 4).r);
  EXPECT_EQ(PixelAt(strong.get(), 2, 4), step(2, 4));
  EXPECT_EQ(PixelAt(strong.get(), 37, 4), step(37, 4));
}

}  // namespace
}  // namespace velmora::testing
