// Watermark pictures (clipping, colour key, alpha), text and effects: pages of other depths are
// brought to 24 or 32 bits first, and failures leave the page alone.
#include <gtest/gtest.h>

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

constexpr Rgba kBlue{0, 0, 255, 255}, kRed{255, 0, 0, 255}, kWhite{255, 255, 255, 255};

// The test watermark: white where x + y is even, red elsewhere, so the white key shows as a chequer.
Rgba Mark(int x, int y) {
  return (x + y) % 2 == 0 ? kWhite : kRed;
}

class ImagingCompositing : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;
  int files = 0;

  Handle Solid(int width, int height, Rgba colour, bool alpha = false) {
    const std::string path = folder.file("solid" + std::to_string(files++) + ".png");
    return testing_pages::LoadPage(library, testing_pages::WriteSolid(path, width, height, colour, alpha));
  }
  Handle Watermark(int width, int height) {
    const std::string path = folder.file("mark" + std::to_string(files++) + ".png");
    return testing_pages::LoadPage(library, testing_pages::WritePattern(path, width, height, Mark));
  }
  CallResult Paste(Handle& page, Handle mark, int left, int top, std::int32_t key = 0xFFFFFF) {
    CallResult result = 0;
    library.PasteWatermark(page, mark, left, top, key, result);
    return result;
  }
};

TEST_F(ImagingCompositing, KeyedPixelsAreLeftOutAndWatermarksClippedOnEverySide) {
  Handle page = Solid(10, 8, kBlue);
  const Handle mark = Watermark(4, 4);
  ASSERT_NE(Paste(page, mark, 2, 1), 0);
  EXPECT_EQ(PixelAt(library, page, 2, 1), kBlue);  // watermark (0,0): white, keyed out
  EXPECT_EQ(PixelAt(library, page, 3, 1), kRed);   // watermark (1,0)
  EXPECT_EQ(PixelAt(library, page, 5, 3), kRed);   // watermark (3,2)
  EXPECT_EQ(PixelAt(library, page, 6, 3), kBlue);  // right of the watermark
  Handle corners = Solid(10, 8, kBlue);
  ASSERT_NE(Paste(corners, mark, -2, -1), 0);
  EXPECT_EQ(PixelAt(library, corners, 0, 0), kRed);   // watermark (2,1)
  EXPECT_EQ(PixelAt(library, corners, 1, 0), kBlue);  // watermark (3,1): white
  ASSERT_NE(Paste(corners, mark, 8, 6), 0);
  EXPECT_EQ(PixelAt(library, corners, 9, 6), kRed);   // watermark (1,0)
  EXPECT_EQ(PixelAt(library, corners, 9, 7), kBlue);  // watermark (1,1): white
  // Larger than the page with no key, and wholly outside it.
  Handle covered = Solid(5, 5, kBlue);
  ASSERT_NE(Paste(covered, Watermark(20, 20), -3, -3, -1), 0);
  EXPECT_EQ(PixelAt(library, covered, 0, 0), Mark(3, 3));
  EXPECT_EQ(PixelAt(library, covered, 4, 3), Mark(7, 6));
  ASSERT_NE(Paste(covered, mark, 100, -100), 0);
  EXPECT_EQ(PixelAt(library, covered, 4, 3), Mark(7, 6));
}

