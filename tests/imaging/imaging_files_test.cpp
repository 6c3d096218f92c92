// Loading and page counting through ImagingLibrary: detection by content, icons with alpha,
// multipage files page by page, and files that are missing, empty, garbage or cut short.
#include <gtest/gtest.h>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;
using testing_pages::PixelAt;

class ImagingFiles : public ::testing::Test {
 protected:
  testing::TempFolder folder;
  ImagingLibrary library;

  std::int32_t Count(const std::string& name, CallResult* result_out = nullptr) {
    std::int32_t count = -1;
    CallResult result = 0;
    library.CountPages(folder.file(name), count, result);
    EXPECT_EQ(result != 0, count > 0) << name;
    if (result_out) *result_out = result;
    return count;
  }
  std::vector<Handle> LoadAll(const std::string& name) {
    std::vector<Handle> pages = {99};
    std::int32_t unused = 0;
    CallResult result = 0;
    library.LoadAllPages(folder.file(name), pages, unused, result);
    EXPECT_EQ(result != 0, !pages.empty()) << name;
    return pages;
  }
};

TEST_F(ImagingFiles, LoadReadsByContentAndIconsKeepTheirAlpha) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("photo.png"), 64, 48));  // a JPEG under a PNG name
  ASSERT_TRUE(samples::WriteIcon(folder.file("app.ico"), 32));
  testing_pages::WriteSolid(folder.file("fake.ico"), 5, 3, {1, 2, 3, 255});  // a PNG under an icon name
  Handle photo = 0, icon = 0, fake = 0;
  CallResult result = 0;
  library.FreeImage_Load(folder.file("photo.png"), photo, -1, 0, result);
  EXPECT_EQ(FactsOf(library, photo).bpp, 24u);
  EXPECT_EQ(FactsOf(library, photo).width, 64u);
  library.FreeImage_Load(folder.file("app.ico"), icon, kFormatIco, 1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, icon).bpp, 32u);
  EXPECT_EQ(PixelAt(library, icon, 0, 0).a, 0);      // outside the disc
  EXPECT_EQ(PixelAt(library, icon, 16, 16).a, 255);  // inside it
  library.FreeImage_Load(folder.file("fake.ico"), fake, kFormatIco, 1, result);
  EXPECT_EQ(FactsOf(library, fake).width, 5u);
}

TEST_F(ImagingFiles, MissingEmptyAndGarbageFilesFailQuietly) {
  std::string garbage;
  for (int i = 0; i < 4000; ++i) garbage.push_back(static_cast<char>((i * 7919 + 13) % 251));
  std::vector<std::string> names = {"missing.jpg", ""};
  for (const char* extension : {"jpg", "png", "gif", "tif", "bmp", "ico", "tga", "exr"}) {
    testing::WriteWholeFile(folder.file(std::string("garbage.") + extension), garbage);
    testing::WriteWholeFile(folder.file(std::string("empty.") + extension), "");
    names.push_back(std::string("garbage.") + extension);
    names.push_back(std::string("empty.") + extension);
  }
  for (const std::string& name : names) {
    for (const int format : {-1, int{kFormatIco}, int{kFormatJpeg}}) {
      Handle page = 0;
      CallResult result = 7;
      library.FreeImage_Load(folder.file(name), page, format, format == kFormatIco ? 1 : 0, result);
      EXPECT_EQ(result + page, 0) << name;
    }
    CallResult result = 7;
    EXPECT_EQ(Count(name, &result), 0) << name;
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(LoadAll(name).empty()) << name;
  }
  EXPECT_EQ(library.LiveImageCount(), 0u);
}

TEST_F(ImagingFiles, FilesCutShortNeverHangAndGiveAtMostWhatIsThere) {
  // Cuts inside an icon directory or an EXR header once made FreeImage hang or allocate gigabytes.
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("full.tif"), 40, 30, 3));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("full.gif"), 40, 30, 3));
  ASSERT_TRUE(samples::WriteIcon(folder.file("full.ico"), 32));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("full.exr"), 40, 30));
  for (const std::string extension : {"tif", "gif", "ico", "exr"}) {
    const std::string whole = testing::ReadWholeFile(folder.file("full." + extension));
    for (const std::size_t keep :
         {std::size_t{5}, std::size_t{12}, std::size_t{30}, std::size_t{60}, whole.size() / 2}) {
      const std::string name = "cut" + std::to_string(keep) + "." + extension;
      testing::WriteWholeFile(folder.file(name), whole.substr(0, keep));
      EXPECT_LE(Count(name), 3) << name;
      EXPECT_LE(LoadAll(name).size(), 3u) << name;
    }
  }
}

TEST_F(ImagingFiles, SingleImageFilesCountOneAndLoadAsOnePage) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("a.jpg"), 20, 10));
  ASSERT_TRUE(samples::WritePaletteBmp(folder.file("a.bmp"), 20, 10));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("a.exr"), 20, 10));
  ASSERT_TRUE(samples::WriteIcon(folder.file("a.ico"), 16));
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("a.tif"), 20, 10, 1));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("a.gif"), 20, 10, 1));
  for (const char* name : {"a.jpg", "a.bmp", "a.exr", "a.ico", "a.tif", "a.gif"}) {
    EXPECT_EQ(Count(name), 1) << name;
    EXPECT_EQ(LoadAll(name).size(), 1u) << name;
  }
}

TEST_F(ImagingFiles, MultipageFilesLoadEveryPageAndGifFramesAsShown) {
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("scan.tif"), 24, 32, 3));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("spin.gif"), 30, 20, 4));
  EXPECT_EQ(Count("scan.tif"), 3);
  EXPECT_EQ(Count("spin.gif"), 4);
  const auto scan = LoadAll("scan.tif"), spin = LoadAll("spin.gif");
  ASSERT_EQ(scan.size(), 3u);
  ASSERT_EQ(spin.size(), 4u);
  for (const Handle page : scan) EXPECT_EQ(FactsOf(library, page).height, 32u);
  for (const Handle page : spin) EXPECT_EQ(FactsOf(library, page).width, 30u);
  // Each frame is tinted differently by the generator, and composed frames are opaque.
  EXPECT_NE(PixelAt(library, spin[0], 0, 0), PixelAt(library, spin[1], 0, 0));
  EXPECT_EQ(PixelAt(library, spin[2], 0, 0).a, 255);
  EXPECT_EQ(library.LiveImageCount(), 7u);
}

}  // namespace
}  // namespace velmora::imaging
