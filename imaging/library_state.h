// What an ImagingLibrary holds (its images and the open multipage file) and the helpers its
// operations share: the failure rule, the guard that keeps exceptions inside, handle replacement.
#pragma once

#include <utility>

#include "imaging/bitmap.h"
#include "imaging/handle_table.h"
#include "imaging/imaging_library.h"
#include "imaging/multipage_writer.h"

namespace velmora::imaging {

struct ImagingLibrary::State {
  HandleTable images;
  // Goes before the images (members go in reverse order) and writes any open file as it goes.
  MultipageWriter appender;
  // Set for a run that keeps colour profiles: encoding then carries them through conversions.
  bool keep_colour_profiles = false;
};

constexpr CallResult kSucceeded = -1;
constexpr CallResult kFailed = 0;

// Runs `work` (which returns true on success) and reports it in `result`; whatever is thrown
// inside counts as a failure and goes no further.
template <typename Work>
void Report(CallResult& result, Work&& work) {
  result = kFailed;
  try {
    result = std::forward<Work>(work)() ? kSucceeded : kFailed;
  } catch (...) {
    result = kFailed;
  }
}

// Puts a new image behind an in/out handle, freeing the old one. False (nothing changed) when
// `bitmap` is null.
inline bool ReplaceImage(HandleTable& images, Handle handle, Bitmap bitmap) {
  return bitmap && images.Replace(handle, std::move(bitmap));
}

// Delivers the result of a conversion of `image` into `out`: when the caller passed the same
// variable (the same value) the image behind it is replaced, otherwise `out` gets a new handle.
inline bool DeliverConverted(HandleTable& images, Handle image, Handle& out, Bitmap bitmap) {
  if (!bitmap) return false;
  if (out == image) return images.Replace(image, std::move(bitmap));
  const Handle added = images.Add(std::move(bitmap));
  if (added == 0) return false;
  out = added;
  return true;
}

}  // namespace velmora::imaging
