// ImagingLibrary's transforms: rescaling, rotation, flips and the tone adjustments, all on the
// page behind an in/out handle.
#include <cstdlib>
#include <string_view>

#include "imaging/exif_block.h"
#include "imaging/image_files.h"
#include "imaging/imaging_library.h"
#include "imaging/library_state.h"
#include "imaging/nearest_rescale.h"
#include "imaging/resample/resample.h"
#include "imaging/rotation.h"

namespace velmora::imaging {
namespace {

constexpr std::int32_t kFilterBilinear = 1;
constexpr std::int32_t kFilterNearest = 2;
constexpr std::int32_t kFlipLeftRight = 1;
constexpr std::int32_t kFlipTopBottom = 2;

// VELMORA_FREEIMAGE_RESCALE=1 hands bilinear resizes back to FreeImage's own code, for the tests
// and benchmarks that compare the two; it is read once.
bool UseFreeImageRescale() {
  static const bool chosen = [] {
    const char* value = std::getenv("VELMORA_FREEIMAGE_RESCALE");
    return value && std::string_view(value) == "1";
  }();
  return chosen;
}

// Runs an operation that changes the page in place; FreeImage leaves the page as it was when it
// refuses (a depth it does not take).
template <typename Change>
void ChangeInPlace(HandleTable& images, Handle image, CallResult& result, Change change) {
  Report(result, [&] {
    FIBITMAP* dib = images.Find(image);
    return dib && change(dib) != FALSE;
  });
}

// Runs an operation that makes a new page and puts it behind the handle.
template <typename Make>
void ReplaceWithNew(HandleTable& images, Handle image, CallResult& result, Make make) {
  Report(result, [&] {
    FIBITMAP* dib = images.Find(image);
    return dib && ReplaceImage(images, image, make(dib));
  });
}

}  // namespace

void ImagingLibrary::FreeImage_Rescale(Handle& image, std::int32_t width, std::int32_t height, std::int32_t filter,
                                       CallResult& result) {
  if (width <= 0 || height <= 0 || (filter != kFilterBilinear && filter != kFilterNearest)) {
    result = kFailed;
    return;
  }
  ReplaceWithNew(state_->images, image, result, [&](FIBITMAP* dib) {
    if (filter == kFilterNearest) return RescaleNearest(dib, width, height);
    if (UseFreeImageRescale()) return Bitmap(::FreeImage_Rescale(dib, width, height, FILTER_BILINEAR));
    return RescaleBilinear(dib, static_cast<unsigned>(width), static_cast<unsigned>(height));
  });
}

void ImagingLibrary::RotateRightAngle(Handle& image, std::int32_t angle, CallResult& result) {
  ReplaceWithNew(state_->images, image, result, [angle](FIBITMAP* dib) { return RotateByRightAngle(dib, angle); });
}

void ImagingLibrary::RotateFree(Handle& image, double angle, double x_origin, double y_origin, std::int32_t mask,
                                CallResult& result) {
  ReplaceWithNew(state_->images, image, result,
                 [&](FIBITMAP* dib) { return RotateByAngle(dib, angle, x_origin, y_origin, mask != 0); });
}

void ImagingLibrary::FlipImage(Handle& image, std::int32_t mode, CallResult& result) {
  if (mode != kFlipLeftRight && mode != kFlipTopBottom) {
    result = kFailed;
    return;
  }
  ChangeInPlace(state_->images, image, result, [mode](FIBITMAP* dib) {
    return mode == kFlipLeftRight ? FreeImage_FlipHorizontal(dib) : FreeImage_FlipVertical(dib);
  });
}

void ImagingLibrary::TurnUpright(Handle image, const std::string& source, int page_index, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    if (!dib) return false;
    int orientation = CameraOrientation(dib);
    if (orientation == 1 && DetectReadableFormat(source) == FIF_TIFF)
      orientation = TiffFileOrientation(source, page_index);
    if (orientation == 1) return true;
    Bitmap page(FreeImage_Clone(dib));
    return page && imaging::TurnUpright(page, orientation) && state_->images.Replace(image, std::move(page));
  });
}

void ImagingLibrary::FreeImage_AdjustBrightness(Handle& image, std::int32_t value, CallResult& result) {
  ChangeInPlace(state_->images, image, result,
                [value](FIBITMAP* dib) { return ::FreeImage_AdjustBrightness(dib, value); });
}

void ImagingLibrary::FreeImage_AdjustContrast(Handle& image, std::int32_t value, CallResult& result) {
  ChangeInPlace(state_->images, image, result,
                [value](FIBITMAP* dib) { return ::FreeImage_AdjustContrast(dib, value); });
}

void ImagingLibrary::FreeImage_AdjustGamma(Handle& image, double gamma, CallResult& result) {
  ChangeInPlace(state_->images, image, result, [gamma](FIBITMAP* dib) { return ::FreeImage_AdjustGamma(dib, gamma); });
}

}  // namespace velmora::imaging
