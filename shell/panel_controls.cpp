// Defaults, item lists and edit handlers of the operation panels.
#include "shell/panel_controls.h"

#include <charconv>

namespace velmora::shell {
namespace {

const std::vector<std::string> kNone;

void MarkDirty(engine::PreviewFlags& flags) {
  flags.PreviewDirty = engine::kTrue;
}

}  // namespace

bool IsFixedEntry(std::int16_t tag) {
  return tag == kFileNameEntry || tag == kSaveToEntry || tag == kConvertToEntry;
}

bool IsOperationKind(std::int16_t tag) {
  return tag >= engine::kResize && tag <= engine::kGamma;
}

std::string EntryCaption(std::int16_t tag) {
  switch (tag) {
    case engine::kResize: return "Resize";
    case engine::kRotate: return "Rotate";
    case engine::kMirror: return "Mirror";
    case engine::kWatermark: return "Text Watermark";
    case engine::kEffect: return "Effect";
    case engine::kBrightnessContrast: return "Brightness/Contrast";
    case engine::kGamma: return "Gamma correction";
    case kFileNameEntry: return "File name";
    case kSaveToEntry: return "Save to";
    case kConvertToEntry: return "Convert to";
    default: return {};
  }
}

const std::vector<std::string>& ComboItems(std::int16_t kind, int which) {
  static const std::vector<std::string> units{"pixels", "percents"}, methods{"Bilinear", "Nearest"},
      directions{"counterclockwise", "clockwise"}, axes{"vertically", "horizontally"}, watermark_types{"Text", "Image"},
      horizontal{"Left", "Right", "Center"}, vertical{"Top", "Bottom", "Center"},
      effects{"Blur", "Distort", "Emboss", "Etch", "Grayscale", "Invert", "Mosaic", "Motion", "Sharpen"};
  switch (kind) {
    case engine::kResize: return which == 1 ? units : (which == 2 ? methods : kNone);
    case engine::kRotate: return which == 1 ? directions : kNone;
    case engine::kMirror: return which == 1 ? axes : kNone;
    case engine::kWatermark:
      return which == 1 ? watermark_types : (which == 2 ? horizontal : (which == 3 ? vertical : kNone));
    case engine::kEffect: return which == 1 ? effects : kNone;
    default: return kNone;
  }
}

SliderRange SliderRangeOf(std::int16_t kind, int which) {
  switch (kind) {
    case engine::kWatermark: return which == 1 ? SliderRange{0, 360} : SliderRange{};
    case engine::kBrightnessContrast: return SliderRange{-100, 100};
    case engine::kGamma: return which == 1 ? SliderRange{1, 1000} : SliderRange{};
    default: return {};
  }
}

PanelControls NewPanel(std::int16_t tag) {
  PanelControls panel;
  panel.tag = tag;
  panel.caption = EntryCaption(tag);
  switch (tag) {
    case engine::kResize:
      panel.ElemText1 = "50";
      panel.ElemText2 = "50";
      panel.ElemCombo1 = 1;
      panel.ElemCheck1 = true;
      panel.ElemCombo2 = 0;
      break;
    case engine::kRotate:
      panel.ElemText1 = "90";
      panel.ElemCombo1 = 0;
      break;
    case engine::kMirror:
    case engine::kEffect: panel.ElemCombo1 = 0; break;
    case engine::kWatermark:
      panel.ElemCombo1 = 0;
      panel.ElemLabelWatermark = "Text:";
      panel.ElemCommandWatermark = "Style...";
      panel.ElemCombo2 = 0;
      panel.ElemCombo3 = 0;
      panel.ElemText1 = "0";
      panel.ElemText2 = "0";
      panel.ElemText3 = "0";
      panel.ElemSlider1 = 0;
      break;
    case engine::kBrightnessContrast:
      panel.ElemText1 = "0";
      panel.ElemText2 = "0";
      break;
    case engine::kGamma:
      panel.ElemText1 = "1";
      panel.ElemSlider1 = 100;
      break;
    default: break;
  }
  return panel;
}

void ChooseElemCombo1(PanelControls& panel, int index, engine::PreviewFlags& flags) {
  panel.ElemCombo1 = index;
  if (panel.tag == engine::kWatermark) {
    if (index == 0) {
      // The angle controls that "Image" hid are not shown again.
      panel.ElemLabelWatermark = "Text:";
      panel.ElemTextWatermark.clear();
      panel.ElemCommandWatermark = "Style...";
      panel.caption = "Text Watermark";
    } else if (index == 1) {
      panel.ElemLabelWatermark = "Path:";
      panel.ElemTextWatermark.clear();
      panel.ElemCommandWatermark = "Browse...";
      panel.AngleControlsShown = false;
      panel.caption = "Image Watermark";
    }
  } else if (panel.tag == engine::kResize) {
    if (index == 1) {
      panel.ElemCheck1Enabled = false;
      panel.ElemCheck1 = false;
    } else {
      panel.ElemCheck1Enabled = true;
    }
  }
  MarkDirty(flags);
}

void ChooseElemCombo(PanelControls& panel, int which, int index, engine::PreviewFlags& flags) {
  if (which == 2) panel.ElemCombo2 = index;
  if (which == 3) panel.ElemCombo3 = index;
  MarkDirty(flags);
}

void MoveElemSlider1(PanelControls& panel, int value, engine::PreviewFlags& flags) {
  panel.ElemSlider1 = value;
  MarkDirty(flags);
  if (panel.tag == engine::kWatermark) {
    panel.ElemText3 = std::to_string(value);
  } else if (panel.tag == engine::kGamma) {
    panel.ElemText1 = GeneralNumber(value / 100.0);
  } else {
    panel.ElemText1 = std::to_string(value);
  }
}

void MoveElemSlider2(PanelControls& panel, int value, engine::PreviewFlags& flags) {
  panel.ElemSlider2 = value;
  panel.ElemText2 = std::to_string(value);
  MarkDirty(flags);
}

void ClickElemCheck1(PanelControls& panel, bool checked, engine::PreviewFlags& flags) {
  panel.ElemCheck1 = checked;
  MarkDirty(flags);
}

void EditElemText(PanelControls& panel, int which, const std::string& text, engine::PreviewFlags& flags) {
  switch (which) {
    case 0: panel.ElemTextWatermark = text; break;
    case 1: panel.ElemText1 = text; break;
    case 2: panel.ElemText2 = text; break;
    case 3: panel.ElemText3 = text; break;
    default: return;
  }
  MarkDirty(flags);
}

std::string GeneralNumber(double value) {
  // Like printf's %.15g, with a point for the decimal mark in every locale.
  char text[32];
  const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15);
  return std::string(text, written.ptr);
}

}  // namespace velmora::shell
