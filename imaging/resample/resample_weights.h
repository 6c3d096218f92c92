// The bilinear (tent) weights of a resize along one axis: for each output index, the run of source
// indices it reads and their normalised weights, computed in the same double arithmetic as
// FreeImage so that resized pixels match its own to the byte.
#pragma once

#include <vector>

namespace velmora::imaging::resample {

struct AxisWeights {
  std::vector<unsigned> first;   // first source index read by each output index
  std::vector<unsigned> count;   // how many source indices it reads
  std::vector<unsigned> offset;  // where its weights start in `values`
  std::vector<double> values;

  const double* Of(unsigned output_index) const { return values.data() + offset[output_index]; }
};

AxisWeights BilinearWeights(unsigned output_size, unsigned source_size);

// The weights of every output index in `length` places, the missing ones zero; `length` is at
// least the longest run.
std::vector<double> PaddedTaps(const AxisWeights& weights, unsigned length);

}  // namespace velmora::imaging::resample
