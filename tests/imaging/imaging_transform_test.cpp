// Transforms on the page behind an in/out handle: rescaling (nearest neighbour copies pixels
// exactly), rotation sizes and direction, flips, and tone adjustments that refuse some depths.
#include <gtest/gtest.h>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;
using testing_pages::PixelAt;
using testing_pages::Rgba;

// A distinct colour for every pixel of a small page.
Rgba Distinct(int x, int y) {
  return {static_cast<std::uint8_t>(40 * x + 10), static_cast<std::uint8_t>(50 * y + 5),
          static_cast<std::uint8_t>(7 * x + 11 * y), 255};
}

class ImagingTransform : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;

  Handle Pattern(int width, int height) {
    return testing_pages::LoadPage(library,
                                   testing_pages::WritePattern(folder.file("pattern.png"), width, height, Distinct));
  }
  Handle Photo(int width, int height) {
    EXPECT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), width, height));
    return testing_pages::LoadPage(library, folder.file("photo.jpg"));
  }
};

TEST_F(ImagingTransform, NearestEnlargementRepeatsEveryPixelExactly) {
  Handle page = Pattern(3, 2);
  CallResult result = 0;
  library.FreeImage_Rescale(page, 6, 4, 2, result);
  ASSERT_NE(result, 0);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 6; ++x) EXPECT_EQ(PixelAt(library, page, x, y), Distinct(x / 2, y / 2)) << x << "," << y;
}

TEST_F(ImagingTransform, NearestReductionPicksThePixelUnderEachCentre) {
  Handle page = Pattern(4, 4);
  CallResult result = 0;
  library.FreeImage_Rescale(page, 2, 2, 2, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(1, 1));
  EXPECT_EQ(PixelAt(library, page, 1, 0), Distinct(3, 1));
  EXPECT_EQ(PixelAt(library, page, 0, 1), Distinct(1, 3));
  EXPECT_EQ(PixelAt(library, page, 1, 1), Distinct(3, 3));
}

TEST_F(ImagingTransform, NearestKeepsDepthAndBitsOfLowDepthPages) {
  // A one-pixel-high stripe pattern, 1 bit deep: black, white, white, black, ...
  const bool stripes[] = {false, true, true, false, true, false, false, true, true};
  Handle page = testing_pages::LoadPage(
      library, testing_pages::WritePattern(folder.file("stripes.png"), 9, 1, [&](int x, int) {
        return stripes[x] ? Rgba{255, 255, 255, 255} : Rgba{0, 0, 0, 255};
      }));
  CallResult result = 0;
  library.ConvertToMono(page, page, 2, 128, result);
  Handle four = 0;
  library.ConvertToIndexed4(page, four, 4, result);
  for (Handle* stripe : {&page, &four}) {
    const std::uint32_t bpp = FactsOf(library, *stripe).bpp;
    library.FreeImage_Rescale(*stripe, 18, 2, 2, result);
    ASSERT_NE(result, 0);
    EXPECT_EQ(FactsOf(library, *stripe).bpp, bpp);
    for (int x = 0; x < 18; ++x) EXPECT_EQ(PixelAt(library, *stripe, x, 1).r, stripes[x / 2] ? 255 : 0) << x;
  }
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 10, 10));
  Handle deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  library.FreeImage_Rescale(deep, 5, 20, 2, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, deep).bpp, 48u);
}

TEST_F(ImagingTransform, BilinearResizesAndBadRequestsLeaveThePage) {
  Handle page = Photo(40, 30);
  const Handle before = page;
  CallResult result = 0;
  library.FreeImage_Rescale(page, 17, 61, 1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).width, 17u);
  EXPECT_EQ(FactsOf(library, page).height, 61u);
  struct Bad {
    int width, height, filter;
  };
  for (const Bad bad : {Bad{10, 10, 0}, Bad{10, 10, 3}, Bad{0, 10, 1}, Bad{10, -4, 2}}) {
    result = 7;
    library.FreeImage_Rescale(page, bad.width, bad.height, bad.filter, result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(page, before);
    EXPECT_EQ(FactsOf(library, page).width, 17u);
  }
}

