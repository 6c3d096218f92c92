// The depth and pixel type a page is written with: the nearest one the output format accepts,
// made on a copy so that the caller's page is never touched.
#pragma once

#include "imaging/bitmap.h"

namespace velmora::imaging {

// The page ready for the encoder: either the page itself or a converted copy owned here.
struct ExportPage {
  FIBITMAP* dib = nullptr;
  Bitmap converted;
};

// True when `format` takes this page as it is.
bool FormatTakesPage(FREE_IMAGE_FORMAT format, FIBITMAP* dib);

// Fills `page` with what `format` can write: 32 to 24 bits for JPEG, a Wu quantisation to 8 bits
// for GIF, float RGB(A) for EXR, 16-bit and float pages to 24/32 bits where the format wants that.
// False when no conversion gives something the format takes. A converted copy takes the page's
// metadata, and its colour profile when `keep_colour_profile`.
bool PrepareForExport(FIBITMAP* dib, FREE_IMAGE_FORMAT format, ExportPage& page, bool keep_colour_profile = false);

}  // namespace velmora::imaging
