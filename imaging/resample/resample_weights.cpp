// Tent filter weights. The order of every operation below is significant: the results must equal
// FreeImage's to the last bit, and this file is compiled without floating-point contraction.
#include "imaging/resample/resample_weights.h"

#include <algorithm>
#include <cmath>

namespace velmora::imaging::resample {
namespace {

double Tent(double distance) {
  distance = std::fabs(distance);
  return distance < 1.0 ? 1.0 - distance : 0.0;
}

}  // namespace

AxisWeights BilinearWeights(unsigned output_size, unsigned source_size) {
  const double scale = double(output_size) / double(source_size);
  // Shrinking widens the tent over 1/scale source pixels and lowers it by scale.
  const double reach = scale < 1.0 ? 1.0 / scale : 1.0;
  const double squeeze = scale < 1.0 ? scale : 1.0;
  const double offset = 0.5 / scale;

  AxisWeights weights;
  weights.first.resize(output_size);
  weights.count.resize(output_size);
  weights.offset.resize(output_size);
  std::vector<double> taps;
  for (unsigned u = 0; u < output_size; ++u) {
    const double centre = double(u) / scale + offset;
    const int left = std::max(0, int(centre - reach + 0.5));
    int right = std::min(int(centre + reach + 0.5), int(source_size));

    taps.clear();
    double total = 0;
    for (int s = left; s < right; ++s) {
      const double weight = squeeze * Tent(squeeze * (double(s) + 0.5 - centre));
      taps.push_back(weight);
      total += weight;
    }
    if (total > 0 && total != 1)
      for (double& weight : taps) weight /= total;
    // Zero weights at the right end read nothing; leading ones stay, as FreeImage keeps them.
    while (right > left && taps[right - left - 1] == 0) --right;

    weights.first[u] = unsigned(left);
    weights.count[u] = unsigned(std::max(right - left, 0));
    weights.offset[u] = unsigned(weights.values.size());
    weights.values.insert(weights.values.end(), taps.begin(), taps.begin() + weights.count[u]);
  }
  return weights;
}

unsigned PaddedLength(const AxisWeights& weights, bool float_samples) {
  const unsigned longest = *std::max_element(weights.count.begin(), weights.count.end());
  if (float_samples || longest > 8) return 0;
  return std::max(2u, (longest + 1) / 2 * 2);
}

std::vector<double> PaddedTaps(const AxisWeights& weights, unsigned length) {
  std::vector<double> padded(weights.first.size() * length);
  for (std::size_t u = 0; u < weights.first.size(); ++u)
    std::copy_n(weights.Of(unsigned(u)), weights.count[u], padded.begin() + u * length);
  return padded;
}

}  // namespace velmora::imaging::resample
