// Loading and page counting through ImagingLibrary: detection by content, icons with alpha,
// multipage files page by page, and files that are missing, empty, garbage or cut short.
#include <gtest/gtest.h>

#include <array>
#include <bit>

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

// A BMP with a newer info header (108 bytes for V4, 124 for V5), of 5 by 3 pixels coloured by
// BmpColour; `masks` are red, green, blue and alpha.
struct NewBmp {
  const char* name;
  std::uint32_t header_size;
  std::uint16_t bits;
  std::uint32_t compression;
  std::array<std::uint32_t, 4> masks;
  bool top_down;
  bool alpha_kept;
};

constexpr int kBmpWidth = 5, kBmpHeight = 3;

testing_pages::Rgba BmpColour(int x, int y) {
  return {static_cast<std::uint8_t>(x * 60), static_cast<std::uint8_t>(y * 90), 200,
          static_cast<std::uint8_t>(40 + x * 50)};
}

std::string NewBmpBytes(const NewBmp& bmp) {
  std::string out;
  auto put = [&out](std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
  };
  auto place = [](std::uint8_t channel, std::uint32_t mask) {
    if (!mask) return 0u;
    const int shift = std::countr_zero(mask), bits = std::popcount(mask);
    return (static_cast<std::uint32_t>(channel) >> (8 - bits)) << shift;
  };
  std::string pixels, table;
  for (int row = 0; row < kBmpHeight; ++row) {
    const int y = bmp.top_down ? row : kBmpHeight - 1 - row;
    std::string line;
    for (int x = 0; x < kBmpWidth; ++x) {
      const testing_pages::Rgba c = BmpColour(x, y);
      std::uint32_t value = 0;
      if (bmp.bits == 8) value = y * kBmpWidth + x;
      if (bmp.bits == 24) value = c.b | (c.g << 8) | (c.r << 16);
      if (bmp.bits >= 16 && bmp.compression != 0)
        value =
            place(c.r, bmp.masks[0]) | place(c.g, bmp.masks[1]) | place(c.b, bmp.masks[2]) | place(c.a, bmp.masks[3]);
      if (bmp.bits == 32 && bmp.compression == 0) value = c.b | (c.g << 8) | (c.r << 16) | (c.a << 24);
      for (int i = 0; i < bmp.bits / 8; ++i) line.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
    }
    line.resize((line.size() + 3) / 4 * 4, '\0');
    pixels += line;
  }
  const int colours_used = bmp.bits == 8 ? kBmpWidth * kBmpHeight : 0;  // a short colour table
  if (bmp.bits == 8) {
    for (int i = 0; i < colours_used; ++i) {
      const testing_pages::Rgba c = BmpColour(i % kBmpWidth, i / kBmpWidth);
      table += {static_cast<char>(c.b), static_cast<char>(c.g), static_cast<char>(c.r), 0};
    }
  }
  const std::uint32_t offset = 14 + bmp.header_size + static_cast<std::uint32_t>(table.size());
  out += "BM";
  put(offset + static_cast<std::uint32_t>(pixels.size()), 4);
  put(0, 4);
  put(offset, 4);
  put(bmp.header_size, 4);
  put(kBmpWidth, 4);
  put(static_cast<std::uint32_t>(bmp.top_down ? -kBmpHeight : kBmpHeight), 4);
  put(1, 2);
  put(bmp.bits, 2);
  put(bmp.compression, 4);
  put(static_cast<std::uint32_t>(pixels.size()), 4);
  put(2835, 4);
  put(2835, 4);
  put(static_cast<std::uint32_t>(colours_used), 4);
  put(0, 4);
  for (std::uint32_t mask : bmp.masks) put(mask, 4);
  put(0x73524742, 4);  // "sRGB"
  out.resize(14 + bmp.header_size, '\0');
  return out + table + pixels;
}

TEST_F(ImagingFiles, BmpFilesWithNewerHeadersRead) {
  const NewBmp cases[] = {
      {"24-bit V4", 108, 24, 0, {}, false, false},
      {"24-bit V5 top-down", 124, 24, 0, {}, true, false},
      {"8-bit V4 palette", 108, 8, 0, {}, false, false},
      {"16-bit V5 565", 124, 16, 3, {0xF800, 0x7E0, 0x1F, 0}, false, false},
      {"32-bit V5 with alpha mask", 124, 32, 3, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, false, true},
      {"32-bit V4 without alpha mask", 108, 32, 3, {0xFF0000, 0xFF00, 0xFF, 0}, false, false},
      {"32-bit V5 red first", 124, 32, 3, {0xFF000000, 0xFF0000, 0xFF00, 0xFF}, false, true},
      {"32-bit V5 without masks", 124, 32, 0, {}, false, false},
  };
  for (const NewBmp& bmp : cases) {
    SCOPED_TRACE(bmp.name);
    testing::WriteWholeFile(folder.file("new.bmp"), NewBmpBytes(bmp));
    Handle page = 0;
    CallResult result = 0;
    library.FreeImage_Load(folder.file("new.bmp"), page, -1, 0, result);
    ASSERT_NE(result, 0);
    EXPECT_EQ(FactsOf(library, page).width, unsigned(kBmpWidth));
    EXPECT_EQ(FactsOf(library, page).height, unsigned(kBmpHeight));
    EXPECT_EQ(FactsOf(library, page).bpp, bmp.bits);
    const int tolerance = bmp.bits == 16 ? 8 : 0;  // five or six bits a channel
    for (const auto& [x, y] : {std::pair{0, 0}, std::pair{4, 0}, std::pair{1, 2}, std::pair{3, 1}}) {
      const testing_pages::Rgba want = BmpColour(x, y), got = PixelAt(library, page, x, y);
      EXPECT_NEAR(got.r, want.r, tolerance) << x << "," << y;
      EXPECT_NEAR(got.g, want.g, tolerance) << x << "," << y;
      EXPECT_NEAR(got.b, want.b, tolerance) << x << "," << y;
      EXPECT_EQ(got.a, bmp.alpha_kept ? want.a : 255) << x << "," << y;
    }
    EXPECT_EQ(Count("new.bmp"), 1);
    library.Release(page);
  }
}

}  // namespace
}  // namespace velmora::imaging
