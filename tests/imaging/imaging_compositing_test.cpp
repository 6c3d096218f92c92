// Watermark pictures (clipping, colour key, alpha), text and effects through ImagingLibrary:
// pages of other depths are brought to 24 or 32 bits first, and failures leave the page alone.
#include <gtest/gtest.h>

#include <algorithm>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;
using testing_pages::PixelAt;
using testing_pages::Rgba;

constexpr Rgba kBlue{0, 0, 255, 255};
constexpr Rgba kRed{255, 0, 0, 255};
constexpr Rgba kWhite{255, 255, 255, 255};
constexpr std::int32_t kWhiteKey = 0xFFFFFF;

// The watermark of the tests: red with white where x + y is even, so the key shows as a chequer.
Rgba Mark(int x, int y) { return (x + y) % 2 == 0 ? kWhite : Rgba{255, 0, 0, 255}; }

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
  CallResult Paste(Handle& page, Handle mark, int left, int top, std::int32_t key = kWhiteKey) {
    CallResult result = 0;
    library.PasteWatermark(page, mark, left, top, key, result);
    return result;
  }
};

TEST_F(ImagingCompositing, KeyedPixelsAreLeftOutAndTheRestCopied) {
  Handle page = Solid(10, 8, kBlue);
  ASSERT_NE(Paste(page, Watermark(4, 3), 2, 1), 0);
  EXPECT_EQ(PixelAt(library, page, 2, 1), kBlue);  // watermark (0,0): white, keyed out
  EXPECT_EQ(PixelAt(library, page, 3, 1), kRed);   // watermark (1,0)
  EXPECT_EQ(PixelAt(library, page, 5, 3), kRed);   // watermark (3,2)
  EXPECT_EQ(PixelAt(library, page, 4, 3), kBlue);  // watermark (2,2): white
  EXPECT_EQ(PixelAt(library, page, 6, 3), kBlue);  // right of the watermark
}

TEST_F(ImagingCompositing, WatermarksAreClippedOnEverySide) {
  Handle page = Solid(10, 8, kBlue);
  const Handle mark = Watermark(4, 4);
  ASSERT_NE(Paste(page, mark, -2, -1), 0);
  EXPECT_EQ(PixelAt(library, page, 0, 0), kRed);   // watermark (2,1)
  EXPECT_EQ(PixelAt(library, page, 1, 0), kBlue);  // watermark (3,1): white
  EXPECT_EQ(PixelAt(library, page, 2, 0), kBlue);  // beyond the watermark
  ASSERT_NE(Paste(page, mark, 8, 6), 0);
  EXPECT_EQ(PixelAt(library, page, 9, 6), kRed);   // watermark (1,0)
  EXPECT_EQ(PixelAt(library, page, 9, 7), kBlue);  // watermark (1,1): white
  EXPECT_EQ(PixelAt(library, page, 7, 7), kBlue);
  // Larger than the page, and wholly outside it.
  Handle covered = Solid(5, 5, kBlue);
  ASSERT_NE(Paste(covered, Watermark(20, 20), -3, -3, -1), 0);
  EXPECT_EQ(PixelAt(library, covered, 0, 0), Mark(3, 3));
  EXPECT_EQ(PixelAt(library, covered, 4, 3), Mark(7, 6));
  Handle untouched = Solid(5, 5, kBlue);
  ASSERT_NE(Paste(untouched, mark, 100, -100), 0);
  EXPECT_EQ(PixelAt(library, untouched, 4, 4), kBlue);
}

TEST_F(ImagingCompositing, AlphaWatermarksBlendAndPagesOfOtherDepthsAreWidened) {
  Handle page = Solid(6, 6, kBlue);
  CallResult result = 0;
  library.ConvertToIndexed8(page, page, 4, result);  // an 8-bit grey page
  const Rgba grey = PixelAt(library, page, 0, 0);
  ASSERT_NE(Paste(page, Solid(2, 2, {255, 0, 0, 128}, true), 1, 1), 0);
  EXPECT_EQ(FactsOf(library, page).bpp, 24u);
  const Rgba blended = PixelAt(library, page, 1, 1);
  EXPECT_NEAR(blended.r, (255 * 128 + grey.r * 127) / 255, 1);
  EXPECT_NEAR(blended.g, grey.g * 127 / 255, 1);
  EXPECT_EQ(PixelAt(library, page, 4, 4), grey);
  // A 32-bit page keeps its alpha, and a transparent page takes the watermark's.
  Handle clear = Solid(4, 4, {0, 0, 0, 0}, true);
  ASSERT_NE(Paste(clear, Solid(2, 2, {255, 0, 0, 128}, true), 0, 0), 0);
  EXPECT_EQ(FactsOf(library, clear).bpp, 32u);
  EXPECT_EQ(PixelAt(library, clear, 0, 0), (Rgba{255, 0, 0, 128}));
  EXPECT_EQ(PixelAt(library, clear, 3, 3).a, 0);
}

