// Brightness/Contrast: both adjustments, always, brightness first.
#include "engine/ops/chain_state.h"

namespace velmora::engine {

bool ApplyBrightnessContrast(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block) {
  imaging::CallResult result = 0;
  lib.FreeImage_AdjustBrightness(page, block.Brightness, result);
  const bool brightness_worked = result != 0;
  lib.FreeImage_AdjustContrast(page, block.Contrast, result);
  return brightness_worked && result != 0;
}

}  // namespace velmora::engine
