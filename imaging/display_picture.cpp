// Display pictures: a 32-bit copy of the page unpacked into RGBA rows, top first.
#include "imaging/display_picture.h"

#include "imaging/standard_bitmap.h"

namespace velmora::imaging {

bool FillDisplayPicture(FIBITMAP* dib, DisplayPicture& picture) {
  if (!dib) return false;
  Bitmap standard = ToStandardBitmap(dib);
  if (!standard) return false;
  Bitmap rgba(IsBitmapOfDepth(standard.get(), 32) ? standard.release() : FreeImage_ConvertTo32Bits(standard.get()));
  if (!rgba) return false;
  const unsigned width = FreeImage_GetWidth(rgba.get()), height = FreeImage_GetHeight(rgba.get());
  DisplayPicture filled;
  filled.width = width;
  filled.height = height;
  filled.rgba.resize(std::size_t{width} * height * 4);
  std::uint8_t* out = filled.rgba.data();
  for (unsigned y = 0; y < height; ++y) {
    const BYTE* row = FreeImage_GetScanLine(rgba.get(), static_cast<int>(height - 1 - y));
    for (unsigned x = 0; x < width; ++x, row += 4, out += 4) {
      out[0] = row[FI_RGBA_RED];
      out[1] = row[FI_RGBA_GREEN];
      out[2] = row[FI_RGBA_BLUE];
      out[3] = row[FI_RGBA_ALPHA];
    }
  }
  picture = std::move(filled);
  return true;
}

}  // namespace velmora::imaging
