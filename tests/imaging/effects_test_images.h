// Pages built in memory for the effect tests, and their pixels read top row first.
// Generators give each pixel's colour from its position; pages unload themselves.
#pragma once

#include <FreeImage.h>

#include <functional>
#include <memory>
#include <vector>

namespace velmora::testing {

struct Rgba {
  int r = 0, g = 0, b = 0, a = 255;
  bool operator==(const Rgba&) const = default;
};

struct PageUnloader {
  void operator()(FIBITMAP* dib) const { FreeImage_Unload(dib); }
};
using Page = std::unique_ptr<FIBITMAP, PageUnloader>;

inline BYTE* PixelPointer(FIBITMAP* dib, int x, int y) {
  return FreeImage_GetScanLine(dib, FreeImage_GetHeight(dib) - 1 - y) + x * (FreeImage_GetBPP(dib) / 8);
}

inline Rgba PixelAt(FIBITMAP* dib, int x, int y) {
  const BYTE* p = PixelPointer(dib, x, y);
  const int alpha = FreeImage_GetBPP(dib) == 32 ? p[FI_RGBA_ALPHA] : 255;
  return {p[FI_RGBA_RED], p[FI_RGBA_GREEN], p[FI_RGBA_BLUE], alpha};
}

// A 24- or 32-bit page whose pixel (x, y), y counted from the top, is colour(x, y).
inline Page MakePage(int width, int height, int bpp, const std::function<Rgba(int, int)>& colour) {
  Page page(FreeImage_Allocate(width, height, bpp));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Rgba c = colour(x, y);
      BYTE* p = PixelPointer(page.get(), x, y);
      p[FI_RGBA_RED] = BYTE(c.r), p[FI_RGBA_GREEN] = BYTE(c.g), p[FI_RGBA_BLUE] = BYTE(c.b);
      if (bpp == 32) p[FI_RGBA_ALPHA] = BYTE(c.a);
    }
  }
  return page;
}

inline Page MakeFlat(int width, int height, int bpp, Rgba colour) {
  return MakePage(width, height, bpp, [=](int, int) { return colour; });
}

// Colourful noise from a fixed integer hash, with alpha varying too.
inline Page MakeNoise(int width, int height, int bpp) {
  return MakePage(width, height, bpp, [](int x, int y) {
    const unsigned m = ((x * 73856093u) ^ (y * 19349663u)) * 2654435761u;
    return Rgba{int(m >> 24), int(m >> 16 & 255), int(m >> 8 & 255), (x * 7 + y * 3) & 255};
  });
}

// Every pixel, top row first.
inline std::vector<Rgba> Pixels(FIBITMAP* dib) {
  std::vector<Rgba> all;
  for (int y = 0; y < int(FreeImage_GetHeight(dib)); ++y) {
    for (int x = 0; x < int(FreeImage_GetWidth(dib)); ++x) all.push_back(PixelAt(dib, x, y));
  }
  return all;
}

}  // namespace velmora::testing
