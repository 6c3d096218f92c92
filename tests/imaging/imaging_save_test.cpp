// Saving through ImagingLibrary: every output format from pages of every depth and pixel type
// writes a readable file of the nearest depth the format takes, and the caller's page is untouched.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <filesystem>
#include <map>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;

// The page kinds a run hands to the save.
enum class Kind { kMono, kFour, kEight, kSixteen, kTwentyFour, kThirtyTwo, kRgb16, kRgbFloat };

struct PageKind {
  Kind kind;
  const char* name;
  unsigned bpp;
};

constexpr PageKind kKinds[] = {
    {Kind::kMono, "1-bit", 1},          {Kind::kFour, "4-bit", 4},          {Kind::kEight, "8-bit", 8},
    {Kind::kSixteen, "16-bit", 16},     {Kind::kTwentyFour, "24-bit", 24}, {Kind::kThirtyTwo, "32-bit", 32},
    {Kind::kRgb16, "RGB16", 48},        {Kind::kRgbFloat, "RGBF", 96},
};

struct OutputFormat {
  int number;
  const char* extension;
  FREE_IMAGE_FORMAT read_back;
};

constexpr OutputFormat kFormats[] = {
    {kFormatBmp, "bmp", FIF_BMP}, {kFormatJpeg, "jpg", FIF_JPEG}, {kFormatGif, "gif", FIF_GIF},
    {kFormatPng, "png", FIF_PNG}, {kFormatTga, "tga", FIF_TARGA}, {kFormatTiff, "tif", FIF_TIFF},
    {kFormatExr, "exr", FIF_EXR},
};

// Depth (and pixel type) read back for each format and page kind: the page's own where the format
// takes it, the nearest one otherwise.
struct Expected {
  unsigned bpp;
  int type = FIT_BITMAP;
};

Expected ExpectedFor(int format, const PageKind& page) {
  const unsigned bpp = page.bpp;
  const bool deep = page.kind == Kind::kRgb16, floating = page.kind == Kind::kRgbFloat;
  switch (format) {
    case kFormatBmp:
      return {deep || floating ? 24u : bpp};
    case kFormatJpeg:  // grey pages stay grey, everything else 24 bits
      return {bpp <= 8 ? 8u : 24u};
    case kFormatGif:  // read back as 256-colour pages
      return {8};
    case kFormatPng:
      if (deep) return {48, FIT_RGB16};
      return {floating || bpp == 16 ? 24u : bpp};
    case kFormatTga:
      return {bpp < 8 ? 8u : (deep || floating ? 24u : bpp)};
    case kFormatTiff:
      if (deep) return {48, FIT_RGB16};
      if (floating) return {96, FIT_RGBF};
      return {bpp == 16 ? 24u : bpp};
    default:  // EXR: float RGB, RGBA for pages with alpha
      return bpp == 32 ? Expected{128, FIT_RGBAF} : Expected{96, FIT_RGBF};
  }
}

class ImagingSave : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;

  // A 37 x 23 page of the kind, made the way a run makes it: loaded, then converted. The 32-bit
  // page has real alpha (an opaque one is written as 24 bits by the PNG encoder).
  Handle MakePage(Kind kind) {
    CallResult result = 0;
    if (kind == Kind::kRgb16) {
      EXPECT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 37, 23));
      return testing_pages::LoadPage(library, folder.file("deep.png"));
    }
    if (kind == Kind::kThirtyTwo) {
      EXPECT_TRUE(samples::WriteAlphaPng(folder.file("alpha.png"), 37, 23));
      return testing_pages::LoadPage(library, folder.file("alpha.png"));
    }
    if (kind == Kind::kRgbFloat) {
      EXPECT_TRUE(samples::WriteFloatExr(folder.file("sky.exr"), 37, 23));
      return testing_pages::LoadPage(library, folder.file("sky.exr"));
    }
    EXPECT_TRUE(samples::WritePhotoJpeg(folder.file("photo.jpg"), 37, 23));
    Handle page = testing_pages::LoadPage(library, folder.file("photo.jpg"));
    switch (kind) {
      case Kind::kMono:
        library.ConvertToMono(page, page, 2, 128, result);
        break;
      case Kind::kFour:
        library.ConvertToIndexed4(page, page, 4, result);
        break;
      case Kind::kEight:
        library.ConvertToIndexed8(page, page, 4, result);
        break;
      case Kind::kSixteen:
        library.ConvertTo16Bits(page, page, true, result);
        break;
      default:
        result = -1;
    }
    EXPECT_NE(result, 0);
    return page;
  }
};

