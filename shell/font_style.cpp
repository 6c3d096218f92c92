// The font request and answer arithmetic of the "Style..." button.
#include "shell/font_style.h"

#include "engine/number_text.h"

namespace velmora::shell {

FontRequest MakeFontRequest(const engine::FontState& font) {
  FontRequest request;
  request.face = font.FontFace.substr(0, 31);
  request.height = static_cast<std::int32_t>(engine::RoundHalfEven(font.FontSize * 1.3));
  request.tenths = font.FontSize * 10;
  request.weight = font.FontBold != engine::kFalse ? 700 : 400;
  request.italic = font.FontItalic != engine::kFalse;
  request.underline = font.FontUnderline != engine::kFalse;
  request.strikeout = font.FontStrikeOut != engine::kFalse;
  request.color = font.FontColor;
  return request;
}

void TakeFontAnswer(engine::FontState& font, const FontAnswer& answer) {
  auto word = [](bool on) { return on ? engine::kTrue : engine::kFalse; };
  font.FontItalic = word(answer.italic);
  font.FontUnderline = word(answer.underline);
  font.FontStrikeOut = word(answer.strikeout);
  font.FontSize = answer.tenths / 10;
  font.FontColor = answer.color;
  font.FontBold = word(answer.bold);
  font.FontFace = answer.face.substr(0, 79);
}

std::string StyleButtonFlow(const std::string& stored, engine::FontState& font, FontChooser& chooser) {
  engine::ParseWatermarkFont(font, stored, /*empty_gives_defaults=*/false);
  if (std::optional<FontAnswer> answer = chooser.ChooseFont(MakeFontRequest(font))) TakeFontAnswer(font, *answer);
  return engine::FormatWatermarkFont(font);
}

}  // namespace velmora::shell
