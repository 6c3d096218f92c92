// Panel defaults, items and the edit handlers.
#include <gtest/gtest.h>

#include "shell/panel_controls.h"

namespace velmora::shell {
namespace {

TEST(PanelDefaults, EachKindStartsAsItsPanelShows) {
  const PanelControls resize = NewPanel(engine::kResize);
  EXPECT_EQ(resize.caption, "Resize");
  EXPECT_EQ(resize.ElemText1, "50");
  EXPECT_EQ(resize.ElemText2, "50");
  EXPECT_EQ(resize.ElemCombo1, 1);
  EXPECT_TRUE(resize.ElemCheck1);
  EXPECT_EQ(resize.ElemCombo2, 0);

  const PanelControls rotate = NewPanel(engine::kRotate);
  EXPECT_EQ(rotate.ElemText1, "90");
  EXPECT_EQ(rotate.ElemCombo1, 0);

  const PanelControls watermark = NewPanel(engine::kWatermark);
  EXPECT_EQ(watermark.caption, "Text Watermark");
  EXPECT_EQ(watermark.ElemLabelWatermark, "Text:");
  EXPECT_EQ(watermark.ElemCommandWatermark, "Style...");
  EXPECT_EQ(watermark.ElemText3, "0");
  EXPECT_TRUE(watermark.ElemTextWatermarkTag.empty());

  const PanelControls gamma = NewPanel(engine::kGamma);
  EXPECT_EQ(gamma.caption, "Gamma correction");
  EXPECT_EQ(gamma.ElemSlider1, 100);
  EXPECT_EQ(gamma.ElemText1, "1");

  EXPECT_EQ(NewPanel(engine::kBrightnessContrast).caption, "Brightness/Contrast");
  EXPECT_TRUE(NewPanel(42).caption.empty());
}

TEST(PanelItems, ListsAndRanges) {
  EXPECT_EQ(ComboItems(engine::kEffect, 1).size(), 9u);
  EXPECT_EQ(ComboItems(engine::kEffect, 1)[8], "Sharpen");
  EXPECT_EQ(ComboItems(engine::kWatermark, 2), (std::vector<std::string>{"Left", "Right", "Center"}));
  EXPECT_EQ(ComboItems(engine::kWatermark, 3), (std::vector<std::string>{"Top", "Bottom", "Center"}));
  EXPECT_EQ(SliderRangeOf(engine::kWatermark, 1).maximum, 360);
  EXPECT_EQ(SliderRangeOf(engine::kBrightnessContrast, 2).minimum, -100);
  EXPECT_EQ(SliderRangeOf(engine::kGamma, 1).minimum, 1);
  EXPECT_EQ(SliderRangeOf(engine::kGamma, 1).maximum, 1000);
}

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
