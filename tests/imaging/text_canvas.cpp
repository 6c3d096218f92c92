#include "tests/imaging/text_canvas.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace velmora::testing {

Canvas::Canvas(int width, int height, int bpp, Rgba fill)
    : dib_(FreeImage_Allocate(width, height, bpp)), width_(width), height_(height), fill_(fill) {
  if (bpp != 32) fill_.alpha = 255;
  const int bytes = bpp / 8;
  for (int y = 0; y < height_; ++y) {
    BYTE* row = FreeImage_GetScanLine(dib_, y);
    for (int x = 0; x < width_; ++x) {
      BYTE* pixel = row + x * bytes;
      pixel[FI_RGBA_RED] = static_cast<BYTE>(fill.red);
      pixel[FI_RGBA_GREEN] = static_cast<BYTE>(fill.green);
      pixel[FI_RGBA_BLUE] = static_cast<BYTE>(fill.blue);
      if (bytes == 4) pixel[FI_RGBA_ALPHA] = static_cast<BYTE>(fill.alpha);
    }
  }
}

Canvas::~Canvas() {
  FreeImage_Unload(dib_);
}

Rgba Canvas::Pixel(int x, int y) const {
  const int bytes = static_cast<int>(FreeImage_GetBPP(dib_)) / 8;
  const BYTE* pixel = FreeImage_GetScanLine(dib_, height_ - 1 - y) + x * bytes;
  return {pixel[FI_RGBA_RED], pixel[FI_RGBA_GREEN], pixel[FI_RGBA_BLUE], bytes == 4 ? pixel[FI_RGBA_ALPHA] : 255};
}

namespace {

int Difference(const Rgba& a, const Rgba& b) {
  return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue) +
         std::abs(a.alpha - b.alpha);
}

}  // namespace

InkBox Canvas::Ink() const {
  InkBox box{width_, height_, 0, 0, 0};
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      const long difference = Difference(Pixel(x, y), fill_);
      if (difference == 0) continue;
      box.amount += difference;
      box.left = std::min(box.left, x);
      box.top = std::min(box.top, y);
      box.right = std::max(box.right, x + 1);
      box.bottom = std::max(box.bottom, y + 1);
    }
  }
  return box.amount == 0 ? InkBox{} : box;
}

int Canvas::LongestRun(int y) const {
  int longest = 0, run = 0;
  for (int x = 0; x < width_; ++x) {
    run = IsInk(x, y) ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  return longest;
}

double Canvas::InkCentreX(int top, int bottom) const {
  double weighted = 0, total = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = 0; x < width_; ++x) {
      const int darkness = Difference(Pixel(x, y), fill_);
      weighted += static_cast<double>(darkness) * x;
      total += darkness;
    }
  }
  return total > 0 ? weighted / total : -1;
}

bool Canvas::SamePixels(const Canvas& other) const {
  if (width_ != other.width_ || height_ != other.height_) return false;
  const unsigned line = FreeImage_GetLine(dib_);
  for (int y = 0; y < height_; ++y) {
    if (std::memcmp(FreeImage_GetScanLine(dib_, y), FreeImage_GetScanLine(other.dib_, y), line) != 0) {
      return false;
    }
  }
  return true;
}

imaging::TextDrawRequest Request(const std::string& text, int left, int top) {
  imaging::TextDrawRequest request;
  request.text = text;
  request.left = left;
  request.top = top;
  request.right = 100;
  request.bottom = 100;
  request.face = "Arial";
  request.size_points = 24;
  return request;
}

}  // namespace velmora::testing
