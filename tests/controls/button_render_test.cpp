// The skinned button's drawing, checked at chosen pixels: the eight styles, the fill modes, the
// focus mark and the drop-down mark on a 60 by 40 rectangle (80 by 33 for the drop-down); then
// the picture and the caption, placed by alignment, pressed, grayed, with effects and gradients.
#include <gtest/gtest.h>

#include <cmath>

#include "controls/button_caption.h"
#include "controls/button_layout.h"
#include "controls/button_picture.h"
#include "controls/button_presets.h"
#include "controls/button_renderer.h"
#include "controls/shape_geometry.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::CountColor;
using testing::ExpectPixels;
using testing::Ink;
using testing::kClear;
using testing::PixelIs;
using testing::Probe;

constexpr OleColor kDark = kSys3DDarkShadow;
constexpr OleColor kLight = kSys3DHighlight;
constexpr OleColor kShadow = kSysButtonShadow;
constexpr OleColor kFace = kSysButtonFace;
constexpr OleColor kBlack = 0;
constexpr OleColor kFocusRing = 0xD1D1D1;

struct Look {
  bool pressed = false, hover = false, focus = false, enabled = true, focus_rect = true;
  int fill = -1;  // ButtonStyleColors, when not the one the style sets
};
constexpr Look N{}, H{false, true}, P{true}, PH{true, true}, F{false, false, true}, D{false, false, false, false};
constexpr Look NoRect{false, false, true, true, false};  // focus, but FocusRect off
constexpr Look F0{false, false, true, true, true, 0}, D0{false, false, false, false, true, 0};  // no face fill

