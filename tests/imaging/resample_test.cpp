// Our bilinear resize against FreeImage_Rescale itself: random pages of every pixel type it takes,
// shrunk, stretched and squeezed to single rows, must come out the same to the byte, with the same
// depth, palette, transparency and metadata.
#include <cstring>
#include <random>

#include "imaging/resample/resample.h"
#include "imaging/resample/resample_source.h"
#include "tests/imaging/pages.h"

namespace velmora::testing {
namespace {

struct PageKind {
  const char* name;
  FREE_IMAGE_TYPE type;
  int bpp;
  std::vector<RGBQUAD> palette;  // the first entries, empty for the default
  int see_through = 0;           // entries of the transparency table
  unsigned red_mask = 0, green_mask = 0, blue_mask = 0;
};

RGBQUAD Grey(int v) {
  return {BYTE(v), BYTE(v), BYTE(v), 0};
}

std::vector<RGBQUAD> Ramp(int entries, bool descending) {
  std::vector<RGBQUAD> ramp;
  for (int i = 0; i < entries; ++i) ramp.push_back(Grey((descending ? entries - 1 - i : i) * 255 / (entries - 1)));
  return ramp;
}

Page MakeRandomPage(const PageKind& kind, int width, int height, std::mt19937& random) {
  Page page(FreeImage_AllocateT(kind.type, width, height, kind.bpp, kind.red_mask, kind.green_mask, kind.blue_mask));
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_real_distribution<float> real(-0.5f, 2.0f);
  const bool floats = kind.type == FIT_FLOAT || kind.type == FIT_RGBF || kind.type == FIT_RGBAF;
  for (int y = 0; y < height; ++y) {
    BYTE* line = FreeImage_GetScanLine(page.get(), y);
    for (unsigned i = 0; i < FreeImage_GetLine(page.get()); ++i) line[i] = BYTE(byte(random));
    for (unsigned i = 0; floats && i < FreeImage_GetLine(page.get()) / 4; ++i)
      reinterpret_cast<float*>(line)[i] = i == 1 ? INFINITY : real(random);
  }
  if (RGBQUAD* palette = FreeImage_GetPalette(page.get())) {
    for (unsigned i = 0; i < FreeImage_GetColorsUsed(page.get()); ++i)
      palette[i] =
          i < kind.palette.size() ? kind.palette[i] : RGBQUAD{BYTE(byte(random)), BYTE(i), BYTE(byte(random)), 0};
    std::vector<BYTE> alpha(kind.see_through);
    for (BYTE& a : alpha) a = BYTE(byte(random));
    if (kind.see_through) FreeImage_SetTransparencyTable(page.get(), alpha.data(), kind.see_through);
  }
  FreeImage_SetDotsPerMeterX(page.get(), 3000);
  RGBQUAD background{1, 2, 3, 0};
  FreeImage_SetBackgroundColor(page.get(), &background);
  char profile[] = "profile";
  FreeImage_CreateICCProfile(page.get(), profile, sizeof profile);
  FITAG* tag = FreeImage_CreateTag();
  FreeImage_SetTagKey(tag, "Comment");
  FreeImage_SetTagType(tag, FIDT_ASCII);
  FreeImage_SetTagLength(tag, 3), FreeImage_SetTagCount(tag, 3), FreeImage_SetTagValue(tag, "hi");
  FreeImage_SetMetadata(FIMD_COMMENTS, page.get(), "Comment", tag);
  FreeImage_DeleteTag(tag);
  return page;
}

std::string Bytes(const void* bytes, std::size_t count) {
  return bytes ? std::string(static_cast<const char*>(bytes), count) : std::string();
}

// Everything the result is made of besides its padding, in a form EXPECT_EQ can print.
std::vector<std::string> Describe(FIBITMAP* page) {
  if (!page) return {"none"};
  RGBQUAD background{};
  std::vector<std::string> facts{
      ::testing::PrintToString(std::vector<unsigned>{
          FreeImage_GetImageType(page), FreeImage_GetBPP(page), FreeImage_GetWidth(page), FreeImage_GetHeight(page),
          FreeImage_GetRedMask(page), FreeImage_GetGreenMask(page), FreeImage_GetBlueMask(page),
          unsigned(FreeImage_IsTransparent(page)), FreeImage_GetTransparencyCount(page),
          unsigned(FreeImage_GetBackgroundColor(page, &background)), FreeImage_GetDotsPerMeterX(page),
          unsigned(FreeImage_GetICCProfile(page)->size), FreeImage_GetMetadataCount(FIMD_COMMENTS, page)}),
      Bytes(FreeImage_GetPalette(page), FreeImage_GetColorsUsed(page) * 4),
      Bytes(FreeImage_GetTransparencyTable(page), FreeImage_GetTransparencyCount(page))};
  for (unsigned y = 0; y < FreeImage_GetHeight(page); ++y)
    facts.push_back(Bytes(FreeImage_GetScanLine(page, int(y)), FreeImage_GetLine(page)));
  return facts;
}

TEST(Resample, EveryPixelTypeMatchesFreeImageToTheByte) {
  const std::vector<RGBQUAD> colour{{0, 0, 255, 0}, {40, 200, 90, 0}};
  const std::vector<PageKind> kinds{
      {"1-bit black to white", FIT_BITMAP, 1, Ramp(2, false)},
      {"1-bit white to black", FIT_BITMAP, 1, Ramp(2, true)},
      {"1-bit grey palette", FIT_BITMAP, 1, {Grey(64), Grey(192)}},
      {"1-bit white and grey", FIT_BITMAP, 1, {Grey(255), Grey(64)}},
      {"1-bit colours", FIT_BITMAP, 1, colour},
      {"1-bit see-through", FIT_BITMAP, 1, Ramp(2, false), 1},
      {"4-bit grey ramp", FIT_BITMAP, 4, Ramp(16, false)},
      {"4-bit colours", FIT_BITMAP, 4, {}},
      {"4-bit see-through", FIT_BITMAP, 4, {}, 5},
      {"8-bit black to white", FIT_BITMAP, 8, Ramp(256, false)},
      {"8-bit white to black", FIT_BITMAP, 8, Ramp(256, true)},
      {"8-bit grey palette", FIT_BITMAP, 8, {Grey(9), Grey(200), Grey(3)}},
      {"8-bit colours", FIT_BITMAP, 8, {}},
      {"8-bit see-through grey", FIT_BITMAP, 8, Ramp(256, false), 100},
      {"16-bit 555", FIT_BITMAP, 16, {}, 0, FI16_555_RED_MASK, FI16_555_GREEN_MASK, FI16_555_BLUE_MASK},
      {"16-bit 565", FIT_BITMAP, 16, {}, 0, FI16_565_RED_MASK, FI16_565_GREEN_MASK, FI16_565_BLUE_MASK},
      {"24-bit", FIT_BITMAP, 24, {}},
      {"32-bit", FIT_BITMAP, 32, {}},
      {"uint16", FIT_UINT16, 16, {}},
      {"rgb16", FIT_RGB16, 48, {}},
      {"rgba16", FIT_RGBA16, 64, {}},
      {"float", FIT_FLOAT, 32, {}},
      {"rgbf", FIT_RGBF, 96, {}},
      {"rgbaf", FIT_RGBAF, 128, {}},
      {"int32, left to FreeImage", FIT_INT32, 32, {}}};
  std::vector<std::array<int, 4>> sizes{{7, 5, 3, 2},     {7, 5, 13, 11},     {1, 9, 4, 3},     {9, 1, 3, 5},
                                        {1, 1, 5, 4},     {5, 4, 1, 1},       {6, 8, 6, 3},     {6, 8, 2, 8},
                                        {5, 5, 5, 5},     {64, 48, 32, 24},   {40, 30, 60, 45}, {1000, 3, 3, 1000},
                                        {800, 4, 790, 7}, {3, 1000, 1000, 3}, {33, 17, 33, 40}, {17, 33, 40, 33}};
  std::mt19937 random(16);
  for (int i = 0; i < 10; ++i) {
    std::uniform_int_distribution<int> side(1, 90);
    sizes.push_back({side(random), side(random), side(random), side(random)});
  }
  for (const PageKind& kind : kinds)
    for (const auto& [width, height, to_width, to_height] : sizes) {
      const Page page = MakeRandomPage(kind, width, height, random);
      // Only the integer types FreeImage never filters are left to it.
      EXPECT_EQ(imaging::resample::PlanResize(page.get()).has_value(), kind.type != FIT_INT32) << kind.name;
      const Page ours = imaging::RescaleBilinear(page.get(), to_width, to_height);
      const Page theirs(FreeImage_Rescale(page.get(), to_width, to_height, FILTER_BILINEAR));
      EXPECT_EQ(Describe(ours.get()), Describe(theirs.get()))
          << kind.name << " " << width << "x" << height << " to " << to_width << "x" << to_height;
    }
}

}  // namespace
}  // namespace velmora::testing
