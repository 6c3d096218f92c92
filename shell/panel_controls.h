// The controls of one operation list entry as plain values: what each kind shows, its texts,
// items, ranges and defaults, and the handlers that run when the user changes a control.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/app_state.h"

namespace velmora::shell {

// Tags of the entries that are no operation: the design element and the three fixed entries.
inline constexpr std::int16_t kDesignEntry = -1;
inline constexpr std::int16_t kFileNameEntry = 101;
inline constexpr std::int16_t kSaveToEntry = 102;
inline constexpr std::int16_t kConvertToEntry = 103;

bool IsFixedEntry(std::int16_t tag);
bool IsOperationKind(std::int16_t tag);

// One entry's controls, named as in the window. Unused fields of a kind stay as they are.
struct PanelControls {
  std::int16_t tag = kDesignEntry;  // the kind, kept in the caption frame's tag
  std::string caption;              // the caption frame's text
  std::string ElemText1, ElemText2, ElemText3;
  std::string ElemTextWatermark;     // watermark text or image path
  std::string ElemTextWatermarkTag;  // the watermark's font string
  std::string ElemLabelWatermark;    // "Text:" or "Path:"
  std::string ElemCommandWatermark;  // "Style..." or "Browse..."
  int ElemCombo1 = -1, ElemCombo2 = -1, ElemCombo3 = -1;
  bool ElemCheck1 = false;
  bool ElemCheck1Enabled = true;
  int ElemSlider1 = 0, ElemSlider2 = 0;
  bool AngleControlsShown = true;  // ElemLabel7, ElemText3 and ElemSlider1 of a watermark

  bool operator==(const PanelControls&) const = default;
};

// The caption of a new entry of that tag: "Resize", ..., "Convert to"; empty for unknown tags.
std::string EntryCaption(std::int16_t tag);

// The items of a kind's combo box `which` (1 to 3); empty when the kind has no such list.
const std::vector<std::string>& ComboItems(std::int16_t kind, int which);

struct SliderRange {
  int minimum = 0, maximum = 0;
};
// The range of a kind's slider `which` (1 or 2).
SliderRange SliderRangeOf(std::int16_t kind, int which);

// A new entry of `tag` with the defaults its panel starts from; an unknown tag gives an empty entry.
PanelControls NewPanel(std::int16_t tag);

// The user's edits. Each records the new state of the control, runs what the control's handler
// does, and asks for a new preview.
void ChooseElemCombo1(PanelControls& panel, int index, engine::PreviewFlags& flags);
void ChooseElemCombo(PanelControls& panel, int which, int index, engine::PreviewFlags& flags);  // 2 or 3
void MoveElemSlider1(PanelControls& panel, int value, engine::PreviewFlags& flags);
void MoveElemSlider2(PanelControls& panel, int value, engine::PreviewFlags& flags);
void ClickElemCheck1(PanelControls& panel, bool checked, engine::PreviewFlags& flags);
// A text box of the panel: 1 to 3 for ElemText1 to ElemText3, 0 for ElemTextWatermark.
void EditElemText(PanelControls& panel, int which, const std::string& text, engine::PreviewFlags& flags);

// A number the way a "General" format shows it: 1, 1.5, 0.01.
std::string GeneralNumber(double value);

}  // namespace velmora::shell
