// The wizard's step table.
#include <gtest/gtest.h>

#include "shell/wizard_state.h"

namespace velmora::shell {
namespace {

// A negative step becomes zero; steps past the run leave the pages and hide the pane only on four.
TEST(WizardState, StepsOutsideTheTable) {
  WizardState state{-1, true};
  EXPECT_EQ(UpdateWizard(state).page, 0);
  EXPECT_EQ(state.WizardStep, 0);
  state.WizardStep = 4;
  WizardLayout layout = UpdateWizard(state);
  EXPECT_EQ(std::tuple(layout.page, layout.next_caption, layout.preview_pane_shown), std::tuple(-1, "", false));
  state.WizardStep = 3;
  layout = UpdateWizard(state);
  EXPECT_EQ(std::tuple(layout.page, layout.preview_pane_shown), std::tuple(-1, true));
}

}  // namespace
}  // namespace velmora::shell
