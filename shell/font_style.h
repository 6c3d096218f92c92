// The "Style..." flow of a text watermark: the panel's font string parsed into the font working
// copy, a font chooser started from it with the size arithmetic, and the string written back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/font_spec.h"

namespace velmora::shell {

// What the font chooser starts from.
struct FontRequest {
  std::string face;         // at most 31 characters
  std::int32_t height = 0;  // FontSize x 1.3, rounded
  std::int32_t tenths = 0;  // FontSize x 10, the point size in tenths
  int weight = 400;         // 700 when bold
  bool italic = false, underline = false, strikeout = false;
  std::int32_t color = 0;  // FontColor; the chooser still starts with black and keeps this on a cancel
};

// What a confirmed chooser gives back.
struct FontAnswer {
  std::string face;
  std::int32_t tenths = 0;
  std::int32_t color = 0;  // 0x00BBGGRR
  bool bold = false, italic = false, underline = false, strikeout = false;
};

class FontChooser {
 public:
  virtual ~FontChooser() = default;
  // Empty when the user cancels.
  virtual std::optional<FontAnswer> ChooseFont(const FontRequest& request) = 0;
};

FontRequest MakeFontRequest(const engine::FontState& font);
// The answer into the working copy: size is the tenths divided by 10, the rest dropped; the face
// keeps at most 79 characters.
void TakeFontAnswer(engine::FontState& font, const FontAnswer& answer);

// The whole flow over the panel's stored string; returns the new string. An empty string leaves
// the working copy as the last use left it, and even a cancel fills it from the working copy.
std::string StyleButtonFlow(const std::string& stored, engine::FontState& font, FontChooser& chooser);

}  // namespace velmora::shell
