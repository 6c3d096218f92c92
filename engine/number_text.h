// Reading numbers and booleans out of text the way profiles and font strings store them,
// and the one rounding rule (halves to the even neighbour) that all image arithmetic uses.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::engine {

// The number at the start of `text`: sign, digits and one decimal point, blanks anywhere skipped.
// Text with no leading digits gives 0.
double LeadingNumber(std::string_view text);

// Nearest integer, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
std::int64_t RoundHalfEven(double value);

// LeadingNumber rounded; empty when the result does not fit the 16- or 32-bit target.
std::optional<std::int16_t> ReadInt16(std::string_view text);
std::optional<std::int32_t> ReadInt32(std::string_view text);

// "True", "False" (any case) or a number (zero false, other true); anything else gives no value.
std::optional<bool> ReadBoolean(std::string_view text);

// The word form booleans take in files.
inline const char* BooleanWord(bool value) {
  return value ? "True" : "False";
}

// At least three digits, zero-padded: 7 -> "007", 1000 -> "1000".
std::string ThreeDigits(std::int64_t value);

// Case-insensitive ASCII equality.
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

}  // namespace velmora::engine
