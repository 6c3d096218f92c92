// The vertical pass, row by row: an output row is the weighted sum of a run of source rows, added
// from the top of the run, which keeps FreeImage's order of additions per sample while reading
// memory in its own order. Long rows go in strips whose sums stay in cache.
#include <algorithm>
#include <type_traits>
#include <vector>

#include "imaging/resample/resample_passes.h"
#include "imaging/resample/resample_weights.h"

namespace velmora::imaging::resample {
namespace {

// A whole number of pixels of 1, 3 or 4 channels.
constexpr std::size_t kStripSamples = 2040;

// Runs of any length: float samples, and strong reductions.
template <typename Sample>
VELMORA_RESAMPLE_KERNEL void AddWeightedRow(double weight, const Sample* source, std::size_t count, double* sums) {
  for (std::size_t i = 0; i < count; ++i) sums[i] += weight * double(source[i]);
}

// Runs padded to `Taps` rows (see PaddedLength): the whole run summed in one sweep of the strip.
template <unsigned Taps, typename Sample>
VELMORA_RESAMPLE_KERNEL void SumRun(const double* taps, const Sample* const* rows, std::size_t start, std::size_t count,
                                    double* sums) {
  for (std::size_t k = 0; k < count; ++k) {
    double sum = 0;
    for (unsigned i = 0; i < Taps; ++i) sum += taps[i] * double(rows[i][start + k]);
    sums[k] = sum;
  }
}

template <unsigned Taps, typename Sample>
void SumColumns(const SourceRow<Sample>& source, const Plane<Sample>& target, const Rounding& rounding,
                const AxisWeights& weights) {
  const std::vector<double> padded_taps = Taps ? PaddedTaps(weights, Taps) : std::vector<double>();
  const std::size_t row_samples = target.RowSamples();
  std::vector<double> sums(std::min(row_samples, kStripSamples));
  std::vector<const Sample*> rows;
  for (unsigned y = 0; y < target.height; ++y) {
    const double* taps = weights.Of(y);
    rows.clear();
    for (unsigned i = 0; i < weights.count[y]; ++i) rows.push_back(source(weights.first[y] + i));
    rows.resize(std::max<std::size_t>(Taps, rows.size()), rows.front());  // padding repeats the first row
    for (std::size_t start = 0; start < row_samples; start += sums.size()) {
      const std::size_t count = std::min(sums.size(), row_samples - start);
      if constexpr (Taps == 0) {
        std::fill_n(sums.begin(), count, 0.0);
        for (unsigned i = 0; i < weights.count[y]; ++i) AddWeightedRow(taps[i], rows[i] + start, count, sums.data());
      } else {
        SumRun<Taps>(padded_taps.data() + std::size_t{y} * Taps, rows.data(), start, count, sums.data());
      }
      StoreRow(sums.data(), count, target.channels, rounding, target.Row(y) + start);
    }
  }
}

}  // namespace

template <typename Sample>
void ResizeColumns(const SourceRow<Sample>& source, unsigned source_height, const Plane<Sample>& target,
                   const Rounding& rounding) {
  const AxisWeights weights = BilinearWeights(target.height, source_height);
  WithPaddedLength(PaddedLength(weights, std::is_floating_point_v<Sample>),
                   [&](auto taps) { SumColumns<decltype(taps)::value>(source, target, rounding, weights); });
}

template void ResizeColumns(const SourceRow<std::uint8_t>&, unsigned, const Plane<std::uint8_t>&, const Rounding&);
template void ResizeColumns(const SourceRow<std::uint16_t>&, unsigned, const Plane<std::uint16_t>&, const Rounding&);
template void ResizeColumns(const SourceRow<float>&, unsigned, const Plane<float>&, const Rounding&);

}  // namespace velmora::imaging::resample
