// Number and boolean reading shared by the font strings and the profile reader.
#include "engine/number_text.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace velmora::engine {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

template <typename T>
std::optional<T> ReadInteger(std::string_view text) {
  const double rounded = static_cast<double>(RoundHalfEven(LeadingNumber(text)));
  if (rounded < static_cast<double>(std::numeric_limits<T>::min()) ||
      rounded > static_cast<double>(std::numeric_limits<T>::max()))
    return std::nullopt;
  return static_cast<T>(rounded);
}

// True when `text`, blanks aside, is one whole number.
bool IsWholeNumber(std::string_view text) {
  std::size_t i = 0;
  auto skip = [&] {
    while (i < text.size() && IsBlank(text[i])) ++i;
  };
  skip();
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  bool digits = false, point = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (std::isdigit(static_cast<unsigned char>(c))) {
      digits = true;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  skip();
  return digits && i == text.size();
}

}  // namespace

double LeadingNumber(std::string_view text) {
  std::string cleaned;
  bool sign_allowed = true, point_seen = false;
  for (char c : text) {
    if (IsBlank(c)) continue;
    if ((c == '+' || c == '-') && sign_allowed) {
      cleaned += c;
    } else if (std::isdigit(static_cast<unsigned char>(c))) {
      cleaned += c;
    } else if (c == '.' && !point_seen) {
      cleaned += c;
      point_seen = true;
    } else {
      break;
    }
    sign_allowed = false;
  }
  // from_chars reads the point as the decimal mark whatever the process's locale says.
  const char* first = cleaned.data();
  if (!cleaned.empty() && cleaned.front() == '+') ++first;
  double value = 0;
  if (std::from_chars(first, cleaned.data() + cleaned.size(), value).ec != std::errc()) return 0;
  return value;
}

std::int64_t RoundHalfEven(double value) {
  if (!std::isfinite(value)) return 0;
  // Beyond the 64-bit range the result saturates (a plain conversion would be undefined).
  constexpr double kTwoToThe63 = 9223372036854775808.0;
  if (value >= kTwoToThe63) return std::numeric_limits<std::int64_t>::max();
  if (value < -kTwoToThe63) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(std::nearbyint(value));  // default rounding mode: to nearest, ties even
}

std::optional<std::int16_t> ReadInt16(std::string_view text) {
  return ReadInteger<std::int16_t>(text);
}
std::optional<std::int32_t> ReadInt32(std::string_view text) {
  return ReadInteger<std::int32_t>(text);
}

std::optional<bool> ReadBoolean(std::string_view text) {
  std::string_view trimmed = text;
  while (!trimmed.empty() && IsBlank(trimmed.front())) trimmed.remove_prefix(1);
  while (!trimmed.empty() && IsBlank(trimmed.back())) trimmed.remove_suffix(1);
  if (EqualsIgnoreCase(trimmed, "True")) return true;
  if (EqualsIgnoreCase(trimmed, "False")) return false;
  if (IsWholeNumber(trimmed)) return LeadingNumber(trimmed) != 0;
  return std::nullopt;
}

std::string ThreeDigits(std::int64_t value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%03lld", static_cast<long long>(value));
  return buffer;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

}  // namespace velmora::engine
