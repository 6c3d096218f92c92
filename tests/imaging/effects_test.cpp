// The pixel effects on pages built in memory: what every effect promises, then each effect's own
// arithmetic on flat pages, noise, a single dot, step edges and ramps.
#include <numbers>

#include "imaging/effects/effects.h"
#include "tests/imaging/pages.h"

namespace velmora::testing {
namespace {

namespace fx = imaging::effects;

// Colourful noise from a fixed integer hash, with alpha varying too.
Page MakeNoise(int width, int height, int bpp) {
  return MakePage(width, height, bpp, [](int x, int y) {
    const unsigned m = ((x * 73856093u) ^ (y * 19349663u)) * 2654435761u;
    return Rgba{int(m >> 24), int(m >> 16 & 255), int(m >> 8 & 255), (x * 7 + y * 3) & 255};
  });
}

// Each effect, in both strengths where it has two.
const std::pair<std::string, std::function<bool(FIBITMAP*)>> kEffects[] = {
    {"Blur", [](FIBITMAP* d) { return fx::Blur(d, false); }},
    {"Blur strong", [](FIBITMAP* d) { return fx::Blur(d, true); }},
    {"Distort", fx::Distort},
    {"Emboss", [](FIBITMAP* d) { return fx::Emboss(d, false, 0); }},
    {"Emboss strong", [](FIBITMAP* d) { return fx::Emboss(d, true, 5); }},
    {"Etch strong", [](FIBITMAP* d) { return fx::Etch(d, true, -3); }},
    {"Grayscale", fx::Grayscale},
    {"Mosaic", [](FIBITMAP* d) { return fx::Mosaic(d, 95); }},
    {"Motion", [](FIBITMAP* d) { return fx::Motion(d, false); }},
    {"Motion strong", [](FIBITMAP* d) { return fx::Motion(d, true); }},
    {"Sharpen", [](FIBITMAP* d) { return fx::Sharpen(d, false); }},
    {"Sharpen strong", [](FIBITMAP* d) { return fx::Sharpen(d, true); }}};

// What every effect promises: it refuses what it cannot work on and leaves that untouched; it keeps
// depth and alpha and gives the same bytes every time; blur, motion and sharpen treat every edge
// alike (a half turn before or after is the same); flat pages stay flat, or grey where the effect
// makes grey (relief shows no slope, grayscale the colour's luma).
TEST(EffectsContract, EveryEffectKeepsItsPromises) {
  Page deep(FreeImage_AllocateT(FIT_RGB16, 12, 9));
  for (const auto& [name, run] : kEffects) {
    SCOPED_TRACE(name);
    Page palette(FreeImage_ConvertTo8Bits(MakeNoise(12, 9, 24).get()));
    const BYTE* bits = FreeImage_GetBits(palette.get());
    const std::vector<BYTE> before(bits, bits + FreeImage_GetPitch(palette.get()) * 9);
    EXPECT_FALSE(run(palette.get()) || run(nullptr) || run(deep.get()));
    EXPECT_EQ(std::vector<BYTE>(bits, bits + before.size()), before);
    for (const int bpp : {24, 32}) {
      Page page = MakeNoise(40, 30, bpp), again = MakeNoise(40, 30, bpp);
      Page turned(FreeImage_Rotate(MakeNoise(40, 30, bpp).get(), 180));
      const std::vector<Rgba> noise = Pixels(page.get());
      ASSERT_TRUE(run(page.get()) && run(again.get()) && run(turned.get()));
      EXPECT_EQ(FreeImage_GetBPP(page.get()), unsigned(bpp));
      const std::vector<Rgba> after = Pixels(page.get());
      for (std::size_t i = 0; i < noise.size(); ++i) ASSERT_EQ(after[i].a, noise[i].a) << i;
      EXPECT_NE(after, noise);
      EXPECT_EQ(Pixels(again.get()), after);
      const bool centred = name.starts_with("Blur") || name.starts_with("Motion") || name.starts_with("Sharpen");
      EXPECT_TRUE(!centred || Pixels(Page(FreeImage_Rotate(turned.get(), 180)).get()) == after) << bpp;
    }
    Page flat = MakeFlat(31, 17, 32, {250, 10, 90, 33});
    ASSERT_TRUE(run(flat.get()));
    const Rgba want = name.starts_with("Emboss") || name.starts_with("Etch") ? Rgba{128, 128, 128, 33}
                      : name == "Grayscale" ? Rgba{91, 91, 91, 33}  // .299 * 250 + .587 * 10 + .114 * 90
                                            : Rgba{250, 10, 90, 33};
    EXPECT_EQ(Pixels(flat.get()), Pixels(MakeFlat(31, 17, 32, want).get()));
  }
  Page page = MakeNoise(10, 10, 24);
  EXPECT_FALSE(fx::Mosaic(page.get(), 0) || fx::Mosaic(page.get(), -95));
  EXPECT_EQ(Pixels(page.get()), Pixels(MakeNoise(10, 10, 24).get()));
}

// Black with one white pixel in the middle.
Page MakeDot(int size) {
  return MakePage(size, size, 32, [size](int x, int y) {
    const int v = x == size / 2 && y == size / 2 ? 255 : 0;
    return Rgba{v, v, v};
  });
}

// A Gaussian of deviation 1.5 (3 strong) spreads a dot alike in every direction, its peak
// 255 / (2 pi sigma^2).
TEST(BlurEffects, BlurSpreadsADotAsAGaussian) {
  for (const auto& [strong, sigma] : {std::pair{false, 1.5}, {true, 3.0}}) {
    Page dot = MakeDot(31);
    ASSERT_TRUE(fx::Blur(dot.get(), strong));
    const int c = 15;
    EXPECT_NEAR(PixelAt(dot.get(), c, c).r, 255 / (2 * std::numbers::pi * sigma * sigma), 1) << sigma;
    EXPECT_GT(PixelAt(dot.get(), c, c).r, PixelAt(dot.get(), c + 2, c).r);
    for (int d = 1; d <= 6; ++d)
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
  EXPECT_EQ(std::pair(PixelAt(plain.get(), c, c).r, PixelAt(strong.get(), c, c).r),
            std::pair(23, 10));  // 255 / 11, / 25
  for (int d = 1; d <= 13; ++d) {
    EXPECT_EQ(PixelAt(strong.get(), c, c - d).r + PixelAt(strong.get(), c, c + d).r, 0);
    EXPECT_EQ(PixelAt(strong.get(), c - d, c), PixelAt(strong.get(), c + d, c));
    EXPECT_EQ(PixelAt(strong.get(), c + d, c).r > 0, d <= 12);
    EXPECT_EQ(PixelAt(plain.get(), c - d, c).r > 0, d <= 5);
  }
}

// An unsharp mask of deviation 1 and amount 0.75 (1.5 strong): beside a step the blur is off by
// the step times (1 - 1 / sqrt(2 pi)) / 2, and each side moves that far times the amount.
TEST(BlurEffects, SharpenSteepensAnEdgeByTheAmount) {
  auto step = [](int x, int) { return x < 20 ? Rgba{60, 60, 60} : Rgba{190, 190, 190}; };
  const double blur_gap = 130 * (1 - 1 / std::sqrt(2 * std::numbers::pi)) / 2;
  for (const auto& [strong, amount] : {std::pair{false, 0.75}, {true, 1.5}}) {
    Page page = MakePage(40, 8, 24, step);
    ASSERT_TRUE(fx::Sharpen(page.get(), strong));
    EXPECT_NEAR(PixelAt(page.get(), 19, 4).r, 60 - amount * blur_gap, 1) << amount;
    EXPECT_NEAR(PixelAt(page.get(), 20, 7).r, 190 + amount * blur_gap, 1) << amount;
    EXPECT_EQ(std::pair(PixelAt(page.get(), 2, 0), PixelAt(page.get(), 39, 4)), std::pair(step(2, 0), step(39, 4)));
  }
}

TEST(PixelwiseEffects, MosaicFillsBlocksFromTheTopLeftWithTheirMean) {
  // 10 x 7 in blocks of 4: columns 0-3, 4-7, 8-9 and rows 0-3, 4-6.
  Page page = MakePage(10, 7, 32, [](int x, int y) { return Rgba{10 * x, 20 * y, x * y, 9}; });
  ASSERT_TRUE(fx::Mosaic(page.get(), 4));
  for (int y = 0; y < 7; ++y)
    for (int x = 0; x < 10; ++x) EXPECT_EQ(PixelAt(page.get(), x, y), PixelAt(page.get(), x - x % 4, y - y % 4));
  EXPECT_EQ(PixelAt(page.get(), 0, 0), (Rgba{15, 30, 2, 9}));    // blue 36 / 16
  EXPECT_EQ(PixelAt(page.get(), 8, 4), (Rgba{85, 100, 42, 9}));  // blue 255 / 6, half to even
  Page noise = MakeNoise(13, 11, 24);
  ASSERT_TRUE(fx::Mosaic(noise.get(), 1));
  EXPECT_EQ(Pixels(noise.get()), Pixels(MakeNoise(13, 11, 24).get()));
  // Blocks larger than the page: one block, its mean halves rounded to even.
  Page halves = MakePage(60, 40, 24, [](int x, int) { return x < 30 ? Rgba{0, 100, 255} : Rgba{255, 101, 0}; });
  ASSERT_TRUE(fx::Mosaic(halves.get(), 95));
  EXPECT_EQ(Pixels(halves.get()), Pixels(MakeFlat(60, 40, 24, {128, 100, 128}).get()));
}

// Red counts columns and green rows, so a pixel's colour tells where it was taken from.
TEST(PixelwiseEffects, DistortMovesPixelsAFewPlacesAtMost) {
  Page page = MakePage(200, 100, 24, [](int x, int y) { return Rgba{x, 2 * y, 0}; });
  ASSERT_TRUE(fx::Distort(page.get()));
  int moved = 0;
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 200; ++x) {
      const Rgba p = PixelAt(page.get(), x, y);
      EXPECT_TRUE(std::abs(p.r - x) <= 3 && std::abs(p.g - 2 * y) <= 6) << x << "," << y;
      moved += p.r != x || p.g != 2 * y;
    }
  EXPECT_GT(moved, 200 * 100 / 2);
}

// A light square from (8, 8) to (23, 23) on a dark ground.
Page MakeSquare() {
  return MakePage(32, 32, 24, [](int x, int y) {
    return x >= 8 && x < 24 && y >= 8 && y < 24 ? Rgba{200, 180, 160} : Rgba{40, 50, 60};
  });
}

TEST(ReliefEffects, EmbossLightsTheEdgesFacingTheLightInGreyAndEtchMirrorsIt) {
  Page page = MakeSquare(), from_top = MakeSquare();
  ASSERT_TRUE(fx::Emboss(page.get(), true, 0) && fx::Emboss(from_top.get(), true, 1));
  for (const Rgba& p : Pixels(page.get())) EXPECT_TRUE(p.r == p.g && p.g == p.b);
  // Above mid grey on the left and top edges, below it on the right and bottom ones, mid grey inside.
  for (const auto& [x, y, side] : {std::tuple{8, 15, 1}, {15, 8, 1}, {23, 15, -1}, {15, 23, -1}, {15, 15, 0}})
    EXPECT_EQ(std::clamp(PixelAt(page.get(), x, y).r - 128, -1, 1), side) << x << "," << y;
  EXPECT_EQ(PixelAt(from_top.get(), 8, 15).r, 128);  // an eighth turn on: the left edge runs along the light
  EXPECT_GT(PixelAt(from_top.get(), 15, 8).r, 128);
  // Etch mirrors emboss and strong doubles the slope, on a slope gentle enough that nothing clips.
  auto ramp = [](int x, int y) { return Rgba{3 * x + 2 * y, 2 * x + y, x, 100}; };
  Page emboss = MakePage(24, 16, 32, ramp), etch = MakePage(24, 16, 32, ramp), strong = MakePage(24, 16, 32, ramp);
  ASSERT_TRUE(fx::Emboss(emboss.get(), false, 0) && fx::Etch(etch.get(), false, 0));
  ASSERT_TRUE(fx::Emboss(strong.get(), true, 0));
  const std::vector<Rgba> raised = Pixels(emboss.get()), cut = Pixels(etch.get()), steep = Pixels(strong.get());
  for (std::size_t i = 0; i < raised.size(); ++i) {
    EXPECT_EQ(raised[i].r + cut[i].r, 256) << "pixel " << i;
    EXPECT_EQ(steep[i].r - 128, 2 * (raised[i].r - 128)) << "pixel " << i;
  }
  // Lit from the top left, relief is mid grey plus four times the luma's rise to the right and
  // down: .299 * 5 + .587 * 3 + .114 a step on this ramp (rounded per pixel).
  EXPECT_NEAR(raised[100].r, 128 + 4 * (.299 * 5 + .587 * 3 + .114), 2);
  // Half a turn of the light is an etch; a whole turn changes nothing.
  Page opposite = MakeSquare(), etched = MakeSquare(), full_turn = MakeSquare(), base = MakeSquare();
  ASSERT_TRUE(fx::Emboss(opposite.get(), true, 4) && fx::Etch(etched.get(), true, 0));
  ASSERT_TRUE(fx::Emboss(full_turn.get(), true, -8) && fx::Emboss(base.get(), true, 0));
  EXPECT_EQ(Pixels(opposite.get()), Pixels(etched.get()));
  EXPECT_EQ(Pixels(full_turn.get()), Pixels(base.get()));
}

}  // namespace
}  // namespace velmora::testing
