// The handle table and the failure rule: every operation given 0 or an unknown handle reports 0
// and leaves handles alone; blank images, queries, metadata and display pictures.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <thread>
#include <vector>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;
using testing_pages::PixelAt;
using testing_pages::Rgba;

constexpr Handle kUnknown = 4242;

// Calls `operation` on an in/out handle of 0 and of an unknown number; each must fail and leave
// the handle as it was.
template <typename Operation>
void ExpectInOutFailure(Operation operation) {
  for (const Handle given : {Handle{0}, kUnknown}) {
    Handle handle = given;
    CallResult result = 7;
    operation(handle, result);
    EXPECT_EQ(result, 0) << "handle " << given;
    EXPECT_EQ(handle, given);
  }
}

TEST(ImagingFailureRule, InOutOperationsRefuseMissingHandles) {
  ImagingLibrary library;
  TextDrawRequest text;
  text.text = "x";
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_Rescale(h, 10, 10, 1, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_Rescale(h, 10, 10, 2, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.RotateRightAngle(h, 90, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.RotateFree(h, 30.0, -1.0, -1.0, 0, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FlipImage(h, 1, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_AdjustBrightness(h, 10, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_AdjustContrast(h, 10, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_AdjustGamma(h, 1.5, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectBlur(h, -1, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectDistort(h, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectEmboss(h, -1, 0, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectEtch(h, -1, 0, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectGrayscale(h, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectInvert(h, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectMosaic(h, 4, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectMotion(h, -1, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.EffectSharpen(h, -1, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.DrawWatermarkText(h, text, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.PasteWatermark(h, kUnknown, 0, 0, 0xFFFFFF, r); });
  // The same-variable form of the depth conversions.
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_ConvertTo32Bits(h, h, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.FreeImage_ConvertTo24Bits(h, h, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.ConvertTo16Bits(h, h, true, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.ConvertToIndexed8(h, h, 4, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.ConvertToIndexed4(h, h, 4, r); });
  ExpectInOutFailure([&](Handle& h, CallResult& r) { library.ConvertToMono(h, h, 2, 128, r); });
  EXPECT_EQ(library.LiveImageCount(), 0u);
}

TEST(ImagingFailureRule, OutHandlesStayZeroAndQueriesGiveZero) {
  ImagingLibrary library;
  testing::TempFolder folder;
  for (const Handle given : {Handle{0}, kUnknown}) {
    Handle out = 0;
    CallResult result = 7;
    library.FreeImage_ConvertTo24Bits(given, out, result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(out, 0u);
    std::uint32_t width = 9, height = 9, bpp = 9;
    library.FreeImage_GetWidth(given, width);
    library.FreeImage_GetHeight(given, height);
    library.FreeImage_GetBPP(given, bpp);
    EXPECT_EQ(width + height + bpp, 0u);
    result = 7;
    library.FreeImage_Save(given, folder.file("never.png"), kFormatPng, 0, -1, result);
    EXPECT_EQ(result, 0);
    result = 7;
    library.AppendPageToFile(folder.file("never.tif"), given, -1, 0, -1, result);
    EXPECT_EQ(result, 0);
    result = 7;
    library.CopyMetadata(given, given, result);
    EXPECT_EQ(result, 0);
    DisplayPicture picture;
    library.MakeDisplayPicture(given, picture, result);
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(picture.rgba.empty());
  }
  library.FlushAppendedPages();
  EXPECT_FALSE(std::filesystem::exists(folder.file("never.png")));
  EXPECT_FALSE(std::filesystem::exists(folder.file("never.tif")));
}

TEST(ImagingHandles, NumberFromOneAndReleaseOneByOne) {
  ImagingLibrary library;
  Handle first = 0, second = 0;
  CallResult result = 0;
  library.FreeImage_Allocate(first, 10, 20, 24, 0, 0, 0, result);
  EXPECT_NE(result, 0);
  library.FreeImage_Allocate(second, 10, 20, 8, 0, 0, 0, result);
  EXPECT_EQ(first, 1u);
  EXPECT_EQ(second, 2u);
  EXPECT_EQ(library.LiveImageCount(), 2u);
  library.Release(first);
  library.Release(first);  // a second release of the same number is ignored
  library.Release(kUnknown);
  EXPECT_EQ(library.LiveImageCount(), 1u);
  std::uint32_t width = 0;
  library.FreeImage_GetWidth(first, width);
  EXPECT_EQ(width, 0u);
  library.FreeImage_GetWidth(second, width);
  EXPECT_EQ(width, 10u);
}

TEST(ImagingHandles, ReplacingAnInOutHandleFreesTheOldImageAndKeepsTheNumber) {
  ImagingLibrary library;
  Handle page = 0;
  CallResult result = 0;
  library.FreeImage_Allocate(page, 30, 20, 24, 0, 0, 0, result);
  const Handle before = page;
  library.FreeImage_ConvertTo32Bits(page, page, result);
  EXPECT_NE(result, 0);
  EXPECT_EQ(page, before);
  EXPECT_EQ(FactsOf(library, page).bpp, 32u);
  library.RotateRightAngle(page, 90, result);
  EXPECT_EQ(page, before);
  EXPECT_EQ(library.LiveImageCount(), 1u);
  // A separate out variable gets a new image and the source stays.
  Handle grey = 0;
  library.ConvertToIndexed8(page, grey, 4, result);
  EXPECT_NE(result, 0);
  EXPECT_NE(grey, page);
  EXPECT_EQ(FactsOf(library, grey).bpp, 8u);
  EXPECT_EQ(FactsOf(library, page).bpp, 32u);
  EXPECT_EQ(library.LiveImageCount(), 2u);
}

TEST(ImagingHandles, ThreadsSharingOneObjectEachGetTheirOwnPages) {
  testing::TempFolder folder;
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 64, 48));
  ImagingLibrary library;
  constexpr int kThreads = 4, kRounds = 6;
  std::vector<std::vector<Handle>> kept(kThreads);
  std::vector<std::thread> workers;
  for (int t = 0; t < kThreads; ++t) {
    workers.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        Handle page = 0;
        CallResult result = 0;
        library.FreeImage_Load(folder.file("photo.jpg"), page, -1, 0, result);
        library.FreeImage_Rescale(page, 10 + t, 20 + round, 2, result);
        library.FreeImage_ConvertTo32Bits(page, page, result);
        library.FreeImage_Save(page, folder.file(std::to_string(t) + "-" + std::to_string(round) + ".png"),
                               kFormatPng, 0, -1, result);
        if (round % 2 == 0) {
          library.Release(page);
        } else {
          kept[t].push_back(page);
        }
      }
    });
  }
  for (std::thread& worker : workers) worker.join();
  EXPECT_EQ(library.LiveImageCount(), static_cast<std::size_t>(kThreads * kRounds / 2));
  for (int t = 0; t < kThreads; ++t) {
    for (int round = 0; round < kRounds; ++round) {
      const auto facts = testing::ReadImageFacts(folder.file(std::to_string(t) + "-" + std::to_string(round) + ".png"));
      EXPECT_EQ(facts.width, static_cast<unsigned>(10 + t));
      EXPECT_EQ(facts.height, static_cast<unsigned>(20 + round));
    }
    for (const Handle page : kept[t]) EXPECT_EQ(FactsOf(library, page).width, static_cast<std::uint32_t>(10 + t));
  }
}

TEST(ImagingAllocate, MakesBlankPagesOfEveryDepthAndRefusesBadOnes) {
  ImagingLibrary library;
  for (const int bpp : {1, 4, 8, 16, 24, 32, 48, 64, 96, 128}) {
    Handle page = 0;
    CallResult result = 0;
    library.FreeImage_Allocate(page, 17, 5, bpp, 0, 0, 0, result);
    ASSERT_NE(result, 0) << bpp;
    const auto facts = FactsOf(library, page);
    EXPECT_EQ(facts.width, 17u);
    EXPECT_EQ(facts.height, 5u);
    EXPECT_EQ(facts.bpp, static_cast<std::uint32_t>(bpp));
  }
  struct Bad {
    int width, height, bpp;
  };
  for (const Bad bad : {Bad{0, 5, 24}, Bad{5, 0, 24}, Bad{-3, 5, 24}, Bad{5, 5, 7}, Bad{5, 5, 0}, Bad{5, 5, 33}}) {
    Handle page = 0;
    CallResult result = 7;
    library.FreeImage_Allocate(page, bad.width, bad.height, bad.bpp, 0, 0, 0, result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(page, 0u);
  }
  EXPECT_EQ(library.LiveImageCount(), 10u);
}

TEST(ImagingMetadata, CopiesCommentsAndAcceptsAnEmptySource) {
  testing::TempFolder folder;
  // A JPEG with a comment: the metadata a page carries beside its pixels.
  FIBITMAP* dib = FreeImage_Allocate(8, 8, 24);
  FITAG* tag = FreeImage_CreateTag();
  const char comment[] = "harbour at dawn";
  FreeImage_SetTagKey(tag, "Comment");
  FreeImage_SetTagType(tag, FIDT_ASCII);
  FreeImage_SetTagLength(tag, sizeof comment);
  FreeImage_SetTagCount(tag, sizeof comment);
  FreeImage_SetTagValue(tag, comment);
  FreeImage_SetMetadata(FIMD_COMMENTS, dib, "Comment", tag);
  FreeImage_DeleteTag(tag);
  const std::string source = folder.file("commented.jpg");
  ASSERT_TRUE(FreeImage_Save(FIF_JPEG, dib, source.c_str(), 90));
  FreeImage_Unload(dib);

  ImagingLibrary library;
  const Handle page = testing_pages::LoadPage(library, source);
  Handle holder = 0, empty = 0;
  CallResult result = 0;
  library.FreeImage_Allocate(holder, 8, 8, 24, 0, 0, 0, result);
  library.FreeImage_Allocate(empty, 8, 8, 24, 0, 0, 0, result);
  library.CopyMetadata(page, holder, result);
  EXPECT_NE(result, 0);
  library.CopyMetadata(empty, page, result);  // an empty source is fine
  EXPECT_NE(result, 0);
  library.CopyMetadata(holder, page, result);
  EXPECT_NE(result, 0);
  library.CopyMetadata(page, page, result);
  EXPECT_NE(result, 0);

  const std::string out = folder.file("copied.jpg");
  library.FreeImage_Save(page, out, kFormatJpeg, 90, -1, result);
  ASSERT_NE(result, 0);
  FIBITMAP* back = FreeImage_Load(FIF_JPEG, out.c_str(), 0);
  ASSERT_NE(back, nullptr);
  FITAG* read = nullptr;
  ASSERT_TRUE(FreeImage_GetMetadata(FIMD_COMMENTS, back, "Comment", &read));
  EXPECT_STREQ(static_cast<const char*>(FreeImage_GetTagValue(read)), comment);
  FreeImage_Unload(back);
}

TEST(ImagingDisplayPicture, GivesRgbaRowsTopFirst) {
  testing::TempFolder folder;
  const std::string path = testing_pages::WritePattern(folder.file("quarters.png"), 4, 2, [](int x, int y) {
    return y == 0 ? (x < 2 ? Rgba{255, 0, 0, 255} : Rgba{0, 255, 0, 255}) : Rgba{0, 0, 255, 128};
  }, true);
  ImagingLibrary library;
  Handle page = testing_pages::LoadPage(library, path);
  DisplayPicture picture;
  CallResult result = 0;
  library.MakeDisplayPicture(page, picture, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(picture.width, 4u);
  EXPECT_EQ(picture.height, 2u);
  ASSERT_EQ(picture.rgba.size(), 4u * 2u * 4u);
  EXPECT_EQ(PixelAt(library, page, 0, 0), (Rgba{255, 0, 0, 255}));
  EXPECT_EQ(PixelAt(library, page, 3, 0), (Rgba{0, 255, 0, 255}));
  EXPECT_EQ(PixelAt(library, page, 1, 1), (Rgba{0, 0, 255, 128}));
  // A page without alpha shows opaque.
  library.FreeImage_ConvertTo24Bits(page, page, result);
  EXPECT_EQ(PixelAt(library, page, 1, 1), (Rgba{0, 0, 255, 255}));
}

}  // namespace
}  // namespace velmora::imaging
