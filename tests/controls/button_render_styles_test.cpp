// The eight styles, the fill modes, the focus mark and the drop-down mark, rendered on a 60 by 40
// rectangle (80 by 33 for the drop-down) and checked at chosen pixels.
#include <gtest/gtest.h>

#include "controls/button_look.h"
#include "controls/button_presets.h"
#include "controls/button_renderer.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::PixelIs;
using testing::PixelNear;
using testing::PixelTransparent;

constexpr OleColor kDark = kSys3DDarkShadow;
constexpr OleColor kLight = kSys3DHighlight;
constexpr OleColor kShadow = kSysButtonShadow;
constexpr OleColor kFace = kSysButtonFace;
constexpr OleColor kBlack = 0;

struct Look {
  bool pressed = false;
  bool hover = false;
  bool focus = false;
  bool enabled = true;
};

QImage Render(int style, Look look = {}, QSize size = {60, 40}) {
  ButtonProperties props = new_button_properties(QString());
  apply_button_style(props, style);
  props.Enabled = look.enabled;
  return redraw_button(props, ButtonState{look.pressed, look.hover, look.focus}, size).image;
}

TEST(ButtonStyle1, RaisedAndSunkenRims) {
  const QImage normal = Render(1);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kDark));
  EXPECT_TRUE(PixelIs(normal, 59, 39, kDark));
  EXPECT_TRUE(PixelIs(normal, 1, 1, kLight));
  EXPECT_TRUE(PixelIs(normal, 30, 1, kLight));
  EXPECT_TRUE(PixelIs(normal, 1, 20, kLight));
  EXPECT_TRUE(PixelIs(normal, 58, 38, kShadow));
  EXPECT_TRUE(PixelIs(normal, 58, 1, kShadow));
  EXPECT_TRUE(PixelIs(normal, 1, 38, kShadow));
  EXPECT_TRUE(PixelIs(normal, 2, 2, kFace));
  const QImage pressed = Render(1, {.pressed = true});
  EXPECT_TRUE(PixelIs(pressed, 0, 0, kLight));
  EXPECT_TRUE(PixelIs(pressed, 1, 1, kDark));
  EXPECT_TRUE(PixelIs(pressed, 2, 2, kShadow));
  EXPECT_TRUE(PixelIs(pressed, 30, 2, kShadow));
  EXPECT_TRUE(PixelIs(pressed, 58, 38, kLight));  // the rectangle's second edge line
  EXPECT_TRUE(PixelIs(pressed, 57, 37, kFace));
}

TEST(ButtonStyle2, OneLitRim) {
  const QImage normal = Render(2);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kDark));
  EXPECT_TRUE(PixelIs(normal, 1, 1, kLight));
  EXPECT_TRUE(PixelIs(normal, 58, 38, kDark));
  EXPECT_TRUE(PixelIs(normal, 57, 37, kFace));
  const QImage pressed = Render(2, {.pressed = true});
  EXPECT_TRUE(PixelIs(pressed, 1, 1, kDark));
  EXPECT_TRUE(PixelIs(pressed, 0, 0, kLight));
}

TEST(ButtonStyle3, FlatUntilThePointerComes) {
  const QImage normal = Render(3);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kFace));  // the border takes BackColor
  EXPECT_TRUE(PixelIs(normal, 1, 1, kFace));
  const QImage hover = Render(3, {.hover = true});
  EXPECT_TRUE(PixelIs(hover, 0, 0, kDark));
  EXPECT_TRUE(PixelIs(hover, 1, 1, kLight));
  const QImage pressed = Render(3, {.pressed = true, .hover = true});
  EXPECT_TRUE(PixelIs(pressed, 0, 0, kLight));
  EXPECT_TRUE(PixelIs(pressed, 1, 1, kDark));
}

TEST(ButtonStyle4, ShadowBorderAndDarkPressedFace) {
  const QImage normal = Render(4);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kShadow));
  EXPECT_TRUE(PixelIs(normal, 1, 1, kLight));
  EXPECT_TRUE(PixelIs(normal, 58, 38, kShadow));
  EXPECT_TRUE(PixelIs(Render(4, {.pressed = true}), 30, 20, 0x999999));
  const QImage disabled = Render(4, {.enabled = false});
  EXPECT_TRUE(PixelIs(disabled, 1, 1, kFace));
  EXPECT_TRUE(PixelIs(disabled, 0, 0, kShadow));
}

