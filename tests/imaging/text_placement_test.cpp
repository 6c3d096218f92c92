// Anchor rules and the turn of a line about its anchor, without any font.
#include <gtest/gtest.h>

#include <tuple>

#include "imaging/text/line_placement.h"

namespace velmora::imaging::text {
namespace {

TextDrawRequest Box(int h_anchor, int v_anchor) {
  TextDrawRequest request;
  request.left = 40, request.top = 30, request.right = 630, request.bottom = 470;
  request.horizontal_anchor = h_anchor, request.vertical_anchor = v_anchor;
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
    EXPECT_EQ(std::tie(anchor.line_x, anchor.line_y, anchor.image_x, anchor.image_y),
              std::tie(row.line_x, row.line_y, row.image_x, row.image_y));
  }
}

// Counter-clockwise as seen on screen, y pointing down; negative and whole turns wrap round.
TEST(TextPlacement, TurnsMoveLinePointsAboutTheAnchor) {
  const LineAnchor anchor = AnchorLine(kLine, Box(3, 1));  // line (0, 0) at image (40, 30)
  struct Row {
    int angle;
    PointF line, image;
  };
  for (const Row& row : {Row{90, {10, 0}, {40, 20}}, Row{90, {0, 10}, {50, 30}}, Row{180, {10, 0}, {30, 30}},
                         Row{-90, {10, 0}, {40, 40}}, Row{360, {10, 0}, {50, 30}}}) {
    SCOPED_TRACE(row.angle);
    const PointF image = LineTransform(anchor, row.angle).ToImage(row.line);
    EXPECT_DOUBLE_EQ(image.x, row.image.x);
    EXPECT_DOUBLE_EQ(image.y, row.image.y);
  }
  const LineTransform slanted(AnchorLine(kLine, Box(0, 0)), 37);
  const PointF back = slanted.ToLine(slanted.ToImage({12.5, -3.25}));
  EXPECT_NEAR(back.x, 12.5, 1e-9);
  EXPECT_NEAR(back.y, -3.25, 1e-9);
}

}  // namespace
}  // namespace velmora::imaging::text
