// Effect: one of nine fixed filters, chosen by EffectKind, with fixed arguments.
#include "engine/ops/chain_state.h"

namespace velmora::engine {

bool ApplyEffect(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block) {
  imaging::CallResult result = -1;
  switch (block.EffectKind) {
    case 0: lib.EffectBlur(page, -1, result); break;
    case 1: lib.EffectDistort(page, result); break;
    case 2: lib.EffectEmboss(page, -1, 0, result); break;
    case 3: lib.EffectEtch(page, -1, 0, result); break;
    case 4: lib.EffectGrayscale(page, result); break;
    case 5: lib.EffectInvert(page, result); break;
    case 6: lib.EffectMosaic(page, 95, result); break;
    case 7: lib.EffectMotion(page, -1, result); break;
    case 8: lib.EffectSharpen(page, -1, result); break;
    default: break;
  }
  return result != 0;
}

}  // namespace velmora::engine