// Looks: N normal, H hover, P pressed, PH pressed under the pointer, F focus, D disabled.
// - Style 1 sinks its rims when pressed; the rectangle's second right and bottom line takes the
//   pressed border. Style 3 is flat (the border takes BackColor) until the pointer comes.
// - Style 6 glows in five rings, then shows its face again; its focus glows blue and shows no
//   dots; without a face fill a disabled control keeps its black border.
// - Style 7's first band runs to 2H/3 and its second starts again at H/2. Style 8's first band
//   runs from the desktop colour at the bottom edge to white at H/6.
// - The focus mark is a checker of dots over the bare face only, with the focus ring at inset 4.
//   Style 5 draws its outline in the face colour, and the checker still stops two pixels short of
//   each edge.
TEST(ButtonStyles, RimsFacesGlowsAndFocusByState) {
  struct Row {
    int style;
    Look look;
    int x, y;
    OleColor color;
    int tolerance;
  };
  const Row rows[] = {
      {1, N, 0, 0, kDark, 0},        {1, N, 59, 39, kDark, 0},       {1, N, 1, 1, kLight, 0},
      {1, N, 30, 1, kLight, 0},      {1, N, 1, 20, kLight, 0},       {1, N, 58, 38, kShadow, 0},
      {1, N, 58, 1, kShadow, 0},     {1, N, 1, 38, kShadow, 0},      {1, N, 2, 2, kFace, 0},
      {1, N, 3, 3, kFace, 0},        {1, P, 0, 0, kLight, 0},        {1, P, 1, 1, kDark, 0},
      {1, P, 2, 2, kShadow, 0},      {1, P, 30, 2, kShadow, 0},      {1, P, 58, 38, kLight, 0},
      {1, P, 57, 37, kFace, 0},      {2, N, 0, 0, kDark, 0},         {2, N, 1, 1, kLight, 0},
      {2, N, 58, 38, kDark, 0},      {2, N, 57, 37, kFace, 0},       {2, P, 1, 1, kDark, 0},
      {2, P, 0, 0, kLight, 0},       {3, N, 0, 0, kFace, 0},         {3, N, 1, 1, kFace, 0},
      {3, H, 0, 0, kDark, 0},        {3, H, 1, 1, kLight, 0},        {3, PH, 0, 0, kLight, 0},
      {3, PH, 1, 1, kDark, 0},       {4, N, 0, 0, kShadow, 0},       {4, N, 1, 1, kLight, 0},
      {4, N, 58, 38, kShadow, 0},    {4, P, 30, 20, 0x999999, 0},    {4, D, 1, 1, kFace, 0},
      {4, D, 0, 0, kShadow, 0},      {5, N, 0, 0, kFace, 0},         {5, N, 30, 20, kFace, 0},
      {5, H, 0, 0, kBlack, 0},       {5, H, 30, 1, 0xAC9891, 1},     {5, H, 30, 38, kBlack, 0},
      {5, H, 30, 37, 0xB6A59F, 1},   {5, P, 30, 1, 0xA57F71, 1},     {5, P, 30, 37, 0xAF8C80, 1},
      {6, N, 0, 0, kBlack, 0},       {6, N, 30, 1, 0xD2DEDD, 2},     {6, N, 30, 37, 0xFFFFFF, 3},
      {6, H, 2, 20, 0x109ADC, 0},    {6, H, 3, 20, 0x31B2F0, 0},     {6, H, 4, 20, 0x90D6F7, 0},
      {6, H, 5, 20, 0xCEF3FF, 0},    {6, H, 6, 20, 0x8CDBFF, 0},     {6, H, 30, 2, 0x109ADC, 0},
      {6, H, 7, 20, 0xE9EFEE, 2},    {6, F, 2, 20, 0xD98D59, 0},     {6, F, 3, 20, 0xE2A981, 0},
      {6, F, 4, 20, 0xF0D1B5, 0},    {6, F, 5, 20, 0xF7D7BD, 0},     {6, F, 6, 20, 0xFFE7CE, 0},
      {6, F, 10, 10, 0xDEE7E6, 2},   {6, P, 58, 38, kLight, 0},      {6, P, 30, 37, 0xE0E6E6, 2},
      {6, D, 30, 20, 0xDBE7E7, 0},   {6, D, 0, 0, 0x8DABAB, 0},      {6, D0, 0, 0, kBlack, 0},
      {6, D0, 30, 20, kClear, 0},    {7, N, 0, 0, 0x8F8F8E, 0},      {7, N, 2, 20, 0xFFFFFF, 0},
      {7, N, 30, 2, 0xFFFFFF, 0},    {7, N, 30, 19, 0xE9E9E9, 1},    {7, N, 30, 20, 0xD8D8D8, 1},
      {7, H, 0, 0, 0xB17F3C, 0},     {7, H, 30, 20, 0xF7DBA5, 1},    {7, P, 30, 20, 0xEFCE92, 1},
      {7, P, 2, 20, 0xCFB073, 0},    {7, P, 0, 0, 0x5C411D, 0},      {7, F, 2, 20, 0xFECC04, 0},
      {7, D, 0, 0, 0xB5B2AD, 0},     {7, D, 30, 20, 0xF0F0F0, 1},    {8, N, 0, 0, kSysDesktop, 0},
      {8, N, 30, 3, kSysDesktop, 0}, {8, N, 30, 20, kSysDesktop, 3}, {8, N, 30, 19, 0xDDC8B4, 1},
      {8, D, 0, 0, 0xA4B6B7, 0},     {8, D, 30, 20, 0xA4B6B7, 3},    {1, F, 3, 3, kBlack, 0},
      {1, F, 5, 5, kBlack, 0},       {1, F, 2, 2, kBlack, 0},        {1, F, 30, 20, kBlack, 0},
      {1, F, 3, 4, kFace, 0},        {1, F, 31, 20, kFace, 0},       {1, F, 4, 4, kFocusRing, 0},
      {1, F, 30, 4, kFocusRing, 0},  {1, F, 58, 38, kShadow, 0},     {1, F, 1, 1, kLight, 0},
      {1, F0, 3, 3, kBlack, 0},      {1, F0, 3, 4, kClear, 0},       {1, NoRect, 3, 3, kFace, 0},
      {1, NoRect, 4, 4, kFace, 0},   {5, F, 58, 2, kBlack, 0},       {5, F, 2, 38, kBlack, 0},
      {5, F, 59, 3, kFace, 0},       {5, F, 3, 39, kFace, 0},        {5, F, 59, 39, kFace, 0},
  };
  for (const Row& r : rows) {
    ButtonProperties props = new_button_properties(QString());
    apply_button_style(props, r.style);
    if (r.look.fill >= 0) props.ButtonStyleColors = r.look.fill;
    props.Enabled = r.look.enabled;
    props.FocusRect = r.look.focus_rect;
    const ButtonState state{r.look.pressed, r.look.hover, r.look.focus};
    const QImage image = redraw_button(props, state, {60, 40}).image;
    EXPECT_TRUE(PixelIs(image, r.x, r.y, r.color, r.tolerance))
        << "style " << r.style << " pressed " << r.look.pressed << " hover " << r.look.hover << " focus "
        << r.look.focus << " enabled " << r.look.enabled << " fill " << r.look.fill;
  }
}

