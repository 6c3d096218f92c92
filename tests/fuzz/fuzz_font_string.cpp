// A watermark font string of any content, read both ways and written back; what is written reads
// back to the same font values.
#include <cstdint>
#include <string>

#include "engine/font_spec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string spec(reinterpret_cast<const char*>(data), size);
  velmora::engine::FontState run, button;
  velmora::engine::ParseWatermarkFont(run, spec, true);
  velmora::engine::ParseWatermarkFont(button, spec, false);
  const std::string written = velmora::engine::FormatWatermarkFont(run);
  if (written.find('|', 0) == std::string::npos) __builtin_trap();
  velmora::engine::FontState again;
  velmora::engine::ParseWatermarkFont(again, written, true);
  if (run.FontFace.find('|') == std::string::npos && !(again == run)) __builtin_trap();
  return 0;
}
