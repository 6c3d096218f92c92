// Parsing and formatting of watermark font strings.
#include "engine/font_spec.h"

#include <vector>

#include "engine/number_text.h"

namespace velmora::engine {
namespace {

std::vector<std::string> SplitOnBar(const std::string& text) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  for (;;) {
    const std::size_t bar = text.find('|', start);
    fields.push_back(text.substr(start, bar - start));
    if (bar == std::string::npos) break;
    start = bar + 1;
  }
  return fields;
}

void ReadFlag(const std::vector<std::string>& fields, std::size_t index, VBool& target) {
  if (index >= fields.size()) return;
  if (auto value = ReadBoolean(fields[index])) target = *value ? kTrue : kFalse;
}

void ReadNumberField(const std::vector<std::string>& fields, std::size_t index, std::int32_t& target) {
  if (index >= fields.size()) return;
  if (auto value = ReadInt32(fields[index])) target = *value;
}

}  // namespace

void ParseWatermarkFont(FontState& font, const std::string& spec, bool empty_gives_defaults) {
  if (spec.empty()) {
    if (empty_gives_defaults) font = FontState{0, kFalse, kFalse, kFalse, "Arial", 12, kFalse};
    return;
  }
  const std::vector<std::string> fields = SplitOnBar(spec);
  ReadNumberField(fields, 0, font.FontColor);
  ReadFlag(fields, 1, font.FontItalic);
  ReadFlag(fields, 2, font.FontUnderline);
  ReadFlag(fields, 3, font.FontStrikeOut);
  if (fields.size() > 4) font.FontFace = fields[4];
  ReadNumberField(fields, 5, font.FontSize);
  ReadFlag(fields, 6, font.FontBold);
}

std::string FormatWatermarkFont(const FontState& font) {
  return std::to_string(font.FontColor) + "|" + BooleanWord(font.FontItalic) + "|" + BooleanWord(font.FontUnderline) +
         "|" + BooleanWord(font.FontStrikeOut) + "|" + font.FontFace + "|" + std::to_string(font.FontSize) + "|" +
         BooleanWord(font.FontBold);
}

}  // namespace velmora::engine