TEST_F(ImagingSave, EveryFormatFromEveryPageKindWritesTheNearestDepth) {
  for (const PageKind& kind : kKinds) {
    const Handle page = MakePage(kind.kind);
    ASSERT_EQ(FactsOf(library, page).bpp, kind.bpp) << kind.name;
    for (const OutputFormat& format : kFormats) {
      const std::string path = folder.file(std::string(kind.name) + "." + format.extension);
      CallResult result = 0;
      library.FreeImage_Save(page, path, format.number, 0, -1, result);
      EXPECT_NE(result, 0) << kind.name << " to " << format.extension;
      const testing::ImageFacts facts = testing::ReadImageFacts(path);
      ASSERT_TRUE(facts.readable) << kind.name << " to " << format.extension;
      EXPECT_EQ(facts.format, format.read_back);
      EXPECT_EQ(facts.width, 37u);
      EXPECT_EQ(facts.height, 23u);
      const Expected expected = ExpectedFor(format.number, kind);
      EXPECT_EQ(facts.bpp, expected.bpp) << kind.name << " to " << format.extension;
      EXPECT_EQ(facts.image_type, expected.type) << kind.name << " to " << format.extension;
      // The page itself never changes with the save.
      EXPECT_EQ(FactsOf(library, page).bpp, kind.bpp);
    }
    library.Release(page);
  }
}

TEST_F(ImagingSave, JpegFlagsAreTheQuality) {
  const Handle page = MakePage(Kind::kThirtyTwo);
  CallResult low = 0, high = 0;
  library.FreeImage_Save(page, folder.file("low.jpg"), kFormatJpeg, 5, -1, low);
  library.FreeImage_Save(page, folder.file("high.jpg"), kFormatJpeg, 100, -1, high);
  ASSERT_NE(low, 0);
  ASSERT_NE(high, 0);
  EXPECT_LT(std::filesystem::file_size(folder.file("low.jpg")) * 3 / 2, std::filesystem::file_size(folder.file("high.jpg")));
}

TEST_F(ImagingSave, TiffCompressionFlagsStillWriteAFile) {
  const Handle page = MakePage(Kind::kTwentyFour);
  // CMYK with LZW, and a fax compression that a colour page cannot take.
  for (const int flags : {0x4001, 0x2000, 0x0800 | 0x0100}) {
    const std::string path = folder.file("flags" + std::to_string(flags) + ".tif");
    CallResult result = 0;
    library.FreeImage_Save(page, path, kFormatTiff, flags, -1, result);
    EXPECT_NE(result, 0) << flags;
    EXPECT_TRUE(testing::ReadImageFacts(path).readable) << flags;
  }
}

TEST_F(ImagingSave, FormatNumberDecidesNotTheName) {
  const Handle page = MakePage(Kind::kTwentyFour);
  CallResult result = 0;
  library.FreeImage_Save(page, folder.file("preview.dat"), kFormatPng, 0, -1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(testing::ReadImageFacts(folder.file("preview.dat")).format, FIF_PNG);
  // A format number FreeImage does not know, or a folder that does not exist, writes nothing.
  library.FreeImage_Save(page, folder.file("x.png"), 999, 0, -1, result);
  EXPECT_EQ(result, 0);
  library.FreeImage_Save(page, folder.file("no/such/folder/x.png"), kFormatPng, 0, -1, result);
  EXPECT_EQ(result, 0);
  EXPECT_FALSE(std::filesystem::exists(folder.file("x.png")));
}

}  // namespace
}  // namespace velmora::imaging
