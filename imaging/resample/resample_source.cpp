// Reading a source for the resize passes. Palette pages are looked up through their palette (with
// the transparency table as alpha for a 32-bit result); 1-bit grey pages without one give 0 and 1,
// widened to 0..255 by the first pass's rounding; 16-bit pages give their 5- or 6-bit fields.
#include "imaging/resample/resample_source.h"

#include <algorithm>
#include <cstring>

namespace velmora::imaging::resample {
namespace {

enum class Colours { kBlackToWhite, kWhiteToBlack, kPalette };

struct PaletteColours {
  Colours colours = Colours::kBlackToWhite;
  bool grey = true;
};

bool IsGrey(const RGBQUAD& entry) {
  return entry.rgbRed == entry.rgbGreen && entry.rgbRed == entry.rgbBlue;
}

// The kind of palette as FreeImage's resize judges it: grey palettes that are neither ascending nor
// descending ramps still count as a palette, though a grey one.
PaletteColours ClassifyPalette(FIBITMAP* dib, unsigned bpp) {
  const RGBQUAD* palette = FreeImage_GetPalette(dib);
  const unsigned size = 1u << bpp;
  PaletteColours result;
  for (unsigned i = 0; i < size; ++i) {
    if (!IsGrey(palette[i])) return {Colours::kPalette, false};
    if (bpp == 1 || result.colours == Colours::kPalette || palette[i].rgbBlue == i) continue;
    result.colours = size - i - 1 == palette[i].rgbBlue ? Colours::kWhiteToBlack : Colours::kPalette;
  }
  if (bpp == 1) {
    if (palette[0].rgbBlue == 255 && palette[1].rgbBlue == 0)
      result.colours = Colours::kWhiteToBlack;
    else if (palette[0].rgbBlue != 0 || palette[1].rgbBlue != 255)
      result.colours = Colours::kPalette;
  }
  return result;
}

bool IsRgb565(FIBITMAP* dib) {
  return FreeImage_GetRedMask(dib) == FI16_565_RED_MASK && FreeImage_GetGreenMask(dib) == FI16_565_GREEN_MASK &&
         FreeImage_GetBlueMask(dib) == FI16_565_BLUE_MASK;
}

// The colour each index stands for, one byte a channel in FreeImage's order (blue, green, red,
// alpha); the index itself for grey ramps, which are read without their palette. Every index has
// a palette entry, however few of them the page says it uses.
void FillIndexColours(FIBITMAP* source, unsigned bpp, bool through_palette, bool with_alpha, IndexColours& colours) {
  for (unsigned i = 0; i < 256; ++i) colours[i].fill(std::uint8_t(i));
  if (!through_palette) return;
  const RGBQUAD* palette = FreeImage_GetPalette(source);
  const unsigned see_through = std::min(FreeImage_GetColorsUsed(source), FreeImage_GetTransparencyCount(source));
  const BYTE* alpha = FreeImage_GetTransparencyTable(source);
  for (unsigned i = 0; i < 1u << bpp; ++i) {
    colours[i] = {palette[i].rgbBlue, palette[i].rgbGreen, palette[i].rgbRed, palette[i].rgbReserved};
    if (with_alpha) colours[i][3] = i < see_through ? alpha[i] : 255;
  }
}

Rounding Widened(std::array<double, 4> divisor) {
  return {true, {255, 255, 255, 255}, divisor};
}

std::optional<ResizePlan> PlanStandardBitmap(FIBITMAP* source) {
  const unsigned bpp = FreeImage_GetBPP(source);
  ResizePlan plan;
  plan.unpacked = bpp < 24;
  if (bpp == 24 || bpp == 32) {
    plan.target_bpp = bpp;
  } else if (bpp == 16) {
    plan.target_bpp = 24;
    plan.first_rows = plan.first_columns = Widened({31, IsRgb565(source) ? 63.0 : 31.0, 31, 1});
  } else if (bpp == 1 || bpp == 4 || bpp == 8) {
    PaletteColours colours = ClassifyPalette(source, bpp);
    if (FreeImage_IsTransparent(source)) {
      plan.target_bpp = 32;
      colours.colours = Colours::kPalette;
    } else {
      plan.target_bpp = colours.colours == Colours::kPalette && !colours.grey ? 24 : 8;
    }
    plan.inverted_grey = plan.target_bpp == 8 && colours.colours == Colours::kWhiteToBlack;
    // 4-bit pages are always read through their palette, grey ramps too.
    const bool through_palette = colours.colours == Colours::kPalette || bpp == 4;
    plan.unpacked = bpp < 8 || through_palette;
    FillIndexColours(source, bpp, through_palette, plan.target_bpp == 32, plan.index_colours);
    if (bpp == 1 && !through_palette) plan.first_rows = Widened({1, 1, 1, 1});
    // FreeImage widens a 1-bit grey palette page by 255 once more when its columns go first.
    if (bpp == 1 && (!through_palette || plan.target_bpp == 8)) plan.first_columns = Widened({1, 1, 1, 1});
  } else {
    return std::nullopt;
  }
  plan.channels = plan.target_bpp / 8;
  return plan;
}

void UnpackRow(FIBITMAP* source, const ResizePlan& plan, const BYTE* bits, std::uint8_t* out) {
  const unsigned width = FreeImage_GetWidth(source), bpp = FreeImage_GetBPP(source), channels = plan.channels;
  if (bpp == 16) {
    const bool rgb565 = IsRgb565(source);
    const WORD* pixels = reinterpret_cast<const WORD*>(bits);
    for (unsigned x = 0; x < width; ++x, out += 3) {
      const unsigned pixel = pixels[x];
      out[0] = std::uint8_t(pixel & 0x1F);
      out[1] = std::uint8_t(rgb565 ? (pixel >> 5) & 0x3F : (pixel >> 5) & 0x1F);
      out[2] = std::uint8_t(rgb565 ? pixel >> 11 : (pixel >> 10) & 0x1F);
    }
    return;
  }
  for (unsigned x = 0; x < width; ++x, out += channels) {
    // A packed row is shorter than its width in bytes: only 8-bit pages are read at x.
    const unsigned index = bpp == 1   ? (bits[x >> 3] >> (7 - (x & 7))) & 1u
                           : bpp == 4 ? ((x & 1) ? bits[x >> 1] & 0x0Fu : bits[x >> 1] >> 4)
                                      : bits[x];
    std::memcpy(out, plan.index_colours[index].data(), channels);
  }
}

}  // namespace

std::optional<ResizePlan> PlanResize(FIBITMAP* source) {
  ResizePlan plan;
  plan.type = FreeImage_GetImageType(source);
  switch (plan.type) {
    case FIT_BITMAP: {
      std::optional<ResizePlan> standard = PlanStandardBitmap(source);
      if (standard) standard->type = FIT_BITMAP;
      return standard;
    }
    case FIT_UINT16:
    case FIT_FLOAT: plan.channels = 1; break;
    case FIT_RGB16:
    case FIT_RGBF: plan.channels = 3; break;
    case FIT_RGBA16:
    case FIT_RGBAF: plan.channels = 4; break;
    default: return std::nullopt;
  }
  plan.target_bpp = FreeImage_GetBPP(source);
  return plan;
}

Plane<const std::uint8_t> UnpackSource(FIBITMAP* source, const ResizePlan& plan, std::vector<std::uint8_t>& storage) {
  Plane<const std::uint8_t> plane;
  plane.width = FreeImage_GetWidth(source);
  plane.height = FreeImage_GetHeight(source);
  plane.channels = plan.channels;
  plane.pitch = plane.RowSamples();
  storage.resize(plane.pitch * plane.height);
  plane.bits = reinterpret_cast<std::byte*>(storage.data());
  for (unsigned y = 0; y < plane.height; ++y)
    UnpackRow(source, plan, FreeImage_GetScanLine(source, int(y)), storage.data() + y * plane.pitch);
  return plane;
}

}  // namespace velmora::imaging::resample
