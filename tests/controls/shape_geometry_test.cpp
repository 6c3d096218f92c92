#include "controls/shape_geometry.h"

#include <gtest/gtest.h>

#include "controls/button_properties.h"
#include "controls/shape_rims.h"

namespace velmora::controls {
namespace {

TEST(ShapePolygon, PointsInRegionOrderWithHalvesToEven) {
  EXPECT_EQ(shape_polygon(shape::kDiamond, 60, 60), QPolygon({{60, 30}, {30, 0}, {0, 30}, {30, 60}}));
  EXPECT_EQ(shape_polygon(shape::kTriangleDown, 60, 60), QPolygon({{0, 1}, {30, 60}, {60, 1}}));
  EXPECT_EQ(shape_polygon(shape::kArrowUp, 60, 60),
            QPolygon({{30, 0}, {0, 40}, {20, 40}, {20, 60}, {40, 60}, {40, 40}, {60, 40}}));
  EXPECT_EQ(shape_polygon(shape::kArrowLeft, 45, 45),
            QPolygon({{0, 22}, {30, 0}, {30, 15}, {45, 15}, {45, 30}, {30, 30}, {30, 45}}));
  // 25 / 2 = 12.5 rounds to 12, 25 / 1.5 = 16.67 to 17, 25 / 3 = 8.33 to 8.
  EXPECT_EQ(shape_polygon(shape::kArrowDown, 25, 25),
            QPolygon({{12, 25}, {0, 8}, {8, 8}, {8, 0}, {17, 0}, {17, 8}, {25, 8}}));
  EXPECT_TRUE(shape_polygon(shape::kEllipse, 60, 60).isEmpty());
  EXPECT_TRUE(shape_polygon(12, 60, 60).isEmpty());
}

TEST(ShapeRegion, RectangleAndUnknownShapesClipNothing) {
  EXPECT_FALSE(shape_clip_region(shape::kRectangle, 80, 33).has_value());
  EXPECT_FALSE(shape_clip_region(12, 60, 60).has_value());
  EXPECT_FALSE(shape_clip_region(-1, 60, 60).has_value());
  for (int s = 1; s <= 11; ++s) EXPECT_TRUE(shape_clip_region(s, 60, 60).has_value()) << s;
}

TEST(ShapeRegion, PixelsAreTakenByTheirCentres) {
  const QRegion up = shape_area(shape::kTriangleUp, 60, 60);
  // Row 30: edges at x = 14.75 and 45.25.
  EXPECT_FALSE(up.contains(QPoint(14, 30)));
  EXPECT_TRUE(up.contains(QPoint(15, 30)));
  EXPECT_TRUE(up.contains(QPoint(44, 30)));
  EXPECT_FALSE(up.contains(QPoint(45, 30)));
  const QRegion ellipse = ellipse_region(60, 60);
  EXPECT_FALSE(ellipse.contains(QPoint(24, 0)));
  EXPECT_TRUE(ellipse.contains(QPoint(25, 0)));
  EXPECT_TRUE(ellipse.contains(QPoint(34, 0)));
  EXPECT_FALSE(ellipse.contains(QPoint(35, 0)));
  const QRegion rounded = round_rect_region(80, 33, 15, 15);
  EXPECT_FALSE(rounded.contains(QPoint(4, 0)));
  EXPECT_TRUE(rounded.contains(QPoint(5, 0)));
  EXPECT_TRUE(rounded.contains(QPoint(0, 7)));
  EXPECT_FALSE(rounded.contains(QPoint(79, 32)));
  EXPECT_EQ(rounded.boundingRect(), QRect(0, 0, 80, 33));
}

TEST(ShapeRegion, ArrowShaftAndHead) {
  const QRegion arrow = shape_area(shape::kArrowUp, 60, 60);
  EXPECT_EQ(arrow.boundingRect(), QRect(0, 1, 60, 59));
  EXPECT_FALSE(arrow.contains(QPoint(19, 50)));
  EXPECT_TRUE(arrow.contains(QPoint(20, 50)));
  EXPECT_TRUE(arrow.contains(QPoint(39, 50)));
  EXPECT_FALSE(arrow.contains(QPoint(40, 50)));
  EXPECT_TRUE(arrow.contains(QPoint(0, 39)));
  EXPECT_FALSE(arrow.contains(QPoint(0, 40)));
}

TEST(ShapeRings, RingsStepInward) {
  ShapeRings rings(shape::kRectangle, 20, 10);
  EXPECT_EQ(rings.ring(0), QRegion(0, 0, 20, 10) - QRegion(1, 1, 18, 8));
  EXPECT_EQ(rings.ring(1), QRegion(1, 1, 18, 8) - QRegion(2, 2, 16, 6));
  EXPECT_TRUE(rings.ring(5).isEmpty());
}

TEST(ShapeRings, RectangleRimsLightTheTopAndLeftShadowTheRest) {
  ShapeRings rings(shape::kRectangle, 20, 10);
  const std::vector<QPoint> lit = rings.rim(1, RimSide::Lit);
  const std::vector<QPoint> shadow = rings.rim(1, RimSide::Shadow);
  auto has = [](const std::vector<QPoint>& v, QPoint p) { return std::find(v.begin(), v.end(), p) != v.end(); };
  EXPECT_TRUE(has(lit, {1, 1}));
  EXPECT_TRUE(has(lit, {10, 1}));
  EXPECT_TRUE(has(lit, {1, 5}));
  EXPECT_TRUE(has(shadow, {18, 1}));  // the upper-right corner belongs to the shadow
  EXPECT_TRUE(has(shadow, {1, 8}));   // and so does the lower-left one
  EXPECT_TRUE(has(shadow, {10, 8}));
  EXPECT_TRUE(has(shadow, {18, 5}));
  EXPECT_EQ(lit.size() + shadow.size(), 2u * 18 + 2u * 6);
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
