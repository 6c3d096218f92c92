// Emboss and Etch: flat grey on flat pages, lit and shaded edges, and how the two mirror each other.
#include <gtest/gtest.h>

#include "imaging/effects/effects.h"
#include "tests/imaging/effects_test_images.h"

namespace velmora::testing {
namespace {

namespace fx = imaging::effects;

// A light square from (8, 8) to (23, 23) on a dark ground.
Page MakeSquare() {
  return MakePage(32, 32, 24, [](int x, int y) {
    return x >= 8 && x < 24 && y >= 8 && y < 24 ? Rgba{200, 180, 160} : Rgba{40, 50, 60};
  });
}

// A slope gentle enough that no relief value clips.
Page MakeRamp() {
  return MakePage(24, 16, 32, [](int x, int y) { return Rgba{3 * x + 2 * y, 2 * x + y, x, 100}; });
}

TEST(ReliefEffects, FlatPagesTurnMidGrey) {
  const std::vector<Rgba> grey = Pixels(MakeFlat(9, 7, 32, {128, 128, 128, 33}).get());
  for (int direction : {0, 1, 5, -3}) {
    Page emboss = MakeFlat(9, 7, 32, {250, 10, 90, 33}), etch = MakeFlat(9, 7, 32, {250, 10, 90, 33});
    ASSERT_TRUE(fx::Emboss(emboss.get(), true, direction) && fx::Etch(etch.get(), false, direction));
    EXPECT_EQ(Pixels(emboss.get()), grey);
    EXPECT_EQ(Pixels(etch.get()), grey);
  }
}

TEST(ReliefEffects, EmbossLightsTheEdgesFacingTheTopLeftInGrey) {
  Page page = MakeSquare();
  ASSERT_TRUE(fx::Emboss(page.get(), true, 0));
  for (const Rgba& p : Pixels(page.get())) EXPECT_TRUE(p.r == p.g && p.g == p.b);
  EXPECT_GT(PixelAt(page.get(), 8, 15).r, 128);   // left edge
  EXPECT_GT(PixelAt(page.get(), 15, 8).r, 128);   // top edge
  EXPECT_LT(PixelAt(page.get(), 23, 15).r, 128);  // right edge
  EXPECT_LT(PixelAt(page.get(), 15, 23).r, 128);  // bottom edge
  EXPECT_EQ(PixelAt(page.get(), 15, 15).r, 128);
}

TEST(ReliefEffects, EtchMirrorsEmbossAndStrongDoublesTheSlope) {
  Page emboss = MakeRamp(), etch = MakeRamp(), strong = MakeRamp();
  ASSERT_TRUE(fx::Emboss(emboss.get(), false, 0) && fx::Etch(etch.get(), false, 0));
  ASSERT_TRUE(fx::Emboss(strong.get(), true, 0));
  const std::vector<Rgba> raised = Pixels(emboss.get()), cut = Pixels(etch.get());
  const std::vector<Rgba> steep = Pixels(strong.get());
  for (std::size_t i = 0; i < raised.size(); ++i) {
    EXPECT_EQ(raised[i].r + cut[i].r, 256) << "pixel " << i;
    EXPECT_EQ(steep[i].r - 128, 2 * (raised[i].r - 128)) << "pixel " << i;
  }
  EXPECT_NE(raised[100].r, 128);
}

TEST(ReliefEffects, DirectionTurnsTheLightInEighthsOfATurn) {
  Page opposite = MakeSquare(), etch = MakeSquare(), full_turn = MakeSquare(), base = MakeSquare();
  ASSERT_TRUE(fx::Emboss(opposite.get(), true, 4) && fx::Etch(etch.get(), true, 0));
  ASSERT_TRUE(fx::Emboss(full_turn.get(), true, 8) && fx::Emboss(base.get(), true, 0));
  EXPECT_EQ(Pixels(opposite.get()), Pixels(etch.get()));
  EXPECT_EQ(Pixels(full_turn.get()), Pixels(base.get()));

  Page from_top = MakeSquare();
  ASSERT_TRUE(fx::Emboss(from_top.get(), true, 1));
  EXPECT_EQ(PixelAt(from_top.get(), 8, 15).r, 128);  // the left edge runs along the light
  EXPECT_GT(PixelAt(from_top.get(), 15, 8).r, 128);
}

}  // namespace
}  // namespace velmora::testing
