// The handle table and the failure rule (0 or unknown handles fail and stay as they were), blank
// images, and threads sharing one object. Display pictures serve every pixel check of the tests.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <filesystem>
#include <functional>
#include <thread>
#include <vector>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;
using InOut = std::function<void(ImagingLibrary&, Handle&, CallResult&)>;

TEST(ImagingFailureRule, EveryOperationRefusesZeroAndUnknownHandlesAndLeavesThem) {
  TextDrawRequest text;
  text.text = "x";
  const InOut operations[] = {
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_Rescale(h, 10, 10, 1, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_Rescale(h, 10, 10, 2, r); },
      [](auto& l, Handle& h, CallResult& r) { l.RotateRightAngle(h, 90, r); },
      [](auto& l, Handle& h, CallResult& r) { l.RotateFree(h, 30.0, -1.0, -1.0, 0, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FlipImage(h, 1, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_AdjustBrightness(h, 10, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_AdjustContrast(h, 10, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_AdjustGamma(h, 1.5, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectBlur(h, -1, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectDistort(h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectEmboss(h, -1, 0, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectEtch(h, -1, 0, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectGrayscale(h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectInvert(h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectMosaic(h, 4, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectMotion(h, -1, r); },
      [](auto& l, Handle& h, CallResult& r) { l.EffectSharpen(h, -1, r); },
      [&](auto& l, Handle& h, CallResult& r) { l.DrawWatermarkText(h, text, r); },
      [](auto& l, Handle& h, CallResult& r) { l.PasteWatermark(h, 4242, 0, 0, 0xFFFFFF, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_ConvertTo32Bits(h, h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.FreeImage_ConvertTo24Bits(h, h, r); },
      [](auto& l, Handle& h, CallResult& r) { l.ConvertTo16Bits(h, h, true, r); },
      [](auto& l, Handle& h, CallResult& r) { l.ConvertToIndexed8(h, h, 4, r); },
      [](auto& l, Handle& h, CallResult& r) { l.ConvertToIndexed4(h, h, 4, r); },
      [](auto& l, Handle& h, CallResult& r) { l.ConvertToMono(h, h, 2, 128, r); },
  };
  ImagingLibrary library;
  testing::TempFolder folder;
  for (const Handle given : {Handle{0}, Handle{4242}}) {
    for (std::size_t i = 0; i < std::size(operations); ++i) {
      Handle handle = given;
      CallResult result = 7;
      operations[i](library, handle, result);
      EXPECT_EQ(result, 0) << "operation " << i << " handle " << given;
      EXPECT_EQ(handle, given);
    }
    Handle out = 0;
    CallResult result = 7;
    library.FreeImage_ConvertTo24Bits(given, out, result);
    EXPECT_EQ(result + out, 0);
    std::uint32_t width = 9, height = 9, bpp = 9;
    library.FreeImage_GetWidth(given, width);
    library.FreeImage_GetHeight(given, height);
    library.FreeImage_GetBPP(given, bpp);
    EXPECT_EQ(width + height + bpp, 0u);
    library.FreeImage_Save(given, folder.file("never.png"), kFormatPng, 0, -1, result);
    EXPECT_EQ(result, 0);
    library.AppendPageToFile(folder.file("never.tif"), given, -1, 0, -1, result);
    EXPECT_EQ(result, 0);
    library.CopyMetadata(given, given, result);
    EXPECT_EQ(result, 0);
  }
  library.FlushAppendedPages();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  EXPECT_EQ(library.LiveImageCount(), 0u);
}

TEST(ImagingHandles, NumberedFromOneReplacedInPlaceAndReleasedOneByOne) {
  ImagingLibrary library;
  Handle first = 0, second = 0, grey = 0;
  CallResult result = 0;
  library.FreeImage_Allocate(first, 10, 20, 24, 0, 0, 0, result);
  library.FreeImage_Allocate(second, 10, 20, 8, 0, 0, 0, result);
  EXPECT_EQ(first, 1u);
  EXPECT_EQ(second, 2u);
  // The same variable in and out: the image behind the number is replaced, the old one freed.
  library.FreeImage_ConvertTo32Bits(first, first, result);
  EXPECT_EQ(first, 1u);
  EXPECT_EQ(FactsOf(library, first).bpp, 32u);
  EXPECT_EQ(library.LiveImageCount(), 2u);
  // Another variable out: a new image, the source stays.
  library.ConvertToIndexed8(first, grey, 4, result);
  EXPECT_EQ(grey, 3u);
  EXPECT_EQ(FactsOf(library, first).bpp, 32u);
  // Metadata from a page that has none, and from a page onto itself, is no failure.
  library.CopyMetadata(second, grey, result);
  EXPECT_NE(result, 0);
  library.CopyMetadata(grey, grey, result);
  EXPECT_NE(result, 0);
  library.Release(first);
  library.Release(first);
  library.Release(4242);
  EXPECT_EQ(library.LiveImageCount(), 2u);
  EXPECT_EQ(FactsOf(library, first).width, 0u);
  EXPECT_EQ(FactsOf(library, grey).width, 10u);
}

TEST(ImagingHandles, ThreadsSharingOneObjectEachGetTheirOwnPages) {
  testing::TempFolder folder;
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 64, 48));
  ImagingLibrary library;
  constexpr int kThreads = 4, kRounds = 6;
  const auto name = [&](int t, int round) {
    return folder.file(std::to_string(t) + "-" + std::to_string(round) + ".png");
  };
  std::vector<std::thread> workers;
  for (int t = 0; t < kThreads; ++t) {
    workers.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        Handle page = 0;
        CallResult result = 0;
        library.FreeImage_Load(folder.file("photo.jpg"), page, -1, 0, result);
        library.FreeImage_Rescale(page, 10 + t, 20 + round, 2, result);
        library.FreeImage_ConvertTo32Bits(page, page, result);
        library.FreeImage_Save(page, name(t, round), kFormatPng, 0, -1, result);
        if (round % 2 == 0) library.Release(page);
      }
    });
  }
  for (std::thread& worker : workers) worker.join();
  EXPECT_EQ(library.LiveImageCount(), static_cast<std::size_t>(kThreads * kRounds / 2));
  for (int t = 0; t < kThreads; ++t) {
    for (int round = 0; round < kRounds; ++round) {
      const auto facts = testing::ReadImageFacts(name(t, round));
      EXPECT_EQ(facts.width, static_cast<unsigned>(10 + t));
      EXPECT_EQ(facts.height, static_cast<unsigned>(20 + round));
    }
  }
}

TEST(ImagingAllocate, MakesBlankPagesOfEveryDepthAndRefusesBadOnes) {
  ImagingLibrary library;
  for (const int bpp : {1, 4, 8, 16, 24, 32, 48, 64, 96, 128}) {
    Handle page = 0;
    CallResult result = 0;
    library.FreeImage_Allocate(page, 17, 5, bpp, 0, 0, 0, result);
    ASSERT_NE(result, 0) << bpp;
    EXPECT_EQ(FactsOf(library, page).width * FactsOf(library, page).height, 85u);
    EXPECT_EQ(FactsOf(library, page).bpp, static_cast<std::uint32_t>(bpp));
  }
  for (const auto& [width, height, bpp] : {std::tuple{0, 5, 24}, {5, -3, 24}, {5, 5, 7}, {5, 5, 0}, {5, 5, 33}}) {
    Handle page = 0;
    CallResult result = 7;
    library.FreeImage_Allocate(page, width, height, bpp, 0, 0, 0, result);
    EXPECT_EQ(result + page, 0);
  }
}

}  // namespace
}  // namespace velmora::imaging
