// The horizontal pass: each output pixel of a row is the weighted sum of a run of source pixels,
// every channel summed separately from the left of the run.
#include <vector>

#include "imaging/resample/resample_passes.h"
#include "imaging/resample/resample_weights.h"

namespace velmora::imaging::resample {
namespace {

template <unsigned Channels, typename Sample>
void SumRow(const AxisWeights& weights, unsigned width, const Sample* source, double* sums) {
  for (unsigned x = 0; x < width; ++x) {
    const double* taps = weights.Of(x);
    const Sample* pixel = source + std::size_t{weights.first[x]} * Channels;
    double sum[Channels] = {};
    for (unsigned i = 0; i < weights.count[x]; ++i, pixel += Channels)
      for (unsigned c = 0; c < Channels; ++c) sum[c] += taps[i] * double(pixel[c]);
    for (unsigned c = 0; c < Channels; ++c) sums[c] = sum[c];
    sums += Channels;
  }
}

template <unsigned Channels, typename Sample>
void SumRows(const Plane<const Sample>& source, const Plane<Sample>& target, const Rounding& rounding) {
  const AxisWeights weights = BilinearWeights(target.width, source.width);
  std::vector<double> sums(target.RowSamples());
  for (unsigned y = 0; y < target.height; ++y) {
    SumRow<Channels>(weights, target.width, source.Row(y), sums.data());
    StoreRow(sums.data(), sums.size(), Channels, rounding, target.Row(y));
  }
}

}  // namespace

template <typename Sample>
void ResizeRows(const Plane<const Sample>& source, const Plane<Sample>& target, const Rounding& rounding) {
  switch (source.channels) {
    case 1: return SumRows<1>(source, target, rounding);
    case 3: return SumRows<3>(source, target, rounding);
    default: return SumRows<4>(source, target, rounding);
  }
}

template void ResizeRows(const Plane<const std::uint8_t>&, const Plane<std::uint8_t>&, const Rounding&);
template void ResizeRows(const Plane<const std::uint16_t>&, const Plane<std::uint16_t>&, const Rounding&);
template void ResizeRows(const Plane<const float>&, const Plane<float>&, const Rounding&);

}  // namespace velmora::imaging::resample
