// Appending pages to multipage GIF and TIFF files: one file with every page in order, written
// when another path is named, at FlushAppendedPages, or when the imaging object goes.
#include <gtest/gtest.h>

#include <FreeImage.h>

#include <filesystem>
#include <vector>

#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/imaging/imaging_test_pages.h"
#include "tests/support/test_support.h"

namespace velmora::imaging {
namespace {

using testing_pages::FactsOf;

struct StoredPage {
  unsigned width = 0, bpp = 0;
};

// The pages of a multipage file as stored, read directly with FreeImage.
std::vector<StoredPage> StoredPages(const std::string& path) {
  std::vector<StoredPage> pages;
  const FREE_IMAGE_FORMAT format = FreeImage_GetFileType(path.c_str(), 0);
  FIMULTIBITMAP* multi = FreeImage_OpenMultiBitmap(format, path.c_str(), FALSE, TRUE, TRUE, 0);
  if (!multi) return pages;
  for (int i = 0; i < FreeImage_GetPageCount(multi); ++i) {
    FIBITMAP* page = FreeImage_LockPage(multi, i);
    if (!page) continue;
    pages.push_back({FreeImage_GetWidth(page), FreeImage_GetBPP(page)});
    FreeImage_UnlockPage(multi, page, FALSE);
  }
  FreeImage_CloseMultiBitmap(multi, 0);
  return pages;
}

class ImagingMultipage : public ::testing::Test {
 protected:
  testing::TempFolder folder;

  // A 24-bit photo page `width` pixels wide, to tell pages apart by their width.
  Handle Page(ImagingLibrary& library, int width) {
    const std::string path = folder.file("photo" + std::to_string(width) + ".jpg");
    EXPECT_TRUE(samples::WritePhotoJpeg(path, width, 20));
    return testing_pages::LoadPage(library, path);
  }

  CallResult Append(ImagingLibrary& library, const std::string& name, Handle page, int flags = 0) {
    CallResult result = 0;
    library.AppendPageToFile(folder.file(name), page, -1, flags, -1, result);
    return result;
  }
};

TEST_F(ImagingMultipage, GifAndTiffGetEveryPageInOrder) {
  ImagingLibrary library;
  const Handle pages[] = {Page(library, 30), Page(library, 40), Page(library, 50)};
  for (const char* name : {"anim.gif", "scan.tif"}) {
    for (const Handle page : pages) EXPECT_NE(Append(library, name, page), 0) << name;
    library.FlushAppendedPages();
    const auto stored = StoredPages(folder.file(name));
    ASSERT_EQ(stored.size(), 3u) << name;
    EXPECT_EQ(stored[0].width, 30u);
    EXPECT_EQ(stored[1].width, 40u);
    EXPECT_EQ(stored[2].width, 50u);
  }
  // The GIF holds 8-bit pages made for it; the pages themselves are still 24 bits.
  for (const StoredPage& page : StoredPages(folder.file("anim.gif"))) EXPECT_EQ(page.bpp, 8u);
  for (const StoredPage& page : StoredPages(folder.file("scan.tif"))) EXPECT_EQ(page.bpp, 24u);
  for (const Handle page : pages) EXPECT_EQ(FactsOf(library, page).bpp, 24u);
}

TEST_F(ImagingMultipage, AnotherPathClosesTheFirstFileAndTheObjectClosesTheLast) {
  {
    ImagingLibrary library;
    const Handle first = Page(library, 30), second = Page(library, 40);
    EXPECT_NE(Append(library, "a.tif", first), 0);
    EXPECT_NE(Append(library, "a.tif", second), 0);
    // The pages may go once appended: the open file keeps its own copies.
    library.Release(first);
    library.Release(second);
    EXPECT_FALSE(testing::ReadImageFacts(folder.file("a.tif")).readable);
    const Handle third = Page(library, 50);
    EXPECT_NE(Append(library, "b.tif", third), 0);
    EXPECT_EQ(StoredPages(folder.file("a.tif")).size(), 2u);
    EXPECT_FALSE(testing::ReadImageFacts(folder.file("b.tif")).readable);
  }
  const auto last = StoredPages(folder.file("b.tif"));
  ASSERT_EQ(last.size(), 1u);
  EXPECT_EQ(last[0].width, 50u);
}

TEST_F(ImagingMultipage, ANewRoundForThePathStartsAFreshFile) {
  ImagingLibrary library;
  const Handle page = Page(library, 30);
  EXPECT_NE(Append(library, "again.gif", page), 0);
  EXPECT_NE(Append(library, "again.gif", page), 0);
  library.FlushAppendedPages();
  EXPECT_EQ(StoredPages(folder.file("again.gif")).size(), 2u);
  EXPECT_NE(Append(library, "again.gif", page), 0);
  library.FlushAppendedPages();
  EXPECT_EQ(StoredPages(folder.file("again.gif")).size(), 1u);
  // A plain save to the path of the open file finishes it first, and the save is what stays.
  EXPECT_NE(Append(library, "again.gif", page), 0);
  EXPECT_NE(Append(library, "again.gif", page), 0);
  CallResult result = 0;
  library.FreeImage_Save(page, folder.file("again.gif"), kFormatGif, 0, -1, result);
  EXPECT_NE(result, 0);
  library.FlushAppendedPages();
  EXPECT_EQ(StoredPages(folder.file("again.gif")).size(), 1u);
}

TEST_F(ImagingMultipage, PagesOfEveryDepthGoIntoATiffAndNothingIntoASinglePageFormat) {
  ImagingLibrary library;
  Handle photo = Page(library, 30), mono = 0, deep = 0;
  CallResult result = 0;
  library.ConvertToMono(photo, mono, 2, 128, result);
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 35, 10));
  deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  for (const Handle page : {photo, mono, deep}) EXPECT_NE(Append(library, "mixed.tif", page, 0x4000), 0);
  EXPECT_EQ(Append(library, "single.jpg", photo), 0);
  library.FlushAppendedPages();
  const auto stored = StoredPages(folder.file("mixed.tif"));
  ASSERT_EQ(stored.size(), 3u);
  EXPECT_EQ(stored[0].bpp, 24u);
  EXPECT_EQ(stored[1].bpp, 1u);
  EXPECT_EQ(stored[2].bpp, 48u);
  EXPECT_FALSE(std::filesystem::exists(folder.file("single.jpg")));
}

}  // namespace
}  // namespace velmora::imaging
