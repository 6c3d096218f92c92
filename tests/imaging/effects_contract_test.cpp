// What every effect promises: it refuses what it cannot work on and leaves that untouched,
// keeps depth and alpha, and gives the same bytes every time.
#include <gtest/gtest.h>

#include <string>

#include "imaging/effects/effects.h"
#include "tests/imaging/effects_test_images.h"

namespace velmora::testing {
namespace {

namespace fx = imaging::effects;

const std::pair<std::string, std::function<bool(FIBITMAP*)>> kEffects[] = {
    {"Blur", [](FIBITMAP* d) { return fx::Blur(d, true); }},
    {"Distort", fx::Distort},
    {"Emboss", [](FIBITMAP* d) { return fx::Emboss(d, true, 0); }},
    {"Etch", [](FIBITMAP* d) { return fx::Etch(d, true, 0); }},
    {"Grayscale", fx::Grayscale},
    {"Mosaic", [](FIBITMAP* d) { return fx::Mosaic(d, 95); }},
    {"Motion", [](FIBITMAP* d) { return fx::Motion(d, true); }},
    {"Sharpen", [](FIBITMAP* d) { return fx::Sharpen(d, true); }}};

TEST(EffectsContract, RefuseWhatTheyCannotWorkOnAndLeaveItUntouched) {
  Page deep(FreeImage_AllocateT(FIT_RGB16, 12, 9));
  for (const auto& [name, run] : kEffects) {
    Page palette(FreeImage_ConvertTo8Bits(MakeNoise(12, 9, 24).get()));
    // One byte a pixel: compared as the raw rows.
    auto rows = [&] {
      const BYTE* bits = FreeImage_GetBits(palette.get());
      return std::vector<BYTE>(bits, bits + FreeImage_GetPitch(palette.get()) * FreeImage_GetHeight(palette.get()));
    };
    const std::vector<BYTE> before = rows();
    EXPECT_FALSE(run(palette.get())) << name;
    EXPECT_EQ(rows(), before) << name;
    EXPECT_FALSE(run(nullptr)) << name;
    EXPECT_FALSE(run(deep.get())) << name;
  }
  Page page = MakeNoise(10, 10, 24);
  EXPECT_FALSE(fx::Mosaic(page.get(), 0));
  EXPECT_FALSE(fx::Mosaic(page.get(), -95));
  EXPECT_EQ(Pixels(page.get()), Pixels(MakeNoise(10, 10, 24).get()));
}

TEST(EffectsContract, ChangeColourButNeitherDepthNorAlpha) {
  for (const auto& [name, run] : kEffects) {
    Page page = MakeNoise(40, 30, 32);
    const std::vector<Rgba> before = Pixels(page.get());
    ASSERT_TRUE(run(page.get())) << name;
    EXPECT_EQ(FreeImage_GetBPP(page.get()), 32u);
    const std::vector<Rgba> after = Pixels(page.get());
    for (std::size_t i = 0; i < before.size(); ++i) ASSERT_EQ(after[i].a, before[i].a) << name << " " << i;
    EXPECT_NE(after, before) << name;
  }
}

TEST(EffectsContract, SameInputGivesSameBytes) {
  for (const auto& [name, run] : kEffects) {
    for (int bpp : {24, 32}) {
      Page first = MakeNoise(50, 37, bpp), second = MakeNoise(50, 37, bpp);
      ASSERT_TRUE(run(first.get()) && run(second.get())) << name;
      EXPECT_EQ(FreeImage_GetBPP(first.get()), unsigned(bpp));
      EXPECT_EQ(Pixels(first.get()), Pixels(second.get())) << name << " at " << bpp;
    }
  }
}

}  // namespace
}  // namespace velmora::testing
