// Blur: a Gaussian blur of the colour channels; the strong form has twice the radius.
#include "imaging/effects/convolution.h"
#include "imaging/effects/effects.h"

namespace velmora::imaging::effects {
namespace {

constexpr double kSigma = 1.5;        // radius 5
constexpr double kStrongSigma = 3.0;  // radius 9

}  // namespace

bool Blur(FIBITMAP* dib, bool strong) {
  const auto layout = AcceptedLayout(dib);
  if (!layout) return false;
  return ConvolvePage(dib, *layout, GaussianKernel(strong ? kStrongSigma : kSigma));
}

}  // namespace velmora::imaging::effects
