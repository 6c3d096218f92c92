// The table behind image handles: each number from 1 up names one FreeImage bitmap the table owns.
// A mutex guards the table so that several threads may share one imaging object.
#pragma once

#include <cstddef>
#include <mutex>
#include <unordered_map>

#include "imaging/bitmap.h"
#include "imaging/imaging_library.h"

namespace velmora::imaging {

class HandleTable {
 public:
  // Takes the bitmap and returns its new handle; 0 (and nothing kept) for a null bitmap.
  Handle Add(Bitmap bitmap);
  // The bitmap behind `handle`, or null for 0 and unknown handles. The table still owns it.
  FIBITMAP* Find(Handle handle) const;
  // Puts `bitmap` behind an existing handle and frees the image it held. False (bitmap freed) for
  // 0, unknown handles and null bitmaps.
  bool Replace(Handle handle, Bitmap bitmap);
  // Frees one image; false when the handle is unknown.
  bool Release(Handle handle);
  std::size_t Count() const;

 private:
  mutable std::mutex mutex_;
  std::unordered_map<Handle, Bitmap> images_;
  Handle next_ = 1;
};

}  // namespace velmora::imaging
