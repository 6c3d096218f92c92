// Sharpen: an unsharp mask. Each channel moves away from its Gaussian-blurred self by a set
// amount, which steepens edges and leaves flat areas alone; the strong form pushes twice as far.
#include "imaging/effects/convolution.h"
#include "imaging/effects/effects.h"
#include "imaging/effects/pixel_math.h"

namespace velmora::imaging::effects {
namespace {

constexpr double kSigma = 1.0;
// Amount in quarters: 0.75 plain, 1.5 strong.
constexpr int kAmountShift = 2;
constexpr int kAmount = 3;
constexpr int kStrongAmount = 6;

}  // namespace

bool Sharpen(FIBITMAP* dib, bool strong) {
  const auto layout = AcceptedLayout(dib);
  if (!layout) return false;
  ColourPlanes planes;
  Plane blurred;
  SeparableConvolver convolver;
  if (!ReadColour(dib, *layout, planes) || !blurred.Allocate(layout->width, layout->height) ||
      !convolver.Prepare(layout->width, layout->height, GaussianKernel(kSigma))) {
    return false;
  }
  const int amount = strong ? kStrongAmount : kAmount;
  for (Plane& plane : planes.channel) {
    convolver.Apply(plane, blurred);
    for (int y = 0; y < layout->height; ++y) {
      std::uint8_t* pixel = plane.row(y);
      const std::uint8_t* soft = blurred.row(y);
      for (int x = 0; x < layout->width; ++x) {
        const int detail = pixel[x] - soft[x];
        pixel[x] = ClampByte(pixel[x] + RoundShift(amount * detail, kAmountShift));
      }
    }
  }
  WriteColour(planes, dib, *layout);
  return true;
}

}  // namespace velmora::imaging::effects
