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
using testing::PixelIs;

constexpr OleColor kRed = 0x0000FF;
constexpr OleColor kFace = kSysButtonFace;

// The square cases are drawn in ButtonPicture.PlacedByAlignment; these are the roundings.
TEST(ItemPlacement, TopAndLeftUseTheWholeSideAsDivisor) {
  EXPECT_EQ(place_item(align::kTop, {80, 33}, {30, 13}, 5), QPoint(25, 6));      // 20/33 + 5 = 5.61
  EXPECT_EQ(place_item(align::kCenter, {80, 33}, {31, 12}, 5), QPoint(24, 10));  // 24.5, 10.5
  EXPECT_EQ(place_item(7, {60, 60}, {10, 10}, 4), QPoint(0, 0));
}

ButtonProperties WithPicture(int alignment) {
  ButtonProperties props = new_button_properties(QString());
  props.Picture = QImage(10, 10, QImage::Format_ARGB32);
  props.Picture.fill(qRgb(255, 0, 0));
  props.PictureAlignment = alignment;
  return props;
}

QImage Draw(const ButtonProperties& props, ButtonState state = {}) {
  ButtonProperties copy = props;
  return redraw_button(copy, state, {60, 60}).image;
}

TEST(ButtonPicture, PlacedByAlignment) {
  const QImage top = Draw(WithPicture(align::kTop));
  EXPECT_TRUE(PixelIs(top, 25, 5, kRed));
  EXPECT_TRUE(PixelIs(top, 34, 14, kRed));
  EXPECT_TRUE(PixelIs(top, 25, 4, kFace));
  const QImage left = Draw(WithPicture(align::kLeft));
  EXPECT_TRUE(PixelIs(left, 5, 25, kRed));
  EXPECT_TRUE(PixelIs(left, 4, 25, kFace));
  const QImage right = Draw(WithPicture(align::kRight));
  EXPECT_TRUE(PixelIs(right, 54, 25, kRed));
  EXPECT_TRUE(PixelIs(right, 55, 25, kFace));
  const QImage bottom = Draw(WithPicture(align::kBottom));
  EXPECT_TRUE(PixelIs(bottom, 25, 54, kRed));
  EXPECT_TRUE(PixelIs(bottom, 25, 55, kFace));
}

TEST(ButtonPicture, PressedMovesOnePixel) {
  const QImage pressed = Draw(WithPicture(align::kCenter), {true, true, false});
  EXPECT_TRUE(PixelIs(pressed, 25, 25, kSysButtonFace));
  EXPECT_TRUE(PixelIs(pressed, 26, 26, kRed));
  EXPECT_TRUE(PixelIs(pressed, 35, 35, kRed));
}

TEST(ButtonPicture, Style5HoverDrawsItTwice) {
  ButtonProperties props = WithPicture(align::kCenter);
  props.ButtonStyle = 5;
  EXPECT_TRUE(PixelIs(Draw(props, {false, true, false}), 24, 24, kRed));
  props.ButtonStyle = 1;
  EXPECT_FALSE(PixelIs(Draw(props, {false, true, false}), 24, 24, kRed));
}

TEST(ButtonPicture, GrayOnlyInTheNormalStateOrWhenDisabled) {
  ButtonProperties props = WithPicture(align::kCenter);
  props.PictureGray = true;
  const int gray = gray_level(qRgb(255, 0, 0));
  EXPECT_EQ(gray, 76);
  const OleColor gray_color = ole_rgb(gray, gray, gray);
  EXPECT_TRUE(PixelIs(Draw(props), 25, 25, gray_color));
  EXPECT_TRUE(PixelIs(Draw(props), 24, 24, kFace));  // the face matches BackColor and stays
  EXPECT_TRUE(PixelIs(Draw(props, {false, true, false}), 25, 25, kRed));
  EXPECT_TRUE(PixelIs(Draw(props, {true, true, false}), 26, 26, kRed));
  props.PictureGray = false;
  props.Enabled = false;
  const QImage disabled = Draw(props, {true, true, false});
  EXPECT_TRUE(PixelIs(disabled, 25, 25, gray_color));
  EXPECT_TRUE(PixelIs(disabled, 34, 34, gray_color));
}

TEST(ButtonPicture, GrayBoxRewritesEveryOtherColour) {
  QImage image(4, 1, QImage::Format_ARGB32);
  image.setPixel(0, 0, qRgb(1, 2, 3));
  image.setPixel(1, 0, qRgb(0, 0, 255));
  image.setPixel(2, 0, qRgba(0, 255, 0, 100));
  image.setPixel(3, 0, qRgb(0, 0, 255));
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
  QSize Extent() const { return caption_extent(props.Caption, props.Font, QImage(1, 1, QImage::Format_ARGB32)); }

  ButtonProperties props = new_button_properties(QString());
};

TEST_F(ButtonCaptionTest, CentredInTheForeColour) {
  const QSize extent = Extent();
  const ButtonFrame frame = Draw();
  const QPoint at = place_item(align::kCenter, {80, 33}, extent, kCaptionMargin);
  EXPECT_EQ(frame.caption_box, QRect(at, extent));
  EXPECT_GT(CountColor(frame.image, frame.caption_box, 0), 10);
  EXPECT_EQ(CountColor(frame.image, QRect(0, 0, 80, 33), 0), CountColor(frame.image, frame.caption_box, 0));
}

