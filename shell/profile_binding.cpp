// The field-to-control table, read both ways.
#include "shell/profile_binding.h"

#include "engine/number_text.h"

namespace velmora::shell {
namespace {

using engine::Block;

std::int32_t Int32Of(const std::string& text) {
  return engine::ReadInt32(text).value_or(0);
}

Block BlockFrom(const PanelControls& c) {
  Block block;
  block.Kind = c.tag;
  switch (c.tag) {
    case engine::kResize:
      block.Height = Int32Of(c.ElemText2);
      block.Width = Int32Of(c.ElemText1);
      block.Units = static_cast<std::int16_t>(c.ElemCombo1);
      block.KeepProportions = c.ElemCheck1 ? engine::kTrue : engine::kFalse;
      block.Method = static_cast<std::int16_t>(c.ElemCombo2);
      break;
    case engine::kRotate:
      block.Angle = Int32Of(c.ElemText1);
      block.Direction = c.ElemCombo1;
      break;
    case engine::kMirror: block.MirrorAxis = static_cast<std::int16_t>(c.ElemCombo1); break;
    case engine::kWatermark:
      block.WatermarkKind = static_cast<std::int16_t>(c.ElemCombo1);
      block.WatermarkSource = c.ElemTextWatermark;
      block.HAlign = static_cast<std::int16_t>(c.ElemCombo2);
      block.VAlign = static_cast<std::int16_t>(c.ElemCombo3);
      block.HOffset = Int32Of(c.ElemText1);
      block.VOffset = Int32Of(c.ElemText2);
      block.WatermarkAngle = c.ElemSlider1;
      block.WatermarkFont = c.ElemTextWatermarkTag;
      break;
    case engine::kEffect: block.EffectKind = static_cast<std::int16_t>(c.ElemCombo1); break;
    case engine::kBrightnessContrast:
      block.Brightness = c.ElemSlider1;
      block.Contrast = c.ElemSlider2;
      break;
    case engine::kGamma: block.GammaValue = c.ElemSlider1; break;
    default: break;
  }
  return block;
}

// A list takes an index from -1 (no row) to its last row; any other value is refused.
bool ListTakes(std::int16_t kind, int which, std::int64_t index) {
  return index >= -1 && index < static_cast<std::int64_t>(ComboItems(kind, which).size());
}

// A list index set by the program runs the list's handler when the index changes.
void SetCombo1(PanelControls& c, std::int64_t index, engine::PreviewFlags& flags) {
  if (ListTakes(c.tag, 1, index) && c.ElemCombo1 != index) ChooseElemCombo1(c, static_cast<int>(index), flags);
}

void SetCombo(PanelControls& c, int which, std::int64_t index) {
  if (!ListTakes(c.tag, which, index)) return;
  (which == 2 ? c.ElemCombo2 : c.ElemCombo3) = static_cast<int>(index);
}

// A slider refuses a value outside its range; a value it takes runs its change handler.
void SetSlider(PanelControls& c, int which, std::int32_t value, engine::PreviewFlags& flags) {
  const SliderRange range = SliderRangeOf(c.tag, which);
  if (value < range.minimum || value > range.maximum) return;
  if (which == 1)
    MoveElemSlider1(c, value, flags);
  else
    MoveElemSlider2(c, value, flags);
}

void SetControlsFrom(const Block& block, PanelControls& c, engine::PreviewFlags& flags) {
  switch (block.Kind) {
    case engine::kResize:
      c.ElemText2 = std::to_string(block.Height);
      c.ElemText1 = std::to_string(block.Width);
      SetCombo1(c, block.Units, flags);
      c.ElemCheck1 = block.KeepProportions != engine::kFalse;
      SetCombo(c, 2, block.Method);
      break;
    case engine::kRotate:
      c.ElemText1 = std::to_string(block.Angle);
      SetCombo1(c, block.Direction, flags);
      break;
    case engine::kMirror: SetCombo1(c, block.MirrorAxis, flags); break;
    case engine::kWatermark:
      // The type first: choosing it empties the text.
      SetCombo1(c, block.WatermarkKind, flags);
      c.ElemTextWatermark = block.WatermarkSource;
      SetCombo(c, 2, block.HAlign);
      SetCombo(c, 3, block.VAlign);
      c.ElemText1 = std::to_string(block.HOffset);
      c.ElemText2 = std::to_string(block.VOffset);
      SetSlider(c, 1, block.WatermarkAngle, flags);
      c.ElemTextWatermarkTag = block.WatermarkFont;
      break;
    case engine::kEffect: SetCombo1(c, block.EffectKind, flags); break;
    case engine::kBrightnessContrast:
      SetSlider(c, 1, block.Brightness, flags);
      SetSlider(c, 2, block.Contrast, flags);
      break;
    case engine::kGamma: SetSlider(c, 1, block.GammaValue, flags); break;
    default: break;
  }
}

}  // namespace

const std::vector<std::string>& OutputFormatNames() {
  static const std::vector<std::string> names{"BMP", "JPEG", "GIF", "PNG", "TGA", "TIFF", "EXR", "WEBP", "AVIF"};
  return names;
}

void ApplyProfile(const OperationEntries& entries, const FixedControls& fixed, engine::AppState& state) {
  engine::OutputChoices& output = state.output;
  output.OutputFormat = static_cast<std::int16_t>(fixed.FormatCombo1);
  output.OpenTargetFolder = fixed.Check1 ? engine::kTrue : engine::kFalse;
  output.OutputFolder = fixed.SaveToText1;
  if (output.OutputFolder.empty() || output.OutputFolder.back() != '/') output.OutputFolder += '/';
  output.NameTemplate = fixed.FileNameText1;

  state.blocks = engine::Blocks();
  for (int index : entries.Indices()) {
    const PanelControls& controls = entries.Entry(index)->controls;
    if (IsOperationKind(controls.tag)) state.blocks.Append(BlockFrom(controls));
  }
}

void RefreshProfile(engine::AppState& state, OperationEntries& entries, FixedControls& fixed) {
  const engine::OutputChoices& output = state.output;
  if (output.OutputFormat >= -1 && output.OutputFormat < static_cast<int>(OutputFormatNames().size()))
    fixed.FormatCombo1 = output.OutputFormat;
  fixed.Check1 = output.OpenTargetFolder != engine::kFalse;
  fixed.SaveToText1 = output.OutputFolder;
  fixed.FileNameText1 = output.NameTemplate;

  for (std::int32_t b = 0; b < state.blocks.UpperBound(); ++b) {
    const Block block = state.blocks[b];
    if (!IsOperationKind(block.Kind)) continue;
    const int index = entries.lblProcess_Click(block.Kind, state.preview);
    SetControlsFrom(block, entries.Entry(index)->controls, state.preview);
    entries.NotifyChanged(index);
  }
}

int ListedOperationCount(const OperationEntries& entries) {
  int count = 0;
  for (int index : entries.Indices()) count += IsOperationKind(entries.Entry(index)->controls.tag) ? 1 : 0;
  return count;
}

int ListableOperationCount(const engine::Blocks& blocks) {
  int count = 0;
  for (std::int32_t b = 0; b < blocks.UpperBound(); ++b) count += IsOperationKind(blocks[b].Kind) ? 1 : 0;
  return count;
}

engine::Blocks FirstListableOperations(const engine::Blocks& blocks, int count) {
  engine::Blocks cut;
  for (std::int32_t b = 0; b < blocks.UpperBound() && count > 0; ++b) {
    if (!IsOperationKind(blocks[b].Kind)) continue;
    cut.Append(blocks[b]);
    --count;
  }
  return cut;
}

void AddFixedEntries(OperationEntries& entries, engine::PreviewFlags& flags) {
  entries.lblProcess_Click(kConvertToEntry, flags);
  entries.lblProcess_Click(kSaveToEntry, flags);
  entries.lblProcess_Click(kFileNameEntry, flags);
}

}  // namespace velmora::shell
