// Plain test pages for the text drawing tests, and measurements of the ink drawn on them.
// Coordinates are visual: y runs down from the page's top row.
#pragma once

#include <FreeImage.h>

#include <cstdint>
#include <string>

#include "imaging/imaging_library.h"

namespace velmora::testing {

struct Rgba {
  int red = 0, green = 0, blue = 0, alpha = 255;
  bool operator==(const Rgba&) const = default;
};

// Bounding box (half open) of the pixels that differ from the page's fill, and how much they
// differ.
struct InkBox {
  int left = 0, top = 0, right = 0, bottom = 0;
  long amount = 0;  // summed channel difference from the fill
  bool empty() const { return amount == 0; }
  int width() const { return right - left; }
  int height() const { return bottom - top; }
};

class Canvas {
 public:
  // A page filled with one colour; 24 or 32 bits (the alpha counts only for 32).
  Canvas(int width, int height, int bpp = 24, Rgba fill = {255, 255, 255, 255});
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  FIBITMAP* dib() const { return dib_; }
  int width() const { return width_; }
  int height() const { return height_; }
  Rgba Pixel(int x, int y) const;
  bool IsInk(int x, int y) const { return !(Pixel(x, y) == fill_); }
  InkBox Ink() const;
  // Longest unbroken run of ink pixels in one row.
  int LongestRun(int y) const;
  // Mean x of the ink in rows [top, bottom), weighted by how much ink each pixel holds.
  double InkCentreX(int top, int bottom) const;
  bool SamePixels(const Canvas& other) const;

 private:
  FIBITMAP* dib_ = nullptr;
  int width_, height_;
  Rgba fill_;
};

// A request with the program's usual fixed arguments, the given text and an Arial 24-point face.
imaging::TextDrawRequest Request(const std::string& text, int left, int top);

}  // namespace velmora::testing
