// ApplyProfile and RefreshProfile over the field-to-control table.
#include <gtest/gtest.h>

#include "shell/profile_binding.h"

namespace velmora::shell {
namespace {

class ProfileBindingTest : public ::testing::Test {
 protected:
  void SetUp() override { AddFixedEntries(entries, state.preview); }
  PanelControls& Add(std::int16_t kind) {
    return entries.Entry(entries.lblProcess_Click(kind, state.preview))->controls;
  }

  engine::AppState state;
  OperationEntries entries;
  FixedControls fixed;
};

TEST_F(ProfileBindingTest, OutputChoicesFromTheFixedControls) {
  fixed.FormatCombo1 = 5;
  fixed.Check1 = true;
  fixed.SaveToText1 = "/tmp/out";
  fixed.FileNameText1 = "{Title}";
  ApplyProfile(entries, fixed, state);
  EXPECT_EQ(state.output.OutputFormat, 5);
  EXPECT_EQ(state.output.OpenTargetFolder, engine::kTrue);
  EXPECT_EQ(state.output.OutputFolder, "/tmp/out/");
  EXPECT_EQ(state.output.NameTemplate, "{Title}");
}

TEST_F(ProfileBindingTest, AnEmptyFolderBecomesASingleSeparator) {
  ApplyProfile(entries, fixed, state);
  EXPECT_EQ(state.output.OutputFolder, "/");
}

TEST_F(ProfileBindingTest, AChainOfNoOperationsIsTheSpareAlone) {
  ApplyProfile(entries, fixed, state);
  EXPECT_EQ(state.blocks.UpperBound(), 0);
}

TEST_F(ProfileBindingTest, EveryKindMapsItsFields) {
  PanelControls& resize = Add(engine::kResize);
  resize.ElemText1 = "640";
  resize.ElemText2 = "480.5";
  resize.ElemCombo1 = 0;
  resize.ElemCheck1 = true;
  resize.ElemCombo2 = 1;
  PanelControls& rotate = Add(engine::kRotate);
  rotate.ElemText1 = "abc";
  rotate.ElemCombo1 = 1;
  Add(engine::kMirror).ElemCombo1 = 1;
  PanelControls& mark = Add(engine::kWatermark);
  mark.ElemTextWatermark = "(c) 2024";
  mark.ElemTextWatermarkTag = "255|True|False|False|Arial|20|True";
  mark.ElemCombo2 = 2;
  mark.ElemCombo3 = 1;
  mark.ElemText1 = "10";
  mark.ElemText2 = "-5";
  mark.ElemSlider1 = 30;
  Add(engine::kEffect).ElemCombo1 = 6;
  PanelControls& tone = Add(engine::kBrightnessContrast);
  tone.ElemSlider1 = 20;
  tone.ElemSlider2 = -10;
  Add(engine::kGamma).ElemSlider1 = 180;

  ApplyProfile(entries, fixed, state);
  ASSERT_EQ(state.blocks.UpperBound(), 7);
  const engine::Block& r = state.blocks[0];
  EXPECT_EQ(r.Kind, engine::kResize);
  EXPECT_EQ(r.Width, 640);
  EXPECT_EQ(r.Height, 480);  // halves go to the even neighbour
  EXPECT_EQ(r.Units, 0);
  EXPECT_EQ(r.KeepProportions, engine::kTrue);
  EXPECT_EQ(r.Method, 1);
  EXPECT_EQ(state.blocks[1].Angle, 0);  // no number gives 0
  EXPECT_EQ(state.blocks[1].Direction, 1);
  EXPECT_EQ(state.blocks[2].MirrorAxis, 1);
  const engine::Block& w = state.blocks[3];
  EXPECT_EQ(w.WatermarkKind, 0);
  EXPECT_EQ(w.WatermarkSource, "(c) 2024");
  EXPECT_EQ(w.WatermarkFont, "255|True|False|False|Arial|20|True");
  EXPECT_EQ(w.HAlign, 2);
  EXPECT_EQ(w.VAlign, 1);
  EXPECT_EQ(w.HOffset, 10);
  EXPECT_EQ(w.VOffset, -5);
  EXPECT_EQ(w.WatermarkAngle, 30);
  EXPECT_EQ(w.ReservedBlock12, 0);
  EXPECT_EQ(state.blocks[4].EffectKind, 6);
  EXPECT_EQ(state.blocks[5].Brightness, 20);
  EXPECT_EQ(state.blocks[5].Contrast, -10);
  EXPECT_EQ(state.blocks[6].GammaValue, 180);
}

TEST_F(ProfileBindingTest, GapsAndFixedEntriesMakeNoBlock) {
  const int a = entries.lblProcess_Click(engine::kRotate, state.preview);
  entries.lblProcess_Click(engine::kMirror, state.preview);
  entries.StructRemove_Click(a, state.preview);
  ApplyProfile(entries, fixed, state);
  ASSERT_EQ(state.blocks.UpperBound(), 1);
  EXPECT_EQ(state.blocks[0].Kind, engine::kMirror);
}

TEST_F(ProfileBindingTest, RefreshAppendsPanelsBehindWhatIsListed) {
  Add(engine::kEffect);
  engine::Block rotate = engine::NewBlock(engine::kRotate);
  rotate.Angle = 45;
  rotate.Direction = 1;
  engine::Block bad;
  bad.Kind = 9;
  engine::Block mark = engine::NewBlock(engine::kWatermark, 1);
  mark.WatermarkSource = "/logo.png";
  mark.HAlign = 1;
  state.blocks = engine::Blocks({rotate, bad, mark});
  state.output.OutputFormat = 3;
  state.output.OutputFolder = "/out/";
  state.output.NameTemplate = "x_{Counter}";
  state.output.OpenTargetFolder = engine::kFalse;
  fixed.Check1 = true;

  RefreshProfile(state, entries, fixed);
  EXPECT_EQ(fixed.FormatCombo1, 3);
  EXPECT_FALSE(fixed.Check1);
  EXPECT_EQ(fixed.SaveToText1, "/out/");
  EXPECT_EQ(fixed.FileNameText1, "x_{Counter}");
  ASSERT_EQ(entries.UpperBound(), 6);  // the effect, then the rotate and the watermark
  EXPECT_EQ(entries.Entry(4)->controls.tag, engine::kEffect);
  EXPECT_EQ(entries.Entry(5)->controls.ElemText1, "45");
  EXPECT_EQ(entries.Entry(5)->controls.ElemCombo1, 1);
  const PanelControls& w = entries.Entry(6)->controls;
  EXPECT_EQ(w.caption, "Image Watermark");
  EXPECT_EQ(w.ElemTextWatermark, "/logo.png");  // set after the type, which empties it
  EXPECT_EQ(w.ElemCombo2, 1);
}

TEST_F(ProfileBindingTest, RefreshThenApplyGivesTheChainBack) {
  engine::Block resize = engine::NewBlock(engine::kResize);
  resize.Units = 0;
  resize.Width = 300;
  resize.Height = 200;
  resize.KeepProportions = engine::kFalse;
  engine::Block tone = engine::NewBlock(engine::kBrightnessContrast);
  tone.Brightness = 12;
  tone.Contrast = -7;
  engine::Block gamma = engine::NewBlock(engine::kGamma);
  gamma.GammaValue = 250;
  engine::Block mark = engine::NewBlock(engine::kWatermark, 0);
  mark.WatermarkSource = "Hello";
  mark.WatermarkAngle = 90;
  mark.WatermarkFont = "0|False|False|False|DejaVu Sans|14|False";
  const engine::Blocks chain({resize, tone, gamma, mark});
  state.blocks = chain;
  RefreshProfile(state, entries, fixed);
  state.blocks = engine::Blocks();
  ApplyProfile(entries, fixed, state);
  EXPECT_EQ(state.blocks, chain);
}

TEST_F(ProfileBindingTest, AnOutOfRangeFormatLeavesTheList) {
  fixed.FormatCombo1 = 2;
  state.output.OutputFormat = 12;
  RefreshProfile(state, entries, fixed);
  EXPECT_EQ(fixed.FormatCombo1, 2);
}

}  // namespace
}  // namespace velmora::shell
