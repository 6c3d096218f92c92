// Mosaic: the page cut into square blocks from the top left, each filled with its mean colour.
// Blocks at the right and bottom edges are cut short by the page and average what they cover.
#include <algorithm>

#include "imaging/effects/effects.h"
#include "imaging/effects/page_access.h"
#include "imaging/effects/pixel_math.h"
#include "imaging/effects/planes.h"

namespace velmora::imaging::effects {
namespace {

// Width of block number `block` in a row of `width` pixels cut every `side` pixels.
int BlockWidth(int block, int side, int width) {
  return std::min(side, width - block * side);
}

}  // namespace

bool Mosaic(FIBITMAP* dib, int size) {
  const auto layout = AcceptedLayout(dib);
  if (!layout || size < 1) return false;
  const int side = std::min(size, std::max(layout->width, layout->height));
  const int across = (layout->width + side - 1) / side;
  auto sums = TryAllocate<std::int64_t>(3 * static_cast<std::size_t>(across));
  auto means = TryAllocate<std::uint8_t>(3 * static_cast<std::size_t>(across));
  if (!sums || !means) return false;
  const int step = layout->bytes_per_pixel;

  for (int top = 0; top < layout->height; top += side) {
    const int bottom = std::min(top + side, layout->height);
    std::fill(sums.get(), sums.get() + 3 * across, 0);
    for (int y = top; y < bottom; ++y) {
      const std::uint8_t* pixel = TopRow(dib, *layout, y);
      for (int block = 0; block < across; ++block) {
        std::int64_t* sum = sums.get() + 3 * block;
        for (int i = 0; i < BlockWidth(block, side, layout->width); ++i, pixel += step) {
          for (int c = 0; c < 3; ++c) sum[c] += pixel[kColourOffsets[c]];
        }
      }
    }
    for (int block = 0; block < across; ++block) {
      const std::int64_t count = static_cast<std::int64_t>(BlockWidth(block, side, layout->width)) * (bottom - top);
      for (int c = 0; c < 3; ++c) {
        means[3 * block + c] = static_cast<std::uint8_t>(DivideRound(sums[3 * block + c], count));
      }
    }
    for (int y = top; y < bottom; ++y) {
      std::uint8_t* pixel = TopRow(dib, *layout, y);
      for (int block = 0; block < across; ++block) {
        const std::uint8_t* mean = means.get() + 3 * block;
        for (int i = 0; i < BlockWidth(block, side, layout->width); ++i, pixel += step) {
          for (int c = 0; c < 3; ++c) pixel[kColourOffsets[c]] = mean[c];
        }
      }
    }
  }
  return true;
}

}  // namespace velmora::imaging::effects
