// Mirror: axis 1 flips left-right, axis 0 top-bottom.
#include "engine/ops/chain_state.h"

namespace velmora::engine {

bool ApplyMirror(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block) {
  imaging::CallResult result = -1;
  if (block.MirrorAxis == 1) lib.FlipImage(page, 1, result);
  if (block.MirrorAxis == 0) lib.FlipImage(page, 2, result);
  return result != 0;
}

}  // namespace velmora::engine
