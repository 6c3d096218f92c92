// Photo formats through the back end: HEIF containers made by libheif's own encoder (heif-enc) read as pages of
// their depth, AVIF and WebP written and read back, colour profiles and EXIF carried, pages turned upright.
#include <FreeImage.h>
#include <gtest/gtest.h>

#include "imaging/encoded_image.h"
#include "imaging/exif_block.h"
#include "imaging/image_files.h"
#include "tests/imaging/pages.h"
#include "tests/support/test_support.h"

namespace velmora::testing {
namespace {

using imaging::Bitmap;

// A TIFF block, Intel or Motorola byte order, whose first directory holds only the orientation tag.
std::vector<std::uint8_t> OrientationBlock(int orientation, bool big_endian) {
  const std::uint8_t o = std::uint8_t(orientation);
  if (big_endian) return {'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0, 1, 0, o, 0, 0, 0, 0, 0, 0};
  return {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 0x01, 3, 0, 1, 0, 0, 0, o, 0, 0, 0, 0, 0, 0, 0};
}

TEST(PhotoFormats, HeifFilesReadAsPagesOfTheirDepth) {
  TempFolder dir;
  const std::string photo = dir.file("photo.png"), deep = dir.file("deep.png");
  ASSERT_TRUE(samples::WritePhoto(photo, 64, 48, 3) && samples::WriteDeepPng(deep, 64, 48));
  // libheif 1.15 with libaom 3.6 codes 10-bit AV1 only as 4:2:2.
  ASSERT_TRUE(HeifEnc(dir.path(), "photo.png", "one.heic") && HeifEnc(dir.path(), "photo.png", "one.avif") &&
              HeifEnc(dir.path(), "photo.png deep.png", "two.heic") &&
              HeifEnc(dir.path(), "deep.png", "deep.avif", "-q 95 -b 10 -p chroma=422"));
  const Page photo_page(FreeImage_Load(FIF_PNG, photo.c_str(), 0)), deep_page(FreeImage_Load(FIF_PNG, deep.c_str(), 0));
  using Types = std::vector<FREE_IMAGE_TYPE>;  // one a page
  for (const auto& [name, types] : {std::pair{"one.heic", Types{FIT_BITMAP}},
                                    {"one.avif", Types{FIT_BITMAP}},
                                    {"two.heic", Types{FIT_BITMAP, FIT_RGB16}},
                                    {"deep.avif", Types{FIT_RGB16}}}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(imaging::CountImagePages(dir.file(name)), int(types.size()));
    const std::vector<Bitmap> pages = imaging::LoadImagePages(dir.file(name));
    ASSERT_EQ(pages.size(), types.size());
    for (std::size_t p = 0; p < pages.size(); ++p) {
      FIBITMAP* page = pages[p].get();
      EXPECT_EQ(std::tuple(FreeImage_GetImageType(page), FreeImage_GetBPP(page), FreeImage_GetWidth(page),
                           FreeImage_GetHeight(page)),
                std::tuple(types[p], types[p] == FIT_RGB16 ? 48u : 24u, 64u, 48u));
      EXPECT_LT(MeanDifference(page, types[p] == FIT_RGB16 ? deep_page.get() : photo_page.get()), 5.0);
    }
  }
  // A file cut short reads as nothing.
  const std::string whole = ReadWholeFile(dir.file("one.heic"));
  WriteWholeFile(dir.file("cut.heic"), whole.substr(0, whole.size() / 2));
  EXPECT_EQ(imaging::CountImagePages(dir.file("cut.heic")), 0);
  EXPECT_TRUE(imaging::LoadImagePages(dir.file("cut.heic")).empty());
}

// Every output that can carry a colour profile and EXIF does, through the depth conversion the format needs; AVIF
// at 10 bits reads back as 16 bits a channel; lossless WebP and PNG keep every pixel.
TEST(PhotoFormats, OutputsKeepPixelsDepthProfileAndExif) {
  TempFolder dir;
  const std::string icc = ReadWholeFile("/usr/share/color/icc/sRGB.icc");
  ASSERT_FALSE(icc.empty()) << "icc-profiles-free is missing";
  Page page = MakePage(40, 30, 32, [](int x, int y) { return Rgba{x * 6, y * 8, 128, 200 + x}; });
  FreeImage_CreateICCProfile(page.get(), const_cast<char*>(icc.data()), long(icc.size()));
  imaging::AttachRawExif(page.get(), OrientationBlock(3, false));
  const auto encode = [&](int format, int flags, const std::string& name) {
    std::vector<std::uint8_t> bytes;
    return imaging::EncodeToMemory(page.get(), format, flags, bytes, true) &&
           imaging::WriteBytesToFile(bytes, dir.file(name));
  };
  // Name, format, flags; then read back: bits per pixel, pixel tolerance, EXIF orientation (a HEIF container's own
  // boxes give its orientation, so the EXIF tag read back from AVIF is not taken).
  for (const auto& [name, format, flags, bpp, tolerance, orientation] :
       {std::tuple{"a.avif", imaging::kFormatAvif, 95, 32u, 3.0, 1},
        {"b.avif", imaging::kFormatAvif, 95 | imaging::kAvifTenBitsFlag, 48u, 3.0, 1},
        {"c.webp", imaging::kFormatWebp, 0x100, 32u, 0.0, 3},
        {"d.jpg", imaging::kFormatJpeg, 100, 24u, 3.0, 3},
        {"e.png", imaging::kFormatPng, 0, 32u, 0.0, 1}}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(encode(format, flags, name));
    const Bitmap back = imaging::LoadImageFile(dir.file(name), -1, 0);
    ASSERT_TRUE(back);
    EXPECT_EQ(FreeImage_GetBPP(back.get()), bpp);
    EXPECT_LE(MeanDifference(back.get(), page.get()), tolerance);
    EXPECT_EQ(ColourProfileOf(back.get()), icc);
    EXPECT_EQ(imaging::CameraOrientation(back.get()), orientation);
  }
  // A profile the PNG encoder refuses costs the profile, not the file.
  std::vector<BYTE> broken(132, 7);
  FreeImage_CreateICCProfile(page.get(), broken.data(), long(broken.size()));
  ASSERT_TRUE(encode(imaging::kFormatPng, 0, "f.png"));
  EXPECT_EQ(ColourProfileOf(imaging::LoadImageFile(dir.file("f.png"), -1, 0).get()), "");
}

// A page turned by each of the eight camera orientations, in both byte orders of the EXIF block, shows each stored
// pixel where the orientation's definition puts it, and is recorded upright.
TEST(PhotoFormats, TurnUprightFollowsEveryOrientation) {
  constexpr int kW = 3, kH = 2;
  const auto colour = [](int x, int y) { return Rgba{x * 80, y * 100, 7}; };
  // Where stored pixel (x, y) shows, by orientation 1 to 8.
  const auto shown = [](int o, int x, int y) -> std::pair<int, int> {
    switch (o) {
      case 2: return {kW - 1 - x, y};
      case 3: return {kW - 1 - x, kH - 1 - y};
      case 4: return {x, kH - 1 - y};
      case 5: return {y, x};
      case 6: return {kH - 1 - y, x};
      case 7: return {kH - 1 - y, kW - 1 - x};
      case 8: return {y, kW - 1 - x};
      default: return {x, y};
    }
  };
  for (int orientation = 1; orientation <= 8; ++orientation) {
    for (const bool big_endian : {false, true}) {
      SCOPED_TRACE(std::to_string(orientation) + (big_endian ? " MM" : " II"));
      Bitmap page(MakePage(kW, kH, 24, colour).release());
      imaging::AttachRawExif(page.get(), OrientationBlock(orientation, big_endian));
      ASSERT_TRUE(imaging::TurnUpright(page));
      const bool quarter = orientation >= 5;
      ASSERT_EQ(FreeImage_GetWidth(page.get()), unsigned(quarter ? kH : kW));
      for (int y = 0; y < kH; ++y) {
        for (int x = 0; x < kW; ++x) {
          const auto [sx, sy] = shown(orientation, x, y);
          EXPECT_EQ(PixelAt(page.get(), sx, sy), colour(x, y)) << "stored " << x << "," << y;
        }
      }
      EXPECT_EQ(imaging::CameraOrientation(page.get()), 1);
    }
  }
  // A block that ends with its last entry still reads; a 4-bit page, which FreeImage cannot turn, stays as it was.
  const std::vector<std::uint8_t> block = OrientationBlock(6, false);
  EXPECT_EQ(imaging::TiffOrientation({block.begin(), block.end() - 4}), 6);
  Bitmap four(FreeImage_Allocate(kW, kH, 4));
  imaging::AttachRawExif(four.get(), block);
  EXPECT_FALSE(imaging::TurnUpright(four));
  EXPECT_EQ(FreeImage_GetWidth(four.get()), unsigned(kW));
}

// A TIFF file's own orientation tag, which FreeImage does not pass on, turns the page read from it: a 3 by 2 RGB file
// written here byte by byte with orientation 6 reads as 2 by 3, the stored top row down its right side.
TEST_F(LibraryTest, ATiffFilesOrientationTagTurnsItsPage) {
  std::vector<std::uint8_t> file{'I', 'I', 42, 0, 8, 0, 0, 0, 9, 0};
  constexpr std::uint8_t kPixels = 8 + 2 + 9 * 12 + 4 + 6;  // header, directory, bits per sample
  // Tag, type (3 short, 4 long), count and value of each entry, in tag order.
  const int entries[] = {256, 3,       1,   3, 257, 3, 1,   2, 258, 3, 3,   kPixels - 6, 262, 3, 1,   2, 273, 4,
                         1,   kPixels, 274, 3, 1,   6, 277, 3, 1,   3, 278, 3,           1,   2, 279, 4, 1,   18};
  for (std::size_t i = 0; i < std::size(entries); i += 4) {
    const std::uint8_t tag[] = {std::uint8_t(entries[i]), std::uint8_t(entries[i] >> 8)};
    file.insert(file.end(), {tag[0], tag[1], std::uint8_t(entries[i + 1]), 0, std::uint8_t(entries[i + 2]), 0, 0, 0,
                             std::uint8_t(entries[i + 3]), 0, 0, 0});
  }
  file.insert(file.end(), {0, 0, 0, 0, 8, 0, 8, 0, 8, 0});  // no next directory; 8 bits a sample
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) file.insert(file.end(), {std::uint8_t(x * 80), std::uint8_t(y * 100), 7});
  }
  const std::string path = folder.file("side.tif");
  WriteWholeFile(path, std::string(file.begin(), file.end()));
  EXPECT_EQ(imaging::TiffFileOrientation(path, 0), 6);
  const imaging::Handle page = LoadPage(library, path);
  imaging::CallResult result = 0;
  library.TurnUpright(page, path, 0, result);
  ASSERT_EQ(FactsOf(library, page), (PageFacts{2, 3, 24}));
  for (int x = 0; x < 3; ++x) EXPECT_EQ(PixelAt(library, page, 1, x), (Rgba{x * 80, 0, 7})) << x;
}

}  // namespace
}  // namespace velmora::testing
