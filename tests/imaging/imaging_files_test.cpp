// Loading, page counts and multipage loading through ImagingLibrary, including files that are
// missing, empty or garbage.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <filesystem>
#include <fstream>

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

  std::string Garbage(const std::string& name) {
    std::string bytes;
    for (int i = 0; i < 4000; ++i) bytes.push_back(static_cast<char>((i * 7919 + 13) % 251));
    testing::WriteWholeFile(folder.file(name), bytes);
    return folder.file(name);
  }
  std::string Empty(const std::string& name) {
    testing::WriteWholeFile(folder.file(name), "");
    return folder.file(name);
  }
};

TEST_F(ImagingFiles, LoadDetectsTheFormatFromTheContent) {
  // A JPEG under a PNG name is still read as what it holds.
  const std::string path = folder.file("photo.png");
  ASSERT_TRUE(samples::WritePhotoJpeg(path, 64, 48));
  Handle page = 0;
  CallResult result = 0;
  library.FreeImage_Load(path, page, -1, 0, result);
  ASSERT_NE(result, 0);
  const auto facts = FactsOf(library, page);
  EXPECT_EQ(facts.width, 64u);
  EXPECT_EQ(facts.height, 48u);
  EXPECT_EQ(facts.bpp, 24u);
}

TEST_F(ImagingFiles, IconLoadsWithItsAlpha) {
  const std::string path = folder.file("app.ico");
  ASSERT_TRUE(samples::WriteIcon(path, 32));
  Handle page = 0;
  CallResult result = 0;
  library.FreeImage_Load(path, page, kFormatIco, 1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, page).bpp, 32u);
  EXPECT_EQ(PixelAt(library, page, 0, 0).a, 0);     // outside the disc
  EXPECT_EQ(PixelAt(library, page, 16, 16).a, 255);  // inside it
  // An ".ico" that is really a PNG is read by its content.
  const std::string fake = folder.file("fake.ico");
  testing_pages::WriteSolid(fake, 5, 3, {1, 2, 3, 255});
  Handle other = 0;
  library.FreeImage_Load(fake, other, kFormatIco, 1, result);
  ASSERT_NE(result, 0);
  EXPECT_EQ(FactsOf(library, other).width, 5u);
}

TEST_F(ImagingFiles, LoadFailsQuietlyOnMissingEmptyAndGarbageFiles) {
  std::vector<std::string> bad = {folder.file("missing.jpg"), folder.path().string(), ""};
  for (const char* extension : {"jpg", "png", "gif", "tif", "bmp", "ico", "tga", "exr"}) {
    bad.push_back(Garbage(std::string("garbage.") + extension));
    bad.push_back(Empty(std::string("empty.") + extension));
  }
  for (const std::string& path : bad) {
    for (const int format : {-1, static_cast<int>(kFormatIco), static_cast<int>(kFormatJpeg)}) {
      Handle page = 0;
      CallResult result = 7;
      library.FreeImage_Load(path, page, format, format == kFormatIco ? 1 : 0, result);
      EXPECT_EQ(result, 0) << path;
      EXPECT_EQ(page, 0u) << path;
    }
    std::int32_t count = 7;
    CallResult result = 7;
    library.CountPages(path, count, result);
    EXPECT_EQ(count, 0) << path;
    EXPECT_EQ(result, 0) << path;
    std::vector<Handle> pages = {99};
    std::int32_t unused = 0;
    library.LoadAllPages(path, pages, unused, result);
    EXPECT_EQ(result, 0) << path;
    EXPECT_TRUE(pages.empty()) << path;
  }
  EXPECT_EQ(library.LiveImageCount(), 0u);
}

