// The step table of the wizard.
#include "shell/wizard_state.h"

namespace velmora::shell {

WizardLayout UpdateWizard(WizardState& state) {
  if (state.WizardStep < 0) state.WizardStep = 0;
  WizardLayout layout;
  // Step 4 is never reached, but it is the step on which the pane would stay hidden.
  layout.preview_pane_shown = state.PreviewShown && state.WizardStep != 4;
  switch (state.WizardStep) {
    case 0: layout = {layout.preview_pane_shown, 0, false, "Next >>", true, false}; break;
    case 1: layout = {layout.preview_pane_shown, 1, true, "Start!", true, false}; break;
    case 2: layout = {layout.preview_pane_shown, 2, true, "Next >>", false, true}; break;
    default: break;  // any other step leaves the pages and buttons as they are
  }
  return layout;
}

}  // namespace velmora::shell
