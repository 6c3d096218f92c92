// Gamma correction: GammaValue in hundredths.
#include "engine/ops/chain_state.h"

namespace velmora::engine {

bool ApplyGamma(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block) {
  imaging::CallResult result = 0;
  lib.FreeImage_AdjustGamma(page, block.GammaValue / 100.0, result);
  return result != 0;
}

}  // namespace velmora::engine
