// Fitting a preview page into its frame: pages larger than the frame shrink, smaller ones stay.
#pragma once

#include <cstdint>

namespace velmora::engine {

struct FitResult {
  bool rescale = false;  // false: the page keeps its size
  std::int32_t width = 0, height = 0;
};

// `page_*` is the page's size, `frame_*` the inner size of the preview frame.
FitResult FitPreview(std::int64_t page_width, std::int64_t page_height, std::int64_t frame_width,
                     std::int64_t frame_height);

// The fit of the preview's source box: the ratio is single precision and the sizes 16-bit, so a
// size that doesn't fit 16 bits leaves the picture unscaled.
struct BoxFit {
  bool rescale = false;
  std::int16_t width = 0, height = 0;
};
BoxFit FitSourceBox(std::int64_t width, std::int64_t height, std::int64_t box_width, std::int64_t box_height);

}  // namespace velmora::engine
