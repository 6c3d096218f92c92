// Panel defaults, items and the edit handlers.
#include <gtest/gtest.h>

#include "shell/panel_controls.h"

namespace velmora::shell {
namespace {

TEST(PanelHandlers, PercentsUncheckAndDisableKeepProportionsPixelsOnlyEnable) {
  PanelControls panel = NewPanel(engine::kResize);
  engine::PreviewFlags flags;
  ChooseElemCombo1(panel, 0, flags);
  EXPECT_TRUE(panel.ElemCheck1Enabled);
  EXPECT_TRUE(panel.ElemCheck1);
  ChooseElemCombo1(panel, 1, flags);
  EXPECT_FALSE(panel.ElemCheck1Enabled);
  EXPECT_FALSE(panel.ElemCheck1);
  ChooseElemCombo1(panel, 0, flags);
  EXPECT_TRUE(panel.ElemCheck1Enabled);
  EXPECT_FALSE(panel.ElemCheck1);
  EXPECT_NE(flags.PreviewDirty, engine::kFalse);
}

TEST(PanelHandlers, ImageAndBackToTextEmptiesTheTextAndLeavesTheAngleHidden) {
  PanelControls panel = NewPanel(engine::kWatermark);
  engine::PreviewFlags flags;
  panel.ElemTextWatermark = "(c) me";
  ChooseElemCombo1(panel, 1, flags);
  EXPECT_EQ(panel.caption, "Image Watermark");
  EXPECT_EQ(panel.ElemLabelWatermark, "Path:");
  EXPECT_EQ(panel.ElemCommandWatermark, "Browse...");
  EXPECT_TRUE(panel.ElemTextWatermark.empty());
  EXPECT_FALSE(panel.AngleControlsShown);
  panel.ElemTextWatermark = "/x/logo.png";
  ChooseElemCombo1(panel, 0, flags);
  EXPECT_EQ(panel.caption, "Text Watermark");
  EXPECT_EQ(panel.ElemLabelWatermark, "Text:");
  EXPECT_EQ(panel.ElemCommandWatermark, "Style...");
  EXPECT_TRUE(panel.ElemTextWatermark.empty());
  EXPECT_FALSE(panel.AngleControlsShown);
}

TEST(PanelHandlers, SlidersShowTheirValues) {
  engine::PreviewFlags flags;
  PanelControls watermark = NewPanel(engine::kWatermark);
  MoveElemSlider1(watermark, 45, flags);
  EXPECT_EQ(watermark.ElemText3, "45");
  EXPECT_EQ(watermark.ElemText1, "0");

  PanelControls gamma = NewPanel(engine::kGamma);
  MoveElemSlider1(gamma, 150, flags);
  EXPECT_EQ(gamma.ElemText1, "1.5");
  MoveElemSlider1(gamma, 1, flags);
  EXPECT_EQ(gamma.ElemText1, "0.01");

  PanelControls tone = NewPanel(engine::kBrightnessContrast);
  MoveElemSlider1(tone, -20, flags);
  MoveElemSlider2(tone, 35, flags);
  EXPECT_EQ(tone.ElemText1, "-20");
  EXPECT_EQ(tone.ElemText2, "35");
  EXPECT_NE(flags.PreviewDirty, engine::kFalse);
}

TEST(PanelHandlers, TextEditsAndChoicesMarkTheFlag) {
  PanelControls panel = NewPanel(engine::kRotate);
  engine::PreviewFlags flags;
  EditElemText(panel, 1, "abc", flags);
  EXPECT_EQ(panel.ElemText1, "abc");
  EXPECT_NE(flags.PreviewDirty, engine::kFalse);
  flags.PreviewDirty = engine::kFalse;
  PanelControls watermark = NewPanel(engine::kWatermark);
  ChooseElemCombo(watermark, 3, 2, flags);
  EXPECT_EQ(watermark.ElemCombo3, 2);
  EXPECT_NE(flags.PreviewDirty, engine::kFalse);
}

}  // namespace
}  // namespace velmora::shell
