// PNG pages written with flags 0 by our own writer: every pixel, the depth and the resolution as
// FreeImage's writer gives them, in no more bytes.
#include <gtest/gtest.h>

#include <cstdlib>

#include "imaging/encoded_image.h"
#include "tests/imaging/pages.h"

namespace velmora::testing {
namespace {

// Decodes `bytes`, or with `dib` first replaces them by what FreeImage's own writer makes of it.
Page ThroughMemory(std::vector<BYTE>& bytes, FIBITMAP* dib = nullptr) {
  FIMEMORY* memory = dib ? FreeImage_OpenMemory() : FreeImage_OpenMemory(bytes.data(), DWORD(bytes.size()));
  BYTE* data = nullptr;
  DWORD size = 0;
  if (dib && FreeImage_SaveToMemory(FIF_PNG, dib, memory, 0) && FreeImage_AcquireMemory(memory, &data, &size))
    bytes.assign(data, data + size);
  FreeImage_SeekMemory(memory, 0, SEEK_SET);
  Page page(FreeImage_LoadFromMemory(FIF_PNG, memory, 0));
  FreeImage_CloseMemory(memory);
  return page;
}

TEST(PlainPng, SamePixelsDepthAndResolutionAsFreeImagesWriterInNoMoreBytes) {
  const auto smooth = [](int x, int y) { return Rgba{(x * x / 7 + y) % 256, (x ^ y) % 256, (x * y / 5) % 256, 255}; };
  const auto noise = [](int, int) { return Rgba{std::rand() % 256, std::rand() % 256, std::rand() % 256, 255}; };
  const auto alpha = [](int x, int y) { return Rgba{x % 256, 40, y % 256, (x * y) % 256}; };
  for (const auto& [width, height, bpp, colour, text] :
       {std::tuple{300, 200, 24, std::function<Rgba(int, int)>(smooth), false},
        {300, 200, 32, smooth, false},
        {257, 130, 24, noise, false},
        {120, 90, 32, alpha, false},
        {1, 1, 32, alpha, false},
        {60, 40, 24, smooth, true}}) {
    SCOPED_TRACE(::testing::Message() << width << "x" << height << " at " << bpp);
    Page page = MakePage(width, height, bpp, colour);
    FreeImage_SetDotsPerMeterX(page.get(), 2835), FreeImage_SetDotsPerMeterY(page.get(), 3780);
    if (text) FreeImage_SetMetadataKeyValue(FIMD_COMMENTS, page.get(), "Comment", "a tag");
    std::vector<BYTE> ours, theirs;
    ASSERT_TRUE(imaging::EncodeToMemory(page.get(), imaging::kFormatPng, 0, ours));
    const Page back = ThroughMemory(ours), expected = ThroughMemory(theirs, page.get());
    EXPECT_LE(ours.size(), theirs.size());
    EXPECT_EQ(ours == theirs, text);  // a page with text is left to FreeImage's writer
    ASSERT_TRUE(back && expected);
    EXPECT_EQ(FreeImage_GetBPP(back.get()), FreeImage_GetBPP(expected.get()));
    EXPECT_EQ(std::pair(FreeImage_GetDotsPerMeterX(back.get()), FreeImage_GetDotsPerMeterY(back.get())),
              std::pair(2835u, 3780u));
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) ASSERT_EQ(PixelAt(back.get(), x, y), PixelAt(expected.get(), x, y));
  }
}

}  // namespace
}  // namespace velmora::testing
