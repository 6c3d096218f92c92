// Bringing any FreeImage page (16 bits a channel, float, integer types) to an ordinary bitmap that
// the depth conversions, effects and compositing take. Every function returns a new bitmap.
#pragma once

#include "imaging/bitmap.h"

namespace velmora::imaging {

// True when the page carries transparency: a 32-bit bitmap, a palette with a transparency table,
// or a 16-bit or float RGBA page.
bool HasAlpha(FIBITMAP* dib);

// A copy as an ordinary bitmap: RGB16 to 24 bits, RGBA16 to 32, UINT16 to 8-bit grey, float pages
// through FloatToBitmap, other types scaled to 8-bit grey. Ordinary bitmaps are cloned as they are.
Bitmap ToStandardBitmap(FIBITMAP* dib);

// A copy as a 24-bit bitmap, or 32-bit when the page has alpha: the form effects, text and
// watermarks work on.
Bitmap ToTrueColor(FIBITMAP* dib);

// Float pages (FLOAT, RGBF, RGBAF) as 8-bit grey, 24 or 32 bits. Values within 0..1 are scaled
// straight to 0..255 so that an ordinary picture keeps its values; brighter pages are tone mapped.
Bitmap FloatToBitmap(FIBITMAP* dib);

// An 8-bit bitmap's palette set to the grey ramp 0..255.
void SetGreyPalette(FIBITMAP* dib);

}  // namespace velmora::imaging