// Values outside 1 to 8 are stored but write no colour; the faces of styles 4 to 8 show in the
// drawings above, and themes write three faces and a blue border for every state.
TEST(ButtonPresets, StylesAndThemesWriteTheirColours) {
  ButtonProperties p;
  for (int value : {0, 9}) {
    apply_button_style(p, value);
    apply_button_theme(p, value);
    EXPECT_EQ(std::vector<int>({p.ButtonStyle, p.ButtonTheme, int(p.BackColor), int(p.BorderColor)}),
              std::vector<int>({value, value, int(kFace), 0}));
  }
  apply_button_style(p, 8);
  EXPECT_EQ(p.BackColorPressed, kSysDesktop);
  apply_button_style(p, 1);
  EXPECT_EQ(p.BackColorPressed, kFace);
  apply_button_theme(p, 1);
  EXPECT_EQ(std::vector<OleColor>({p.BackColor, p.BackColorHover, p.BackColorPressed, p.BorderColor, p.BorderColorHover,
                                   p.BorderColorPressed}),
            std::vector<OleColor>({0xF1B39A, 0xFDF7F4, 0xFAE6DD, 0xFF0000, 0xFF0000, 0xFF0000}));
  apply_button_theme(p, 8);
  EXPECT_EQ(p.BackColor, 0x8B4027u);
  // Styles 4 and 6 pull the fill mode to 1 and 3 unless it is 0.
  const int pulls[][3] = {{4, 0, 0}, {4, 2, 1}, {6, 0, 0}, {6, 5, 3}, {7, 5, 5}};
  for (const auto& [style, before, after] : pulls) {
    p.ButtonStyleColors = before;
    apply_button_style(p, style);
    EXPECT_EQ(p.ButtonStyleColors, after) << "style " << style << " from " << before;
  }
}

// The colour a fraction t of the way from red to blue.
OleColor RedToBlue(double t) {
  return ole_rgb(static_cast<int>(std::lround(255 * (1 - t))), 0, static_cast<int>(std::lround(255 * t)));
}

