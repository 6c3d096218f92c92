// Draws a line of watermark text on a bitmap with FreeType and HarfBuzz, the face found through fontconfig.
// Works in place on a 24- or 32-bit FIT_BITMAP; returns false (image untouched) for anything else.
#pragma once

#include <FreeImage.h>

#include "imaging/imaging_library.h"

namespace velmora::imaging::text {

bool DrawText(FIBITMAP* dib, const TextDrawRequest& request);

}  // namespace velmora::imaging::text
