// The three wizard steps (source images, operations, run) and the preview pane's wish, as plain
// values, with what each step shows and enables. UpdateWizard in the window applies the result.
#pragma once

#include <cstdint>
#include <string>

namespace velmora::shell {

// The smallest window: 12600 by 8800 twips at 15 twips to the pixel.
inline constexpr int kMinimumWindowWidth = 840;
inline constexpr int kMinimumWindowHeight = 587;

struct WizardState {
  std::int32_t WizardStep = 0;  // 0 source images, 1 operations, 2 run
  bool PreviewShown = true;     // the user wants the preview pane
};

// What the window shows for a wizard state.
struct WizardLayout {
  bool preview_pane_shown = false;  // frPreview; the two "Show Preview" buttons show otherwise
  int page = -1;                    // 0 fr1, 1 fr2, 2 fr3; -1 leaves the pages as they are
  bool back_enabled = false;        // Command1 "<< Back"
  std::string next_caption;         // Command2: "Next >>" or "Start!"; empty leaves it
  bool next_enabled = false;
  bool starts_run = false;  // entering step 2 begins a conversion run
};

// Clamps a negative step to 0 and tells what the window shows for the state.
WizardLayout UpdateWizard(WizardState& state);

}  // namespace velmora::shell
