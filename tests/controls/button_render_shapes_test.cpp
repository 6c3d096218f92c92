// Each of the twelve shapes drawn with a plain scheme (no style rims): green face, red outline,
// transparent outside the window region, checked at pixels worked out from the region's points.
#include <gtest/gtest.h>

#include "controls/button_renderer.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::PixelIs;
using testing::PixelTransparent;

constexpr OleColor kFace = 0x00FF00;
constexpr OleColor kLine = 0x0000FF;

QImage Draw(int shape, QSize size = {60, 60}) {
  ButtonProperties props = new_button_properties(QString());
  props.ButtonStyle = 0;  // no style: the border colours stay as set, no rims
  props.ButtonShape = shape;
  props.BackColor = props.BackColorHover = props.BackColorPressed = kFace;
  props.BorderColor = props.BorderColorHover = props.BorderColorPressed = kLine;
  return redraw_button(props, ButtonState{}, size).image;
}

struct Probe {
  int x, y;
  enum Kind { Outside, Face, Line } kind;
};

void Check(int shape, const std::vector<Probe>& probes, QSize size = {60, 60}) {
  const QImage image = Draw(shape, size);
  for (const Probe& p : probes) {
    SCOPED_TRACE(::testing::Message() << "shape " << shape << " at " << p.x << "," << p.y);
    switch (p.kind) {
      case Probe::Outside: EXPECT_TRUE(PixelTransparent(image, p.x, p.y)); break;
      case Probe::Face: EXPECT_TRUE(PixelIs(image, p.x, p.y, kFace)); break;
      case Probe::Line: EXPECT_TRUE(PixelIs(image, p.x, p.y, kLine)); break;
    }
  }
}

constexpr auto O = Probe::Outside;
constexpr auto F = Probe::Face;
constexpr auto L = Probe::Line;

TEST(ButtonShapes, Rectangle) {
  // The right and bottom edges are drawn twice, the second time one pixel further in.
  Check(0,
        {{0, 0, L},
         {79, 32, L},
         {79, 16, L},
         {40, 0, L},
         {78, 16, L},
         {40, 31, L},
         {78, 31, L},
         {1, 1, F},
         {40, 16, F},
         {77, 30, F},
         {2, 16, F},
         {40, 2, F}},
        {80, 33});
}

TEST(ButtonShapes, RoundedRectangle) {
  Check(1,
        {{4, 0, O}, {5, 0, L}, {0, 7, L}, {0, 16, L}, {1, 16, F}, {40, 16, F}, {79, 32, O}, {79, 16, L}, {40, 32, L}},
        {80, 33});
}

TEST(ButtonShapes, Ellipse) {
  Check(2, {{0, 0, O},
            {59, 59, O},
            {24, 0, O},
            {25, 0, L},
            {30, 0, L},
            {0, 30, L},
            {59, 30, L},
            {30, 59, L},
            {30, 30, F},
            {30, 2, F}});
}

TEST(ButtonShapes, Diamond) {
  Check(3, {{0, 0, O},
            {59, 0, O},
            {0, 59, O},
            {59, 59, O},
            {0, 29, L},
            {59, 29, L},
            {30, 0, L},
            {29, 0, L},
            {30, 30, F},
            {13, 15, O},
            {14, 15, L},
            {16, 16, F}});
}

TEST(ButtonShapes, TriangleUp) {
  Check(4, {{0, 0, O},
            {14, 30, O},
            {15, 30, L},
            {16, 30, F},
            {44, 30, L},
            {45, 30, O},
            {30, 59, L},
            {30, 58, F},
            {30, 30, F}});
}

TEST(ButtonShapes, TriangleLeft) {
  Check(5, {{0, 0, O},
            {0, 30, O},
            {1, 30, L},
            {2, 31, O},
            {5, 30, F},
            {59, 5, L},
            {58, 5, F},
            {48, 5, O},
            {49, 5, L},
            {30, 30, F},
            {0, 59, O}});
}

TEST(ButtonShapes, TriangleRight) {
  Check(6, {{59, 0, O},
            {59, 30, O},
            {58, 30, L},
            {57, 31, O},
            {56, 31, L},
            {50, 30, F},
            {0, 30, L},
            {1, 30, F},
            {30, 30, F},
            {59, 59, O}});
}

TEST(ButtonShapes, TriangleDown) {
  Check(7, {{30, 0, O},
            {30, 1, L},
            {30, 2, F},
            {0, 1, L},
            {14, 30, O},
            {15, 30, L},
            {44, 30, L},
            {45, 30, O},
            {30, 30, F},
            {0, 59, O}});
}

