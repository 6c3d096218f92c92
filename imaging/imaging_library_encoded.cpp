// ImagingLibrary's split save: encoding into memory and writing encoded bytes.
#include "imaging/encoded_image.h"
#include "imaging/imaging_library.h"
#include "imaging/library_state.h"

namespace velmora::imaging {

void ImagingLibrary::EncodeImage(Handle image, int format, int flags, EncodedImage& encoded, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    encoded.bytes.clear();
    return dib && EncodeToMemory(dib, format, flags, encoded.bytes, state_->keep_colour_profiles);
  });
}

void ImagingLibrary::KeepColourProfiles(bool keep) {
  state_->keep_colour_profiles = keep;
}

void ImagingLibrary::WriteEncodedImage(const EncodedImage& encoded, const std::string& path, CallResult& result) {
  Report(result, [&] {
    // A multipage file still open at this path is finished first, so the later write wins.
    state_->appender.FlushIfOpen(path);
    return WriteBytesToFile(encoded.bytes, path);
  });
}

}  // namespace velmora::imaging
