// The wizard's step table.
#include <gtest/gtest.h>

#include "shell/wizard_state.h"

namespace velmora::shell {
namespace {

TEST(WizardState, StepZeroShowsSourcesWithBackDisabled) {
  WizardState state;
  const WizardLayout layout = UpdateWizard(state);
  EXPECT_EQ(layout.page, 0);
  EXPECT_FALSE(layout.back_enabled);
  EXPECT_EQ(layout.next_caption, "Next >>");
  EXPECT_TRUE(layout.next_enabled);
  EXPECT_TRUE(layout.preview_pane_shown);
  EXPECT_FALSE(layout.starts_run);
}

TEST(WizardState, StepOneOffersStart) {
  WizardState state{1, true};
  const WizardLayout layout = UpdateWizard(state);
  EXPECT_EQ(layout.page, 1);
  EXPECT_TRUE(layout.back_enabled);
  EXPECT_EQ(layout.next_caption, "Start!");
  EXPECT_FALSE(layout.starts_run);
}

TEST(WizardState, StepTwoRunsAndDisablesNext) {
  WizardState state{2, false};
  const WizardLayout layout = UpdateWizard(state);
  EXPECT_EQ(layout.page, 2);
  EXPECT_TRUE(layout.back_enabled);
  EXPECT_FALSE(layout.next_enabled);
  EXPECT_EQ(layout.next_caption, "Next >>");
  EXPECT_TRUE(layout.starts_run);
  EXPECT_FALSE(layout.preview_pane_shown);
}

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
