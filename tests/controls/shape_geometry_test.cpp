// The shapes' rules below the drawing (whose pixels ButtonShapes checks): halves rounded to even,
// which shapes clip, the rings and their lit and shadow sides.
#include "controls/shape_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "controls/button_properties.h"
#include "controls/shape_rims.h"

namespace velmora::controls {
namespace {

TEST(ShapePolygon, DivisionsRoundHalvesToEven) {
  // 25 / 2 = 12.5 rounds to 12, 25 / 1.5 = 16.67 to 17, 25 / 3 = 8.33 to 8; 45 / 2 = 22.5 to 22.
  EXPECT_EQ(shape_polygon(shape::kArrowDown, 25, 25),
            QPolygon({{12, 25}, {0, 8}, {8, 8}, {8, 0}, {17, 0}, {17, 8}, {25, 8}}));
  EXPECT_EQ(shape_polygon(shape::kArrowLeft, 45, 45),
            QPolygon({{0, 22}, {30, 0}, {30, 15}, {45, 15}, {45, 30}, {30, 30}, {30, 45}}));
  EXPECT_EQ(round_half_even(13.5), 14);
  EXPECT_TRUE(shape_polygon(shape::kEllipse, 60, 60).isEmpty());
  EXPECT_TRUE(shape_polygon(12, 60, 60).isEmpty());
}

TEST(ShapeRegion, OnlyShapesOneToElevenClip) {
  for (int s = -1; s <= 12; ++s) EXPECT_EQ(shape_clip_region(s, 60, 60).has_value(), s >= 1 && s <= 11) << s;
  EXPECT_EQ(shape_clip_region(shape::kDiamond, 60, 60)->boundingRect(), QRect(0, 0, 60, 60));
}

TEST(ShapeRings, RingsStepInwardAndSplitIntoLitAndShadow) {
  ShapeRings rings(shape::kRectangle, 20, 10);
  EXPECT_EQ(rings.ring(0), QRegion(0, 0, 20, 10) - QRegion(1, 1, 18, 8));
  EXPECT_EQ(rings.ring(1), QRegion(1, 1, 18, 8) - QRegion(2, 2, 16, 6));
  EXPECT_TRUE(rings.ring(5).isEmpty());
  const std::vector<QPoint> lit = rings.rim(1, RimSide::Lit);
  const std::vector<QPoint> shadow = rings.rim(1, RimSide::Shadow);
  auto has = [](const std::vector<QPoint>& v, QPoint p) { return std::find(v.begin(), v.end(), p) != v.end(); };
  for (QPoint p : {QPoint(1, 1), QPoint(10, 1), QPoint(1, 5)}) EXPECT_TRUE(has(lit, p)) << p.x() << "," << p.y();
  // The upper-right and lower-left corners belong to the shadow.
  for (QPoint p : {QPoint(18, 1), QPoint(1, 8), QPoint(10, 8), QPoint(18, 5)}) {
    EXPECT_TRUE(has(shadow, p)) << p.x() << "," << p.y();
  }
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
