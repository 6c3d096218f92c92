// Resize: pixel sizes with or without kept proportions, or percents of the page's size.
#include <optional>

#include "engine/number_text.h"
#include "engine/ops/chain_state.h"

namespace velmora::engine {
namespace {

// round(factor * size / 100) where the product is 32-bit integer arithmetic: an overflow
// gives no value and the size stays as it was.
std::optional<std::int32_t> PercentOf(std::int32_t factor, std::uint32_t size) {
  const std::int64_t product = static_cast<std::int64_t>(factor) * static_cast<std::int64_t>(size);
  if (product > INT32_MAX || product < INT32_MIN) return std::nullopt;
  return static_cast<std::int32_t>(RoundHalfEven(static_cast<double>(product) / 100.0));
}

}  // namespace

bool ApplyResize(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain) {
  std::uint32_t w = 0, h = 0;
  lib.FreeImage_GetWidth(page, w);
  lib.FreeImage_GetHeight(page, h);
  const std::int32_t W = block.Width, H = block.Height;

  if (block.Units == 0) {
    if (block.KeepProportions == kFalse) {
      chain.resize_width = W;
      chain.resize_height = H;
    } else if (W < H) {
      // The smaller number of the pair is kept; the other follows the page's shape.
      if (w != 0 && h != 0) {
        const double ratio = static_cast<double>(w) / h;
        chain.resize_width = W;
        chain.resize_height = static_cast<std::int32_t>(RoundHalfEven(W / ratio));
      }
    } else if (W > H) {
      if (w != 0 && h != 0) {
        const double ratio = static_cast<double>(h) / w;
        chain.resize_height = H;
        chain.resize_width = static_cast<std::int32_t>(RoundHalfEven(H / ratio));
      }
    } else {
      chain.resize_width = W;  // an equal pair stretches to exactly these numbers
      chain.resize_height = H;
    }
  }
  if (block.Units == 1) {
    if (auto height = PercentOf(H, h)) chain.resize_height = *height;
    if (auto width = PercentOf(W, w)) chain.resize_width = *width;
  }

  imaging::CallResult result = 0;
  lib.FreeImage_Rescale(page, chain.resize_width, chain.resize_height, block.Method == 0 ? 1 : 2, result);
  return result != 0;
}

}  // namespace velmora::engine
