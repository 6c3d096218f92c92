// Dispatch of one Block to its operation.
#include "engine/ops/chain_state.h"

namespace velmora::engine {

bool ApplyBlock(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain) {
  switch (block.Kind) {
    case kResize: return ApplyResize(lib, page, block, chain);
    case kRotate: return ApplyRotate(lib, page, block);
    case kMirror: return ApplyMirror(lib, page, block);
    case kWatermark:
      return block.WatermarkKind == 0 ? ApplyTextWatermark(lib, page, block, chain)
                                      : ApplyImageWatermark(lib, page, block, chain);
    case kEffect: return ApplyEffect(lib, page, block);
    case kBrightnessContrast: return ApplyBrightnessContrast(lib, page, block);
    case kGamma: return ApplyGamma(lib, page, block);
    default: return true;
  }
}

}  // namespace velmora::engine
