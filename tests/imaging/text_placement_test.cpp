// Anchor rules and the turn of a line about its anchor, without any font.
#include <gtest/gtest.h>

#include "imaging/text/line_placement.h"

namespace velmora::imaging::text {
namespace {

TextDrawRequest Box(int h_anchor, int v_anchor) {
  TextDrawRequest request;
  request.left = 40;
  request.top = 30;
  request.right = 630;
  request.bottom = 470;
  request.horizontal_anchor = h_anchor;
  request.vertical_anchor = v_anchor;
  return request;
}

const LineExtent kLine{101.4, 29, 7};  // 36 pixels from ascent line to descent line

// Left and top pin the line's start and ascent line to the box's left and top, right and bottom
// its end and descent line to the right and bottom; the centre pins the middle to left and top;
// unknown anchors count as left and top.
TEST(TextPlacement, AnchorsPinTheLineToTheBox) {
  struct Row {
    int h, v, line_x, line_y, image_x, image_y;
  };
  for (const Row& row :
       {Row{3, 1, 0, 0, 40, 30}, Row{4, 2, 101, 36, 630, 470}, Row{0, 0, 51, 18, 40, 30}, Row{7, -2, 0, 0, 40, 30}}) {
    SCOPED_TRACE(::testing::Message() << "anchors " << row.h << ", " << row.v);
    const LineAnchor anchor = AnchorLine(kLine, Box(row.h, row.v));
    EXPECT_EQ(anchor.line_x, row.line_x);
    EXPECT_EQ(anchor.line_y, row.line_y);
    EXPECT_EQ(anchor.image_x, row.image_x);
    EXPECT_EQ(anchor.image_y, row.image_y);
  }
}

TEST(TextPlacement, QuarterTurnPointsTheBaselineUpAndTheLineDownToTheRight) {
  const LineTransform transform(AnchorLine(kLine, Box(3, 1)), 90);
  const PointF along = transform.ToImage({10, 0});
  EXPECT_DOUBLE_EQ(along.x, 40);
  EXPECT_DOUBLE_EQ(along.y, 20);
  const PointF below = transform.ToImage({0, 10});
  EXPECT_DOUBLE_EQ(below.x, 50);
  EXPECT_DOUBLE_EQ(below.y, 30);
}

TEST(TextPlacement, NegativeAndFullTurnsWrapAround) {
  const LineAnchor anchor = AnchorLine(kLine, Box(3, 1));
  const PointF clockwise = LineTransform(anchor, -90).ToImage({10, 0});
  EXPECT_DOUBLE_EQ(clockwise.y, 40);  // the baseline points down
  const PointF full = LineTransform(anchor, 360).ToImage({10, 0});
  EXPECT_DOUBLE_EQ(full.x, 50);
  EXPECT_DOUBLE_EQ(full.y, 30);
}

TEST(TextPlacement, ToLineUndoesToImageAtAnyAngle) {
  const LineTransform transform(AnchorLine(kLine, Box(0, 0)), 37);
  const PointF there = transform.ToImage({12.5, -3.25});
  const PointF back = transform.ToLine(there);
  EXPECT_NEAR(back.x, 12.5, 1e-9);
  EXPECT_NEAR(back.y, -3.25, 1e-9);
}

TEST(TextPlacement, VisibleAreaHoldsEveryImageCorner) {
  const LineTransform transform(AnchorLine(kLine, Box(3, 1)), 30);
  const PixelRect area = VisibleLineArea(transform, 200, 100);
  for (const PointF corner : {PointF{0, 0}, PointF{200, 0}, PointF{0, 100}, PointF{200, 100}}) {
    const PointF p = transform.ToLine(corner);
    EXPECT_GE(p.x, area.left);
    EXPECT_LE(p.x, area.right);
    EXPECT_GE(p.y, area.top);
    EXPECT_LE(p.y, area.bottom);
  }
}

TEST(TextPlacement, TouchedAreaIsClippedToTheImage) {
  const LineTransform transform(AnchorLine(kLine, Box(3, 1)), 0);
  const PixelRect touched = TouchedImageArea(transform, {-500, -500, 500, 500}, 200, 100);
  EXPECT_EQ(touched.left, 0);
  EXPECT_EQ(touched.top, 0);
  EXPECT_EQ(touched.right, 200);
  EXPECT_EQ(touched.bottom, 100);
  const PixelRect far_away = TouchedImageArea(transform, {5000, 0, 5100, 40}, 200, 100);
  EXPECT_TRUE(far_away.empty());
}

}  // namespace
}  // namespace velmora::imaging::text
