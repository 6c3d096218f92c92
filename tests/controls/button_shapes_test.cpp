// The twelve shapes drawn with a plain scheme (no style rims), checked at pixels worked out from
// the region's points; below the drawing, the rounding, the clipping and the ellipse's rims.
#include <gtest/gtest.h>

#include <algorithm>

#include "controls/button_renderer.h"
#include "controls/shape_geometry.h"
#include "controls/shape_rims.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::ExpectPixels;

constexpr OleColor F = 0x00FF00;         // the face
constexpr OleColor L = 0x0000FF;         // the outline
constexpr OleColor O = testing::kClear;  // outside the window region

ButtonProperties Plain(int shape, const QString& caption = QString()) {
  ButtonProperties props = new_button_properties(caption);
  props.ButtonStyle = 0;  // no style: the border colours stay as set, no rims
  props.ButtonShape = shape;
  props.BackColor = props.BackColorHover = props.BackColorPressed = F;
  props.BorderColor = props.BorderColorHover = props.BorderColorPressed = L;
  return props;
}

// Shapes 0 and 1 on 80 by 33, the others on 60 by 60. The rectangle draws its right and bottom
// edges twice, the second time one pixel further in; the sharp corners of the side triangles keep
// their one pixel; an unknown shape (12) draws no outline and clips nothing.
TEST(ButtonShapes, OutlineFaceAndWindowRegion) {
  struct Row {
    int shape, x, y;
    OleColor color;
  };
  const Row rows[] = {
      {0, 0, 0, L},    {0, 79, 32, L},  {0, 79, 16, L},  {0, 40, 0, L},   {0, 78, 16, L},  {0, 40, 31, L},
      {0, 78, 31, L},  {0, 1, 1, F},    {0, 40, 16, F},  {0, 77, 30, F},  {0, 2, 16, F},   {0, 40, 2, F},
      {1, 4, 0, O},    {1, 5, 0, L},    {1, 0, 7, L},    {1, 0, 16, L},   {1, 1, 16, F},   {1, 40, 16, F},
      {1, 79, 32, O},  {1, 79, 16, L},  {1, 40, 32, L},  {2, 0, 0, O},    {2, 59, 59, O},  {2, 24, 0, O},
      {2, 25, 0, L},   {2, 34, 0, L},   {2, 35, 0, O},   {2, 0, 30, L},   {2, 59, 30, L},  {2, 30, 59, L},
      {2, 30, 30, F},  {2, 30, 2, F},   {3, 0, 0, O},    {3, 59, 0, O},   {3, 0, 59, O},   {3, 59, 59, O},
      {3, 0, 29, L},   {3, 59, 29, L},  {3, 30, 0, L},   {3, 29, 0, L},   {3, 30, 30, F},  {3, 13, 15, O},
      {3, 14, 15, L},  {3, 16, 16, F},  {4, 0, 0, O},    {4, 14, 30, O},  {4, 15, 30, L},  {4, 16, 30, F},
      {4, 44, 30, L},  {4, 45, 30, O},  {4, 30, 59, L},  {4, 30, 58, F},  {4, 30, 30, F},  {5, 0, 0, O},
      {5, 0, 30, O},   {5, 1, 30, L},   {5, 2, 31, O},   {5, 5, 30, F},   {5, 59, 5, L},   {5, 58, 5, F},
      {5, 48, 5, O},   {5, 49, 5, L},   {5, 30, 30, F},  {5, 0, 59, O},   {5, 59, 0, L},   {5, 58, 0, O},
      {6, 59, 0, O},   {6, 59, 30, O},  {6, 58, 30, L},  {6, 57, 31, O},  {6, 56, 31, L},  {6, 50, 30, F},
      {6, 0, 30, L},   {6, 1, 30, F},   {6, 30, 30, F},  {6, 59, 59, O},  {6, 0, 0, L},    {6, 1, 0, O},
      {7, 30, 0, O},   {7, 30, 1, L},   {7, 30, 2, F},   {7, 0, 1, L},    {7, 14, 30, O},  {7, 15, 30, L},
      {7, 44, 30, L},  {7, 45, 30, O},  {7, 30, 30, F},  {7, 0, 59, O},   {8, 30, 0, O},   {8, 19, 50, O},
      {8, 20, 50, L},  {8, 21, 50, F},  {8, 39, 50, L},  {8, 40, 50, O},  {8, 0, 39, L},   {8, 0, 40, O},
      {8, 10, 45, O},  {8, 30, 59, L},  {8, 30, 30, F},  {9, 0, 30, O},   {9, 1, 30, L},   {9, 30, 30, F},
      {9, 50, 30, F},  {9, 50, 19, O},  {9, 50, 20, L},  {9, 50, 10, O},  {9, 39, 10, L},  {9, 30, 10, F},
      {9, 59, 30, L},  {10, 59, 30, O}, {10, 58, 30, L}, {10, 0, 30, L},  {10, 10, 30, F}, {10, 10, 10, O},
      {10, 20, 10, L}, {10, 25, 10, F}, {10, 10, 19, O}, {10, 10, 20, L}, {11, 10, 10, O}, {11, 20, 10, L},
      {11, 30, 10, F}, {11, 39, 10, L}, {11, 40, 10, O}, {11, 0, 20, L},  {11, 30, 59, O}, {11, 30, 58, L},
      {11, 30, 40, F}, {12, 0, 0, F},   {12, 59, 59, F}, {12, 30, 30, F},
  };
  for (const Row& r : rows) {
    ButtonProperties props = Plain(r.shape);
    const QImage image = redraw_button(props, ButtonState{}, r.shape <= 1 ? QSize(80, 33) : QSize(60, 60)).image;
    EXPECT_TRUE(testing::PixelIs(image, r.x, r.y, r.color)) << "shape " << r.shape;
  }
}