TEST_F(ImagingCompositing, AlphaBlendsOnWidenedPagesAndTransparentPagesTakeTheWatermarksAlpha) {
  Handle page = Solid(6, 6, kBlue);
  CallResult result = 0;
  library.ConvertToIndexed8(page, page, 4, result);
  const Rgba grey = PixelAt(library, page, 0, 0);
  ASSERT_NE(Paste(page, Solid(2, 2, {255, 0, 0, 128}, true), 1, 1), 0);
  EXPECT_EQ(FactsOf(library, page).bpp, 24u);
  EXPECT_NEAR(PixelAt(library, page, 1, 1).r, (255 * 128 + grey.r * 127) / 255, 1);
  EXPECT_NEAR(PixelAt(library, page, 1, 1).g, grey.g * 127 / 255, 1);
  EXPECT_EQ(PixelAt(library, page, 4, 4), grey);
  Handle clear = Solid(4, 4, {0, 0, 0, 0}, true);
  ASSERT_NE(Paste(clear, Solid(2, 2, {255, 0, 0, 128}, true), 0, 0), 0);
  EXPECT_EQ(FactsOf(library, clear).bpp, 32u);
  EXPECT_EQ(PixelAt(library, clear, 0, 0), (Rgba{255, 0, 0, 128}));
  EXPECT_EQ(PixelAt(library, clear, 3, 3).a, 0);
  // A page may be its own watermark; an unknown watermark fails.
  Handle self = Watermark(6, 4);
  ASSERT_NE(Paste(self, self, 1, 0, -1), 0);
  EXPECT_EQ(PixelAt(library, self, 2, 1), Mark(1, 1));
  EXPECT_EQ(Paste(self, 777, 0, 0), 0);
}

TEST_F(ImagingCompositing, TextIsDrawnOnAWidenedPage) {
  Handle page = Solid(200, 60, kWhite);
  CallResult result = 0;
  library.ConvertToIndexed8(page, page, 4, result);
  TextDrawRequest request;
  request.text = "Velmora";
  request.right = 200;
  request.bottom = 60;
  request.face = "DejaVu Sans";
  request.size_points = 24;
  library.DrawWatermarkText(page, request, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).bpp, 24u);
  DisplayPicture picture;
  library.MakeDisplayPicture(page, picture, result);
  int dark = 0;
  for (std::size_t i = 0; i < picture.rgba.size(); i += 4) dark += picture.rgba[i] < 100 ? 1 : 0;
  EXPECT_GT(dark, 50);
}

TEST_F(ImagingCompositing, EffectsRunOnTrueColourPagesMadeFromAnyDepth) {
  Handle inverted = Solid(3, 3, {10, 100, 200, 255});
  CallResult result = 0;
  library.EffectInvert(inverted, result);
  EXPECT_EQ(PixelAt(library, inverted, 1, 1), (Rgba{245, 155, 55, 255}));

  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 24, 16));
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 24, 16));
  ASSERT_TRUE(samples::WriteAlphaPng(folder.file("alpha.png"), 24, 16));
  using Effect = std::function<void(ImagingLibrary&, Handle&, CallResult&)>;
  const Effect effects[] = {
      [](auto& l, Handle& h, CallResult& r) { l.EffectBlur(h, -1, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectDistort(h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectEmboss(h, -1, 0, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectEtch(h, -1, 0, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectGrayscale(h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectMosaic(h, 4, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectMotion(h, -1, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectSharpen(h, -1, r); },
  };
  // Source file, whether to make it 1-bit first, and the depth the effect leaves.
  for (const auto& [source, mono, bpp] : {std::tuple{"photo.jpg", false, 24u},
                                          {"photo.jpg", true, 24u},
                                          {"deep.png", false, 24u},
                                          {"alpha.png", false, 32u}}) {
    for (std::size_t e = 0; e < std::size(effects); ++e) {
      Handle page = testing_pages::LoadPage(library, folder.file(source));
      if (mono) library.ConvertToMono(page, page, 2, 128, result);
      effects[e](library, page, result);
      EXPECT_NE(result, 0) << source << " effect " << e;
      EXPECT_EQ(FactsOf(library, page).bpp, bpp) << source << " effect " << e;
      EXPECT_EQ(FactsOf(library, page).width * FactsOf(library, page).height, 24u * 16u);
      if (e == 4) {  // grayscale
        const Rgba pixel = PixelAt(library, page, 20, 3);
        EXPECT_TRUE(pixel.r == pixel.g && pixel.g == pixel.b) << source << " " << pixel;
      }
      library.Release(page);
    }
  }
}

}  // namespace
}  // namespace velmora::imaging
