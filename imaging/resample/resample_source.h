// What a bilinear resize of a FreeImage bitmap reads and makes: the depth of the result (palette
// and 16-bit pages widen to grey, 24 or 32 bits as FreeImage widens them) and the source unpacked
// into one sample a channel, ready for the filter passes.
#pragma once

#include <FreeImage.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "imaging/resample/resample_passes.h"

namespace velmora::imaging::resample {

using IndexColours = std::array<std::array<std::uint8_t, 4>, 256>;

struct ResizePlan {
  FREE_IMAGE_TYPE type = FIT_BITMAP;
  unsigned target_bpp = 0;
  unsigned channels = 0;               // per pixel, in the source as read and in the result
  bool inverted_grey = false;          // the grey result runs from white to black
  bool unpacked = false;               // the source must be unpacked before filtering
  Rounding first_rows, first_columns;  // rounding of whichever pass reads the source
  IndexColours index_colours{};        // the samples each palette index unpacks to
};

// Nothing for the pixel types this code leaves to FreeImage.
std::optional<ResizePlan> PlanResize(FIBITMAP* source);

// The source of a plan that asks for unpacking, one byte a sample, held in `storage`.
Plane<const std::uint8_t> UnpackSource(FIBITMAP* source, const ResizePlan& plan, std::vector<std::uint8_t>& storage);

}  // namespace velmora::imaging::resample
