// Emboss and Etch: relief filters on the luma. Each pixel becomes mid-grey plus the slope of the
// picture across it as seen from the light, so flat areas turn mid-grey and edges that face the
// light turn bright. Etch takes the opposite slope, which reads as lines cut into the surface.
#include "imaging/effects/convolution.h"
#include "imaging/effects/effects.h"

namespace velmora::imaging::effects {
namespace {

constexpr int kMidGrey = 128;

// The eight neighbours clockwise from the top left, as indices into a row-major 3x3 kernel.
constexpr int kRing[8] = {0, 1, 2, 5, 8, 7, 6, 3};
// Weights round the ring for a light in the top left: the three neighbours toward the light
// count against, the three away from it for.
constexpr int kTopLeftLight[8] = {-1, -1, 0, 1, 1, 1, 0, -1};

// Direction counts in 45-degree steps clockwise from the top left (0), any integer allowed.
void ReliefKernel(int direction, int gain, int (&weights)[9]) {
  const int steps = ((direction % 8) + 8) % 8;
  weights[4] = 0;
  for (int i = 0; i < 8; ++i) weights[kRing[i]] = gain * kTopLeftLight[(i - steps + 8) % 8];
}

bool Relief(FIBITMAP* dib, bool strong, int direction, bool engraved) {
  const auto layout = AcceptedLayout(dib);
  if (!layout) return false;
  Plane luma, relief;
  if (!ReadLuma(dib, *layout, luma) || !relief.Allocate(layout->width, layout->height)) return false;
  const int gain = (strong ? 2 : 1) * (engraved ? -1 : 1);
  int weights[9];
  ReliefKernel(direction, gain, weights);
  Convolve3x3(luma, weights, kMidGrey, relief);
  WriteGrey(relief, dib, *layout);
  return true;
}

}  // namespace

bool Emboss(FIBITMAP* dib, bool strong, int direction) {
  return Relief(dib, strong, direction, false);
}

bool Etch(FIBITMAP* dib, bool strong, int direction) {
  return Relief(dib, strong, direction, true);
}

}  // namespace velmora::imaging::effects
