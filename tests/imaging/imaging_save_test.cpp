// Saving: every output format from pages of every depth and pixel type writes a readable file of
// the nearest depth the format takes; the caller's page is untouched; flags reach the encoder.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <filesystem>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;

// Page kinds by their depth: 1, 4, 8 (grey), 16 (5:6:5), 24, 32 (with alpha), 48 (RGB16), 96 (RGBF).
constexpr unsigned kKinds[] = {1, 4, 8, 16, 24, 32, 48, 96};

struct Expected {
  unsigned bpp;
  int type = FIT_BITMAP;
};

// What each format holds after the save: the page's own depth where it takes it, else the nearest.
Expected ExpectedFor(int format, unsigned bpp) {
  const bool deep = bpp == 48, floating = bpp == 96;
  switch (format) {
    case kFormatBmp: return {deep || floating ? 24u : bpp};
    case kFormatJpeg:  // grey pages stay grey
      return {bpp <= 8 ? 8u : 24u};
    case kFormatGif:  // read back as 256-colour pages
      return {8};
    case kFormatPng: return deep ? Expected{48, FIT_RGB16} : Expected{floating || bpp == 16 ? 24u : bpp};
    case kFormatTga: return {bpp < 8 ? 8u : deep || floating ? 24u : bpp};
    case kFormatTiff:
      if (deep) return {48, FIT_RGB16};
      return floating ? Expected{96, FIT_RGBF} : Expected{bpp == 16 ? 24u : bpp};
    default:  // EXR: float RGB, RGBA for pages with alpha
      return bpp == 32 ? Expected{128, FIT_RGBAF} : Expected{96, FIT_RGBF};
  }
}

class ImagingSave : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;

  // A 37 x 23 page of the kind, made the way a run makes it: loaded, then converted.
  Handle MakePage(unsigned bpp) {
    CallResult result = -1;
    if (bpp == 32 || bpp == 48 || bpp == 96) {
      const std::string path = folder.file("page.png");
      const bool written = bpp == 32   ? samples::WriteAlphaPng(path, 37, 23)
                           : bpp == 48 ? samples::WriteDeepPng(path, 37, 23)
                                       : samples::WriteFloatExr(path, 37, 23);
      EXPECT_TRUE(written);
      return testing_pages::LoadPage(library, path);
    }
    EXPECT_TRUE(samples::WritePhotoJpeg(folder.file("page.jpg"), 37, 23));
    Handle page = testing_pages::LoadPage(library, folder.file("page.jpg"));
    if (bpp == 1) library.ConvertToMono(page, page, 2, 128, result);
    if (bpp == 4) library.ConvertToIndexed4(page, page, 4, result);
    if (bpp == 8) library.ConvertToIndexed8(page, page, 4, result);
    if (bpp == 16) library.ConvertTo16Bits(page, page, true, result);
    EXPECT_NE(result, 0);
    return page;
  }
};

TEST_F(ImagingSave, EveryFormatFromEveryPageKindWritesTheNearestDepth) {
  constexpr std::pair<int, FREE_IMAGE_FORMAT> kFormats[] = {
      {kFormatBmp, FIF_BMP},   {kFormatJpeg, FIF_JPEG}, {kFormatGif, FIF_GIF}, {kFormatPng, FIF_PNG},
      {kFormatTga, FIF_TARGA}, {kFormatTiff, FIF_TIFF}, {kFormatExr, FIF_EXR},
  };
  for (const unsigned bpp : kKinds) {
    const Handle page = MakePage(bpp);
    ASSERT_EQ(FactsOf(library, page).bpp, bpp);
    for (const auto& [format, read_back] : kFormats) {
      const std::string path = folder.file(std::to_string(bpp) + "-" + std::to_string(format) + ".out");
      CallResult result = 0;
      library.FreeImage_Save(page, path, format, 0, -1, result);
      EXPECT_NE(result, 0) << bpp << " bits to format " << format;
      const testing::ImageFacts facts = testing::ReadImageFacts(path);
      ASSERT_TRUE(facts.readable) << bpp << " bits to format " << format;
      EXPECT_EQ(facts.format, read_back);
      EXPECT_EQ(facts.width * facts.height, 37u * 23u);
      EXPECT_EQ(facts.bpp, ExpectedFor(format, bpp).bpp) << bpp << " bits to format " << format;
      EXPECT_EQ(facts.image_type, ExpectedFor(format, bpp).type) << bpp << " bits to format " << format;
      EXPECT_EQ(FactsOf(library, page).bpp, bpp);  // the page itself never changes
    }
    library.Release(page);
  }
}

TEST_F(ImagingSave, FlagsReachTheEncoderAndTheNumberDecidesTheFormat) {
  const Handle page = MakePage(32);
  CallResult low = 0, high = 0, result = 0;
  library.FreeImage_Save(page, folder.file("low.jpg"), kFormatJpeg, 5, -1, low);
  library.FreeImage_Save(page, folder.file("high.jpg"), kFormatJpeg, 100, -1, high);
  ASSERT_NE(low * high, 0);
  EXPECT_LT(std::filesystem::file_size(folder.file("low.jpg")) * 3 / 2,
            std::filesystem::file_size(folder.file("high.jpg")));
  // CMYK with LZW, and a fax compression that a colour page cannot take: a file all the same.
  for (const int flags : {0x4001, 0x2000, 0x0800 | 0x0100}) {
    const std::string path = folder.file("flags" + std::to_string(flags) + ".tif");
    library.FreeImage_Save(page, path, kFormatTiff, flags, -1, result);
    EXPECT_NE(result, 0) << flags;
    EXPECT_TRUE(testing::ReadImageFacts(path).readable) << flags;
  }
  library.FreeImage_Save(page, folder.file("preview.dat"), kFormatPng, 0, -1, result);
  EXPECT_EQ(testing::ReadImageFacts(folder.file("preview.dat")).format, FIF_PNG);
  library.FreeImage_Save(page, folder.file("x.png"), 999, 0, -1, result);
  EXPECT_EQ(result, 0);
  library.FreeImage_Save(page, folder.file("no/such/folder/x.png"), kFormatPng, 0, -1, result);
  EXPECT_EQ(result, 0);
  EXPECT_FALSE(std::filesystem::exists(folder.file("x.png")));
}

}  // namespace
}  // namespace velmora::imaging
