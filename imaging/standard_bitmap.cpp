// Conversion of the non-standard FreeImage page types to ordinary bitmaps.
#include "imaging/standard_bitmap.h"

namespace velmora::imaging {

bool HasAlpha(FIBITMAP* dib) {
  if (!dib) return false;
  switch (FreeImage_GetImageType(dib)) {
    case FIT_BITMAP: return FreeImage_GetBPP(dib) == 32 || FreeImage_IsTransparent(dib);
    case FIT_RGBA16:
    case FIT_RGBAF: return true;
    default: return false;
  }
}

void SetGreyPalette(FIBITMAP* dib) {
  RGBQUAD* palette = FreeImage_GetPalette(dib);
  if (!palette || FreeImage_GetColorsUsed(dib) != 256) return;
  for (int i = 0; i < 256; ++i) {
    palette[i].rgbRed = palette[i].rgbGreen = palette[i].rgbBlue = static_cast<BYTE>(i);
    palette[i].rgbReserved = 0;
  }
}

Bitmap ToStandardBitmap(FIBITMAP* dib) {
  if (!dib) return nullptr;
  switch (FreeImage_GetImageType(dib)) {
    case FIT_BITMAP: return Bitmap(FreeImage_Clone(dib));
    case FIT_RGB16: return Bitmap(FreeImage_ConvertTo24Bits(dib));
    case FIT_RGBA16: return Bitmap(FreeImage_ConvertTo32Bits(dib));
    case FIT_UINT16:
      // Keeps the high byte of each sample, so the grey levels stay where they were.
      return Bitmap(FreeImage_ConvertTo8Bits(dib));
    case FIT_FLOAT:
    case FIT_RGBF:
    case FIT_RGBAF: return FloatToBitmap(dib);
    default:
      // INT16, UINT32, INT32, DOUBLE, COMPLEX: no natural range, so scale what is there to 0..255.
      return Bitmap(FreeImage_ConvertToStandardType(dib, TRUE));
  }
}

Bitmap ToTrueColor(FIBITMAP* dib) {
  if (!dib) return nullptr;
  if (IsBitmapOfDepth(dib, 24) || IsBitmapOfDepth(dib, 32)) return Bitmap(FreeImage_Clone(dib));
  const bool alpha = HasAlpha(dib);
  Bitmap standard = ToStandardBitmap(dib);
  if (!standard) return nullptr;
  if (alpha || HasAlpha(standard.get())) return Bitmap(FreeImage_ConvertTo32Bits(standard.get()));
  return Bitmap(FreeImage_ConvertTo24Bits(standard.get()));
}

}  // namespace velmora::imaging
