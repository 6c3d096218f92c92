// Picture and caption of the skinned button: placement by alignment, the pressed shift, the gray
// picture, caption effects, disabled text and gradient captions.
#include <gtest/gtest.h>

#include "controls/button_caption.h"
#include "controls/button_layout.h"
#include "controls/button_picture.h"
#include "controls/button_renderer.h"
#include "controls/shape_geometry.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::CountColor;
using testing::ExpectPixels;

constexpr OleColor kRed = 0x0000FF;
constexpr OleColor kFace = kSysButtonFace;
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

TEST(ButtonPicture, GrayOnlyInTheNormalStateOrWhenDisabled) {
  EXPECT_EQ(gray_level(qRgb(255, 0, 0)), 76);
  const OleColor gray = ole_rgb(76, 76, 76);
  // The face matches BackColor and stays.
  ExpectPixels(DrawPicture(align::kCenter, kNormal, true), {{25, 25, gray}, {24, 24, kFace}});
  ExpectPixels(DrawPicture(align::kCenter, kHover, true), {{25, 25, kRed}});
  ExpectPixels(DrawPicture(align::kCenter, kPressed, true), {{26, 26, kRed}});
  ExpectPixels(DrawPicture(align::kCenter, kPressed, false, false), {{25, 25, gray}, {34, 34, gray}});
}

TEST(ButtonPicture, GrayBoxRewritesEveryOtherColourKeepingAlpha) {
  QImage image(4, 1, QImage::Format_ARGB32);
  const QRgb pixels[] = {qRgb(1, 2, 3), qRgb(0, 0, 255), qRgba(0, 255, 0, 100), qRgb(0, 0, 255)};
  for (int x = 0; x < 4; ++x) image.setPixel(x, 0, pixels[x]);
  gray_box(image, QRect(0, 0, 3, 1), qRgb(1, 2, 3));
  EXPECT_EQ(image.pixel(0, 0), qRgb(1, 2, 3));
  EXPECT_EQ(image.pixel(1, 0), qRgb(29, 29, 29));
  EXPECT_EQ(image.pixel(2, 0), qRgba(150, 150, 150, 100));
  EXPECT_EQ(image.pixel(3, 0), qRgb(0, 0, 255));  // outside the box
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
  EXPECT_GT(CountColor(frame.image, frame.caption_box, 0), 10);
  EXPECT_EQ(CountColor(frame.image, QRect(0, 0, 80, 33), 0), CountColor(frame.image, frame.caption_box, 0));
  const ButtonFrame hover = Draw(kHover);
  EXPECT_GT(CountColor(hover.image, hover.caption_box, 0xFF0000), 10);
  const ButtonFrame pressed = Draw(kPressed);
  EXPECT_EQ(pressed.caption_box, frame.caption_box.translated(1, 1));
  EXPECT_GT(CountColor(pressed.image, pressed.caption_box, 255), 10);
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

// The bounding box of the pixels with exactly the colour.
QRect Ink(const QImage& image, OleColor color) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == to_rgb(color)) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
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
