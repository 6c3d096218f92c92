// The vertical pass, row by row: an output row is the weighted sum of a run of source rows, added
// one source row at a time from the top of the run, which keeps FreeImage's order of additions per
// sample while reading memory in its own order. Long rows go in strips that stay in cache.
#include <algorithm>
#include <vector>

#include "imaging/resample/resample_passes.h"
#include "imaging/resample/resample_weights.h"

namespace velmora::imaging::resample {
namespace {

// A whole number of pixels of 1, 3 or 4 channels.
constexpr std::size_t kStripSamples = 2040;

template <typename Sample>
VELMORA_RESAMPLE_KERNEL void AddWeightedRow(double weight, const Sample* source, std::size_t count, double* sums) {
  for (std::size_t i = 0; i < count; ++i) sums[i] += weight * double(source[i]);
}

}  // namespace

template <typename Sample>
void ResizeColumns(const Plane<const Sample>& source, const Plane<Sample>& target, const Rounding& rounding) {
  const AxisWeights weights = BilinearWeights(target.height, source.height);
  const std::size_t row_samples = target.RowSamples();
  std::vector<double> sums(std::min(row_samples, kStripSamples));
  for (unsigned y = 0; y < target.height; ++y) {
    const double* taps = weights.Of(y);
    for (std::size_t start = 0; start < row_samples; start += sums.size()) {
      const std::size_t count = std::min(sums.size(), row_samples - start);
      std::fill_n(sums.begin(), count, 0.0);
      for (unsigned i = 0; i < weights.count[y]; ++i)
        AddWeightedRow(taps[i], source.Row(weights.first[y] + i) + start, count, sums.data());
      StoreRow(sums.data(), count, target.channels, rounding, target.Row(y) + start);
    }
  }
}

template void ResizeColumns(const Plane<const std::uint8_t>&, const Plane<std::uint8_t>&, const Rounding&);
template void ResizeColumns(const Plane<const std::uint16_t>&, const Plane<std::uint16_t>&, const Rounding&);
template void ResizeColumns(const Plane<const float>&, const Plane<float>&, const Rounding&);

}  // namespace velmora::imaging::resample
