// Rounding sums into stored samples: integer samples round half up and clamp to their range,
// floats are narrowed.
#include <algorithm>
#include <limits>
#include <type_traits>

#include "imaging/resample/resample_passes.h"

namespace velmora::imaging::resample {
namespace {

template <typename Sample>
Sample RoundAndClamp(double sum) {
  return Sample(std::clamp(int(sum + 0.5), 0, int(std::numeric_limits<Sample>::max())));
}

template <typename Sample>
VELMORA_RESAMPLE_KERNEL void Store(const double* sums, std::size_t count, unsigned channels, const Rounding& rounding,
                                   Sample* target) {
  if constexpr (std::is_floating_point_v<Sample>) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Sample(sums[i]);
  } else if (!rounding.scaled) {
    for (std::size_t i = 0; i < count; ++i) target[i] = RoundAndClamp<Sample>(sums[i]);
  } else {
    for (std::size_t i = 0; i < count; i += channels)
      for (unsigned c = 0; c < channels; ++c)
        target[i + c] = RoundAndClamp<Sample>(sums[i + c] * rounding.factor[c] / rounding.divisor[c]);
  }
}

}  // namespace

template <typename Sample>
void StoreRow(const double* sums, std::size_t count, unsigned channels, const Rounding& rounding, Sample* target) {
  Store(sums, count, channels, rounding, target);
}

template void StoreRow(const double*, std::size_t, unsigned, const Rounding&, std::uint8_t*);
template void StoreRow(const double*, std::size_t, unsigned, const Rounding&, std::uint16_t*);
template void StoreRow(const double*, std::size_t, unsigned, const Rounding&, float*);

}  // namespace velmora::imaging::resample
