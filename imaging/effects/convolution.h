// Integer convolution over planes with edge pixels repeated: separable passes for blur and
// sharpen, and an unnormalised 3x3 pass for the relief filters.
#pragma once

#include <memory>
#include <vector>

#include "imaging/effects/planes.h"

namespace velmora::imaging::effects {

// A centred, symmetric one-dimensional kernel of odd length whose weights sum to exactly
// 2^kKernelShift, so that a flat plane passes through unchanged.
struct Kernel1D {
  static constexpr int kKernelShift = 12;
  std::vector<int> weights;
  int radius() const { return static_cast<int>(weights.size() / 2); }
};

// A Gaussian of deviation `sigma` cut at three deviations (radius at least 1).
Kernel1D GaussianKernel(double sigma);

// Runs one kernel over planes of one size; the working memory is taken once, in Prepare.
class SeparableConvolver {
 public:
  // False when the memory cannot be had.
  bool Prepare(int width, int height, const Kernel1D& kernel);
  // Along rows, then along columns. `target` has the size of `source` and may be the same plane.
  void Apply(const Plane& source, Plane& target);

 private:
  void ApplyRows(const Plane& source, Plane& target);
  void ApplyColumns(const Plane& source, Plane& target);

  Kernel1D kernel_;
  Plane between_;                // result of the row pass before the column pass
  std::unique_ptr<int[]> line_;  // one source row widened by the radius on both sides
  std::unique_ptr<int[]> sums_;  // one row of weighted sums
};

// Convolves the colour of an accepted page in place; false (page untouched) when memory runs out.
bool ConvolvePage(FIBITMAP* dib, const PageLayout& layout, const Kernel1D& kernel);

// target = bias + sum of weights times the 3x3 neighbourhood, clamped to 0..255. The weights are
// given row by row from the top left; `target` has the size of `source` and is another plane.
void Convolve3x3(const Plane& source, const int (&weights)[9], int bias, Plane& target);

}  // namespace velmora::imaging::effects
