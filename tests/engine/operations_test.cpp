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

Block Turn(std::int16_t angle, std::int16_t direction) {
  Block block = NewBlock(kRotate);
  block.Angle = angle;
  block.Direction = direction;
  return block;
}

TEST_F(Operations, ResizeAndRotateSizes) {
  struct Case {
    int width, height;
    std::vector<Block> chain;
    unsigned out_width, out_height;
  };
  const Case cases[] = {
      {100, 50, {Resize(200, 300, 0, true)}, 200, 100},  // the smaller number of the pair is kept
      {100, 50, {Resize(300, 200, 0, true)}, 400, 200},  // and may take the page past the box
      {100, 50, {Resize(200, 200, 0, true)}, 200, 200},  // an equal pair stretches
      {100, 50, {Resize(30, 70, 0, false)}, 30, 70},
      {1000, 333, {Resize(50, 50, 1, false)}, 500, 166},                      // 166.5: halves round to even
      {101, 67, {Resize(50, 50, 1, false)}, 50, 34},                          // 50.5 and 33.5
      {100, 50, {Resize(40, 30, 0, false), Resize(1, 1, 5, false)}, 40, 30},  // unknown units: the last size
      // A percent whose product overflows leaves that side at the last size.
      {100, 50, {Resize(40, 30, 0, false), Resize(2000000000, 50, 1, false)}, 40, 15},
      {40, 20, {Turn(90, 1)}, 20, 40},  // right angles ignore the direction
      {40, 20, {Turn(45, 1)}, 40, 20},  // a free angle clockwise does nothing
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    const testing::ImageFacts facts = Convert(c.width, c.height, c.chain);
    EXPECT_EQ(facts.width, c.out_width);
    EXPECT_EQ(facts.height, c.out_height);
  }
  // Counter-clockwise it turns twice, each turn growing the canvas: 40 x 20 stands upright.
  const testing::ImageFacts facts = Convert(40, 20, {Turn(45, 0)});
  EXPECT_GT(facts.width, 40u);
  EXPECT_GT(facts.height, 50u);
}

// A red pixel beside a blue one, enlarged threefold without blending: three red columns, three
// blue ones (a smoothing filter mixes the middle two).
TEST_F(Operations, NearestResizeCopiesPixelsExactly) {
  ASSERT_TRUE(WriteSolidImage(src.file("mark.png"), 1, 1, 0xFF0000));
  Block mark = NewBlock(kWatermark, 1), nearest = Resize(300, 300, 1, false);
  mark.WatermarkSource = src.file("mark.png");
  nearest.Method = 1;
  EXPECT_EQ(Convert(2, 1, {mark, nearest}, 0x0000FF).width, 6u);
  EXPECT_EQ(PixelAt(result(), 2, 1), 0xFF0000);
  EXPECT_EQ(PixelAt(result(), 3, 1), 0x0000FF);
}

// Where an image watermark lands on a blue page: an offset on the right moves it outward, the
// centre rounds the difference once, and white in the mark is left out. A mirror on axis 1 after
// a mark on the left moves it to the right. A mark that cannot be read leaves the page alone.
TEST_F(Operations, ImageWatermarkPlacementAndMirror) {
  constexpr long B = 0x0000FF, R = 0xFF0000;
  struct Case {
    unsigned mark_rgb;
    int mark_width, mark_height, page_width, page_height;
    std::int16_t h_align, h_offset, v_align, v_offset, mirror_axis;
    std::vector<std::tuple<unsigned, unsigned, long>> pixels;
  };
  const Case cases[] = {
      // left = 640 - 100 + 10, clipped at the edge; top = 5
      {R, 100, 10, 640, 40, 1, 10, 0, 5, -1, {{549, 8, B}, {550, 8, R}, {639, 8, R}, {560, 4, B}, {560, 15, B}}},
      // round(5 - 1.5) = round(3.5) = 4: the mark covers columns and rows 4 to 6
      {R, 3, 3, 10, 10, 2, 0, 2, 0, -1, {{3, 5, B}, {4, 4, R}, {6, 6, R}, {7, 5, B}}},
      {0xFFFFFF, 5, 5, 10, 10, 0, 0, 0, 0, -1, {{2, 2, B}}},
      {R, 2, 2, 4, 2, 0, 0, 0, 0, 1, {{0, 0, B}, {3, 1, R}}},
      {R, 0, 0, 30, 20, 0, 0, 0, 0, 1, {{0, 0, B}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    ASSERT_TRUE(c.mark_width == 0 || WriteSolidImage(src.file("mark.png"), c.mark_width, c.mark_height, c.mark_rgb));
    Block mark = NewBlock(kWatermark, 1), mirror = NewBlock(kMirror);
    mark.WatermarkSource = src.file(c.mark_width > 0 ? "mark.png" : "missing.png");
    mark.HAlign = c.h_align;
    mark.HOffset = c.h_offset;
    mark.VAlign = c.v_align;
    mark.VOffset = c.v_offset;
    mirror.MirrorAxis = c.mirror_axis;
    Convert(c.page_width, c.page_height, c.mirror_axis < 0 ? std::vector{mark} : std::vector{mark, mirror}, B);
    for (const auto& [x, y, rgb] : c.pixels) EXPECT_EQ(PixelAt(result(), x, y), rgb) << x << "," << y;
  }
}

// The first and last columns with ink (anything but white); -1 for none.
std::pair<int, int> InkColumns(const std::string& path, int width, int height) {
  std::pair<int, int> ink{-1, -1};
  for (int x = 0; x < width; ++x)
    for (int y = 0; y < height; ++y)
      if (PixelAt(path, x, y) != 0xFFFFFF) {
        ink = {ink.first < 0 ? x : ink.first, x};
        break;
      }
  return ink;
}

TEST_F(Operations, TextWatermarkOnTheRightEndsAtTheOffsetFromTheEdgeAndBlankTextDrawsNothing) {
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
  text.WatermarkSource = "    ";
  Convert(160, 40, {text}, 0xFFFFFF);
  EXPECT_EQ(InkColumns(result(), 160, 40).first, -1);
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
