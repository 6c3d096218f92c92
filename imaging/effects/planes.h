// Planar working copies of a page's colour, the form the neighbourhood effects compute on.
// Alpha never leaves the page, so an effect that writes planes back cannot change it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#include "imaging/effects/page_access.h"

namespace velmora::imaging::effects {

// An array that reports a failed allocation as null instead of throwing.
template <typename T>
std::unique_ptr<T[]> TryAllocate(std::size_t count) {
  return std::unique_ptr<T[]>(new (std::nothrow) T[count]);
}

// One 8-bit channel, top row first, rows packed without padding.
class Plane {
 public:
  // False when the memory cannot be had.
  bool Allocate(int width, int height);
  int width() const { return width_; }
  int height() const { return height_; }
  std::uint8_t* row(int y) { return bytes_.get() + static_cast<std::size_t>(y) * width_; }
  const std::uint8_t* row(int y) const { return bytes_.get() + static_cast<std::size_t>(y) * width_; }

 private:
  int width_ = 0;
  int height_ = 0;
  std::unique_ptr<std::uint8_t[]> bytes_;
};

// Red, green and blue, in that order (the order of kColourOffsets).
struct ColourPlanes {
  Plane channel[3];
  bool Allocate(int width, int height);
};

// Copies the colour of the page into planes allocated here; false when memory runs out.
bool ReadColour(FIBITMAP* dib, const PageLayout& layout, ColourPlanes& planes);
// Writes the planes over the page's colour bytes, leaving alpha as it was.
void WriteColour(const ColourPlanes& planes, FIBITMAP* dib, const PageLayout& layout);
// The Rec.601 luma of the page in a plane allocated here; false when memory runs out.
bool ReadLuma(FIBITMAP* dib, const PageLayout& layout, Plane& luma);
// Writes one plane to red, green and blue alike, leaving alpha as it was.
void WriteGrey(const Plane& grey, FIBITMAP* dib, const PageLayout& layout);

}  // namespace velmora::imaging::effects
