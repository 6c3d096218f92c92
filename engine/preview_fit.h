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

}  // namespace velmora::engine
