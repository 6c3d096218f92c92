// ImagingLibrary's effects and compositing: the pixel effects, watermark pictures and text.
// Each works on a 24- or 32-bit bitmap; other pages are converted to one first.
#include "imaging/effects/effects.h"
#include "imaging/imaging_library.h"
#include "imaging/library_state.h"
#include "imaging/standard_bitmap.h"
#include "imaging/text/text_renderer.h"
#include "imaging/watermark_paste.h"

namespace velmora::imaging {
namespace {

bool IsTrueColor(FIBITMAP* dib) {
  return IsBitmapOfDepth(dib, 24) || IsBitmapOfDepth(dib, 32);
}

// Runs `draw` on the page when it is already 24 or 32 bits (`draw` leaves it untouched when it
// fails); otherwise on a true-colour copy that replaces the page only when `draw` succeeds.
template <typename Draw>
bool DrawOnTrueColorPage(HandleTable& images, Handle image, Draw draw) {
  FIBITMAP* dib = images.Find(image);
  if (!dib) return false;
  if (IsTrueColor(dib)) return draw(dib);
  Bitmap copy = ToTrueColor(dib);
  if (!copy || !draw(copy.get())) return false;
  return ReplaceImage(images, image, std::move(copy));
}

template <typename Draw>
void DrawOnTrueColor(HandleTable& images, Handle image, CallResult& result, Draw draw) {
  Report(result, [&] { return DrawOnTrueColorPage(images, image, draw); });
}

// A 32-bit copy of the watermark, whatever its depth or type.
Bitmap WatermarkCopy(FIBITMAP* mark) {
  if (IsBitmapOfDepth(mark, 32)) return Bitmap(FreeImage_Clone(mark));
  Bitmap copy = ToTrueColor(mark);
  if (copy && !IsBitmapOfDepth(copy.get(), 32)) copy.reset(FreeImage_ConvertTo32Bits(copy.get()));
  return copy;
}

}  // namespace

void ImagingLibrary::EffectBlur(Handle& image, std::int32_t strong, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [&](FIBITMAP* dib) { return effects::Blur(dib, strong != 0); });
}

void ImagingLibrary::EffectDistort(Handle& image, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [](FIBITMAP* dib) { return effects::Distort(dib); });
}

void ImagingLibrary::EffectEmboss(Handle& image, std::int32_t strong, std::int32_t direction, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result,
                  [&](FIBITMAP* dib) { return effects::Emboss(dib, strong != 0, direction); });
}

void ImagingLibrary::EffectEtch(Handle& image, std::int32_t strong, std::int32_t direction, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result,
                  [&](FIBITMAP* dib) { return effects::Etch(dib, strong != 0, direction); });
}

void ImagingLibrary::EffectGrayscale(Handle& image, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [](FIBITMAP* dib) { return effects::Grayscale(dib); });
}

void ImagingLibrary::EffectInvert(Handle& image, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    return dib && FreeImage_Invert(dib) != FALSE;
  });
}

void ImagingLibrary::EffectMosaic(Handle& image, std::uint8_t size, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [&](FIBITMAP* dib) { return effects::Mosaic(dib, size); });
}

void ImagingLibrary::EffectMotion(Handle& image, std::int32_t strong, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [&](FIBITMAP* dib) { return effects::Motion(dib, strong != 0); });
}

void ImagingLibrary::EffectSharpen(Handle& image, std::int32_t strong, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [&](FIBITMAP* dib) { return effects::Sharpen(dib, strong != 0); });
}

void ImagingLibrary::PasteWatermark(Handle& image, Handle watermark, std::int32_t left, std::int32_t top,
                                    std::int32_t transparent_color, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* mark = state_->images.Find(watermark);
    if (!mark || !state_->images.Find(image)) return false;
    // Copied before the page changes: the watermark may be the page itself.
    const Bitmap mark32 = WatermarkCopy(mark);
    return mark32 && DrawOnTrueColorPage(state_->images, image, [&](FIBITMAP* dib) {
             return PasteClipped(dib, mark32.get(), left, top, transparent_color);
           });
  });
}

void ImagingLibrary::DrawWatermarkText(Handle& image, const TextDrawRequest& request, CallResult& result) {
  DrawOnTrueColor(state_->images, image, result, [&](FIBITMAP* dib) { return text::DrawText(dib, request); });
}

}  // namespace velmora::imaging
