// Integer convolution kernels and passes shared by the blur, sharpen and relief filters.
#include "imaging/effects/convolution.h"

#include <algorithm>
#include <cmath>

#include "imaging/effects/pixel_math.h"

namespace velmora::imaging::effects {
namespace {

// Scales real weights to integers summing to exactly 2^kKernelShift; what rounding leaves over
// goes to the centre tap, which keeps the kernel symmetric.
Kernel1D Normalise(const std::vector<double>& real) {
  double total = 0.0;
  for (double w : real) total += w;
  const int unit = 1 << Kernel1D::kKernelShift;
  Kernel1D kernel;
  kernel.weights.reserve(real.size());
  int sum = 0;
  for (double w : real) {
    const int scaled = static_cast<int>(std::lround(w / total * unit));
    kernel.weights.push_back(scaled);
    sum += scaled;
  }
  kernel.weights[real.size() / 2] += unit - sum;
  return kernel;
}

}  // namespace

Kernel1D GaussianKernel(double sigma) {
  const int radius = std::max(1, static_cast<int>(std::ceil(3.0 * sigma)));
  std::vector<double> real(2 * radius + 1);
  for (int i = -radius; i <= radius; ++i) {
    real[i + radius] = std::exp(-(i * i) / (2.0 * sigma * sigma));
  }
  return Normalise(real);
}

bool SeparableConvolver::Prepare(int width, int height, const Kernel1D& kernel) {
  kernel_ = kernel;
  const int radius = kernel.radius();
  line_ = TryAllocate<int>(static_cast<std::size_t>(width) + 2 * static_cast<std::size_t>(radius));
  sums_ = TryAllocate<int>(static_cast<std::size_t>(width));
  return line_ && sums_ && between_.Allocate(width, height);
}

void SeparableConvolver::Apply(const Plane& source, Plane& target) {
  ApplyRows(source, between_);
  ApplyColumns(between_, target);
}

void SeparableConvolver::ApplyRows(const Plane& source, Plane& target) {
  const int width = source.width();
  const int radius = kernel_.radius();
  const int* weights = kernel_.weights.data();
  int* padded = line_.get();
  int* sums = sums_.get();
  for (int y = 0; y < source.height(); ++y) {
    const std::uint8_t* in = source.row(y);
    for (int i = 0; i < width + 2 * radius; ++i) {
      padded[i] = in[std::clamp(i - radius, 0, width - 1)];
    }
    // Tap by tap across the whole row, so the inner loop runs over pixels; the kernel is
    // symmetric, so the two taps of a pair share one multiply.
    const int centre = weights[radius];
    for (int x = 0; x < width; ++x) sums[x] = centre * padded[x + radius];
    for (int k = 0; k < radius; ++k) {
      const int weight = weights[k];
      const int* before = padded + k;
      const int* after = padded + 2 * radius - k;
      for (int x = 0; x < width; ++x) sums[x] += weight * (before[x] + after[x]);
    }
    std::uint8_t* out = target.row(y);
    for (int x = 0; x < width; ++x) out[x] = ClampByte(RoundShift(sums[x], Kernel1D::kKernelShift));
  }
}

void SeparableConvolver::ApplyColumns(const Plane& source, Plane& target) {
  const int width = source.width();
  const int height = source.height();
  const int radius = kernel_.radius();
  int* sums = sums_.get();
  for (int y = 0; y < height; ++y) {
    const int centre = kernel_.weights[radius];
    const std::uint8_t* middle = source.row(y);
    for (int x = 0; x < width; ++x) sums[x] = centre * middle[x];
    for (int k = 0; k < radius; ++k) {
      const int weight = kernel_.weights[k];
      const std::uint8_t* above = source.row(std::max(y + k - radius, 0));
      const std::uint8_t* below = source.row(std::min(y + radius - k, height - 1));
      for (int x = 0; x < width; ++x) sums[x] += weight * (above[x] + below[x]);
    }
    std::uint8_t* out = target.row(y);
    for (int x = 0; x < width; ++x) out[x] = ClampByte(RoundShift(sums[x], Kernel1D::kKernelShift));
  }
}

bool ConvolvePage(FIBITMAP* dib, const PageLayout& layout, const Kernel1D& kernel) {
  ColourPlanes planes;
  SeparableConvolver convolver;
  if (!ReadColour(dib, layout, planes) || !convolver.Prepare(layout.width, layout.height, kernel)) {
    return false;
  }
  for (Plane& plane : planes.channel) convolver.Apply(plane, plane);
  WriteColour(planes, dib, layout);
  return true;
}

void Convolve3x3(const Plane& source, const int (&weights)[9], int bias, Plane& target) {
  const int width = source.width();
  const int height = source.height();
  for (int y = 0; y < height; ++y) {
    const std::uint8_t* rows[3] = {source.row(std::max(y - 1, 0)), source.row(y),
                                   source.row(std::min(y + 1, height - 1))};
    std::uint8_t* out = target.row(y);
    for (int x = 0; x < width; ++x) {
      const int columns[3] = {std::max(x - 1, 0), x, std::min(x + 1, width - 1)};
      int sum = bias;
      for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) sum += weights[3 * r + c] * rows[r][columns[c]];
      }
      out[x] = ClampByte(sum);
    }
  }
}

}  // namespace velmora::imaging::effects
