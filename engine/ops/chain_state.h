// State that the operations of a run carry from one Block to the next: the font working copy,
// the last computed resize, the last text anchors and the run's watermark image.
#pragma once

#include <cstdint>

#include "engine/block.h"
#include "engine/font_spec.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

// One axis of a text watermark's layout box: the anchor code and the two edges.
struct TextAxis {
  std::int32_t anchor = 0;
  std::int32_t near_edge = 0;  // left or top
  std::int32_t far_edge = 0;   // right or bottom
};

struct ChainState {
  FontState font;
  std::int32_t resize_width = 0, resize_height = 0;
  TextAxis text_horizontal, text_vertical;
  std::int32_t image_left = 0, image_top = 0;
  // One watermark image at a time: a failed load leaves the previous one in place. A handle
  // handed in from outside (owns_watermark false) is shared and never released here.
  imaging::Handle watermark = 0;
  bool owns_watermark = false;
};

// Frees the watermark image the chain loaded itself.
void ReleaseOwnedWatermark(imaging::ImagingLibrary& lib, ChainState& chain);

// Applies one operation to `page`; a Kind outside 0 to 6 does nothing. Each returns false when a
// back-end call failed; the page is then what the calls that worked left.
bool ApplyBlock(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain);

// The operations, one per file under engine/ops/.
bool ApplyResize(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain);
bool ApplyRotate(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block);
bool ApplyMirror(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block);
bool ApplyTextWatermark(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain);
bool ApplyImageWatermark(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block, ChainState& chain);
bool ApplyEffect(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block);
bool ApplyBrightnessContrast(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block);
bool ApplyGamma(imaging::ImagingLibrary& lib, imaging::Handle& page, const Block& block);

}  // namespace velmora::engine
