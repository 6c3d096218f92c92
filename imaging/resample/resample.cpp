// The order of a bilinear resize, as FreeImage orders it: rows first when the page gets narrower,
// columns first when it gets wider, the samples between the passes stored at the result's depth.
// Rows first stream: each row of the first pass is made just before the second pass needs it.
#include "imaging/resample/resample.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "imaging/resample/resample_passes.h"
#include "imaging/resample/resample_source.h"
#include "imaging/resample/resample_weights.h"

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
resample::SourceRow<Sample> RowsOf(const Plane<const Sample>& plane) {
  return [plane](unsigned y) { return plane.Row(y); };
}

template <typename Sample>
void ResizeEveryRow(const Plane<const Sample>& source, const Plane<Sample>& target, const Rounding& rounding) {
  const resample::RowResize<Sample> resize =
      resample::MakeRowResize<Sample>(source.width, target.width, source.channels, rounding);
  for (unsigned y = 0; y < target.height; ++y) resize(source.Row(y), target.Row(y));
}

// The rows of the horizontal pass, each made when the vertical pass first asks for it. A run spans
// at most `longest` rows and runs only move down, so that many slots, used in turn, hold every row
// still needed.
template <typename Sample>
resample::SourceRow<Sample> RowsMadeOnDemand(const Plane<const Sample>& source, unsigned target_width,
                                             unsigned target_height, const Rounding& rounding) {
  const resample::AxisWeights runs = resample::BilinearWeights(target_height, source.height);
  const unsigned slots = *std::max_element(runs.count.begin(), runs.count.end());
  const std::size_t row_samples = std::size_t{target_width} * source.channels;
  auto ring = std::make_shared<std::vector<Sample>>(slots * row_samples);
  auto made = std::make_shared<std::vector<long>>(slots, -1);
  const resample::RowResize<Sample> resize =
      resample::MakeRowResize<Sample>(source.width, target_width, source.channels, rounding);
  return [=](unsigned y) {
    Sample* slot = ring->data() + (y % slots) * row_samples;
    if ((*made)[y % slots] != long{y}) {
      resize(source.Row(y), slot);
      (*made)[y % slots] = y;
    }
    return slot;
  };
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
  // The rounding of whichever pass reads the source; the second pass reads stored samples.
  const Rounding& rows = plan.first_rows;
  const Rounding& columns = plan.first_columns;
  const Rounding plain;
  if (result.height == source.height) {
    ResizeEveryRow(source, result, rows);
  } else if (result.width == source.width) {
    resample::ResizeColumns(RowsOf(source), source.height, result, columns);
  } else if (result.width < source.width) {
    resample::ResizeColumns(RowsMadeOnDemand(source, result.width, result.height, rows), source.height, result, plain);
  } else {
    std::unique_ptr<Sample[]> storage;
    const Plane<Sample> middle = BufferPlane(storage, source.width, result.height, plan.channels);
    resample::ResizeColumns(RowsOf(source), source.height, middle, columns);
    ResizeEveryRow(ReadOnly(middle), result, plain);
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
