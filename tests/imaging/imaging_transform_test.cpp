// Conversions to every depth from any page type, 16-bit layouts, the mono threshold, float pages
// kept or tone mapped; nearest-neighbour rescaling; rotation, flips and adjustments.
#include "tests/imaging/pages.h"

namespace velmora::imaging {
namespace {

using namespace velmora::testing;

// A distinct colour for every pixel of a small page.
Rgba Distinct(int x, int y) {
  return {40 * x + 10, 50 * y + 5, 7 * x + 11 * y};
}

class ImagingPages : public LibraryTest {
 protected:
  Handle Grid(int width, int height) { return Pattern("p.png", width, height, Distinct); }
};

TEST_F(ImagingPages, EveryConversionDeliversItsDepthFromEveryPageType) {
  using Convert = std::function<void(ImagingLibrary&, Handle, Handle&, CallResult&)>;
  const std::pair<unsigned, Convert> conversions[] = {
      {32, [](auto& l, auto h, auto& o, auto& r) { l.FreeImage_ConvertTo32Bits(h, o, r); }},
      {24, [](auto& l, auto h, auto& o, auto& r) { l.FreeImage_ConvertTo24Bits(h, o, r); }},
      {16, [](auto& l, auto h, auto& o, auto& r) { l.ConvertTo16Bits(h, o, false, r); }},
      {8, [](auto& l, auto h, auto& o, auto& r) { l.ConvertToIndexed8(h, o, 4, r); }},
      {4, [](auto& l, auto h, auto& o, auto& r) { l.ConvertToIndexed4(h, o, 4, r); }},
      {1, [](auto& l, auto h, auto& o, auto& r) { l.ConvertToMono(h, o, 2, 128, r); }},
  };
  std::vector<Handle> sources;
  for (const char* name : {"photo.jpg", "alpha.png", "deep.png", "sky.exr", "poster.bmp"})
    sources.push_back(Sample(name, 21, 13));
  library.FreeImage_Save(sources[1], folder.file("alpha.exr"), kFormatExr, 0, -1, result);  // a float RGBA page
  sources.push_back(Load("alpha.exr"));
  for (const Handle source : sources) {
    const PageFacts before = FactsOf(library, source);
    for (const auto& [bpp, convert] : conversions) {
      Handle out = 0;
      EXPECT_NE((convert(library, source, out, result), result), 0) << before << " to " << bpp;
      EXPECT_EQ(FactsOf(library, out), (PageFacts{21, 13, bpp})) << before;
      EXPECT_EQ(FactsOf(library, source), before);
    }
  }
}

TEST_F(ImagingPages, SixteenBitLayoutsAndTheMonoThreshold) {
  const auto halves = [](int x, int) { return x < 5 ? Rgba{100, 100, 100} : Rgba{200, 200, 200}; };
  for (const bool as565 : {false, true}) {
    Handle page = Pattern("halves.png", 10, 4, halves);
    library.ConvertTo16Bits(page, page, as565, result);
    library.FreeImage_Save(page, folder.file("16.bmp"), kFormatBmp, 0, -1, result);
    Page back(FreeImage_Load(FIF_BMP, folder.file("16.bmp").c_str(), 0));
    ASSERT_TRUE(back);
    EXPECT_EQ(FreeImage_GetGreenMask(back.get()), as565 ? FI16_565_GREEN_MASK : FI16_555_GREEN_MASK);
    // TGA knows only 5:5:5: a 5:6:5 page is written in that layout with its colours.
    library.FreeImage_Save(page, folder.file("16.tga"), kFormatTga, 0, -1, result);
    Handle tga = Load("16.tga");
    EXPECT_EQ(FactsOf(library, tga).bpp, 16u);
    EXPECT_NEAR(PixelAt(library, tga, 7, 1).r, 200, 8);
    EXPECT_NEAR(PixelAt(library, tga, 7, 1).g, 200, 8);
  }
  // Grey 100 and 200 against thresholds; those outside 0..255 are brought inside.
  for (const auto& [threshold, left, right] : {std::tuple{128, 0, 255}, {300, 0, 0}, {-5, 255, 255}}) {
    Handle page = Pattern("halves.png", 10, 4, halves);
    library.ConvertToMono(page, page, 2, threshold, result);
    EXPECT_EQ(PixelAt(library, page, 2, 1), (Rgba{left, left, left})) << threshold;
    EXPECT_EQ(PixelAt(library, page, 7, 1), (Rgba{right, right, right})) << threshold;
  }
}

TEST_F(ImagingPages, FloatPagesWithinOneKeepTheirValuesBrighterOnesAreToneMapped) {
  const auto ramp = [](int x, int y) { return Rgba{x * 25, y * 60, 77}; };
  library.FreeImage_Save(Pattern("ramp.png", 10, 5, ramp), folder.file("ramp.exr"), kFormatExr, 0, -1, result);
  Handle floating = Load("ramp.exr");
  ASSERT_EQ(FactsOf(library, floating).bpp, 96u);
  library.FreeImage_ConvertTo24Bits(floating, floating, result);
  for (const auto& [x, y] : {std::pair{0, 0}, {9, 4}, {4, 2}, {7, 1}})
    EXPECT_EQ(PixelAt(library, floating, x, y), ramp(x, y)) << x << "," << y;
  // The sample sky's red runs from 0 on the left to 2.0 on the right: a straight clip would
  // saturate from the middle on.
  Handle sky = Sample("sky.exr", 40, 10);
  ASSERT_NE((library.FreeImage_ConvertTo24Bits(sky, sky, result), result), 0);
  const int left = PixelAt(library, sky, 0, 5).r, middle = PixelAt(library, sky, 20, 5).r,
            right = PixelAt(library, sky, 39, 5).r;
  EXPECT_TRUE(left < middle && middle < right && middle < 255) << left << " " << middle << " " << right;
  // Alpha goes past the tone mapper as it was.
  Page bright(FreeImage_AllocateT(FIT_RGBAF, 4, 1));
  auto* pixel = reinterpret_cast<FIRGBAF*>(FreeImage_GetScanLine(bright.get(), 0));
  for (int x = 0; x < 4; ++x) pixel[x] = {2.0f * x, 1.0f, 0.5f, x / 3.0f};
  ASSERT_TRUE(FreeImage_Save(FIF_EXR, bright.get(), folder.file("bright.exr").c_str(), 0));
  Handle lit = Load("bright.exr");
  library.FreeImage_ConvertTo32Bits(lit, lit, result);
  for (int x = 0; x < 4; ++x) EXPECT_EQ(PixelAt(library, lit, x, 0).a, 85 * x);
}

// Nearest neighbour copies the pixel under each centre, at any depth; bilinear gives the size
// asked for; bad sizes and filters leave the page.
TEST_F(ImagingPages, RescaleCopiesThePixelUnderEachCentreAtAnyDepth) {
  Handle down = Grid(4, 4);
  library.FreeImage_Rescale(down, 2, 2, 2, result);
  for (const auto& [x, y] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}})
    EXPECT_EQ(PixelAt(library, down, x, y), Distinct(2 * x + 1, 2 * y + 1));
  const int stripes[] = {0, 255, 255, 0, 255, 0, 0, 255, 255};
  Handle mono = Pattern("s.png", 9, 1, [&](int x, int) { return Rgba{stripes[x], stripes[x], stripes[x]}; });
  Handle four = 0, eight = 0;
  library.ConvertToMono(mono, mono, 2, 128, result);
  library.ConvertToIndexed4(mono, four, 4, result);
  library.ConvertToIndexed8(mono, eight, 4, result);
  for (const auto& [page, bpp] : {std::pair{mono, 1u}, {four, 4u}, {eight, 8u}}) {
    Handle resized = page;
    library.FreeImage_Rescale(resized, 18, 2, 2, result);
    EXPECT_EQ(FactsOf(library, resized), (PageFacts{18, 2, bpp}));
    for (int x = 0; x < 18; ++x) EXPECT_EQ(PixelAt(library, resized, x, 1).r, stripes[x / 2]) << x;
  }
  Handle deep = Sample("deep.png", 10, 10);
  library.FreeImage_Rescale(deep, 5, 20, 2, result);
  EXPECT_EQ(FactsOf(library, deep), (PageFacts{5, 20, 48}));
  library.FreeImage_Rescale(deep, 17, 61, 1, result);
  for (const auto& [width, height, filter] : {std::tuple{10, 10, 0}, {10, 10, 3}, {0, 10, 1}, {10, -4, 2}})
    EXPECT_EQ((library.FreeImage_Rescale(deep, width, height, filter, result), result), 0);
  EXPECT_EQ(FactsOf(library, deep), (PageFacts{17, 61, 48}));
}