TEST(ButtonShapes, ArrowUp) {
  Check(8, {{30, 0, O},
            {19, 50, O},
            {20, 50, L},
            {21, 50, F},
            {39, 50, L},
            {40, 50, O},
            {0, 39, L},
            {10, 45, O},
            {30, 59, L},
            {30, 30, F}});
}

TEST(ButtonShapes, ArrowLeft) {
  Check(9, {{0, 30, O},
            {1, 30, L},
            {30, 30, F},
            {50, 30, F},
            {50, 19, O},
            {50, 20, L},
            {50, 10, O},
            {39, 10, L},
            {30, 10, F},
            {59, 30, L}});
}

TEST(ButtonShapes, ArrowRight) {
  Check(10, {{59, 30, O},
             {58, 30, L},
             {0, 30, L},
             {10, 30, F},
             {10, 10, O},
             {20, 10, L},
             {25, 10, F},
             {10, 19, O},
             {10, 20, L}});
}

TEST(ButtonShapes, ArrowDown) {
  Check(11, {{10, 10, O},
             {20, 10, L},
             {30, 10, F},
             {39, 10, L},
             {40, 10, O},
             {0, 20, L},
             {30, 59, O},
             {30, 58, L},
             {30, 40, F}});
}

TEST(ButtonShapes, UnknownShapeDrawsNoOutlineAndClipsNothing) {
  ButtonProperties props = new_button_properties(QString());
  props.ButtonStyle = 0;
  props.ButtonShape = 12;
  props.BackColor = kFace;
  props.BorderColor = kLine;
  const ButtonFrame frame = redraw_button(props, ButtonState{}, {60, 60});
  EXPECT_FALSE(frame.clip.has_value());
  EXPECT_TRUE(PixelIs(frame.image, 0, 0, kFace));
  EXPECT_TRUE(PixelIs(frame.image, 59, 59, kFace));
}

TEST(ButtonShapes, ClipRegionIsTheWindowRegion) {
  ButtonProperties props = new_button_properties(QString());
  props.ButtonShape = shape::kDiamond;
  const ButtonFrame frame = redraw_button(props, ButtonState{}, {60, 60});
  ASSERT_TRUE(frame.clip.has_value());
  EXPECT_FALSE(frame.clip->contains(QPoint(0, 0)));
  EXPECT_TRUE(frame.clip->contains(QPoint(30, 30)));
  EXPECT_EQ(frame.clip->boundingRect(), QRect(0, 0, 60, 60));
}

// Rows of `image` within `box` (in its device pixels) that hold a pixel neither face nor clear.
int InkRows(const QImage& image, const QRect& box) {
  int rows = 0;
  for (int y = box.top(); y <= box.bottom(); ++y)
    for (int x = box.left(); x <= box.right(); ++x)
      if (image.pixel(x, y) != to_rgb(kFace) && qAlpha(image.pixel(x, y)) != 0) {
        ++rows;
        break;
      }
  return rows;
}

// On a screen of two device pixels to a pixel the button is drawn at that resolution, not
// scaled up: lines one device pixel wide, the corner and the caption twice the size.
TEST(ButtonShapes, DrawnAtTheDevicePixelRatio) {
  ButtonProperties props = new_button_properties(QStringLiteral("Start!"));
  props.ButtonStyle = 0;
  props.ButtonShape = shape::kRoundedRectangle;
  props.BackColor = props.BackColorHover = props.BackColorPressed = kFace;
  props.BorderColor = props.BorderColorHover = props.BorderColorPressed = kLine;
  props.Font.setPointSize(9);
  const ButtonFrame one = redraw_button(props, ButtonState{}, {110, 30});
  const ButtonFrame two = redraw_button(props, ButtonState{}, {110, 30}, 2.0);
  EXPECT_EQ(two.image.size(), QSize(220, 60));
  EXPECT_EQ(two.image.devicePixelRatio(), 2.0);
  EXPECT_EQ(two.clip, one.clip);  // the window region stays in pixels of the control
  EXPECT_TRUE(PixelIs(two.image, 0, 30, kLine));
  EXPECT_TRUE(PixelIs(two.image, 1, 30, kFace));
  EXPECT_TRUE(PixelTransparent(two.image, 10, 0));  // the corner is 30 device pixels round
  EXPECT_TRUE(PixelIs(two.image, 14, 0, kLine));
  EXPECT_NEAR(two.caption_box.top(), one.caption_box.top(), 1);
  EXPECT_NEAR(two.caption_box.width(), one.caption_box.width(), 2);
  const QRect device_box(two.caption_box.topLeft() * 2, two.caption_box.size() * 2);
  EXPECT_NEAR(InkRows(two.image, device_box), 2 * InkRows(one.image, one.caption_box), 3);
}

}  // namespace
}  // namespace velmora::controls
