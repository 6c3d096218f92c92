// The horizontal pass: each output pixel of a row is the weighted sum of a run of source pixels,
// every channel summed separately from the left of the run. Each source row is widened to doubles
// once, since every source pixel feeds several output pixels, and the sums are stored a stretch
// at a time while they are still in cache.
#include <algorithm>
#include <type_traits>
#include <vector>

#include "imaging/resample/resample_passes.h"
#include "imaging/resample/resample_weights.h"

namespace velmora::imaging::resample {
namespace {

// Output pixels summed before they are stored.
constexpr unsigned kStretch = 256;

template <typename Sample>
VELMORA_RESAMPLE_KERNEL void Widen(const Sample* source, std::size_t count, double* row) {
  for (std::size_t i = 0; i < count; ++i) row[i] = double(source[i]);
}

// Runs of any length: float samples, and strong reductions.
template <unsigned Channels>
void SumStretch(const AxisWeights& weights, unsigned begin, unsigned end, const double* source, double* sums) {
  for (unsigned x = begin; x < end; ++x, sums += Channels) {
    const double* taps = weights.Of(x);
    const double* pixel = source + std::size_t{weights.first[x]} * Channels;
    double sum[Channels] = {};
    for (unsigned i = 0; i < weights.count[x]; ++i, pixel += Channels)
      for (unsigned c = 0; c < Channels; ++c) sum[c] += taps[i] * pixel[c];
    for (unsigned c = 0; c < Channels; ++c) sums[c] = sum[c];
  }
}

// Runs padded with zero weights to one short length (see PaddedLength). Several output pixels are
// summed side by side so that the additions of one do not wait on each other.
template <unsigned Channels, unsigned Taps>
VELMORA_RESAMPLE_KERNEL void SumStretchPadded(const AxisWeights& weights, const double* padded_taps, unsigned begin,
                                              unsigned end, const double* source, double* sums) {
  constexpr unsigned kGroup = 4;
  unsigned x = begin;
  for (; x + kGroup <= end; x += kGroup, sums += kGroup * Channels) {
    double sum[kGroup][Channels] = {};
    for (unsigned i = 0; i < Taps; ++i)
      for (unsigned g = 0; g < kGroup; ++g) {
        const double tap = padded_taps[std::size_t{x + g} * Taps + i];
        const double* pixel = source + std::size_t{weights.first[x + g] + i} * Channels;
        for (unsigned c = 0; c < Channels; ++c) sum[g][c] += tap * pixel[c];
      }
    for (unsigned g = 0; g < kGroup; ++g)
      for (unsigned c = 0; c < Channels; ++c) sums[g * Channels + c] = sum[g][c];
  }
  for (; x < end; ++x, sums += Channels) {
    double sum[Channels] = {};
    for (unsigned i = 0; i < Taps; ++i)
      for (unsigned c = 0; c < Channels; ++c)
        sum[c] += padded_taps[std::size_t{x} * Taps + i] * source[std::size_t{weights.first[x] + i} * Channels + c];
    for (unsigned c = 0; c < Channels; ++c) sums[c] = sum[c];
  }
}

template <unsigned Channels, unsigned Taps, typename Sample>
void SumRows(const Plane<const Sample>& source, const Plane<Sample>& target, const Rounding& rounding,
             const AxisWeights& weights) {
  const std::vector<double> padded_taps = Taps ? PaddedTaps(weights, Taps) : std::vector<double>();
  // Zeros after the row for the padded taps to read.
  std::vector<double> row(source.RowSamples() + Taps * Channels);
  std::vector<double> sums(kStretch * Channels);
  for (unsigned y = 0; y < target.height; ++y) {
    Widen(source.Row(y), source.RowSamples(), row.data());
    for (unsigned begin = 0; begin < target.width; begin += kStretch) {
      const unsigned end = std::min(target.width, begin + kStretch);
      if constexpr (Taps == 0) {
        SumStretch<Channels>(weights, begin, end, row.data(), sums.data());
      } else {
        SumStretchPadded<Channels, Taps>(weights, padded_taps.data(), begin, end, row.data(), sums.data());
      }
      StoreRow(sums.data(), std::size_t{end - begin} * Channels, Channels, rounding,
               target.Row(y) + std::size_t{begin} * Channels);
    }
  }
}

template <unsigned Channels, typename Sample>
void SumRows(const Plane<const Sample>& source, const Plane<Sample>& target, const Rounding& rounding) {
  const AxisWeights weights = BilinearWeights(target.width, source.width);
  WithPaddedLength(PaddedLength(weights, std::is_floating_point_v<Sample>),
                   [&](auto taps) { SumRows<Channels, decltype(taps)::value>(source, target, rounding, weights); });
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