TEST_F(ButtonCaptionTest, EmptyCaptionIsSkipped) {
  props.Caption.clear();
  EXPECT_TRUE(Draw().caption_box.isEmpty());
}

TEST_F(ButtonCaptionTest, AlignmentsUseAMarginOfFive) {
  const QSize extent = Extent();
  props.CaptionAlignment = align::kLeft;
  EXPECT_EQ(Draw().caption_box.left(), round_half_even((80.0 - extent.width()) / 80 + 5));
  props.CaptionAlignment = align::kRight;
  EXPECT_EQ(Draw().caption_box.right(), 80 - 5 - 1);
  props.CaptionAlignment = align::kBottom;
  EXPECT_EQ(Draw().caption_box.bottom(), 33 - 5 - 1);
  props.CaptionAlignment = align::kTop;
  EXPECT_EQ(Draw().caption_box.top(), round_half_even((33.0 - extent.height()) / 33 + 5));
}

TEST_F(ButtonCaptionTest, StateColoursAndPressedShift) {
  const QRect normal_box = Draw().caption_box;
  const ButtonFrame hover = Draw({false, true, false});
  EXPECT_GT(CountColor(hover.image, hover.caption_box, 0xFF0000), 10);
  const ButtonFrame pressed = Draw({true, true, false});
  EXPECT_EQ(pressed.caption_box, normal_box.translated(1, 1));
  EXPECT_GT(CountColor(pressed.image, pressed.caption_box, 255), 10);
}

TEST_F(ButtonCaptionTest, EffectsDrawInTheEffectColour) {
  props.EffectColor = 0x00FF00;
  EXPECT_EQ(CountColor(Draw().image, QRect(0, 0, 80, 33), 0x00FF00), 0);
  for (int effect = 1; effect <= 3; ++effect) {
    props.CaptionEffect = effect;
    const ButtonFrame frame = Draw();
    EXPECT_GT(CountColor(frame.image, frame.caption_box.adjusted(-1, -1, 1, 1), 0x00FF00), 0) << "effect " << effect;
  }
  // What stays visible of a shadow lies on its side of the strokes.
  auto centroid = [](const QImage& image, const QRect& box, OleColor color) {
    QPointF sum;
    int count = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
      for (int x = box.left(); x <= box.right(); ++x) {
        if (image.pixel(x, y) == to_rgb(color)) {
          sum += QPointF(x, y);
          ++count;
        }
      }
    }
    return count > 0 ? sum / count : QPointF();
  };
  for (int effect : {1, 2}) {
    props.CaptionEffect = effect;
    const ButtonFrame frame = Draw();
    const QRect area = frame.caption_box.adjusted(-1, -1, 1, 1);
    const QPointF shadow = centroid(frame.image, area, 0x00FF00);
    const QPointF text = centroid(frame.image, area, 0);
    if (effect == 1) {
      EXPECT_LT(shadow.x(), text.x());
      EXPECT_LT(shadow.y(), text.y());
    } else {
      EXPECT_GT(shadow.x(), text.x());
      EXPECT_GT(shadow.y(), text.y());
    }
  }
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
  const ButtonFrame frame = Draw({false, true, false}, {120, 40});
  const QRect box = frame.caption_box;
  int first = -1;
  int last = -1;
  for (int x = box.left(); x <= box.right(); ++x) {
    for (int y = box.top(); y <= box.bottom(); ++y) {
      if (frame.image.pixel(x, y) != to_rgb(kFace)) {
        if (first < 0) first = x;
        last = x;
      }
    }
  }
  ASSERT_GT(last, first);
  auto column_color = [&](int x) {
    for (int y = box.top(); y <= box.bottom(); ++y) {
      if (frame.image.pixel(x, y) != to_rgb(kFace)) return frame.image.pixel(x, y);
    }
    return QRgb(0);
  };
  EXPECT_GT(qRed(column_color(first)), qBlue(column_color(first)));
  EXPECT_GT(qBlue(column_color(last)), qRed(column_color(last)));
  // Along y the stops are the other way round: ForeColor on top.
  props.CaptionStyle = 2;
  const ButtonFrame vertical = Draw({false, true, false}, {120, 40});
  EXPECT_EQ(CountColor(vertical.image, vertical.caption_box, 0x0000FF), 0);
}

TEST(ButtonCaptionRecolor, ChangesOnlyTheCaptionColour) {
  QImage image(3, 1, QImage::Format_ARGB32);
  image.setPixel(0, 0, qRgb(0, 0, 0));
  image.setPixel(1, 0, qRgb(9, 9, 9));
  image.setPixel(2, 0, qRgb(0, 0, 0));
  recolor_gradient(image, QRect(0, 0, 3, 1), qRgb(0, 0, 0), qRgb(255, 0, 0), qRgb(0, 0, 255), true);
  EXPECT_EQ(image.pixel(0, 0), qRgb(255, 0, 0));
  EXPECT_EQ(image.pixel(1, 0), qRgb(9, 9, 9));
  EXPECT_EQ(image.pixel(2, 0), qRgb(0, 0, 255));
}

}  // namespace
}  // namespace velmora::controls
