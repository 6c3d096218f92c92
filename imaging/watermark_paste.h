// Putting a watermark picture on a page: clipped to the page, one colour keyed out, alpha blended.
// FreeImage_Paste takes only a watermark that fits wholly inside the page, hence this module.
#pragma once

#include <cstdint>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// `page` is a 24- or 32-bit bitmap changed in place; `mark` a 32-bit bitmap whose top-left corner
// goes to (left, top), counted from the page's top-left. Watermark pixels whose colour is
// `transparent_color` (0x00BBGGRR; a value outside 0..0xFFFFFF keys nothing) are left out; the
// others are blended by their alpha. False when the bitmaps are not of those depths.
bool PasteClipped(FIBITMAP* page, FIBITMAP* mark, std::int64_t left, std::int64_t top, std::int32_t transparent_color);

}  // namespace velmora::imaging
