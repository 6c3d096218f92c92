// The font specification string of a text watermark ("colour|italic|underline|strikeout|face|size|bold")
// and the seven font values it is parsed into.
#pragma once

#include <cstdint>
#include <string>

#include "engine/block.h"

namespace velmora::engine {

// The working copy of the last parsed font string. At start-up: colour 0, no flags, no face, size 0.
struct FontState {
  std::int32_t FontColor = 0;  // 0x00BBGGRR
  VBool FontItalic = kFalse;
  VBool FontUnderline = kFalse;
  VBool FontStrikeOut = kFalse;
  std::string FontFace;
  std::int32_t FontSize = 0;
  VBool FontBold = kFalse;

  bool operator==(const FontState&) const = default;
};

// Fills `font` from `spec`. Each field stands alone: a missing or unreadable field leaves its value.
// With `empty_gives_defaults` (the run's reading) an empty string gives Arial, 12, colour 0, no style;
// without it (the "Style..." button's reading) an empty string changes nothing.
void ParseWatermarkFont(FontState& font, const std::string& spec, bool empty_gives_defaults = true);

// The string form of `font`, fields joined by "|" with no quoting.
std::string FormatWatermarkFont(const FontState& font);

}  // namespace velmora::engine
