// Depth conversions deliver the depth they name from ordinary, 16-bit and float pages alike;
// 5:5:5 and 5:6:5 differ (and TGA gets 5:5:5), mono splits at the threshold, float pages keep or
// tone map their values.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <functional>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;
using testing_pages::PixelAt;
using testing_pages::Rgba;

class ImagingDepth : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;
};

TEST_F(ImagingDepth, EveryConversionDeliversItsDepthFromEveryPageType) {
  using Convert = std::function<void(ImagingLibrary&, Handle&, CallResult&)>;
  const std::pair<unsigned, Convert> conversions[] = {
      {32, [](auto& l, Handle& h, CallResult& r) { l.FreeImage_ConvertTo32Bits(h, h, r); }},
      {24, [](auto& l, Handle& h, CallResult& r) { l.FreeImage_ConvertTo24Bits(h, h, r); }},
      {16, [](auto& l, Handle& h, CallResult& r) { l.ConvertTo16Bits(h, h, false, r); }},
      {16, [](auto& l, Handle& h, CallResult& r) { l.ConvertTo16Bits(h, h, true, r); }},
      {8, [](auto& l, Handle& h, CallResult& r) { l.ConvertToIndexed8(h, h, 4, r); }},
      {4, [](auto& l, Handle& h, CallResult& r) { l.ConvertToIndexed4(h, h, 4, r); }},
      {1, [](auto& l, Handle& h, CallResult& r) { l.ConvertToMono(h, h, 2, 128, r); }},
  };
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 21, 13));
  ASSERT_TRUE(samples::WriteAlphaPng(folder.file("alpha.png"), 21, 13));
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 21, 13));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("sky.exr"), 21, 13));
  ASSERT_TRUE(samples::WritePaletteBmp(folder.file("poster.bmp"), 21, 13));
  CallResult saved = 0;  // a float RGBA page: the alpha PNG saved as EXR
  library.FreeImage_Save(testing_pages::LoadPage(library, folder.file("alpha.png")), folder.file("alpha.exr"),
                         kFormatExr, 0, -1, saved);
  for (const char* source : {"photo.jpg", "alpha.png", "deep.png", "sky.exr", "poster.bmp", "alpha.exr"}) {
    for (const auto& [bpp, convert] : conversions) {
      Handle page = testing_pages::LoadPage(library, folder.file(source));
      const Handle before = page;
      CallResult result = 0;
      convert(library, page, result);
      EXPECT_NE(result, 0) << source << " to " << bpp;
      EXPECT_EQ(page, before);
      EXPECT_EQ(FactsOf(library, page).bpp, bpp) << source;
      EXPECT_EQ(FactsOf(library, page).width * FactsOf(library, page).height, 21u * 13u);
      library.Release(page);
    }
  }
}

TEST_F(ImagingDepth, SixteenBitLayoutsAndTheMonoThreshold) {
  const std::string path = testing_pages::WritePattern(folder.file("halves.png"), 10, 4, [](int x, int) {
    return x < 5 ? Rgba{100, 100, 100, 255} : Rgba{200, 200, 200, 255};
  });
  for (const bool as565 : {false, true}) {
    Handle page = testing_pages::LoadPage(library, path);
    CallResult result = 0;
    library.ConvertTo16Bits(page, page, as565, result);
    library.FreeImage_Save(page, folder.file("sixteen.bmp"), kFormatBmp, 0, -1, result);
    FIBITMAP* back = FreeImage_Load(FIF_BMP, folder.file("sixteen.bmp").c_str(), 0);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(FreeImage_GetGreenMask(back), as565 ? FI16_565_GREEN_MASK : FI16_555_GREEN_MASK);
    FreeImage_Unload(back);
    // TGA knows only 5:5:5: a 5:6:5 page is written in that layout with its colours.
    library.FreeImage_Save(page, folder.file("sixteen.tga"), kFormatTga, 0, -1, result);
    Handle tga = testing_pages::LoadPage(library, folder.file("sixteen.tga"));
    EXPECT_EQ(FactsOf(library, tga).bpp, 16u);
    EXPECT_NEAR(PixelAt(library, tga, 7, 1).r, 200, 8);
    EXPECT_NEAR(PixelAt(library, tga, 7, 1).g, 200, 8);
  }
  Handle page = testing_pages::LoadPage(library, path);
  CallResult result = 0;
  library.ConvertToMono(page, page, 2, 128, result);
  EXPECT_EQ(PixelAt(library, page, 2, 1), (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(PixelAt(library, page, 7, 1), (Rgba{255, 255, 255, 255}));
}

TEST_F(ImagingDepth, FloatPagesWithinOneKeepTheirValuesBrighterOnesAreToneMapped) {
  const auto colour = [](int x, int y) {
    return Rgba{static_cast<std::uint8_t>(x * 25), static_cast<std::uint8_t>(y * 60), 77, 255};
  };
  Handle page = testing_pages::LoadPage(library, testing_pages::WritePattern(folder.file("ramp.png"), 10, 5, colour));
  CallResult result = 0;
  library.FreeImage_Save(page, folder.file("ramp.exr"), kFormatExr, 0, -1, result);
  Handle floating = testing_pages::LoadPage(library, folder.file("ramp.exr"));
  ASSERT_EQ(FactsOf(library, floating).bpp, 96u);
  library.FreeImage_ConvertTo24Bits(floating, floating, result);
  for (const auto& [x, y] : {std::pair{0, 0}, {9, 4}, {4, 2}, {7, 1}})
    EXPECT_EQ(PixelAt(library, floating, x, y), colour(x, y)) << x << "," << y;
  // The sample sky's red runs from 0 on the left to 2.0 on the right: a straight clip would
  // saturate from the middle on.
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("sky.exr"), 40, 10));
  Handle sky = testing_pages::LoadPage(library, folder.file("sky.exr"));
  library.FreeImage_ConvertTo24Bits(sky, sky, result);
  ASSERT_NE(result, 0);
  const int left = PixelAt(library, sky, 0, 5).r, middle = PixelAt(library, sky, 20, 5).r,
            right = PixelAt(library, sky, 39, 5).r;
  EXPECT_LT(left, middle);
  EXPECT_LT(middle, right);
  EXPECT_LT(middle, 255);
}

}  // namespace
}  // namespace velmora::imaging
