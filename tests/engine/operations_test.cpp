// Operation arithmetic seen on real output: resize proportions and percents, rotation, mirror,
// and where watermarks land.
#include <gtest/gtest.h>

#include "tests/engine/run_fixture.h"

namespace velmora::engine {
namespace {

class Operations : public ::testing::Test {
 protected:
  // Runs `chain` over a solid source of the given size and returns the PNG output's facts.
  testing::ImageFacts Convert(int width, int height, std::vector<Block> chain, unsigned rgb = 0x336699) {
    const std::string source = src.file("in.png");
    EXPECT_TRUE(WriteSolidImage(source, width, height, rgb));
    AppState state = MakeJob(out.slash());
    state.output.OutputFormat = 3;
    state.output.ColorDepth = 1;
    state.output.NameTemplate = "result.png";
    state.blocks = Blocks(std::move(chain));
    RunJob(state, {source});
    return testing::ReadImageFacts(result());
  }
  std::string result() const { return out.file("result.png"); }
  static Block Resize(int w, int h, std::int16_t units, bool keep) {
    Block block = NewBlock(kResize);
    block.Width = w;
    block.Height = h;
    block.Units = units;
    block.KeepProportions = keep ? kTrue : kFalse;
    return block;
  }
  testing::TempFolder src, out;
};

TEST_F(Operations, ResizeKeepsTheSmallerNumberOfThePair) {
  testing::ImageFacts facts = Convert(100, 50, {Resize(200, 300, 0, true)});
  EXPECT_EQ(facts.width, 200u);
  EXPECT_EQ(facts.height, 100u);
  facts = Convert(100, 50, {Resize(300, 200, 0, true)});
  EXPECT_EQ(facts.width, 400u);  // may exceed the box
  EXPECT_EQ(facts.height, 200u);
  facts = Convert(100, 50, {Resize(200, 200, 0, true)});
  EXPECT_EQ(facts.width, 200u);  // an equal pair stretches
  EXPECT_EQ(facts.height, 200u);
  facts = Convert(100, 50, {Resize(30, 70, 0, false)});
  EXPECT_EQ(facts.width, 30u);
  EXPECT_EQ(facts.height, 70u);
}

TEST_F(Operations, ResizePercentRoundsHalvesToEven) {
  testing::ImageFacts facts = Convert(1000, 333, {Resize(50, 50, 1, false)});
  EXPECT_EQ(facts.width, 500u);
  EXPECT_EQ(facts.height, 166u);  // 166.5
  facts = Convert(101, 67, {Resize(50, 50, 1, false)});
  EXPECT_EQ(facts.width, 50u);   // 50.5
  EXPECT_EQ(facts.height, 34u);  // 33.5
}

TEST_F(Operations, ResizeWithUnknownUnitsReusesTheLastComputedSize) {
  const testing::ImageFacts facts = Convert(100, 50, {Resize(40, 30, 0, false), Resize(1, 1, 5, false)});
  EXPECT_EQ(facts.width, 40u);
  EXPECT_EQ(facts.height, 30u);
}

TEST_F(Operations, NearestResizeCopiesPixelsExactly) {
  Block block = Resize(300, 300, 1, false);
  block.Method = 1;
  const testing::ImageFacts facts = Convert(10, 10, {block}, 0x123456);
  EXPECT_EQ(facts.width, 30u);
  EXPECT_EQ(PixelAt(result(), 29, 29), 0x123456);
}

TEST_F(Operations, RotateRightAnglesIgnoreDirectionFreeAnglesTurnTwice) {
  Block rotate = NewBlock(kRotate);
  rotate.Angle = 90;
  rotate.Direction = 1;
  testing::ImageFacts facts = Convert(40, 20, {rotate});
  EXPECT_EQ(facts.width, 20u);
  EXPECT_EQ(facts.height, 40u);

  rotate.Angle = 45;
  rotate.Direction = 1;  // a free angle clockwise does nothing
  facts = Convert(40, 20, {rotate});
  EXPECT_EQ(facts.width, 40u);
  EXPECT_EQ(facts.height, 20u);

  rotate.Direction = 0;  // two turns of 45 degrees, each growing the canvas
  facts = Convert(40, 20, {rotate});
  // After 90 degrees in two steps the 40 x 20 page stands upright inside a grown canvas.
  EXPECT_GT(facts.width, 40u);
  EXPECT_GT(facts.height, 50u);
}

TEST_F(Operations, MirrorAxisOneFlipsLeftRight) {
  const std::string source = src.file("half.png");
  FIBITMAP* dib = FreeImage_Allocate(4, 2, 24);
  RGBQUAD red{0, 0, 255, 0}, blue{255, 0, 0, 0};
  for (unsigned y = 0; y < 2; ++y)
    for (unsigned x = 0; x < 4; ++x) FreeImage_SetPixelColor(dib, x, y, x < 2 ? &red : &blue);
  FreeImage_Save(FIF_PNG, dib, source.c_str(), 0);
  FreeImage_Unload(dib);
  AppState state = MakeJob(out.slash());
  state.output.OutputFormat = 3;
  state.output.NameTemplate = "result.png";
  Block mirror = NewBlock(kMirror);
  mirror.MirrorAxis = 1;
  state.blocks = Blocks({mirror});
  RunJob(state, {source});
  EXPECT_EQ(PixelAt(result(), 0, 0), 0x0000FF);
  EXPECT_EQ(PixelAt(result(), 3, 0), 0xFF0000);
}

TEST_F(Operations, ImageWatermarkOffsetOnTheRightGoesOutward) {
  ASSERT_TRUE(WriteSolidImage(src.file("mark.png"), 100, 10, 0xFF0000));
  Block mark = NewBlock(kWatermark, 1);
  mark.WatermarkSource = src.file("mark.png");
  mark.HAlign = 1;
  mark.HOffset = 10;
  mark.VAlign = 0;
  mark.VOffset = 5;
  Convert(640, 40, {mark}, 0x0000FF);
  EXPECT_EQ(PixelAt(result(), 549, 8), 0x0000FF);
  EXPECT_EQ(PixelAt(result(), 550, 8), 0xFF0000);  // left = 640 - 100 + 10
  EXPECT_EQ(PixelAt(result(), 639, 8), 0xFF0000);  // clipped at the edge
  EXPECT_EQ(PixelAt(result(), 560, 4), 0x0000FF);  // top = 5
  EXPECT_EQ(PixelAt(result(), 560, 15), 0x0000FF);
}

TEST_F(Operations, ImageWatermarkCentreRoundsTheDifferenceOnce) {
  ASSERT_TRUE(WriteSolidImage(src.file("mark.png"), 3, 3, 0xFF0000));
  Block mark = NewBlock(kWatermark, 1);
  mark.WatermarkSource = src.file("mark.png");
  mark.HAlign = 2;
  mark.VAlign = 2;
  Convert(10, 10, {mark}, 0x0000FF);
  // round(5 - 1.5) = round(3.5) = 4: the mark covers columns and rows 4 to 6.
  EXPECT_EQ(PixelAt(result(), 3, 5), 0x0000FF);
  EXPECT_EQ(PixelAt(result(), 4, 4), 0xFF0000);
  EXPECT_EQ(PixelAt(result(), 6, 6), 0xFF0000);
  EXPECT_EQ(PixelAt(result(), 7, 5), 0x0000FF);
}

TEST_F(Operations, WhiteInTheWatermarkIsLeftOut) {
  ASSERT_TRUE(WriteSolidImage(src.file("mark.png"), 5, 5, 0xFFFFFF));
  Block mark = NewBlock(kWatermark, 1);
  mark.WatermarkSource = src.file("mark.png");
  Convert(10, 10, {mark}, 0x0000FF);
  EXPECT_EQ(PixelAt(result(), 2, 2), 0x0000FF);
}

// The ink's horizontal extent in one row band: first and last columns that differ from white.
std::pair<int, int> InkColumns(const std::string& path, unsigned width, unsigned height) {
  int first = -1, last = -1;
  for (unsigned x = 0; x < width; ++x)
    for (unsigned y = 0; y < height; ++y)
      if (PixelAt(path, x, y) != 0xFFFFFF) {
        if (first < 0) first = static_cast<int>(x);
        last = static_cast<int>(x);
        break;
      }
  return {first, last};
}

TEST_F(Operations, TextWatermarkOnTheRightEndsAtTheOffsetFromTheEdge) {
  Block text = NewBlock(kWatermark, 0);
  text.WatermarkSource = "Velmora";
  text.WatermarkFont = "0|False|False|False|DejaVu Sans|14|True";
  text.HAlign = 1;
  text.HOffset = 10;
  Convert(160, 40, {text}, 0xFFFFFF);
  const auto [first, last] = InkColumns(result(), 160, 40);
  ASSERT_GE(first, 0);
  EXPECT_LE(last, 150);  // right edge at 160 - 10
  EXPECT_GE(last, 146);
}

TEST_F(Operations, BlankTextDrawsNothing) {
  Block text = NewBlock(kWatermark, 0);
  text.WatermarkSource = "    ";
  Convert(60, 30, {text}, 0xFFFFFF);
  EXPECT_EQ(InkColumns(result(), 60, 30).first, -1);
}

TEST_F(Operations, EachSourceStartsTheChainFromTheFontStateBeforeIt) {
  // The first source starts from the font values the run began with; every later source from
  // what the previous pass left, here the second watermark's 40-point bold face.
  const std::string start = "16711680|False|False|False|DejaVu Sans|10|False";
  const std::string after_pass = "16711680|False|False|False|DejaVu Sans|40|True";
  Block colour_only = NewBlock(kWatermark, 0);
  colour_only.WatermarkSource = "Vm";
  colour_only.WatermarkFont = "16711680";
  Block large_bold = NewBlock(kWatermark, 0);
  large_bold.WatermarkSource = " ";  // sets the font, draws nothing
  large_bold.WatermarkFont = "0|False|False|False|DejaVu Sans|40|True";

  ASSERT_TRUE(WriteSolidImage(src.file("a.png"), 120, 60, 0xFFFFFF));
  ASSERT_TRUE(WriteSolidImage(src.file("b.png"), 120, 60, 0xFFFFFF));
  AppState state = MakeJob(out.slash());
  state.output.OutputFormat = 3;
  state.output.ColorDepth = 1;
  state.output.NameTemplate = "{title}.png";
  state.blocks = Blocks({colour_only, large_bold});
  ParseWatermarkFont(state.font, start);
  RunJob(state, {src.file("a.png"), src.file("b.png")});

  for (const auto& [output, font] : {std::pair{"a.png", start}, std::pair{"b.png", after_pass}}) {
    SCOPED_TRACE(output);
    Block complete = colour_only;
    complete.WatermarkFont = font;
    Convert(120, 60, {complete}, 0xFFFFFF);
    EXPECT_EQ(testing::ReadWholeFile(out.file(output)), testing::ReadWholeFile(result()));
  }
}

}  // namespace
}  // namespace velmora::engine