// Fill modes run from BackColor (red) to the state's face colour (blue, hovering); each pixel
// takes the colour at its centre, on a 60 by 40 face.
TEST(ButtonFill, ModesPlaceTheTwoColours) {
  struct Case {
    int mode;
    std::vector<Probe> probes;
  };
  const Case cases[] = {
      {0, {{30, 20, kClear}}},
      {1, {{30, 20, RedToBlue(1)}}},
      {2, {{1, 20, RedToBlue(1.5 / 60), 1}, {57, 20, RedToBlue(57.5 / 60), 1}}},
      {3, {{30, 1, RedToBlue(38.5 / 40), 1}, {30, 37, RedToBlue(2.5 / 40), 1}}},
      {4, {{30, 1, RedToBlue(1.5 / 20), 1}, {30, 19, RedToBlue(19.5 / 20), 1}, {30, 37, RedToBlue(2.5 / 20), 1}}},
      {5, {{30, 1, RedToBlue(18.5 / 20), 1}, {30, 19, RedToBlue(0.5 / 20), 1}, {30, 37, RedToBlue(17.5 / 20), 1}}},
      {6, {{1, 20, RedToBlue(1.5 / 30), 1}, {29, 20, RedToBlue(29.5 / 30), 1}, {57, 20, RedToBlue(2.5 / 30), 1}}},
      {7, {{1, 20, RedToBlue(28.5 / 30), 1}, {29, 20, RedToBlue(0.5 / 30), 1}, {57, 20, RedToBlue(27.5 / 30), 1}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "mode " << c.mode);
    ButtonProperties props = new_button_properties(QString());
    props.ButtonStyle = 0;
    props.ButtonStyleColors = c.mode;
    props.BackColor = RedToBlue(0);
    props.BackColorHover = RedToBlue(1);
    ExpectPixels(redraw_button(props, ButtonState{false, true, false}, {60, 40}).image, c.probes);
  }
}

TEST(ButtonFocusMark, Style4FramesTheCaption) {
  ButtonProperties props = new_button_properties(QString());
  apply_button_style(props, 4);
  ExpectPixels(redraw_button(props, ButtonState{false, false, true}, {60, 40}).image, {{3, 3, kFace}});  // no caption
  props.Caption = "Ok";
  props.Font = QFont("DejaVu Sans");
  props.Font.setPixelSize(11);
  const ButtonFrame frame = redraw_button(props, ButtonState{false, false, true}, {60, 40});
  const QRect box = frame.caption_box;
  ASSERT_FALSE(box.isEmpty());
  EXPECT_EQ(Ink(frame.image, 0xCC9999), box.adjusted(-2, -2, 2, 2));
  ExpectPixels(frame.image, {{box.left() - 2, box.top() - 2, kFace}, {3, 3, kFace}});  // the corners are cut
}

TEST(ButtonDropDown, ChevronsAtTheRightOrLeftEdge) {
  ButtonProperties props = new_button_properties(QString());
  props.DropDown = dropdown::kRight;
  // Origin (80 - 21, 33/2 - 8) = (59, 8); lines stop short of their last point.
  const std::vector<Probe> right = {{65, 13, kBlack}, {67, 15, kBlack}, {68, 16, kBlack}, {70, 14, kBlack},
                                    {71, 13, kBlack}, {66, 13, kBlack}, {65, 17, kBlack}, {68, 20, kBlack},
                                    {71, 17, kBlack}, {68, 19, kBlack}, {72, 12, kFace},  {68, 18, kFace}};
  ExpectPixels(redraw_button(props, ButtonState{}, {80, 33}).image, right);
  props.DropDown = dropdown::kLeft;
  ExpectPixels(redraw_button(props, ButtonState{}, {80, 33}).image, {{8, 13, kBlack}, {65, 13, kFace}});
}

constexpr OleColor kRed = 0x0000FF;
constexpr ButtonState kNormal{}, kHover{false, true, false}, kPressed{true, true, false};

// The pictures below show the square cases; these are the roundings.
TEST(ItemPlacement, TopAndLeftUseTheWholeSideAsDivisor) {
  EXPECT_EQ(place_item(align::kTop, {80, 33}, {30, 13}, 5), QPoint(25, 6));      // 20/33 + 5 = 5.61
  EXPECT_EQ(place_item(align::kCenter, {80, 33}, {31, 12}, 5), QPoint(24, 10));  // 24.5, 10.5
  EXPECT_EQ(place_item(7, {60, 60}, {10, 10}, 4), QPoint(0, 0));
}

// A 10 by 10 red picture on a 60 by 60 button.
QImage DrawPicture(int alignment, ButtonState state = {}, bool gray = false, bool enabled = true, int style = 1) {
  ButtonProperties props = new_button_properties(QString());
  props.Picture = QImage(10, 10, QImage::Format_ARGB32);
  props.Picture.fill(qRgb(255, 0, 0));
  props.PictureAlignment = alignment;
  props.PictureGray = gray;
  props.Enabled = enabled;
  props.ButtonStyle = style;
  return redraw_button(props, state, {60, 60}).image;
}

TEST(ButtonPicture, PlacedByAlignmentAndMovedWhenPressed) {
  ExpectPixels(DrawPicture(align::kTop), {{25, 5, kRed}, {34, 14, kRed}, {25, 4, kFace}});
  ExpectPixels(DrawPicture(align::kLeft), {{5, 25, kRed}, {4, 25, kFace}});
  ExpectPixels(DrawPicture(align::kRight), {{54, 25, kRed}, {55, 25, kFace}});
  ExpectPixels(DrawPicture(align::kBottom), {{25, 54, kRed}, {25, 55, kFace}});
  ExpectPixels(DrawPicture(align::kCenter, kPressed), {{25, 25, kFace}, {26, 26, kRed}, {35, 35, kRed}});
  // The hover of style 5 draws it twice, one pixel up and left, then in place.
  ExpectPixels(DrawPicture(align::kCenter, kHover, false, true, 5), {{24, 24, kRed}, {34, 34, kRed}});
  ExpectPixels(DrawPicture(align::kCenter, kHover), {{24, 24, kFace}});
}

// Gray is the rounded luminance; the face matches BackColor and keeps its colour.
TEST(ButtonPicture, GrayOnlyInTheNormalStateOrWhenDisabled) {
  EXPECT_EQ(gray_level(qRgb(255, 0, 0)), 76);
  EXPECT_EQ(gray_level(qRgb(0, 255, 0)), 150);
  EXPECT_EQ(gray_level(qRgb(0, 0, 255)), 29);
  const OleColor gray = ole_rgb(76, 76, 76);
  ExpectPixels(DrawPicture(align::kCenter, kNormal, true), {{25, 25, gray}, {34, 34, gray}, {24, 24, kFace}});
  ExpectPixels(DrawPicture(align::kCenter, kHover, true), {{25, 25, kRed}});
  ExpectPixels(DrawPicture(align::kCenter, kPressed, true), {{26, 26, kRed}});
  ExpectPixels(DrawPicture(align::kCenter, kPressed, false, false), {{25, 25, gray}, {34, 34, gray}});
}

class ButtonCaptionTest : public ::testing::Test {
 protected:
  ButtonCaptionTest() {
    props.Caption = "HH";
    props.Font = QFont("DejaVu Sans");
    props.Font.setPixelSize(14);
    props.Font.setStyleStrategy(QFont::NoAntialias);
  }
  ButtonFrame Draw(ButtonState state = {}, QSize size = {80, 33}) {
    ButtonProperties copy = props;
    return redraw_button(copy, state, size);
  }

  ButtonProperties props = new_button_properties(QString());
};

TEST_F(ButtonCaptionTest, PlacedByAlignmentInTheStateColour) {
  const QSize extent = caption_extent(props.Caption, props.Font, QImage(1, 1, QImage::Format_ARGB32));
  const ButtonFrame frame = Draw();
  EXPECT_EQ(frame.caption_box, QRect(place_item(align::kCenter, {80, 33}, extent, kCaptionMargin), extent));
  const QRect text = Ink(frame.image, 0);
  EXPECT_TRUE(!text.isEmpty() && frame.caption_box.contains(text));
  EXPECT_EQ(Ink(Draw(kHover).image, 0xFF0000), text);
  const ButtonFrame pressed = Draw(kPressed);
  EXPECT_EQ(pressed.caption_box, frame.caption_box.translated(1, 1));
  EXPECT_EQ(Ink(pressed.image, 255), text.translated(1, 1));
  // The far sides keep a margin of five; the near ones divide the free space by the whole side.
  props.CaptionAlignment = align::kLeft;
  EXPECT_EQ(Draw().caption_box.left(), round_half_even((80.0 - extent.width()) / 80 + 5));
  props.CaptionAlignment = align::kRight;
  EXPECT_EQ(Draw().caption_box.right(), 80 - 5 - 1);
  props.CaptionAlignment = align::kBottom;
  EXPECT_EQ(Draw().caption_box.bottom(), 33 - 5 - 1);
  props.CaptionAlignment = align::kTop;
  EXPECT_EQ(Draw().caption_box.top(), round_half_even((33.0 - extent.height()) / 33 + 5));
  props.Caption.clear();
  EXPECT_TRUE(Draw().caption_box.isEmpty());
}

// The shadows lie one pixel up-left or down-right of the text, the outline one pixel all round.
TEST_F(ButtonCaptionTest, EffectsDrawInTheEffectColour) {
  props.EffectColor = 0x00FF00;
  EXPECT_TRUE(Ink(Draw().image, 0x00FF00).isEmpty());
  const QRect text = Ink(Draw().image, 0);
  props.CaptionEffect = effect::kShadowUpLeft;
  EXPECT_EQ(Ink(Draw().image, 0x00FF00).topLeft(), text.topLeft() - QPoint(1, 1));
  props.CaptionEffect = effect::kShadowDownRight;
  EXPECT_EQ(Ink(Draw().image, 0x00FF00).bottomRight(), text.bottomRight() + QPoint(1, 1));
  props.CaptionEffect = effect::kOutline;
  EXPECT_EQ(Ink(Draw().image, 0x00FF00), text.adjusted(-1, -1, 1, 1));
  EXPECT_EQ(Ink(Draw().image, 0), text);
}

TEST_F(ButtonCaptionTest, DisabledTextIsEmbossedExceptForStyles4To8) {
  props.Enabled = false;
  const ButtonFrame style1 = Draw();
  const QRect area = style1.caption_box.adjusted(0, 0, 1, 1);
  EXPECT_GT(CountColor(style1.image, area, kSysButtonShadow), 10);
  EXPECT_GT(CountColor(style1.image, area, kSys3DHighlight), 0);
  EXPECT_EQ(CountColor(style1.image, area, 0), 0);
  props.ButtonStyle = 4;
  const ButtonFrame style4 = Draw();
  EXPECT_GT(CountColor(style4.image, area, kSysButtonShadow), 10);
  EXPECT_EQ(CountColor(style4.image, area, kSys3DHighlight), 0);
}

TEST_F(ButtonCaptionTest, GradientCaptionRunsBetweenTheTwoStops) {
  props.Caption = "MMMMMM";
  props.ForeColor = 0xFF0000;       // blue
  props.ForeColorHover = 0x0000FF;  // red
  props.CaptionStyle = 1;           // along x, from the state's colour to ForeColor
  const ButtonFrame frame = Draw(kHover, {120, 40});
  // The first and the last inked column of the box.
  std::vector<QRgb> columns;
  for (int x = frame.caption_box.left(); x <= frame.caption_box.right(); ++x) {
    for (int y = frame.caption_box.top(); y <= frame.caption_box.bottom(); ++y) {
      if (frame.image.pixel(x, y) == to_rgb(kFace)) continue;
      columns.push_back(frame.image.pixel(x, y));
      break;
    }
  }
  ASSERT_GT(columns.size(), 2u);
  EXPECT_GT(qRed(columns.front()), qBlue(columns.front()));
  EXPECT_GT(qBlue(columns.back()), qRed(columns.back()));
  // Along y the stops are the other way round: ForeColor on top.
  props.CaptionStyle = 2;
  const ButtonFrame vertical = Draw(kHover, {120, 40});
  EXPECT_EQ(CountColor(vertical.image, vertical.caption_box, 0x0000FF), 0);
}

TEST(ButtonCaptionRecolor, ChangesOnlyTheCaptionColour) {
  QImage image(3, 1, QImage::Format_ARGB32);
  image.fill(qRgb(0, 0, 0));
  image.setPixel(1, 0, qRgb(9, 9, 9));
  recolor_gradient(image, QRect(0, 0, 3, 1), qRgb(0, 0, 0), qRgb(255, 0, 0), qRgb(0, 0, 255), true);
  EXPECT_EQ(image.pixel(0, 0), qRgb(255, 0, 0));
  EXPECT_EQ(image.pixel(1, 0), qRgb(9, 9, 9));
  EXPECT_EQ(image.pixel(2, 0), qRgb(0, 0, 255));
}

}  // namespace
}  // namespace velmora::controls