TEST_F(ImagingFiles, TruncatedFilesNeverCrashAndGiveAtMostWhatIsThere) {
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("full.tif"), 40, 30, 3));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("full.gif"), 40, 30, 3));
  ASSERT_TRUE(samples::WriteAlphaPng(folder.file("full.png"), 40, 30));
  ASSERT_TRUE(samples::WriteIcon(folder.file("full.ico"), 32));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("full.exr"), 40, 30));
  for (const char* extension : {"tif", "gif", "png", "ico", "exr"}) {
    const std::string whole = testing::ReadWholeFile(folder.file(std::string("full.") + extension));
    for (const std::size_t keep : {std::size_t{8}, std::size_t{40}, whole.size() / 2}) {
      const std::string path = folder.file("cut" + std::to_string(keep) + "." + extension);
      testing::WriteWholeFile(path, whole.substr(0, keep));
      std::int32_t count = -1;
      CallResult result = 0;
      library.CountPages(path, count, result);
      EXPECT_LE(count, 3) << path;
      EXPECT_EQ(result != 0, count > 0) << path;
      std::vector<Handle> pages;
      std::int32_t unused = 0;
      library.LoadAllPages(path, pages, unused, result);
      EXPECT_LE(pages.size(), 3u) << path;
      EXPECT_EQ(result != 0, !pages.empty()) << path;
    }
  }
}

TEST_F(ImagingFiles, CountPagesIsOneForEverySingleImageFile) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("a.jpg"), 20, 10));
  ASSERT_TRUE(samples::WriteAlphaPng(folder.file("a.png"), 20, 10));
  ASSERT_TRUE(samples::WritePaletteBmp(folder.file("a.bmp"), 20, 10));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("a.exr"), 20, 10));
  ASSERT_TRUE(samples::WriteIcon(folder.file("a.ico"), 16));
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("a.tif"), 20, 10, 1));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("a.gif"), 20, 10, 1));
  for (const char* name : {"a.jpg", "a.png", "a.bmp", "a.exr", "a.ico", "a.tif", "a.gif"}) {
    std::int32_t count = 0;
    CallResult result = 0;
    library.CountPages(folder.file(name), count, result);
    EXPECT_EQ(count, 1) << name;
    EXPECT_NE(result, 0) << name;
  }
}

TEST_F(ImagingFiles, MultipageFilesAreCountedAndLoadedPageByPage) {
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("scan.tif"), 24, 32, 3));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("spin.gif"), 30, 20, 4));
  struct Case {
    const char* name;
    int pages;
    unsigned width, height;
  };
  for (const Case c : {Case{"scan.tif", 3, 24, 32}, Case{"spin.gif", 4, 30, 20}}) {
    std::int32_t count = 0;
    CallResult result = 0;
    library.CountPages(folder.file(c.name), count, result);
    EXPECT_EQ(count, c.pages) << c.name;
    std::vector<Handle> pages;
    std::int32_t unused = 0;
    library.LoadAllPages(folder.file(c.name), pages, unused, result);
    ASSERT_NE(result, 0) << c.name;
    ASSERT_EQ(pages.size(), static_cast<std::size_t>(c.pages)) << c.name;
    for (const Handle page : pages) {
      const auto facts = FactsOf(library, page);
      EXPECT_EQ(facts.width, c.width);
      EXPECT_EQ(facts.height, c.height);
    }
  }
  EXPECT_EQ(library.LiveImageCount(), 7u);
}

TEST_F(ImagingFiles, AnimatedGifFramesAreComposedAsShownAndDiffer) {
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("spin.gif"), 30, 20, 3));
  std::vector<Handle> pages;
  std::int32_t unused = 0;
  CallResult result = 0;
  library.LoadAllPages(folder.file("spin.gif"), pages, unused, result);
  ASSERT_EQ(pages.size(), 3u);
  // The generator tints each frame differently: a corner shows it, opaque.
  const auto first = PixelAt(library, pages[0], 0, 0), second = PixelAt(library, pages[1], 0, 0);
  EXPECT_NE(first, second);
  EXPECT_EQ(first.a, 255);
}

TEST_F(ImagingFiles, LoadAllPagesGivesOnePageForASingleImageFormat) {
  ASSERT_TRUE(samples::WritePhotoJpeg(folder.file("one.jpg"), 40, 30));
  std::vector<Handle> pages;
  std::int32_t unused = 0;
  CallResult result = 0;
  library.LoadAllPages(folder.file("one.jpg"), pages, unused, result);
  ASSERT_NE(result, 0);
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_EQ(FactsOf(library, pages[0]).width, 40u);
}

}  // namespace
}  // namespace velmora::imaging
