// Transforms on the page behind an in/out handle: nearest-neighbour rescaling copies pixels
// exactly, rotation sizes and direction, flips, and adjustments that refuse some depths.
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
  CallResult result = 0;

  Handle Pattern(int width, int height) {
    return testing_pages::LoadPage(library, testing_pages::WritePattern(folder.file("p.png"), width, height, Distinct));
  }
  Handle Photo(int width, int height) {
    EXPECT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), width, height));
    return testing_pages::LoadPage(library, folder.file("photo.jpg"));
  }
};

TEST_F(ImagingTransform, NearestCopiesThePixelUnderEachCentre) {
  Handle up = Pattern(3, 2);
  library.FreeImage_Rescale(up, 6, 4, 2, result);
  ASSERT_NE(result, 0);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 6; ++x) EXPECT_EQ(PixelAt(library, up, x, y), Distinct(x / 2, y / 2)) << x << "," << y;
  Handle down = Pattern(4, 4);
  library.FreeImage_Rescale(down, 2, 2, 2, result);
  ASSERT_NE(result, 0);
  for (const auto& [x, y] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}})
    EXPECT_EQ(PixelAt(library, down, x, y), Distinct(2 * x + 1, 2 * y + 1));
}

TEST_F(ImagingTransform, NearestKeepsTheDepthAndBitsOfLowAndDeepPages) {
  const bool stripes[] = {false, true, true, false, true, false, false, true, true};
  Handle mono =
      testing_pages::LoadPage(library, testing_pages::WritePattern(folder.file("s.png"), 9, 1, [&](int x, int) {
                                return stripes[x] ? Rgba{255, 255, 255, 255} : Rgba{0, 0, 0, 255};
                              }));
  Handle four = 0;
  library.ConvertToMono(mono, mono, 2, 128, result);
  library.ConvertToIndexed4(mono, four, 4, result);
  for (const auto& [page, bpp] : {std::pair{mono, 1u}, {four, 4u}}) {
    Handle resized = page;
    library.FreeImage_Rescale(resized, 18, 2, 2, result);
    ASSERT_NE(result, 0);
    EXPECT_EQ(FactsOf(library, resized).bpp, bpp);
    for (int x = 0; x < 18; ++x) EXPECT_EQ(PixelAt(library, resized, x, 1).r, stripes[x / 2] ? 255 : 0) << x;
  }
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 10, 10));
  Handle deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  library.FreeImage_Rescale(deep, 5, 20, 2, result);
  EXPECT_EQ(FactsOf(library, deep).bpp, 48u);
}

TEST_F(ImagingTransform, BilinearResizesAndBadRequestsLeaveThePage) {
  Handle page = Photo(40, 30);
  library.FreeImage_Rescale(page, 17, 61, 1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).width * 100 + FactsOf(library, page).height, 1761u);
  for (const auto& [width, height, filter] : {std::tuple{10, 10, 0}, {10, 10, 3}, {0, 10, 1}, {10, -4, 2}}) {
    library.FreeImage_Rescale(page, width, height, filter, result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(FactsOf(library, page).width, 17u);
  }
}

TEST_F(ImagingTransform, RotationTurnsCounterClockwiseAndGrowsTheCanvasForFreeAngles) {
  Handle page = Pattern(3, 2);
  library.RotateRightAngle(page, 90, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).width * 10 + FactsOf(library, page).height, 23u);
  EXPECT_EQ(PixelAt(library, page, 0, 2), Distinct(0, 0));  // top-left to bottom-left
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 0));  // top-right to top-left
  for (const int angle : {0, 180, 270, 360}) {
    library.RotateRightAngle(page, angle, result);
    EXPECT_NE(result, 0) << angle;
  }
  EXPECT_EQ(FactsOf(library, page).width, 3u);
  for (const int angle : {45, -90, 450}) {
    library.RotateRightAngle(page, angle, result);
    EXPECT_EQ(result, 0) << angle;
  }
  Handle photo = Photo(30, 20);
  library.RotateFree(photo, 45.0, -1.0, -1.0, 0, result);
  ASSERT_NE(result, 0);
  EXPECT_NEAR(FactsOf(library, photo).width, 35.4, 1.5);  // 30 cos 45 + 20 sin 45
  EXPECT_NEAR(FactsOf(library, photo).height, 35.4, 1.5);
}

TEST_F(ImagingTransform, DepthsFreeImageCannotTurnAreWidenedFirst) {
  Handle four = Photo(30, 20), sixteen = 0, mono = 0;
  library.ConvertTo16Bits(four, sixteen, true, result);
  library.ConvertToMono(four, mono, 2, 128, result);
  library.ConvertToIndexed4(four, four, 4, result);
  library.RotateRightAngle(four, 90, result);
  EXPECT_EQ(FactsOf(library, four).width * 100 + FactsOf(library, four).bpp, 2008u);
  library.RotateRightAngle(sixteen, 270, result);
  EXPECT_EQ(FactsOf(library, sixteen).width * 100 + FactsOf(library, sixteen).bpp, 2024u);
  library.RotateFree(mono, 30.0, -1.0, -1.0, 0, result);
  EXPECT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, mono).bpp, 8u);
}

TEST_F(ImagingTransform, FlipsMirrorAndAdjustmentsRefuseDeepPagesUntouched) {
  Handle page = Pattern(3, 2);
  library.FlipImage(page, 1, result);
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 0));
  library.FlipImage(page, 2, result);
  EXPECT_EQ(PixelAt(library, page, 0, 0), Distinct(2, 1));
  library.FlipImage(page, 3, result);
  EXPECT_EQ(result, 0);
  const Rgba before = PixelAt(library, page, 1, 1);
  library.FreeImage_AdjustBrightness(page, 40, result);
  EXPECT_GT(PixelAt(library, page, 1, 1).g, before.g);
  library.FreeImage_AdjustGamma(page, 0.0, result);
  EXPECT_EQ(result, 0);
  library.FreeImage_AdjustContrast(page, -50, result);
  EXPECT_NE(result, 0);

  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 6, 6));
  Handle deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  const Rgba pixel = PixelAt(library, deep, 3, 3);
  library.FreeImage_AdjustBrightness(deep, 40, result);
  EXPECT_EQ(result, 0);
  library.FreeImage_AdjustContrast(deep, 40, result);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(FactsOf(library, deep).bpp, 48u);
  EXPECT_EQ(PixelAt(library, deep, 3, 3), pixel);
}

}  // namespace
}  // namespace velmora::imaging
