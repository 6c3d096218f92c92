// The bilinear (tent) weights of a resize along one axis: for each output index, the run of source
// indices it reads and their normalised weights, computed in the same double arithmetic as
// FreeImage so that resized pixels match its own to the byte.
#pragma once

#include <type_traits>
#include <vector>

namespace velmora::imaging::resample {

struct AxisWeights {
  std::vector<unsigned> first;   // first source index read by each output index
  std::vector<unsigned> count;   // how many source indices it reads, at least one
  std::vector<unsigned> offset;  // where its weights start in `values`
  std::vector<double> values;

  const double* Of(unsigned output_index) const { return values.data() + offset[output_index]; }
};

AxisWeights BilinearWeights(unsigned output_size, unsigned source_size);

// The short length, 2, 4, 6 or 8, that every run fits in once padded with zero weights; 0 when
// some run is longer or when the samples are floats. For integer samples a padded term adds exactly
// nothing to a sum that is never negative, so padded sums stay FreeImage's, and the fixed length
// lets the compiler unroll and vectorise the loops.
unsigned PaddedLength(const AxisWeights& weights, bool float_samples);

// Calls `run` with `length`, one of PaddedLength's answers, as a compile-time constant.
template <typename Run>
void WithPaddedLength(unsigned length, Run run) {
  switch (length) {
    case 2: return run(std::integral_constant<unsigned, 2>{});
    case 4: return run(std::integral_constant<unsigned, 4>{});
    case 6: return run(std::integral_constant<unsigned, 6>{});
    case 8: return run(std::integral_constant<unsigned, 8>{});
    default: return run(std::integral_constant<unsigned, 0>{});
  }
}

// The weights of every output index in `length` places, the missing ones zero; `length` is at
// least the longest run.
std::vector<double> PaddedTaps(const AxisWeights& weights, unsigned length);

}  // namespace velmora::imaging::resample
