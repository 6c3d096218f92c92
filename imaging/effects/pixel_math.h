// Integer rounding and clamping shared by the pixel effects.
// Halves round to the even neighbour, the rounding the program uses for all image arithmetic.
#pragma once

#include <cstdint>

namespace velmora::imaging::effects {

// value / 2^shift rounded half to even; value may be negative, shift must be at least 1.
inline int RoundShift(int value, int shift) {
  const int half_less_one = (1 << (shift - 1)) - 1;
  return (value + half_less_one + ((value >> shift) & 1)) >> shift;
}

// numerator / denominator rounded half to even; denominator must be positive.
inline std::int64_t DivideRound(std::int64_t numerator, std::int64_t denominator) {
  std::int64_t quotient = numerator / denominator;
  std::int64_t remainder = numerator % denominator;
  if (remainder < 0) {
    remainder += denominator;
    --quotient;
  }
  const std::int64_t twice = 2 * remainder;
  if (twice > denominator || (twice == denominator && (quotient & 1) != 0)) ++quotient;
  return quotient;
}

inline std::uint8_t ClampByte(int value) {
  return static_cast<std::uint8_t>(value < 0 ? 0 : (value > 255 ? 255 : value));
}

// Rec.601 luma with weights scaled to 2^16 (19595 + 38470 + 7471 = 65536), so white stays 255.
inline int Luma601(int red, int green, int blue) {
  return RoundShift(19595 * red + 38470 * green + 7471 * blue, 16);
}

}  // namespace velmora::imaging::effects
