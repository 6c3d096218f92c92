// Image watermark: loads the picture again for every page and pastes it by alignment and offset.
#include "engine/number_text.h"
#include "engine/ops/chain_state.h"

namespace velmora::engine {
namespace {

// Unlike text, the offset on the right and bottom anchors is added: it moves the image outward.
void Place(std::int32_t& position, std::int16_t align, std::int32_t offset, std::uint32_t page_size,
           std::uint32_t mark_size) {
  const auto page = static_cast<std::int64_t>(page_size), mark = static_cast<std::int64_t>(mark_size);
  switch (align) {
    case 0: position = offset; break;
    case 2: position = static_cast<std::int32_t>(RoundHalfEven(page / 2.0 - mark / 2.0) + offset); break;
    case 1: position = static_cast<std::int32_t>(page - mark + offset); break;
    default: break;
  }
}

}  // namespace

void ReleaseOwnedWatermark(imaging::ImagingLibrary& lib, ChainState& chain) {
  if (chain.owns_watermark) lib.Release(chain.watermark);
  chain.owns_watermark = false;
}

bool ApplyImageWatermark(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain) {
  imaging::CallResult result = 0;
  imaging::Handle loaded = 0;
  lib.FreeImage_Load(block.WatermarkSource, loaded, -1, 0, result);
  if (loaded != 0) {
    ReleaseOwnedWatermark(lib, chain);
    chain.watermark = loaded;
    chain.owns_watermark = true;
  }
  std::uint32_t w = 0, h = 0, ww = 0, wh = 0;
  lib.FreeImage_GetWidth(page, w);
  lib.FreeImage_GetHeight(page, h);
  lib.FreeImage_GetWidth(chain.watermark, ww);
  lib.FreeImage_GetHeight(chain.watermark, wh);
  Place(chain.image_left, block.HAlign, block.HOffset, w, ww);
  Place(chain.image_top, block.VAlign, block.VOffset, h, wh);
  if (chain.watermark == 0) return false;
  lib.PasteWatermark(page, chain.watermark, chain.image_left, chain.image_top, 16777215, result);
  return loaded != 0 && result != 0;
}

}  // namespace velmora::engine
