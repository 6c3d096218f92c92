// Saving and restoring the controls: the property bag and its text form, the colour values, and
// the button's and label's keys, defaults and round trips.
#include "controls/property_bag.h"

#include <gtest/gtest.h>

#include "controls/button_persistence.h"
#include "controls/button_presets.h"
#include "controls/label_persistence.h"
#include "controls/ole_color.h"

namespace velmora::controls {
namespace {

// Keys match without regard to case and keep their first place; a writer's default and a null
// picture are left out.
TEST(PropertyBag, KeysAndDefaults) {
  PropertyBag bag;
  bag.write("ButtonShape", qint64(3));
  bag.write("Caption", QString("Go"));
  bag.write("BUTTONSHAPE", qint64(5));
  bag.write("A", qint64(1), qint64(1));
  bag.write("B", true, true);
  bag.write("C", QImage(), QImage());
  bag.write("D", qint64(2), qint64(1));
  EXPECT_EQ(bag.keys(), (QStringList{"ButtonShape", "Caption", "D"}));
  EXPECT_EQ(bag.read_int("buttonshape", 0), 5);
}

// Integers and booleans read as each other (True is -1); other kinds fall back.
TEST(PropertyBag, TypedReadsConvertOrFallBack) {
  PropertyBag bag;
  bag.write("Number", qint64(-1));
  bag.write("Flag", true);
  bag.write("Text", QString("x"));
  EXPECT_EQ(bag.read_int("Missing", 7), 7);
  EXPECT_TRUE(bag.read_bool("Number", false));
  EXPECT_EQ(bag.read_int("Flag", 0), -1);
  EXPECT_EQ(bag.read_int("Text", 9), 9);
  EXPECT_EQ(bag.read_string("Number", "fallback"), "fallback");
  EXPECT_TRUE(bag.read_image("Text").isNull());
}

// Every kind reads back from the text form and writes the same text again.
TEST(PropertyBag, TextRoundTripKeepsEveryKind) {
  PropertyBag bag;
  QImage picture(3, 2, QImage::Format_ARGB32);
  picture.fill(qRgba(10, 20, 30, 255));
  picture.setPixel(1, 1, qRgba(200, 100, 50, 128));
  QFont font("DejaVu Sans", 11);
  font.setBold(true);
  bag.write("BackColor", qint64(0x8000000F));
  bag.write("FocusRect", false);
  bag.write("Caption", QString("Say \"hi\"\\\nnext\tline"));
  bag.write("Picture", picture);
  bag.write("Font", font);
  const QString text = bag.to_text();
  EXPECT_TRUE(
      text.startsWith("BackColor = 2147483663\nFocusRect = False\nCaption = \"Say \\\"hi\\\"\\\\\\nnext\\tline\"\n"));
  const PropertyBagParse parsed = parse_property_bag(text);
  ASSERT_TRUE(parsed.ok()) << parsed.error.toStdString();
  EXPECT_EQ(parsed.bag.to_text(), text);
  EXPECT_EQ(parsed.bag.read_image("Picture").convertToFormat(QImage::Format_ARGB32), picture);
  EXPECT_EQ(parsed.bag.read_font("Font", QFont()), font);
}

TEST(PropertyBag, ParseStopsAtTheFirstBadLine) {
  const PropertyBagParse parsed = parse_property_bag("ButtonShape = 2\n\nCaption = \"open\nButtonStyle = 3\n");
  EXPECT_FALSE(parsed.ok());
  EXPECT_EQ(parsed.error_line, 3);
  EXPECT_EQ(parsed.bag.keys(), QStringList{"ButtonShape"});
  EXPECT_FALSE(parse_property_bag("= 4").ok());
  EXPECT_FALSE(parse_property_bag("Value = maybe").ok());
  EXPECT_FALSE(parse_property_bag("Caption = \"a\\\"").ok());  // the backslash takes the closing quote
  EXPECT_TRUE(parse_property_bag("Value = true\n  \n").ok());
}

TEST(OleColor, TranslatesSystemColoursThroughTheFixedPalette) {
  EXPECT_EQ(translate_color(0x8000000F), ole_rgb(240, 240, 240));
  EXPECT_EQ(translate_color(0x80000010), ole_rgb(160, 160, 160));
  EXPECT_EQ(translate_color(0x80000014), ole_rgb(255, 255, 255));
  EXPECT_EQ(translate_color(0x80000015), ole_rgb(105, 105, 105));
  EXPECT_EQ(translate_color(0x80000011), ole_rgb(109, 109, 109));
  EXPECT_EQ(translate_color(0x8000001E), ole_rgb(240, 240, 240));  // the last of the palette
  EXPECT_EQ(translate_color(0x8000001F), 0u);                      // the first index beyond it
  EXPECT_EQ(translate_color(0x01336699), 0x336699u);
  EXPECT_EQ(to_rgb(0x00FF8040), qRgb(0x40, 0x80, 0xFF));  // bytes are red, green, blue from the low end
  EXPECT_EQ(ole_from_qcolor(QColor(0x40, 0x80, 0xFF)), 0x00FF8040u);
}

QFont HostFont() {
  return QFont("DejaVu Sans", 9);
}

TEST(ButtonPersistence, OnlyChangedValuesAreWrittenAndAnEmptyBagReadsTheDefaults) {
  ButtonProperties props = new_button_properties("Button1");
  props.Font = HostFont();
  PropertyBag bag;
  write_button_properties(props, "Button1", HostFont(), bag);
  EXPECT_TRUE(bag.keys().isEmpty()) << bag.to_text().toStdString();
  props.Font = new_button_font();
  props.MousePointer = 99;
  props.Caption = "Start!";
  props.ButtonShape = 3;
  props.BackColorHover = 0x123456;
  write_button_properties(props, "Button1", HostFont(), bag);
  EXPECT_EQ(bag.keys(), (QStringList{"ButtonShape", "BackColorHover", "Caption", "Font", "MousePointer"}));
  // What an empty bag reads is what writing leaves out: the caption is the control's own name.
  bag = PropertyBag();
  write_button_properties(read_button_properties(PropertyBag(), "cmdNext", HostFont()), "cmdNext", HostFont(), bag);
  EXPECT_TRUE(bag.keys().isEmpty()) << bag.to_text().toStdString();
}

// A stored button with every key away from its default, and a style and a theme whose presets
// would rewrite the colours if reading ran them: reading and writing again gives the same text.
TEST(ButtonPersistence, EveryPropertyRoundTripsThroughTextWithoutThePresets) {
  QImage picture(4, 4, QImage::Format_ARGB32);
  picture.fill(qRgba(1, 2, 3, 255));
  PropertyBag bag;
  for (int i = 0; i < 20; ++i) bag.write(button_property_keys()[i], qint64(100 + i));  // numbers and colours
  bag.write("ButtonStyle", qint64(6));
  bag.write("ButtonTheme", qint64(3));
  bag.write("Caption", QString("Next >>"));
  bag.write("FocusRect", false);
  bag.write("Value", true);
  bag.write("HandPointer", true);
  bag.write("Picture", picture);
  bag.write("PictureGray", true);
  bag.write("Enabled", false);
  bag.write("Font", QFont("DejaVu Serif", 12));
  bag.write("MouseIcon", picture);
  bag.write("MousePointer", qint64(99));
  const PropertyBagParse parsed = parse_property_bag(bag.to_text());
  ASSERT_TRUE(parsed.ok());
  PropertyBag again;
  write_button_properties(read_button_properties(parsed.bag, "Button1", HostFont()), "Button1", HostFont(), again);
  EXPECT_EQ(again.keys().join(','),
            "ButtonShape,ButtonStyle,ButtonStyleColors,ButtonTheme,ButtonType,CaptionAlignment,"
            "CaptionEffect,CaptionStyle,DropDown,PictureAlignment,BackColor,BackColorPressed,"
            "BackColorHover,BorderColor,BorderColorPressed,BorderColorHover,ForeColor,"
            "ForeColorPressed,ForeColorHover,EffectColor,Caption,FocusRect,Value,HandPointer,"
            "Picture,PictureGray,Enabled,Font,MouseIcon,MousePointer");
  EXPECT_EQ(again.to_text(), bag.to_text());
}

// The label writes its doubled keys once; the fore colour kept is the one set, not the gray.
TEST(LabelPersistence, KeysAndRoundTrip) {
  LabelProperties p;
  p.Caption = "Output &folder";
  p.Alignment = 2;
  p.RightToLeft = p.WordWrap = p.PathEllipsis = true;
  set_label_fore_color(p, 0x123456);
  set_label_enabled(p, false);
  p.Font = QFont("DejaVu Serif", 12);
  p.BackColor = 0x654321;
  p.BackStyle = kBackTransparent;
  p.BorderStyle = kBorderFixedSingle;
  p.AutoSize = p.UseMnemonic = false;
  p.MousePointer = 3;
  p.MouseIcon = QImage(2, 2, QImage::Format_ARGB32);
  p.MouseIcon.fill(qRgba(9, 9, 9, 255));
  PropertyBag bag;
  write_label_properties(p, "lbl", HostFont(), bag);
  EXPECT_EQ(bag.keys().join(','),
            "Caption,Alignment,RightToLeft,Enabled,ForeColor,Font,BackColor,BorderStyle,BackStyle,AutoSize,"
            "WordWrap,MousePointer,MouseIcon,PathEllipsis,UseMnemonic");
  const PropertyBagParse parsed = parse_property_bag(bag.to_text());
  ASSERT_TRUE(parsed.ok());
  const LabelProperties r = read_label_properties(parsed.bag, "lbl", HostFont());
  PropertyBag again;
  write_label_properties(r, "lbl", HostFont(), again);
  EXPECT_EQ(again.to_text(), bag.to_text());
  EXPECT_FALSE(r.Enabled);
  EXPECT_EQ(r.EnabledForeColor, 0x123456u);
}

}  // namespace
}  // namespace velmora::controls
