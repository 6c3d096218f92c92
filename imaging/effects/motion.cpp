// Motion: a horizontal streak, each pixel the mean of a centred run of its row; the strong
// form has a longer run. Centred, so edges smear both ways and the picture does not shift.
#include <algorithm>

#include "imaging/effects/effects.h"
#include "imaging/effects/pixel_math.h"
#include "imaging/effects/planes.h"

namespace velmora::imaging::effects {
namespace {

constexpr int kRadius = 5;         // 11 pixels
constexpr int kStrongRadius = 12;  // 25 pixels

// Replaces each pixel of every row by the mean of the run from x - radius to x + radius, edge
// pixels repeated, with a running sum. `means` maps a run's sum to its rounded mean and `line`
// holds one row.
void SmearRows(Plane& plane, int radius, const std::uint8_t* means, std::uint8_t* line) {
  const int width = plane.width();
  for (int y = 0; y < plane.height(); ++y) {
    std::uint8_t* row = plane.row(y);
    std::copy(row, row + width, line);
    int sum = 0;
    for (int i = -radius; i <= radius; ++i) sum += line[std::clamp(i, 0, width - 1)];
    for (int x = 0; x < width; ++x) {
      row[x] = means[sum];
      sum += line[std::min(x + radius + 1, width - 1)] - line[std::max(x - radius, 0)];
    }
  }
}

}  // namespace

bool Motion(FIBITMAP* dib, bool strong) {
  const auto layout = AcceptedLayout(dib);
  if (!layout) return false;
  const int radius = strong ? kStrongRadius : kRadius;
  const int run = 2 * radius + 1;
  ColourPlanes planes;
  auto means = TryAllocate<std::uint8_t>(255 * run + 1);
  auto line = TryAllocate<std::uint8_t>(static_cast<std::size_t>(layout->width));
  if (!means || !line || !ReadColour(dib, *layout, planes)) return false;
  for (int sum = 0; sum <= 255 * run; ++sum) means[sum] = static_cast<std::uint8_t>(DivideRound(sum, run));
  for (Plane& plane : planes.channel) SmearRows(plane, radius, means.get(), line.get());
  WriteColour(planes, dib, *layout);
  return true;
}

}  // namespace velmora::imaging::effects