TEST_F(ImagingTransform, RightAnglesTurnCounterClockwiseAndOthersFail) {
  Handle page = Pattern(3, 2);
  CallResult result = 0;
  library.RotateRightAngle(page, 90, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).width, 2u);
  EXPECT_EQ(FactsOf(library, page).height, 3u);
  // Counter-clockwise: the top-left pixel ends at the bottom-left, the top-right at the top-left.
  EXPECT_EQ(PixelAt(library, page, 0, 2), Distinct(0, 0));
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 0));
  for (const int angle : {0, 180, 270, 360}) {
    library.RotateRightAngle(page, angle, result);
    EXPECT_NE(result, 0) << angle;
  }
  EXPECT_EQ(FactsOf(library, page).width, 3u);  // 90 + 180 + 270 turns it back to its width
  for (const int angle : {45, -90, 450, 1}) {
    library.RotateRightAngle(page, angle, result);
    EXPECT_EQ(result, 0) << angle;
  }
}

TEST_F(ImagingTransform, DepthsFreeImageCannotTurnAreWidenedFirst) {
  Handle four = Photo(30, 20), sixteen = 0, mono = 0;
  CallResult result = 0;
  library.ConvertTo16Bits(four, sixteen, true, result);
  library.ConvertToMono(four, mono, 2, 128, result);
  library.ConvertToIndexed4(four, four, 4, result);
  library.RotateRightAngle(four, 90, result);
  EXPECT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, four).width, 20u);
  EXPECT_EQ(FactsOf(library, four).bpp, 8u);
  library.RotateRightAngle(sixteen, 270, result);
  EXPECT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, sixteen).bpp, 24u);
  library.RotateFree(mono, 30.0, -1.0, -1.0, 0, result);
  EXPECT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, mono).bpp, 8u);
}

TEST_F(ImagingTransform, FreeRotationGrowsTheCanvasToHoldThePage) {
  Handle page = Photo(30, 20);
  CallResult result = 0;
  library.RotateFree(page, 45.0, -1.0, -1.0, 0, result);
  ASSERT_NE(result, 0);
  // 30 cos 45 + 20 sin 45 = 35.4 both ways.
  EXPECT_NEAR(FactsOf(library, page).width, 35.4, 1.5);
  EXPECT_NEAR(FactsOf(library, page).height, 35.4, 1.5);
  library.RotateFree(page, -45.0, -1.0, -1.0, 0, result);
  ASSERT_NE(result, 0);
  EXPECT_GT(FactsOf(library, page).width, 35u);
}

TEST_F(ImagingTransform, FlipsMirrorPixelsAndUnknownModesFail) {
  Handle page = Pattern(3, 2);
  CallResult result = 0;
  library.FlipImage(page, 1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 0));
  library.FlipImage(page, 2, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 1));
  for (const int mode : {0, 3, -1}) {
    library.FlipImage(page, mode, result);
    EXPECT_EQ(result, 0);
  }
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 1));
}

TEST_F(ImagingTransform, AdjustmentsChangeOrdinaryPagesAndRefuseOthersUntouched) {
  Handle page = testing_pages::LoadPage(library, testing_pages::WriteSolid(folder.file("grey.png"), 4, 4, {100, 100, 100, 255}));
  CallResult result = 0;
  library.FreeImage_AdjustBrightness(page, 40, result);
  ASSERT_NE(result, 0);
  EXPECT_GT(PixelAt(library, page, 1, 1).r, 100);
  library.FreeImage_AdjustGamma(page, 0.0, result);
  EXPECT_EQ(result, 0);
  library.FreeImage_AdjustGamma(page, 2.0, result);
  EXPECT_NE(result, 0);
  library.FreeImage_AdjustContrast(page, -50, result);
  EXPECT_NE(result, 0);

  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 6, 6));
  Handle deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  const Handle before = deep;
  const Rgba pixel = PixelAt(library, deep, 3, 3);
  library.FreeImage_AdjustBrightness(deep, 40, result);
  EXPECT_EQ(result, 0);
  library.FreeImage_AdjustContrast(deep, 40, result);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(deep, before);
  EXPECT_EQ(FactsOf(library, deep).bpp, 48u);
  EXPECT_EQ(PixelAt(library, deep, 3, 3), pixel);
}

}  // namespace
}  // namespace velmora::imaging