// Right angles turn counter-clockwise; free angles about the centre grow the canvas (30 cos 45 +
// 20 sin 45), about a given origin they keep it; depths FreeImage cannot turn are widened first.
TEST_F(ImagingPages, TurnsAndFlips) {
  Handle page = Grid(3, 2);
  library.RotateRightAngle(page, 90, result);
  EXPECT_EQ(FactsOf(library, page), (PageFacts{2, 3, 24}));
  EXPECT_EQ(PixelAt(library, page, 0, 2), Distinct(0, 0));  // top-left to bottom-left
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 0));  // top-right to top-left
  for (const int angle : {0, 180, 270, 360, 45, -90, 450})
    EXPECT_EQ((library.RotateRightAngle(page, angle, result), result != 0),
              angle % 90 == 0 && angle >= 0 && angle <= 360)
        << angle;
  EXPECT_EQ(FactsOf(library, page).width, 3u);
  Handle grown = Sample("photo.jpg", 30, 20), kept = Sample("photo.jpg", 30, 20);
  library.RotateFree(grown, 45.0, -1.0, 5.0, 0, result);
  EXPECT_NEAR(FactsOf(library, grown).width, 35.4, 1.5);
  EXPECT_NEAR(FactsOf(library, grown).height, 35.4, 1.5);
  library.RotateFree(kept, 30.0, 15.0, 10.0, 1, result);
  EXPECT_EQ(FactsOf(library, kept), (PageFacts{30, 20, 24}));
  Handle four = Sample("photo.jpg", 30, 20), sixteen = 0, mono = 0;
  library.ConvertTo16Bits(four, sixteen, true, result);
  library.ConvertToMono(four, mono, 2, 128, result);
  library.ConvertToIndexed4(four, four, 4, result);
  library.RotateRightAngle(four, 90, result);
  library.RotateRightAngle(sixteen, 270, result);
  EXPECT_NE((library.RotateFree(mono, 30.0, -1.0, -1.0, 0, result), result), 0);
  EXPECT_EQ(std::tuple(FactsOf(library, four), FactsOf(library, sixteen), FactsOf(library, mono).bpp),
            std::tuple(PageFacts{20, 30, 8}, PageFacts{20, 30, 24}, 8u));
  // Flips change the page in place, left-right (1) or top-bottom (2); so do the adjustments.
  Handle flipped = Grid(3, 2);
  library.FlipImage(flipped, 1, result);
  EXPECT_EQ(PixelAt(library, flipped, 0, 0), Distinct(2, 0));
  library.FlipImage(flipped, 2, result);
  EXPECT_EQ(PixelAt(library, flipped, 0, 0), Distinct(2, 1));
  EXPECT_EQ((library.FlipImage(flipped, 3, result), result), 0);
  library.FreeImage_AdjustBrightness(flipped, 40, result);
  EXPECT_GT(PixelAt(library, flipped, 0, 0).g, Distinct(2, 1).g);
}

}  // namespace
}  // namespace velmora::imaging
