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
  fixed = {.FormatCombo1 = 5, .Check1 = true, .SaveToText1 = "/tmp/out", .FileNameText1 = "{Title}"};
  ApplyProfile(entries, fixed, state);
  const engine::OutputChoices& o = state.output;
  EXPECT_EQ(std::tuple(o.OutputFormat, o.OpenTargetFolder, o.OutputFolder, o.NameTemplate),
            std::tuple(5, engine::kTrue, "/tmp/out/", "{Title}"));
}

// An empty folder becomes a single separator; a chain of no operations is the spare alone.
TEST_F(ProfileBindingTest, NothingEnteredGivesTheRootAndNoOperations) {
  ApplyProfile(entries, fixed, state);
  EXPECT_EQ(std::tuple(state.output.OutputFolder, state.blocks.UpperBound()), std::tuple("/", 0));
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
  // The height's half goes to the even neighbour; the angle's text with no number gives 0.
  EXPECT_EQ(std::tuple(r.Kind, r.Width, r.Height, r.Units, r.KeepProportions, r.Method),
            std::tuple(engine::kResize, 640, 480, 0, engine::kTrue, 1));
  EXPECT_EQ(std::tuple(state.blocks[1].Angle, state.blocks[1].Direction, state.blocks[2].MirrorAxis),
            std::tuple(0, 1, 1));
  const engine::Block& w = state.blocks[3];
  EXPECT_EQ(std::tuple(w.WatermarkKind, w.WatermarkSource, w.WatermarkFont, w.WatermarkAngle, w.ReservedBlock12),
            std::tuple(0, "(c) 2024", "255|True|False|False|Arial|20|True", 30, 0));
  EXPECT_EQ(std::tuple(w.HAlign, w.VAlign, w.HOffset, w.VOffset), std::tuple(2, 1, 10, -5));
  EXPECT_EQ(std::tuple(state.blocks[4].EffectKind, state.blocks[5].Brightness, state.blocks[5].Contrast,
                       state.blocks[6].GammaValue),
            std::tuple(6, 20, -10, 180));
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
  state.output = {
      .OutputFormat = 3, .NameTemplate = "x_{Counter}", .OpenTargetFolder = engine::kFalse, .OutputFolder = "/out/"};
  fixed.Check1 = true;

  RefreshProfile(state, entries, fixed);
  EXPECT_EQ(std::tuple(fixed.FormatCombo1, fixed.Check1, fixed.SaveToText1, fixed.FileNameText1),
            std::tuple(3, false, "/out/", "x_{Counter}"));
  ASSERT_EQ(entries.UpperBound(), 6);  // the effect, then the rotate and the watermark
  EXPECT_EQ(std::tuple(entries.Entry(4)->controls.tag, entries.Entry(5)->controls.ElemText1,
                       entries.Entry(5)->controls.ElemCombo1),
            std::tuple(engine::kEffect, "45", 1));
  // The watermark's path is set after its type, which empties it.
  const PanelControls& w = entries.Entry(6)->controls;
  EXPECT_EQ(std::tuple(w.caption, w.ElemTextWatermark, w.ElemCombo2), std::tuple("Image Watermark", "/logo.png", 1));
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