TEST(ButtonStyle5, HoverGradientOverwritesTheFace) {
  const QImage normal = Render(5);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kFace));
  EXPECT_TRUE(PixelIs(normal, 30, 20, kFace));
  const QImage hover = Render(5, {.hover = true});
  EXPECT_TRUE(PixelIs(hover, 0, 0, kBlack));
  EXPECT_TRUE(PixelNear(hover, 30, 1, 0xAC9891, 1));
  EXPECT_TRUE(PixelIs(hover, 30, 38, kBlack));
  EXPECT_TRUE(PixelNear(hover, 30, 37, 0xB6A59F, 1));
  const QImage pressed = Render(5, {.pressed = true});
  EXPECT_TRUE(PixelNear(pressed, 30, 1, 0xA57F71, 1));
  EXPECT_TRUE(PixelNear(pressed, 30, 37, 0xAF8C80, 1));
}

TEST(ButtonStyle6, GradientFaceAndGlowRings) {
  const QImage normal = Render(6);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kBlack));
  EXPECT_TRUE(PixelNear(normal, 30, 1, 0xD2DEDD, 2));
  EXPECT_TRUE(PixelNear(normal, 30, 37, 0xFFFFFF, 3));
  const QImage hover = Render(6, {.hover = true});
  const OleColor hot[] = {0x109ADC, 0x31B2F0, 0x90D6F7, 0xCEF3FF, 0x8CDBFF};
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(PixelIs(hover, 2 + i, 20, hot[i]));
  EXPECT_TRUE(PixelIs(hover, 30, 2, hot[0]));
  EXPECT_FALSE(PixelIs(hover, 7, 20, hot[4]));
  const QImage focus = Render(6, {.focus = true});
  const OleColor blue[] = {0xD98D59, 0xE2A981, 0xF0D1B5, 0xF7D7BD, 0xFFE7CE};
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(PixelIs(focus, 2 + i, 20, blue[i]));
  EXPECT_FALSE(PixelIs(focus, 10, 10, kBlack));  // style 6 shows no dots
  const QImage pressed = Render(6, {.pressed = true});
  EXPECT_TRUE(PixelIs(pressed, 58, 38, kLight));
  EXPECT_TRUE(PixelNear(pressed, 30, 37, 0xE0E6E6, 2));
  const QImage disabled = Render(6, {.enabled = false});
  EXPECT_TRUE(PixelIs(disabled, 30, 20, 0xDBE7E7));
  EXPECT_TRUE(PixelIs(disabled, 0, 0, 0x8DABAB));
}

TEST(ButtonStyle7, TwoBandsAndInnerRing) {
  const QImage normal = Render(7);
  EXPECT_TRUE(PixelIs(normal, 0, 0, 0x8F8F8E));
  EXPECT_TRUE(PixelIs(normal, 2, 20, 0xFFFFFF));
  EXPECT_TRUE(PixelIs(normal, 30, 2, 0xFFFFFF));
  // The first band runs to 2H/3; the second starts again at H/2.
  EXPECT_TRUE(PixelNear(normal, 30, 19, 0xE9E9E9, 1));
  EXPECT_TRUE(PixelNear(normal, 30, 20, 0xD8D8D8, 1));
  EXPECT_TRUE(PixelIs(Render(7, {.pressed = true}), 2, 20, 0xCFB073));
  EXPECT_TRUE(PixelIs(Render(7, {.hover = true}), 0, 0, 0xB17F3C));
  EXPECT_TRUE(PixelIs(Render(7, {.pressed = true}), 0, 0, 0x5C411D));
  EXPECT_TRUE(PixelIs(Render(7, {.focus = true}), 2, 20, 0xFECC04));
  const QImage disabled = Render(7, {.enabled = false});
  EXPECT_TRUE(PixelIs(disabled, 0, 0, 0xB5B2AD));
  EXPECT_TRUE(PixelNear(disabled, 30, 20, 0xF0F0F0, 1));
}

TEST(ButtonStyle8, GlassBands) {
  const QImage normal = Render(8);
  EXPECT_TRUE(PixelIs(normal, 0, 0, kSysDesktop));
  EXPECT_TRUE(PixelIs(normal, 30, 3, kSysDesktop));  // above the first band
  EXPECT_TRUE(PixelNear(normal, 30, 20, kSysDesktop, 3));
  EXPECT_GT(qRed(normal.pixel(30, 19)), 150);  // the first band lightens toward its top
  const QImage disabled = Render(8, {.enabled = false});
  EXPECT_TRUE(PixelIs(disabled, 0, 0, 0xA4B6B7));
  EXPECT_TRUE(PixelNear(disabled, 30, 20, 0xA4B6B7, 3));
}