TEST_F(ImagingCompositing, APageCanBeItsOwnWatermarkAndUnknownWatermarksFail) {
  Handle page = Watermark(6, 4);
  ASSERT_NE(Paste(page, page, 1, 0, -1), 0);
  EXPECT_EQ(PixelAt(library, page, 1, 0), Mark(0, 0));
  EXPECT_EQ(PixelAt(library, page, 2, 1), Mark(1, 1));
  const Handle before = page;
  EXPECT_EQ(Paste(page, 777, 0, 0), 0);
  EXPECT_EQ(Paste(page, 0, 0, 0), 0);
  EXPECT_EQ(page, before);
}

TEST_F(ImagingCompositing, TextIsDrawnOnAWidenedPage) {
  Handle page = Solid(200, 60, kWhite);
  CallResult result = 0;
  library.ConvertToIndexed8(page, page, 4, result);
  TextDrawRequest request;
  request.text = "Velmora";
  request.left = 0;
  request.top = 0;
  request.right = 200;
  request.bottom = 60;
  request.face = "DejaVu Sans";
  request.size_points = 24;
  request.color = 0;
  library.DrawWatermarkText(page, request, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).bpp, 24u);
  DisplayPicture picture;
  library.MakeDisplayPicture(page, picture, result);
  int dark = 0;
  for (std::size_t i = 0; i < picture.rgba.size(); i += 4) dark += picture.rgba[i] < 100 ? 1 : 0;
  EXPECT_GT(dark, 50);
}

TEST_F(ImagingCompositing, InvertWorksOnThePageItself) {
  Handle page = Solid(3, 3, {10, 100, 200, 255});
  CallResult result = 0;
  library.EffectInvert(page, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(PixelAt(library, page, 1, 1), (Rgba{245, 155, 55, 255}));
  EXPECT_EQ(FactsOf(library, page).bpp, 24u);
}

TEST_F(ImagingCompositing, EffectsRunOnTrueColourCopiesOfOtherPages) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 24, 16));
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 24, 16));
  ASSERT_TRUE(samples::WriteAlphaPng(folder.file("alpha.png"), 24, 16));
  using Effect = void (*)(ImagingLibrary&, Handle&, CallResult&);
  const Effect effects[] = {
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectBlur(h, -1, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectDistort(h, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectEmboss(h, -1, 0, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectEtch(h, -1, 0, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectGrayscale(h, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectMosaic(h, 4, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectMotion(h, -1, r); },
      [](ImagingLibrary& l, Handle& h, CallResult& r) { l.EffectSharpen(h, -1, r); },
  };
  struct Source {
    const char* name;
    int convert;  // 0 none, 1 to 1 bit, 2 to 8 bits
    unsigned bpp;
  };
  for (const Source source : {Source{"photo.jpg", 0, 24}, Source{"photo.jpg", 1, 24}, Source{"photo.jpg", 2, 24},
                              Source{"deep.png", 0, 24}, Source{"alpha.png", 0, 32}}) {
    for (std::size_t e = 0; e < std::size(effects); ++e) {
      Handle page = testing_pages::LoadPage(library, folder.file(source.name));
      CallResult result = 0;
      if (source.convert == 1) library.ConvertToMono(page, page, 2, 128, result);
      if (source.convert == 2) library.ConvertToIndexed8(page, page, 4, result);
      effects[e](library, page, result);
      EXPECT_NE(result, 0) << source.name << " effect " << e;
      const auto facts = FactsOf(library, page);
      EXPECT_EQ(facts.bpp, source.bpp) << source.name << " effect " << e;
      EXPECT_EQ(facts.width, 24u);
      EXPECT_EQ(facts.height, 16u);
      library.Release(page);
    }
  }
  // Grayscale gives grey on a page that was 16 bits a channel.
  Handle deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  CallResult result = 0;
  library.EffectGrayscale(deep, result);
  ASSERT_NE(result, 0);
  const Rgba pixel = PixelAt(library, deep, 20, 3);
  EXPECT_EQ(pixel.r, pixel.g);
  EXPECT_EQ(pixel.g, pixel.b);
}

}  // namespace
}  // namespace velmora::imaging
