// The order of a bilinear resize, as FreeImage orders it: rows first when the page gets no wider,
// columns first otherwise, with a temporary page between the passes of the result's own depth.
#include "imaging/resample/resample.h"

#include <cstdint>
#include <memory>
#include <vector>

#include "imaging/resample/resample_passes.h"
#include "imaging/resample/resample_source.h"

namespace velmora::imaging {
namespace {

using resample::Plane;
using resample::ResizePlan;
using resample::Rounding;

template <typename Sample>
Plane<Sample> BitmapPlane(FIBITMAP* dib, unsigned channels) {
  return {reinterpret_cast<std::byte*>(FreeImage_GetBits(dib)), FreeImage_GetPitch(dib), FreeImage_GetWidth(dib),
          FreeImage_GetHeight(dib), channels};
}

// A page between the passes, in memory of its own, left uninitialised since the first pass fills it.
template <typename Sample>
Plane<Sample> BufferPlane(std::unique_ptr<Sample[]>& storage, unsigned width, unsigned height, unsigned channels) {
  storage = std::make_unique_for_overwrite<Sample[]>(std::size_t{width} * height * channels);
  return {reinterpret_cast<std::byte*>(storage.get()), std::size_t{width} * channels * sizeof(Sample), width, height,
          channels};
}

template <typename Sample>
Plane<const Sample> ReadOnly(const Plane<Sample>& plane) {
  return {plane.bits, plane.pitch, plane.width, plane.height, plane.channels};
}

template <typename Sample>
void Filter(FIBITMAP* dib, const ResizePlan& plan, FIBITMAP* target) {
  std::vector<std::uint8_t> unpacked;
  Plane<const Sample> source;
  if constexpr (std::is_same_v<Sample, std::uint8_t>) {
    source =
        plan.unpacked ? resample::UnpackSource(dib, plan, unpacked) : ReadOnly(BitmapPlane<Sample>(dib, plan.channels));
  } else {
    source = ReadOnly(BitmapPlane<Sample>(dib, plan.channels));
  }
  const Plane<Sample> result = BitmapPlane<Sample>(target, plan.channels);
  const bool rows_first = result.width <= source.width;
  const bool rows = result.width != source.width, columns = result.height != source.height;
  std::unique_ptr<Sample[]> between;
  Plane<Sample> middle = result;
  if (rows && columns) {
    middle = rows_first ? BufferPlane(between, result.width, source.height, plan.channels)
                        : BufferPlane(between, source.width, result.height, plan.channels);
  }
  Rounding plain;
  if (rows_first) {
    if (rows) resample::ResizeRows(source, middle, plan.first_rows);
    if (columns) resample::ResizeColumns(rows ? ReadOnly(middle) : source, result, rows ? plain : plan.first_columns);
  } else {
    if (columns) resample::ResizeColumns(source, middle, plan.first_columns);
    if (rows) resample::ResizeRows(columns ? ReadOnly(middle) : source, result, columns ? plain : plan.first_rows);
  }
}

// The grey ramp FreeImage gives a page whose palette runs from white to black.
void InvertGreyPalette(FIBITMAP* dib) {
  RGBQUAD* palette = FreeImage_GetPalette(dib);
  for (unsigned i = 0; i < 256; ++i) palette[i] = {BYTE(255 - i), BYTE(255 - i), BYTE(255 - i), 0};
}

}  // namespace

Bitmap RescaleBilinear(FIBITMAP* dib, unsigned width, unsigned height) {
  if (!dib || !FreeImage_HasPixels(dib) || width == 0 || height == 0) return nullptr;
  const std::optional<ResizePlan> plan = resample::PlanResize(dib);
  if (!plan || (width == FreeImage_GetWidth(dib) && height == FreeImage_GetHeight(dib)))
    return Bitmap(FreeImage_Rescale(dib, int(width), int(height), FILTER_BILINEAR));

  Bitmap target(FreeImage_AllocateT(plan->type, int(width), int(height), int(plan->target_bpp)));
  if (!target) return nullptr;
  if (plan->inverted_grey) InvertGreyPalette(target.get());
  switch (plan->type) {
    case FIT_BITMAP: Filter<std::uint8_t>(dib, *plan, target.get()); break;
    case FIT_UINT16:
    case FIT_RGB16:
    case FIT_RGBA16: Filter<std::uint16_t>(dib, *plan, target.get()); break;
    default: Filter<float>(dib, *plan, target.get()); break;
  }
  FreeImage_CloneMetadata(target.get(), dib);
  return target;
}

}  // namespace velmora::imaging
