// Depth conversions: each delivers the depth it names, from ordinary bitmaps and from 16-bit and
// float pages alike; float pages within 0..1 keep their values exactly.
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

using Conversion = std::function<void(ImagingLibrary&, Handle&, CallResult&)>;

struct NamedConversion {
  const char* name;
  unsigned bpp;
  Conversion convert;
};

const NamedConversion kConversions[] = {
    {"32", 32, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.FreeImage_ConvertTo32Bits(h, h, r); }},
    {"24", 24, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.FreeImage_ConvertTo24Bits(h, h, r); }},
    {"16 555", 16, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.ConvertTo16Bits(h, h, false, r); }},
    {"16 565", 16, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.ConvertTo16Bits(h, h, true, r); }},
    {"8", 8, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.ConvertToIndexed8(h, h, 4, r); }},
    {"4", 4, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.ConvertToIndexed4(h, h, 4, r); }},
    {"1", 1, [](ImagingLibrary& l, Handle& h, CallResult& r) { l.ConvertToMono(h, h, 2, 128, r); }},
};

class ImagingDepth : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;
};

TEST_F(ImagingDepth, EveryConversionDeliversItsDepthFromEveryPageType) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 21, 13));
  ASSERT_TRUE(samples::WriteAlphaPng(folder.file("alpha.png"), 21, 13));
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 21, 13));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("sky.exr"), 21, 13));
  ASSERT_TRUE(samples::WritePaletteBmp(folder.file("poster.bmp"), 21, 13));
  // A float RGBA page: the alpha PNG saved as EXR.
  Handle alpha = testing_pages::LoadPage(library, folder.file("alpha.png"));
  CallResult saved = 0;
  library.FreeImage_Save(alpha, folder.file("alpha.exr"), kFormatExr, 0, -1, saved);
  ASSERT_NE(saved, 0);
  for (const char* source : {"photo.jpg", "alpha.png", "deep.png", "sky.exr", "poster.bmp", "alpha.exr"}) {
    for (const NamedConversion& conversion : kConversions) {
      Handle page = testing_pages::LoadPage(library, folder.file(source));
      const Handle before = page;
      CallResult result = 0;
      conversion.convert(library, page, result);
      EXPECT_NE(result, 0) << source << " to " << conversion.name;
      EXPECT_EQ(page, before);
      const auto facts = FactsOf(library, page);
      EXPECT_EQ(facts.bpp, conversion.bpp) << source << " to " << conversion.name;
      EXPECT_EQ(facts.width, 21u);
      EXPECT_EQ(facts.height, 13u);
      library.Release(page);
    }
  }
}

TEST_F(ImagingDepth, SixteenBitsAreFiveFiveFiveOrFiveSixFive) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 8, 8));
  for (const bool as565 : {false, true}) {
    Handle page = testing_pages::LoadPage(library, folder.file("photo.jpg"));
    CallResult result = 0;
    library.ConvertTo16Bits(page, page, as565, result);
    ASSERT_NE(result, 0);
    const std::string path = folder.file(as565 ? "565.bmp" : "555.bmp");
    library.FreeImage_Save(page, path, kFormatBmp, 0, -1, result);
    FIBITMAP* back = FreeImage_Load(FIF_BMP, path.c_str(), 0);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(FreeImage_GetGreenMask(back), as565 ? FI16_565_GREEN_MASK : FI16_555_GREEN_MASK);
    FreeImage_Unload(back);
  }
}

TEST_F(ImagingDepth, MonoSplitsAtTheThreshold) {
  const std::string path = testing_pages::WritePattern(folder.file("halves.png"), 10, 4, [](int x, int) {
    return x < 5 ? Rgba{100, 100, 100, 255} : Rgba{200, 200, 200, 255};
  });
  Handle page = testing_pages::LoadPage(library, path);
  CallResult result = 0;
  library.ConvertToMono(page, page, 2, 128, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(PixelAt(library, page, 2, 1), (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(PixelAt(library, page, 7, 1), (Rgba{255, 255, 255, 255}));
}

TEST_F(ImagingDepth, FloatPagesWithinOneKeepTheirValues) {
  const auto colour = [](int x, int y) {
    return Rgba{static_cast<std::uint8_t>(x * 25), static_cast<std::uint8_t>(y * 60), 77, 255};
  };
  const std::string path = testing_pages::WritePattern(folder.file("ramp.png"), 10, 5, colour);
  Handle page = testing_pages::LoadPage(library, path);
  CallResult result = 0;
  library.FreeImage_Save(page, folder.file("ramp.exr"), kFormatExr, 0, -1, result);
  ASSERT_NE(result, 0);
  Handle floating = testing_pages::LoadPage(library, folder.file("ramp.exr"));
  ASSERT_EQ(FactsOf(library, floating).bpp, 96u);
  library.FreeImage_ConvertTo24Bits(floating, floating, result);
  ASSERT_NE(result, 0);
  for (const auto& [x, y] : {std::pair{0, 0}, std::pair{9, 4}, std::pair{4, 2}, std::pair{7, 1}})
    EXPECT_EQ(PixelAt(library, floating, x, y), colour(x, y)) << x << "," << y;
}

TEST_F(ImagingDepth, BrightFloatPagesAreToneMappedNotClipped) {
  // The sample's red runs from 0 at the left to 2.0 at the right.
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("sky.exr"), 40, 10));
  Handle page = testing_pages::LoadPage(library, folder.file("sky.exr"));
  CallResult result = 0;
  library.FreeImage_ConvertTo24Bits(page, page, result);
  ASSERT_NE(result, 0);
  const Rgba left = PixelAt(library, page, 0, 5), middle = PixelAt(library, page, 20, 5),
             right = PixelAt(library, page, 39, 5);
  EXPECT_LT(left.r, middle.r);
  EXPECT_LT(middle.r, right.r);
  EXPECT_LT(middle.r, 255);  // a straight clip would saturate from the middle on
}

TEST_F(ImagingDepth, SixteenBitGreyKeepsItsLevels) {
  FIBITMAP* grey = FreeImage_AllocateT(FIT_UINT16, 4, 1);
  auto* row = reinterpret_cast<WORD*>(FreeImage_GetScanLine(grey, 0));
  row[0] = 0;
  row[1] = 0x4000;
  row[2] = 0x8000;
  row[3] = 0xFFFF;
  const std::string path = folder.file("grey16.png");
  ASSERT_TRUE(FreeImage_Save(FIF_PNG, grey, path.c_str(), 0));
  FreeImage_Unload(grey);
  Handle page = testing_pages::LoadPage(library, path);
  CallResult result = 0;
  library.FreeImage_ConvertTo24Bits(page, page, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(PixelAt(library, page, 1, 0), (Rgba{0x40, 0x40, 0x40, 255}));
  EXPECT_EQ(PixelAt(library, page, 2, 0), (Rgba{0x80, 0x80, 0x80, 255}));
  EXPECT_EQ(PixelAt(library, page, 3, 0), (Rgba{0xFF, 0xFF, 0xFF, 255}));
}

}  // namespace
}  // namespace velmora::imaging
