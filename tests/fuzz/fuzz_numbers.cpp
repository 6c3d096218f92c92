// Number and boolean reading of any text: a value that reads as a 16-bit integer reads as the same
// 32-bit one, and "True"/"False" words always read.
#include <cstdint>
#include <string_view>

#include "engine/number_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velmora::engine;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  LeadingNumber(text);
  const auto small = ReadInt16(text);
  const auto large = ReadInt32(text);
  if (small && (!large || *large != *small)) __builtin_trap();
  ReadBoolean(text);
  ThreeDigits(static_cast<std::int64_t>(size) - 500);
  return 0;
}
