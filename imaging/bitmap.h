// Ownership of FreeImage bitmaps inside the imaging back end: a unique_ptr that unloads its image.
// Only the back end's own files include this header; nothing outside imaging/ sees FreeImage types.
#pragma once

#include <FreeImage.h>

#include <memory>

namespace velmora::imaging {

struct BitmapDeleter {
  void operator()(FIBITMAP* dib) const {
    if (dib) FreeImage_Unload(dib);
  }
};
using Bitmap = std::unique_ptr<FIBITMAP, BitmapDeleter>;

// A multipage file opened for reading only; closing it writes nothing.
struct ReadOnlyMultiBitmapCloser {
  void operator()(FIMULTIBITMAP* multi) const {
    if (multi) FreeImage_CloseMultiBitmap(multi, 0);
  }
};
using ReadOnlyMultiBitmap = std::unique_ptr<FIMULTIBITMAP, ReadOnlyMultiBitmapCloser>;

// A multipage file opened for writing; closing it writes the file with the flags it holds.
struct WritableMultiBitmapCloser {
  int flags = 0;
  void operator()(FIMULTIBITMAP* multi) const {
    if (multi) FreeImage_CloseMultiBitmap(multi, flags);
  }
};
using WritableMultiBitmap = std::unique_ptr<FIMULTIBITMAP, WritableMultiBitmapCloser>;

// Gives `to` the ICC colour profile of `from`, which FreeImage's conversions and turns leave behind.
// True when `from` has none or it was copied.
inline bool CloneColourProfile(FIBITMAP* to, FIBITMAP* from) {
  const FIICCPROFILE* profile = FreeImage_GetICCProfile(from);
  if (to == from || !profile || !profile->data || profile->size <= 0) return true;
  return FreeImage_CreateICCProfile(to, profile->data, profile->size) != nullptr;
}

// True for the ordinary FreeImage bitmap (FIT_BITMAP) of one of the given depths.
inline bool IsBitmapOfDepth(FIBITMAP* dib, unsigned bpp) {
  return dib && FreeImage_GetImageType(dib) == FIT_BITMAP && FreeImage_GetBPP(dib) == bpp;
}

}  // namespace velmora::imaging
