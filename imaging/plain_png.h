// A PNG writer for the common case of FreeImage's PNG save with flags 0: a true-colour page with
// no colour profile, text or transparency table. The rows take the filter (none, sub or Paeth)
// whose bytes sum smallest, as libpng chooses for FreeImage, and go through libdeflate, which
// compresses them faster than zlib and no worse at the level used here.
#pragma once

#include <cstdint>
#include <vector>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// Writes `dib` as a PNG into `bytes`: RGB, or RGBA when a 32-bit page has an alpha value below
// 255, with its resolution. False, and `bytes` untouched, for a page this writer leaves to
// FreeImage's.
bool EncodePlainPng(FIBITMAP* dib, std::vector<std::uint8_t>& bytes);

}  // namespace velmora::imaging
