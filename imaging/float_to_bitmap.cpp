// Float pages to ordinary bitmaps: a straight scale for values within 0..1, tone mapping above.
#include <algorithm>
#include <cmath>

#include "imaging/standard_bitmap.h"

namespace velmora::imaging {
namespace {

// Samples of colour per pixel and whether a fourth one is alpha.
struct FloatLayout {
  int colours = 0;
  int stride = 0;  // floats per pixel
};

FloatLayout LayoutOf(FIBITMAP* dib) {
  switch (FreeImage_GetImageType(dib)) {
    case FIT_FLOAT: return {1, 1};
    case FIT_RGBF: return {3, 3};
    case FIT_RGBAF: return {3, 4};
    default: return {};
  }
}

float Finite(float value) {
  return std::isfinite(value) ? value : 0.0f;
}

BYTE ToByte(float value) {
  const float clamped = std::clamp(Finite(value), 0.0f, 1.0f);
  return static_cast<BYTE>(std::lround(clamped * 255.0f));
}

float BrightestColour(FIBITMAP* dib, const FloatLayout& layout) {
  const unsigned width = FreeImage_GetWidth(dib), height = FreeImage_GetHeight(dib);
  float brightest = 0.0f;
  for (unsigned y = 0; y < height; ++y) {
    const float* row = reinterpret_cast<const float*>(FreeImage_GetScanLine(dib, y));
    for (unsigned x = 0; x < width; ++x, row += layout.stride)
      for (int c = 0; c < layout.colours; ++c) brightest = std::max(brightest, Finite(row[c]));
  }
  return brightest;
}

// Channel order of a float pixel is red, green, blue(, alpha); of a bitmap pixel FI_RGBA_*.
Bitmap ScaleStraight(FIBITMAP* dib, const FloatLayout& layout) {
  const unsigned width = FreeImage_GetWidth(dib), height = FreeImage_GetHeight(dib);
  const int bpp = layout.colours == 1 ? 8 : layout.stride * 8;
  Bitmap out(FreeImage_Allocate(width, height, bpp));
  if (!out) return nullptr;
  if (bpp == 8) SetGreyPalette(out.get());
  const int out_bytes = bpp / 8;
  for (unsigned y = 0; y < height; ++y) {
    const float* in = reinterpret_cast<const float*>(FreeImage_GetScanLine(dib, y));
    BYTE* row = FreeImage_GetScanLine(out.get(), y);
    for (unsigned x = 0; x < width; ++x, in += layout.stride, row += out_bytes) {
      if (bpp == 8) {
        row[0] = ToByte(in[0]);
        continue;
      }
      row[FI_RGBA_RED] = ToByte(in[0]);
      row[FI_RGBA_GREEN] = ToByte(in[1]);
      row[FI_RGBA_BLUE] = ToByte(in[2]);
      if (bpp == 32) row[FI_RGBA_ALPHA] = ToByte(in[3]);
    }
  }
  return out;
}

// Reinhard's operator keeps bright colours apart where Drago's saturates them.
Bitmap ToneMap(FIBITMAP* dib, const FloatLayout& layout) {
  Bitmap mapped(FreeImage_ToneMapping(dib, FITMO_REINHARD05, 0, 0));
  if (!mapped) return nullptr;
  if (layout.colours == 1) return Bitmap(FreeImage_ConvertToGreyscale(mapped.get()));
  if (layout.stride == 3) return mapped;
  // The tone mapper drops alpha: put it back from the source.
  Bitmap out(FreeImage_ConvertTo32Bits(mapped.get()));
  if (!out) return nullptr;
  const unsigned width = FreeImage_GetWidth(dib), height = FreeImage_GetHeight(dib);
  for (unsigned y = 0; y < height; ++y) {
    const float* in = reinterpret_cast<const float*>(FreeImage_GetScanLine(dib, y));
    BYTE* row = FreeImage_GetScanLine(out.get(), y);
    for (unsigned x = 0; x < width; ++x) row[x * 4 + FI_RGBA_ALPHA] = ToByte(in[x * 4 + 3]);
  }
  return out;
}

}  // namespace

Bitmap FloatToBitmap(FIBITMAP* dib) {
  if (!dib) return nullptr;
  const FloatLayout layout = LayoutOf(dib);
  if (layout.colours == 0) return nullptr;
  // A small margin so that values written as n/255 and read back are not taken for HDR.
  constexpr float kBrightestStraight = 1.0f + 1e-4f;
  Bitmap out = BrightestColour(dib, layout) <= kBrightestStraight ? ScaleStraight(dib, layout) : ToneMap(dib, layout);
  if (out) FreeImage_CloneMetadata(out.get(), dib);
  return out;
}

}  // namespace velmora::imaging
