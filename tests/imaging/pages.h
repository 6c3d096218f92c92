// Pages with known pixels, built in memory (y counted from the top row) or loaded through
// ImagingLibrary, and read back pixel by pixel; and what else every imaging test file uses.
#pragma once

#include <FreeImage.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "imaging/bitmap.h"
#include "imaging/imaging_library.h"
#include "scripts/sample_images.h"
#include "tests/support/test_support.h"

namespace velmora::testing {

struct Rgba {
  int r = 0, g = 0, b = 0, a = 255;
  bool operator==(const Rgba&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Rgba& c) {
  return out << "rgba(" << c.r << "," << c.g << "," << c.b << "," << c.a << ")";
}

using Page = imaging::Bitmap;

inline BYTE* PixelPointer(FIBITMAP* dib, int x, int y) {
  return FreeImage_GetScanLine(dib, FreeImage_GetHeight(dib) - 1 - y) + x * (FreeImage_GetBPP(dib) / 8);
}

inline Rgba PixelAt(FIBITMAP* dib, int x, int y) {
  const BYTE* p = PixelPointer(dib, x, y);
  return {p[FI_RGBA_RED], p[FI_RGBA_GREEN], p[FI_RGBA_BLUE], FreeImage_GetBPP(dib) == 32 ? p[FI_RGBA_ALPHA] : 255};
}

// A 24- or 32-bit page whose pixel (x, y) is colour(x, y).
inline Page MakePage(int width, int height, int bpp, const std::function<Rgba(int, int)>& colour) {
  Page page(FreeImage_Allocate(width, height, bpp));
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const Rgba c = colour(x, y);
      BYTE* p = PixelPointer(page.get(), x, y);
      p[FI_RGBA_RED] = BYTE(c.r), p[FI_RGBA_GREEN] = BYTE(c.g), p[FI_RGBA_BLUE] = BYTE(c.b);
      if (bpp == 32) p[FI_RGBA_ALPHA] = BYTE(c.a);
    }
  return page;
}

inline Page MakeFlat(int width, int height, int bpp, Rgba colour) {
  return MakePage(width, height, bpp, [=](int, int) { return colour; });
}

// Every pixel, top row first.
inline std::vector<Rgba> Pixels(FIBITMAP* dib) {
  std::vector<Rgba> all;
  for (int y = 0; y < int(FreeImage_GetHeight(dib)); ++y)
    for (int x = 0; x < int(FreeImage_GetWidth(dib)); ++x) all.push_back(PixelAt(dib, x, y));
  return all;
}

// Loads a file into a new handle, failing the test when it cannot.
inline imaging::Handle LoadPage(imaging::ImagingLibrary& library, const std::string& path) {
  imaging::Handle page = 0;
  imaging::CallResult result = 0;
  EXPECT_NE((library.FreeImage_Load(path, page, -1, 0, result), result), 0) << path;
  return page;
}

// A sample of the kind its name tells (a JPEG photo, "alpha.png", "deep.png", a float EXR or a
// palette BMP) written at `path` and loaded.
inline imaging::Handle LoadSample(imaging::ImagingLibrary& library, const std::string& path, int width, int height) {
  const bool written = path.ends_with(".jpg")        ? samples::WritePhotoJpeg(path, width, height)
                       : path.ends_with("alpha.png") ? samples::WriteAlphaPng(path, width, height)
                       : path.ends_with("deep.png")  ? samples::WriteDeepPng(path, width, height)
                       : path.ends_with(".exr")      ? samples::WriteFloatExr(path, width, height)
                                                     : samples::WritePaletteBmp(path, width, height);
  EXPECT_TRUE(written) << path;
  return LoadPage(library, path);
}

// Every pixel of a library page, top row first, as a window would show it.
inline std::vector<Rgba> Pixels(imaging::ImagingLibrary& library, imaging::Handle page) {
  imaging::DisplayPicture picture;
  imaging::CallResult result = 0;
  library.MakeDisplayPicture(page, picture, result);
  std::vector<Rgba> all;
  for (std::size_t i = 0; i + 3 < picture.rgba.size(); i += 4)
    all.push_back({picture.rgba[i], picture.rgba[i + 1], picture.rgba[i + 2], picture.rgba[i + 3]});
  return all;
}

// A library, a folder for its files and the result of the last call, with pages loaded from there.
class LibraryTest : public ::testing::Test {
 protected:
  TempFolder folder;
  imaging::ImagingLibrary library;
  imaging::CallResult result = 0;

  imaging::Handle Load(const std::string& name) { return LoadPage(library, folder.file(name)); }
  imaging::Handle Sample(const std::string& name, int w, int h) { return LoadSample(library, folder.file(name), w, h); }
  // MakePage's page written as a PNG and loaded.
  imaging::Handle Pattern(const std::string& name, int width, int height, const std::function<Rgba(int, int)>& colour,
                          bool alpha = false) {
    FreeImage_Save(FIF_PNG, MakePage(width, height, alpha ? 32 : 24, colour).get(), folder.file(name).c_str(), 0);
    return Load(name);
  }
};

struct PageFacts {
  std::uint32_t width = 0, height = 0, bpp = 0;
  bool operator==(const PageFacts&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PageFacts& f) {
  return out << f.width << " x " << f.height << " x " << f.bpp;
}

inline PageFacts FactsOf(imaging::ImagingLibrary& library, imaging::Handle page) {
  PageFacts f;
  library.FreeImage_GetWidth(page, f.width), library.FreeImage_GetHeight(page, f.height);
  library.FreeImage_GetBPP(page, f.bpp);
  return f;
}

inline Rgba PixelAt(imaging::ImagingLibrary& library, imaging::Handle page, int x, int y) {
  return Pixels(library, page).at(std::size_t(y) * FactsOf(library, page).width + x);
}

}  // namespace velmora::testing
