// ImagingLibrary's depth conversions. Pages that are not ordinary bitmaps (16 bits a channel,
// float) are brought to one first, so each conversion delivers the depth it names.
#include <FreeImage.h>

#include "imaging/imaging_library.h"
#include "imaging/library_state.h"
#include "imaging/standard_bitmap.h"

namespace velmora::imaging {
namespace {

// Applies a FreeImage conversion to the page, or to an ordinary-bitmap copy of it.
template <typename Convert>
Bitmap ConvertPage(FIBITMAP* dib, Convert convert) {
  if (FreeImage_GetImageType(dib) == FIT_BITMAP) return Bitmap(convert(dib));
  Bitmap standard = ToStandardBitmap(dib);
  return standard ? Bitmap(convert(standard.get())) : nullptr;
}

template <typename Convert>
void RunConversion(HandleTable& images, Handle image, Handle& out, CallResult& result, Convert convert) {
  Report(result, [&] {
    FIBITMAP* dib = images.Find(image);
    if (!dib) {
      if (out != image) out = 0;
      return false;
    }
    Bitmap converted = ConvertPage(dib, convert);
    if (!converted) {
      if (out != image) out = 0;
      return false;
    }
    return DeliverConverted(images, image, out, std::move(converted));
  });
}

}  // namespace

void ImagingLibrary::FreeImage_ConvertTo32Bits(Handle image, Handle& out, CallResult& result) {
  RunConversion(state_->images, image, out, result, [](FIBITMAP* dib) { return ::FreeImage_ConvertTo32Bits(dib); });
}

void ImagingLibrary::FreeImage_ConvertTo24Bits(Handle image, Handle& out, CallResult& result) {
  RunConversion(state_->images, image, out, result, [](FIBITMAP* dib) { return ::FreeImage_ConvertTo24Bits(dib); });
}

void ImagingLibrary::ConvertTo16Bits(Handle image, Handle& out, bool as565, CallResult& result) {
  RunConversion(state_->images, image, out, result, [as565](FIBITMAP* dib) {
    return as565 ? FreeImage_ConvertTo16Bits565(dib) : FreeImage_ConvertTo16Bits555(dib);
  });
}

void ImagingLibrary::ConvertToIndexed8(Handle image, Handle& out, std::int32_t /*mode*/, CallResult& result) {
  RunConversion(state_->images, image, out, result, [](FIBITMAP* dib) { return FreeImage_ConvertTo8Bits(dib); });
}

void ImagingLibrary::ConvertToIndexed4(Handle image, Handle& out, std::int32_t /*mode*/, CallResult& result) {
  RunConversion(state_->images, image, out, result, [](FIBITMAP* dib) { return FreeImage_ConvertTo4Bits(dib); });
}

void ImagingLibrary::ConvertToMono(Handle image, Handle& out, std::int32_t /*mode*/, std::int32_t threshold,
                                   CallResult& result) {
  const BYTE level = static_cast<BYTE>(threshold < 0 ? 0 : threshold > 255 ? 255 : threshold);
  RunConversion(state_->images, image, out, result, [level](FIBITMAP* dib) { return FreeImage_Threshold(dib, level); });
}

}  // namespace velmora::imaging
