// Distort: a ripple. Each pixel is taken from a point pushed sideways by a sine wave running down
// the page and up or down by one running across it, sampled bilinearly with edges repeated.
// Amplitude and wavelength follow the page's shorter side, and nothing is random.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "imaging/effects/effects.h"
#include "imaging/effects/pixel_math.h"
#include "imaging/effects/planes.h"

namespace velmora::imaging::effects {
namespace {

// Positions are fixed point with 8 fraction bits.
constexpr int kFractionBits = 8;
constexpr int kOne = 1 << kFractionBits;

constexpr double kAmplitudeShare = 0.02;   // of the shorter side
constexpr double kMinAmplitude = 1.5;      // pixels
constexpr double kWavelengthShare = 0.25;  // of the shorter side
constexpr double kMinWavelength = 12.0;    // pixels

// The displacement, in fixed point, at each of `count` positions along a wave.
bool FillWave(int count, double amplitude, double wavelength, std::unique_ptr<int[]>& wave) {
  wave = TryAllocate<int>(static_cast<std::size_t>(count));
  if (!wave) return false;
  for (int i = 0; i < count; ++i) {
    const double angle = 2.0 * std::numbers::pi * i / wavelength;
    wave[i] = static_cast<int>(std::lround(amplitude * std::sin(angle) * kOne));
  }
  return true;
}

// Bilinear sample of `plane` at the fixed-point point (x0 + fx, y0 + fy) with x1, y1 the next
// column and row (already clamped).
int Sample(const Plane& plane, int x0, int x1, int fx, int y0, int y1, int fy) {
  const std::uint8_t* upper = plane.row(y0);
  const std::uint8_t* lower = plane.row(y1);
  const int top = upper[x0] * (kOne - fx) + upper[x1] * fx;
  const int bottom = lower[x0] * (kOne - fx) + lower[x1] * fx;
  return RoundShift(top * (kOne - fy) + bottom * fy, 2 * kFractionBits);
}

}  // namespace

bool Distort(FIBITMAP* dib) {
  const auto layout = AcceptedLayout(dib);
  if (!layout) return false;
  const int width = layout->width;
  const int height = layout->height;
  const double shorter = std::min(width, height);
  const double amplitude = std::max(kMinAmplitude, shorter * kAmplitudeShare);
  const double wavelength = std::max(kMinWavelength, shorter * kWavelengthShare);

  ColourPlanes source;
  std::unique_ptr<int[]> sideways, vertical;  // indexed by row and by column
  if (!ReadColour(dib, *layout, source) || !FillWave(height, amplitude, wavelength, sideways) ||
      !FillWave(width, amplitude, wavelength, vertical)) {
    return false;
  }

  const int step = layout->bytes_per_pixel;
  const int last_x = (width - 1) * kOne;
  const int last_y = (height - 1) * kOne;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* pixel = TopRow(dib, *layout, y);
    for (int x = 0; x < width; ++x, pixel += step) {
      const int sx = std::clamp(x * kOne + sideways[y], 0, last_x);
      const int sy = std::clamp(y * kOne + vertical[x], 0, last_y);
      const int x0 = sx >> kFractionBits;
      const int y0 = sy >> kFractionBits;
      const int x1 = std::min(x0 + 1, width - 1);
      const int y1 = std::min(y0 + 1, height - 1);
      const int fx = sx & (kOne - 1);
      const int fy = sy & (kOne - 1);
      for (int c = 0; c < 3; ++c) {
        pixel[kColourOffsets[c]] = static_cast<std::uint8_t>(Sample(source.channel[c], x0, x1, fx, y0, y1, fy));
      }
    }
  }
  return true;
}

}  // namespace velmora::imaging::effects
