// Appending pages to GIF and TIFF files: one file with every page in order, written when another
// path is named, at FlushAppendedPages, at a plain save to the same path, or when the object goes.
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

// Width and depth of each page of a multipage file as stored, read directly with FreeImage.
std::vector<std::pair<unsigned, unsigned>> StoredPages(const std::string& path) {
  std::vector<std::pair<unsigned, unsigned>> pages;
  const FREE_IMAGE_FORMAT format = FreeImage_GetFileType(path.c_str(), 0);
  FIMULTIBITMAP* multi = FreeImage_OpenMultiBitmap(format, path.c_str(), FALSE, TRUE, TRUE, 0);
  for (int i = 0; multi && i < FreeImage_GetPageCount(multi); ++i) {
    FIBITMAP* page = FreeImage_LockPage(multi, i);
    pages.emplace_back(FreeImage_GetWidth(page), FreeImage_GetBPP(page));
    FreeImage_UnlockPage(multi, page, FALSE);
  }
  if (multi) FreeImage_CloseMultiBitmap(multi, 0);
  return pages;
}

class ImagingMultipage : public ::testing::Test {
 protected:
  testing::TempFolder folder;

  // A 24-bit photo page `width` pixels wide: pages are told apart by their widths.
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

TEST_F(ImagingMultipage, GifAndTiffGetEveryPageInOrderAtTheDepthTheyTake) {
  ImagingLibrary library;
  const Handle pages[] = {Page(library, 30), Page(library, 40), Page(library, 50)};
  for (const char* name : {"anim.gif", "scan.tif"}) {
    for (const Handle page : pages) EXPECT_NE(Append(library, name, page), 0) << name;
    library.FlushAppendedPages();
  }
  using Stored = std::vector<std::pair<unsigned, unsigned>>;
  EXPECT_EQ(StoredPages(folder.file("anim.gif")), (Stored{{30, 8}, {40, 8}, {50, 8}}));
  EXPECT_EQ(StoredPages(folder.file("scan.tif")), (Stored{{30, 24}, {40, 24}, {50, 24}}));
  for (const Handle page : pages) EXPECT_EQ(testing_pages::FactsOf(library, page).bpp, 24u);
  // Pages of other depths go into a TIFF as they are; a single-page format takes no appends.
  Handle mono = 0, deep = 0;
  CallResult result = 0;
  library.ConvertToMono(pages[0], mono, 2, 128, result);
  ASSERT_TRUE(samples::WriteDeepPng(folder.file("deep.png"), 35, 10));
  deep = testing_pages::LoadPage(library, folder.file("deep.png"));
  for (const Handle page : {mono, deep}) EXPECT_NE(Append(library, "mixed.tif", page, 0x4000), 0);
  EXPECT_EQ(Append(library, "single.jpg", mono), 0);
  library.FlushAppendedPages();
  EXPECT_EQ(StoredPages(folder.file("mixed.tif")), (Stored{{30, 1}, {35, 48}}));
  EXPECT_FALSE(std::filesystem::exists(folder.file("single.jpg")));
}

TEST_F(ImagingMultipage, TheFileIsWrittenWhenTheRunMovesOnOrTheObjectGoes) {
  {
    ImagingLibrary library;
    const Handle first = Page(library, 30), second = Page(library, 40);
    EXPECT_NE(Append(library, "a.tif", first), 0);
    EXPECT_NE(Append(library, "a.tif", second), 0);
    library.Release(first);  // the open file keeps copies of its pages
    library.Release(second);
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.tif")));
    EXPECT_NE(Append(library, "b.tif", Page(library, 50)), 0);
    EXPECT_EQ(StoredPages(folder.file("a.tif")).size(), 2u);
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.tif")));
  }
  EXPECT_EQ(StoredPages(folder.file("b.tif")).size(), 1u);
}

TEST_F(ImagingMultipage, ANewRoundForAPathStartsAFreshFileAndAPlainSaveWins) {
  ImagingLibrary library;
  const Handle page = Page(library, 30);
  for (int round = 1; round <= 2; ++round) {
    for (int i = 0; i < 3 - round; ++i) EXPECT_NE(Append(library, "again.gif", page), 0);
    library.FlushAppendedPages();
    EXPECT_EQ(StoredPages(folder.file("again.gif")).size(), static_cast<std::size_t>(3 - round));
  }
  EXPECT_NE(Append(library, "again.gif", page), 0);
  EXPECT_NE(Append(library, "again.gif", page), 0);
  CallResult result = 0;
  library.FreeImage_Save(page, folder.file("again.gif"), kFormatGif, 0, -1, result);
  EXPECT_NE(result, 0);
  library.FlushAppendedPages();
  EXPECT_EQ(StoredPages(folder.file("again.gif")).size(), 1u);
}

}  // namespace
}  // namespace velmora::imaging
