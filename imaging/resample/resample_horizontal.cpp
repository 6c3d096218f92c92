// The horizontal pass, a row at a time: each output pixel is the weighted sum of a run of source pixels,
// every channel summed separately from the left of the run. Each source row is widened to doubles
// once, since every source pixel feeds several output pixels, and the sums are stored a stretch
// at a time while they are still in cache.
#include <algorithm>
#include <memory>
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
RowResize<Sample> MakeRowResize(AxisWeights weights, unsigned source_width, const Rounding& rounding) {
  struct Work {
    AxisWeights weights;
    std::vector<double> padded_taps, row, sums;
    Rounding rounding;
  };
  auto work = std::make_shared<Work>();
  work->padded_taps = Taps ? PaddedTaps(weights, Taps) : std::vector<double>();
  work->weights = std::move(weights);
  work->row.resize((std::size_t{source_width} + Taps) * Channels);  // zeros after the row for padded taps
  work->sums.resize(kStretch * Channels);
  work->rounding = rounding;
  return [work, source_samples = std::size_t{source_width} * Channels](const Sample* source, Sample* target) {
    const unsigned width = unsigned(work->weights.first.size());
    Widen(source, source_samples, work->row.data());
    for (unsigned begin = 0; begin < width; begin += kStretch) {
      const unsigned end = std::min(width, begin + kStretch);
      if constexpr (Taps == 0) {
        SumStretch<Channels>(work->weights, begin, end, work->row.data(), work->sums.data());
      } else {
        SumStretchPadded<Channels, Taps>(work->weights, work->padded_taps.data(), begin, end, work->row.data(),
                                         work->sums.data());
      }
      StoreRow(work->sums.data(), std::size_t{end - begin} * Channels, Channels, work->rounding,
               target + std::size_t{begin} * Channels);
    }
  };
}

template <unsigned Channels, typename Sample>
RowResize<Sample> MakeRowResize(unsigned source_width, unsigned target_width, const Rounding& rounding) {
  AxisWeights weights = BilinearWeights(target_width, source_width);
  RowResize<Sample> resize;
  WithPaddedLength(PaddedLength(weights, std::is_floating_point_v<Sample>), [&](auto taps) {
    resize = MakeRowResize<Channels, decltype(taps)::value, Sample>(std::move(weights), source_width, rounding);
  });
  return resize;
}

}  // namespace

template <typename Sample>
RowResize<Sample> MakeRowResize(unsigned source_width, unsigned target_width, unsigned channels,
                                const Rounding& rounding) {
  switch (channels) {
    case 1: return MakeRowResize<1, Sample>(source_width, target_width, rounding);
    case 3: return MakeRowResize<3, Sample>(source_width, target_width, rounding);
    default: return MakeRowResize<4, Sample>(source_width, target_width, rounding);
  }
}

template RowResize<std::uint8_t> MakeRowResize(unsigned, unsigned, unsigned, const Rounding&);
template RowResize<std::uint16_t> MakeRowResize(unsigned, unsigned, unsigned, const Rounding&);
template RowResize<float> MakeRowResize(unsigned, unsigned, unsigned, const Rounding&);

}  // namespace velmora::imaging::resample
