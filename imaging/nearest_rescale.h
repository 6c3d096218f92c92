// Nearest-neighbour resizing, which FreeImage lacks: every output pixel is an exact copy of one
// source pixel, for any depth and pixel type, palette and transparency kept.
#pragma once

#include "imaging/bitmap.h"

namespace velmora::imaging {

// A new bitmap of `width` x `height`; null for a zero size or an allocation failure.
Bitmap RescaleNearest(FIBITMAP* dib, unsigned width, unsigned height);

}  // namespace velmora::imaging
