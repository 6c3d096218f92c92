// One operation of the chain (`Block`) and the chain itself (`Blocks`).
// The chain keeps one spare blank element at its end: its upper bound is the number of operations.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::engine {

// Booleans of records and settings are 16-bit: -1 true, 0 false.
using VBool = std::int16_t;
inline constexpr VBool kTrue = -1;
inline constexpr VBool kFalse = 0;

enum BlockKind : std::int16_t {
  kResize = 0,
  kRotate = 1,
  kMirror = 2,
  kWatermark = 3,
  kEffect = 4,
  kBrightnessContrast = 5,
  kGamma = 6,
};

struct Block {
  std::int16_t Kind = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::int16_t Method = 0;
  std::int16_t Units = 0;
  VBool KeepProportions = kFalse;
  std::int32_t Angle = 0;
  std::int32_t Direction = 0;
  std::int16_t MirrorAxis = 0;
  std::int16_t WatermarkKind = 0;
  std::string WatermarkSource;
  std::int16_t HAlign = 0;
  std::int16_t VAlign = 0;
  std::int32_t HOffset = 0;
  std::int32_t VOffset = 0;
  std::int16_t ReservedBlock12 = 0;
  std::int32_t WatermarkAngle = 0;
  std::int16_t EffectKind = 0;
  std::int32_t Brightness = 0;
  std::int32_t Contrast = 0;
  std::int32_t GammaValue = 0;
  std::string WatermarkFont;

  bool operator==(const Block&) const = default;
};

// A new operation of `kind` with the defaults its panel starts from. For a watermark,
// `watermark_kind` says text (0) or image (1).
Block NewBlock(std::int16_t kind, std::int16_t watermark_kind = 0);

// The chain: elements 0 to UpperBound()-1 count, the last element is always a blank spare.
class Blocks {
 public:
  Blocks() : items_(1) {}
  explicit Blocks(std::vector<Block> operations);

  // Number of operations, the "ProcessTotal" of a profile.
  std::int32_t UpperBound() const { return static_cast<std::int32_t>(items_.size()) - 1; }
  // Rebuilds the chain as `upper_bound` blank operations and the spare.
  void Resize(std::int32_t upper_bound) { items_.assign(static_cast<std::size_t>(upper_bound) + 1, Block{}); }
  void Append(const Block& block);
  Block& operator[](std::int32_t index) { return items_[static_cast<std::size_t>(index)]; }
  const Block& operator[](std::int32_t index) const { return items_[static_cast<std::size_t>(index)]; }

  bool operator==(const Blocks&) const = default;

 private:
  std::vector<Block> items_;
};

}  // namespace velmora::engine
