// The wizard's step table.
#include <gtest/gtest.h>

#include "shell/wizard_state.h"

namespace velmora::shell {
namespace {

TEST(WizardState, NegativeStepBecomesZero) {
  WizardState state{-1, true};
  EXPECT_EQ(UpdateWizard(state).page, 0);
  EXPECT_EQ(state.WizardStep, 0);
}

TEST(WizardState, OtherStepsLeaveThePagesAndHideThePaneOnlyOnFour) {
  WizardState state{4, true};
  WizardLayout layout = UpdateWizard(state);
  EXPECT_EQ(layout.page, -1);
  EXPECT_TRUE(layout.next_caption.empty());
  EXPECT_FALSE(layout.preview_pane_shown);
  state.WizardStep = 3;
  layout = UpdateWizard(state);
  EXPECT_EQ(layout.page, -1);
  EXPECT_TRUE(layout.preview_pane_shown);
}

}  // namespace
}  // namespace velmora::shell
