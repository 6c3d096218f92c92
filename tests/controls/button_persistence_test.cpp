#include "controls/button_persistence.h"

#include <gtest/gtest.h>

#include "controls/button_presets.h"

namespace velmora::controls {
namespace {

QFont HostFont() {
  return QFont("DejaVu Sans", 9);
}

TEST(ButtonPersistence, KeysInTheirOrder) {
  EXPECT_EQ(button_property_keys().join(','),
            "ButtonShape,ButtonStyle,ButtonStyleColors,ButtonTheme,ButtonType,CaptionAlignment,"
            "CaptionEffect,CaptionStyle,DropDown,PictureAlignment,BackColor,BackColorPressed,"
            "BackColorHover,BorderColor,BorderColorPressed,BorderColorHover,ForeColor,"
            "ForeColorPressed,ForeColorHover,EffectColor,Caption,FocusRect,Value,HandPointer,"
            "Picture,PictureGray,Enabled,Font,MouseIcon,MousePointer");
}

TEST(ButtonPersistence, DefaultsWriteNothing) {
  ButtonProperties props = new_button_properties("Button1");
  props.Font = HostFont();
  PropertyBag bag;
  write_button_properties(props, "Button1", HostFont(), bag);
  EXPECT_TRUE(bag.keys().isEmpty()) << bag.to_text().toStdString();
}

TEST(ButtonPersistence, ChangedValuesAreWrittenInKeyOrder) {
  ButtonProperties props = new_button_properties("Button1");
  props.MousePointer = 99;
  props.Caption = "Start!";
  props.ButtonShape = 3;
  props.BackColorHover = 0x123456;
  PropertyBag bag;
  write_button_properties(props, "Button1", HostFont(), bag);
  EXPECT_EQ(bag.keys(), (QStringList{"ButtonShape", "BackColorHover", "Caption", "Font", "MousePointer"}));
}

TEST(ButtonPersistence, UnsetBagReadsDefaultsWithOwnNameAndHostFont) {
  const ButtonProperties p = read_button_properties(PropertyBag(), "cmdNext", HostFont());
  EXPECT_EQ(p.Caption, "cmdNext");
  EXPECT_EQ(p.Font, HostFont());
  EXPECT_EQ(p.ButtonStyle, 1);
  EXPECT_EQ(p.ForeColorHover, 0xFF0000u);
  EXPECT_TRUE(p.FocusRect);
}

TEST(ButtonPersistence, ReadingDoesNotRunThePresets) {
  PropertyBag bag;
  bag.write("ButtonStyle", qint64(6));
  bag.write("ButtonStyleColors", qint64(5));
  bag.write("ButtonTheme", qint64(3));
  bag.write("BackColor", qint64(0x0000FF));
  bag.write("BorderColor", qint64(0x00FF00));
  const ButtonProperties p = read_button_properties(bag, "b", HostFont());
  EXPECT_EQ(p.ButtonStyle, 6);
  EXPECT_EQ(p.ButtonStyleColors, 5);
  EXPECT_EQ(p.ButtonTheme, 3);
  EXPECT_EQ(p.BackColor, 0x0000FFu);
  EXPECT_EQ(p.BackColorHover, 0x8000000Fu);
  EXPECT_EQ(p.BorderColor, 0x00FF00u);
}

TEST(ButtonPersistence, KeysAreReadWithoutRegardToCase) {
  const PropertyBagParse parsed = parse_property_bag("buttonshape = 8\nCAPTION = \"Up\"\n");
  ASSERT_TRUE(parsed.ok());
  const ButtonProperties p = read_button_properties(parsed.bag, "b", HostFont());
  EXPECT_EQ(p.ButtonShape, 8);
  EXPECT_EQ(p.Caption, "Up");
}

TEST(ButtonPersistence, EveryPropertyRoundTripsThroughText) {
  ButtonProperties p = new_button_properties("Button1");
  p.ButtonShape = 9;
  apply_button_style(p, 7);
  apply_button_theme(p, 2);
  p.BorderColorPressed = 0x0D0E0F;
  p.ButtonStyleColors = 6;
  p.ButtonType = 1;
  p.CaptionAlignment = 4;
  p.CaptionEffect = 3;
  p.CaptionStyle = 2;
  p.DropDown = 2;
  p.PictureAlignment = 1;
  p.ForeColor = 0x010203;
  p.ForeColorPressed = 0x040506;
  p.ForeColorHover = 0x070809;
  p.EffectColor = 0x0A0B0C;
  p.Caption = "Next >>";
  p.FocusRect = false;
  p.Value = true;
  p.HandPointer = true;
  p.Picture = QImage(4, 4, QImage::Format_ARGB32);
  p.Picture.fill(qRgba(1, 2, 3, 255));
  p.PictureGray = true;
  p.Enabled = false;
  p.Font = QFont("DejaVu Serif", 12);
  p.MouseIcon = QImage(2, 2, QImage::Format_ARGB32);
  p.MouseIcon.fill(qRgba(9, 9, 9, 255));
  p.MousePointer = 99;
  PropertyBag bag;
  write_button_properties(p, "Button1", HostFont(), bag);
  const PropertyBagParse parsed = parse_property_bag(bag.to_text());
  ASSERT_TRUE(parsed.ok());
  const ButtonProperties r = read_button_properties(parsed.bag, "Button1", HostFont());
  // Every property differs from its default, so writing what was read must give the same text.
  PropertyBag again;
  write_button_properties(r, "Button1", HostFont(), again);
  EXPECT_EQ(again.keys().size(), button_property_keys().size());
  EXPECT_EQ(again.to_text(), bag.to_text());
  EXPECT_EQ(r.BackColorHover, p.BackColorHover);
  EXPECT_EQ(r.Picture.convertToFormat(QImage::Format_ARGB32), p.Picture);
  EXPECT_EQ(r.Font, p.Font);
}

}  // namespace
}  // namespace velmora::controls
