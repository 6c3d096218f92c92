// Pages with known pixels for the imaging back end's tests: written with FreeImage to lossless
// files, loaded through ImagingLibrary, and read back pixel by pixel through a display picture.
#pragma once

#include <FreeImage.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

#include "imaging/imaging_library.h"

namespace velmora::imaging::testing_pages {

struct Rgba {
  std::uint8_t r = 0, g = 0, b = 0, a = 255;
  bool operator==(const Rgba&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Rgba& c) {
  return out << "rgba(" << int(c.r) << "," << int(c.g) << "," << int(c.b) << "," << int(c.a) << ")";
}

// Writes a 24-bit (32-bit with `alpha`) PNG whose pixel (x, y), from the top-left, is `colour(x, y)`.
inline std::string WritePattern(const std::string& path, int width, int height,
                                const std::function<Rgba(int, int)>& colour, bool alpha = false) {
  FIBITMAP* dib = FreeImage_Allocate(width, height, alpha ? 32 : 24);
  for (int y = 0; y < height; ++y) {
    BYTE* row = FreeImage_GetScanLine(dib, height - 1 - y);
    for (int x = 0; x < width; ++x, row += alpha ? 4 : 3) {
      const Rgba c = colour(x, y);
      row[FI_RGBA_RED] = c.r;
      row[FI_RGBA_GREEN] = c.g;
      row[FI_RGBA_BLUE] = c.b;
      if (alpha) row[FI_RGBA_ALPHA] = c.a;
    }
  }
  FreeImage_Save(FIF_PNG, dib, path.c_str(), 0);
  FreeImage_Unload(dib);
  return path;
}

inline std::string WriteSolid(const std::string& path, int width, int height, Rgba colour, bool alpha = false) {
  return WritePattern(
      path, width, height, [colour](int, int) { return colour; }, alpha);
}

// Loads a file into a new handle, failing the test when it cannot.
inline Handle LoadPage(ImagingLibrary& library, const std::string& path) {
  Handle page = 0;
  CallResult result = 0;
  library.FreeImage_Load(path, page, -1, 0, result);
  EXPECT_NE(result, 0) << path;
  return page;
}

// Pixel (x, y) of a page, from the top-left, as a window would show it.
inline Rgba PixelAt(ImagingLibrary& library, Handle page, int x, int y) {
  DisplayPicture picture;
  CallResult result = 0;
  library.MakeDisplayPicture(page, picture, result);
  if (result == 0 || x < 0 || y < 0 || x >= int(picture.width) || y >= int(picture.height)) {
    ADD_FAILURE() << "no pixel " << x << "," << y;
    return {};
  }
  const std::uint8_t* p = &picture.rgba[(std::size_t(y) * picture.width + x) * 4];
  return {p[0], p[1], p[2], p[3]};
}

struct PageFacts {
  std::uint32_t width = 0, height = 0, bpp = 0;
};

inline PageFacts FactsOf(ImagingLibrary& library, Handle page) {
  PageFacts facts;
  library.FreeImage_GetWidth(page, facts.width);
  library.FreeImage_GetHeight(page, facts.height);
  library.FreeImage_GetBPP(page, facts.bpp);
  return facts;
}

}  // namespace velmora::imaging::testing_pages
