// The "Format Settings" dialog's controls as plain values: which rows a format shows, the lists
// each format fills, the restore of the stored values with its failure rules, and OK.
#pragma once

#include <string>
#include <vector>

#include "engine/app_state.h"

namespace velmora::shell {

// A drop-down list: its rows and the selected row, -1 for none.
struct FormatList {
  std::vector<std::string> items;
  int index = -1;
  // Selecting a row works from -1 to the last row; any other index fails and changes nothing.
  bool Select(long long row);
};

struct FormatForm {
  // Rows on view. The colours row and the compression level are shown for no format.
  bool depth_row = false;             // ColorDepthLabel1, ColorDepthCombo1, ColorDepthLabel2
  bool quality_row = false;           // QualityLabel1, QualityText1, QualitySlider1
  bool multipage_row = false;         // MultipageLabel1, MultipageCombo1
  bool compression_shown = false;     // CompressionLabel1, CompressionCombo1
  bool compression_moved_up = false;  // EXR: the compression pair stands at the second row's top
  FormatList ColorDepthCombo1, MultipageCombo1, CompressionCombo1, CompressionCombo2;
  std::string ColorsText1 = "0";
  int QualitySlider1 = 0;  // 0 to 100
  std::string QualityText1;

  // The slider's value and its two events, which show the value in QualityText1.
  void SetQuality(long long value);
};

// Opens the dialog for the format named `format_name` (the selected text of the output format
// list) from a fresh set of controls: the format's branch, then the stored values, then any list
// left without a selection moves to its first row.
FormatForm OpenFormatForm(const std::string& format_name, const engine::OutputChoices& output);

// OK: all six values from the controls, whether on view or not, and a new preview asked for.
void ApplyFormatForm(const FormatForm& form, engine::OutputChoices& output, engine::PreviewFlags& flags);

}  // namespace velmora::shell
