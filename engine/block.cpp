// Defaults of new operations and the chain's spare-element bookkeeping.
#include "engine/block.h"

namespace velmora::engine {

Block NewBlock(std::int16_t kind, std::int16_t watermark_kind) {
  Block block;
  block.Kind = kind;
  switch (kind) {
    case kResize:
      block.Width = 50;
      block.Height = 50;
      block.Units = 1;
      block.KeepProportions = kTrue;
      block.Method = 0;
      break;
    case kRotate:
      block.Angle = 90;
      block.Direction = 0;
      break;
    case kWatermark: block.WatermarkKind = watermark_kind; break;
    case kGamma: block.GammaValue = 100; break;
    default: break;
  }
  return block;
}

Blocks::Blocks(std::vector<Block> operations) : items_(std::move(operations)) {
  items_.emplace_back();
}

void Blocks::Append(const Block& block) {
  items_.back() = block;
  items_.emplace_back();
}

}  // namespace velmora::engine