TEST(ButtonStyleBorders, WrittenIntoThePropertiesAtDrawTime) {
  ButtonProperties p;
  apply_button_theme(p, 4);
  apply_style_borders(p, true);  // style 1 replaces the theme's borders
  EXPECT_EQ(p.BorderColor, kDark);
  EXPECT_EQ(p.BorderColorPressed, kLight);
  p.ButtonStyle = 3;
  p.BackColor = 0x123456;
  apply_style_borders(p, true);
  EXPECT_EQ(p.BorderColor, 0x123456u);
  p.ButtonStyle = 6;
  p.ButtonStyleColors = 0;
  apply_style_borders(p, false);
  EXPECT_EQ(p.BorderColor, 0u);  // no face fill, no disabled border
  p.ButtonStyleColors = 3;
  apply_style_borders(p, false);
  EXPECT_EQ(p.BorderColor, 0x8DABABu);
  p.ButtonStyle = 0;
  p.BorderColor = 0x42;
  apply_style_borders(p, true);
  EXPECT_EQ(p.BorderColor, 0x42u);
}

QImage RenderFill(int mode) {
  ButtonProperties props = new_button_properties(QString());
  props.ButtonStyle = 0;
  props.ButtonStyleColors = mode;
  props.BackColor = 0x0000FF;       // red
  props.BackColorHover = 0xFF0000;  // blue
  return redraw_button(props, ButtonState{false, true, false}, {60, 40}).image;
}

TEST(ButtonFill, ModesPlaceTheTwoColours) {
  constexpr OleColor kRed = 0x0000FF;
  constexpr OleColor kBlue = 0xFF0000;
  // Probes stand one pixel inside the border lines, where the mirrored vertical fills are a
  // row (13 steps of each channel) short of their end colour.
  constexpr int kTol = 34;
  EXPECT_TRUE(PixelTransparent(RenderFill(0), 30, 20));
  EXPECT_TRUE(PixelIs(RenderFill(1), 30, 20, kBlue));
  const QImage h = RenderFill(2);
  EXPECT_TRUE(PixelNear(h, 1, 20, kRed, kTol));
  EXPECT_TRUE(PixelNear(h, 57, 20, kBlue, kTol));
  const QImage v = RenderFill(3);
  EXPECT_TRUE(PixelNear(v, 30, 37, kRed, kTol));
  EXPECT_TRUE(PixelNear(v, 30, 1, kBlue, kTol));
  const QImage v_edges = RenderFill(4);
  EXPECT_TRUE(PixelNear(v_edges, 30, 1, kRed, kTol));
  EXPECT_TRUE(PixelNear(v_edges, 30, 19, kBlue, kTol));
  EXPECT_TRUE(PixelNear(v_edges, 30, 37, kRed, kTol));
  const QImage v_middle = RenderFill(5);
  EXPECT_TRUE(PixelNear(v_middle, 30, 1, kBlue, kTol));
  EXPECT_TRUE(PixelNear(v_middle, 30, 19, kRed, kTol));
  EXPECT_TRUE(PixelNear(v_middle, 30, 37, kBlue, kTol));
  const QImage h_edges = RenderFill(6);
  EXPECT_TRUE(PixelNear(h_edges, 1, 20, kRed, kTol));
  EXPECT_TRUE(PixelNear(h_edges, 29, 20, kBlue, kTol));
  EXPECT_TRUE(PixelNear(h_edges, 57, 20, kRed, kTol));
  const QImage h_middle = RenderFill(7);
  EXPECT_TRUE(PixelNear(h_middle, 1, 20, kBlue, kTol));
  EXPECT_TRUE(PixelNear(h_middle, 29, 20, kRed, kTol));
  EXPECT_TRUE(PixelNear(h_middle, 57, 20, kBlue, kTol));
}

