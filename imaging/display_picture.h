// Turning any page into the plain picture a window shows: 8-bit RGBA rows, top row first.
// The preview is the only user; nothing here changes the page.
#pragma once

#include "imaging/bitmap.h"
#include "imaging/imaging_library.h"

namespace velmora::imaging {

// Fills `picture` from `dib`; pages without alpha come out opaque. False when no conversion works.
bool FillDisplayPicture(FIBITMAP* dib, DisplayPicture& picture);

}  // namespace velmora::imaging