// On a screen of two device pixels to a pixel the button is drawn at that resolution, not
// scaled up: lines one device pixel wide, the corner and the caption twice the size.
TEST(ButtonShapes, DrawnAtTheDevicePixelRatio) {
  ButtonProperties props = Plain(shape::kRoundedRectangle, QStringLiteral("Start!"));
  props.Font.setPointSize(9);
  const ButtonFrame one = redraw_button(props, ButtonState{}, {110, 30});
  const ButtonFrame two = redraw_button(props, ButtonState{}, {110, 30}, 2.0);
  EXPECT_EQ(two.image.size(), QSize(220, 60));
  EXPECT_EQ(two.image.devicePixelRatio(), 2.0);
  EXPECT_EQ(two.clip, one.clip);  // the window region stays in pixels of the control
  ExpectPixels(two.image, {{0, 30, L}, {1, 30, F}, {10, 0, O}, {14, 0, L}});  // a corner 30 device pixels round
  EXPECT_NEAR(two.caption_box.top(), one.caption_box.top(), 1);
  EXPECT_NEAR(two.caption_box.width(), one.caption_box.width(), 2);  // a font twice the size
}

TEST(ShapePolygon, DivisionsRoundHalvesToEven) {
  // 25 / 2 = 12.5 rounds to 12, 25 / 1.5 = 16.67 to 17, 25 / 3 = 8.33 to 8; 45 / 2 = 22.5 to 22.
  EXPECT_EQ(shape_polygon(shape::kArrowDown, 25, 25),
            QPolygon({{12, 25}, {0, 8}, {8, 8}, {8, 0}, {17, 0}, {17, 8}, {25, 8}}));
  EXPECT_EQ(shape_polygon(shape::kArrowLeft, 45, 45),
            QPolygon({{0, 22}, {30, 0}, {30, 15}, {45, 15}, {45, 30}, {30, 30}, {30, 45}}));
}

TEST(ShapeRegion, OnlyShapesOneToElevenClip) {
  for (int s = -1; s <= 12; ++s) EXPECT_EQ(shape_clip_region(s, 60, 60).has_value(), s >= 1 && s <= 11) << s;
}

TEST(ShapeRings, EllipseRimsSplitAtTheDiagonal) {
  ShapeRings rings(shape::kEllipse, 60, 60);
  const std::vector<QPoint> lit = rings.rim(1, RimSide::Lit);
  auto has = [&lit](QPoint p) { return std::find(lit.begin(), lit.end(), p) != lit.end(); };
  EXPECT_TRUE(has({30, 1}) || has({29, 1}));
  EXPECT_TRUE(has({1, 30}) || has({1, 29}));
  for (const QPoint& p : lit) EXPECT_LT(p.x() + p.y(), 60) << p.x() << "," << p.y();
}

TEST(OutwardNormal, PointsOutOfEachSide) {
  const QPointF left = outward_normal(shape::kTriangleUp, 60, 60, {16, 30});
  EXPECT_LT(left.x(), 0);
  EXPECT_LT(left.y(), 0);
  const QPointF bottom = outward_normal(shape::kTriangleUp, 60, 60, {30, 59.5});
  EXPECT_NEAR(bottom.x(), 0.0, 1e-9);
  EXPECT_GT(bottom.y(), 0);
}

}  // namespace
}  // namespace velmora::controls