TEST(ButtonFocusMark, CheckerOfDotsOverTheBareFaceOnly) {
  const QImage image = Render(1, {.focus = true});
  EXPECT_TRUE(PixelIs(image, 3, 3, kBlack));
  EXPECT_TRUE(PixelIs(image, 5, 5, kBlack));
  EXPECT_TRUE(PixelIs(image, 2, 2, kBlack));
  EXPECT_TRUE(PixelIs(image, 30, 20, kBlack));
  EXPECT_TRUE(PixelIs(image, 3, 4, kFace));
  EXPECT_TRUE(PixelIs(image, 31, 20, kFace));
  EXPECT_TRUE(PixelIs(image, 4, 4, 0xD1D1D1));  // the focus ring, inset 4
  EXPECT_TRUE(PixelIs(image, 30, 4, 0xD1D1D1));
  EXPECT_TRUE(PixelIs(image, 58, 38, kShadow));  // the rim is no bare face
  EXPECT_TRUE(PixelIs(image, 1, 1, kLight));
  EXPECT_TRUE(PixelIs(Render(1, {.focus = false}), 3, 3, kFace));
}

TEST(ButtonFocusMark, NeedsFocusRect) {
  ButtonProperties props = new_button_properties(QString());
  props.FocusRect = false;
  const QImage image = redraw_button(props, ButtonState{false, false, true}, {60, 40}).image;
  EXPECT_TRUE(PixelIs(image, 3, 3, kFace));
  EXPECT_TRUE(PixelIs(image, 4, 4, kFace));
}

TEST(ButtonFocusMark, DotsOnATransparentFace) {
  ButtonProperties props = new_button_properties(QString());
  props.ButtonStyleColors = 0;
  const QImage image = redraw_button(props, ButtonState{false, false, true}, {60, 40}).image;
  EXPECT_TRUE(PixelIs(image, 3, 3, kBlack));
  EXPECT_TRUE(PixelTransparent(image, 3, 4));
}

TEST(ButtonFocusMark, Style4FramesTheCaption) {
  ButtonProperties props = new_button_properties(QString());
  apply_button_style(props, 4);
  const QImage bare = redraw_button(props, ButtonState{false, false, true}, {60, 40}).image;
  EXPECT_TRUE(PixelIs(bare, 3, 3, kFace));  // no caption: nothing at all
  props.Caption = "Ok";
  props.Font = QFont("DejaVu Sans");
  props.Font.setPixelSize(11);
  const ButtonFrame frame = redraw_button(props, ButtonState{false, false, true}, {60, 40});
  const QRect box = frame.caption_box;
  ASSERT_FALSE(box.isEmpty());
  EXPECT_TRUE(PixelIs(frame.image, box.center().x(), box.top() - 2, 0xCC9999));
  EXPECT_TRUE(PixelIs(frame.image, box.center().x(), box.bottom() + 2, 0xCC9999));
  EXPECT_TRUE(PixelIs(frame.image, box.left() - 2, box.center().y(), 0xCC9999));
  EXPECT_TRUE(PixelIs(frame.image, box.right() + 2, box.center().y(), 0xCC9999));
  EXPECT_FALSE(PixelIs(frame.image, box.left() - 2, box.top() - 2, 0xCC9999));
  EXPECT_TRUE(PixelIs(frame.image, 3, 3, kFace));
}

TEST(ButtonDropDown, ChevronsAtTheRightOrLeftEdge) {
  ButtonProperties props = new_button_properties(QString());
  props.DropDown = dropdown::kRight;
  const QImage right = redraw_button(props, ButtonState{}, {80, 33}).image;
  // Origin (80 - 21, 33/2 - 8) = (59, 8).
  for (QPoint p : {QPoint(6, 5), QPoint(8, 7), QPoint(9, 8), QPoint(11, 6), QPoint(12, 5), QPoint(7, 5), QPoint(6, 9),
                   QPoint(9, 12), QPoint(12, 9), QPoint(9, 11)}) {
    EXPECT_TRUE(PixelIs(right, 59 + p.x(), 8 + p.y(), kBlack)) << p.x() << "," << p.y();
  }
  EXPECT_TRUE(PixelIs(right, 59 + 13, 8 + 4, kFace));  // lines stop short of their end
  EXPECT_TRUE(PixelIs(right, 59 + 9, 8 + 10, kFace));
  props.DropDown = dropdown::kLeft;
  const QImage left = redraw_button(props, ButtonState{}, {80, 33}).image;
  EXPECT_TRUE(PixelIs(left, 2 + 6, 8 + 5, kBlack));
  EXPECT_TRUE(PixelIs(left, 59 + 6, 8 + 5, kFace));
}

}  // namespace
}  // namespace velmora::controls
