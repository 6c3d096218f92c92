#include "controls/button_persistence.h"

namespace velmora::controls {

const QStringList& button_property_keys() {
  static const QStringList keys = {
      QStringLiteral("ButtonShape"),
      QStringLiteral("ButtonStyle"),
      QStringLiteral("ButtonStyleColors"),
      QStringLiteral("ButtonTheme"),
      QStringLiteral("ButtonType"),
      QStringLiteral("CaptionAlignment"),
      QStringLiteral("CaptionEffect"),
      QStringLiteral("CaptionStyle"),
      QStringLiteral("DropDown"),
      QStringLiteral("PictureAlignment"),
      QStringLiteral("BackColor"),
      QStringLiteral("BackColorPressed"),
      QStringLiteral("BackColorHover"),
      QStringLiteral("BorderColor"),
      QStringLiteral("BorderColorPressed"),
      QStringLiteral("BorderColorHover"),
      QStringLiteral("ForeColor"),
      QStringLiteral("ForeColorPressed"),
      QStringLiteral("ForeColorHover"),
      QStringLiteral("EffectColor"),
      QStringLiteral("Caption"),
      QStringLiteral("FocusRect"),
      QStringLiteral("Value"),
      QStringLiteral("HandPointer"),
      QStringLiteral("Picture"),
      QStringLiteral("PictureGray"),
      QStringLiteral("Enabled"),
      QStringLiteral("Font"),
      QStringLiteral("MouseIcon"),
      QStringLiteral("MousePointer"),
  };
  return keys;
}

void write_button_properties(const ButtonProperties& props, const QString& own_name, const QFont& host_font,
                             PropertyBag& bag) {
  const ButtonProperties d;  // the defaults
  const QStringList& k = button_property_keys();
  auto number = [](auto v) { return PropertyBag::Value(static_cast<qint64>(v)); };
  bag.write(k[0], number(props.ButtonShape), number(d.ButtonShape));
  bag.write(k[1], number(props.ButtonStyle), number(d.ButtonStyle));
  bag.write(k[2], number(props.ButtonStyleColors), number(d.ButtonStyleColors));
  bag.write(k[3], number(props.ButtonTheme), number(d.ButtonTheme));
  bag.write(k[4], number(props.ButtonType), number(d.ButtonType));
  bag.write(k[5], number(props.CaptionAlignment), number(d.CaptionAlignment));
  bag.write(k[6], number(props.CaptionEffect), number(d.CaptionEffect));
  bag.write(k[7], number(props.CaptionStyle), number(d.CaptionStyle));
  bag.write(k[8], number(props.DropDown), number(d.DropDown));
  bag.write(k[9], number(props.PictureAlignment), number(d.PictureAlignment));
  bag.write(k[10], number(props.BackColor), number(d.BackColor));
  bag.write(k[11], number(props.BackColorPressed), number(d.BackColorPressed));
  bag.write(k[12], number(props.BackColorHover), number(d.BackColorHover));
  bag.write(k[13], number(props.BorderColor), number(d.BorderColor));
  bag.write(k[14], number(props.BorderColorPressed), number(d.BorderColorPressed));
  bag.write(k[15], number(props.BorderColorHover), number(d.BorderColorHover));
  bag.write(k[16], number(props.ForeColor), number(d.ForeColor));
  bag.write(k[17], number(props.ForeColorPressed), number(d.ForeColorPressed));
  bag.write(k[18], number(props.ForeColorHover), number(d.ForeColorHover));
  bag.write(k[19], number(props.EffectColor), number(d.EffectColor));
  bag.write(k[20], props.Caption, own_name);
  bag.write(k[21], props.FocusRect, d.FocusRect);
  bag.write(k[22], props.Value, d.Value);
  bag.write(k[23], props.HandPointer, d.HandPointer);
  bag.write(k[24], props.Picture, QImage());
  bag.write(k[25], props.PictureGray, d.PictureGray);
  bag.write(k[26], props.Enabled, d.Enabled);
  bag.write(k[27], props.Font, host_font);
  bag.write(k[28], props.MouseIcon, QImage());
  bag.write(k[29], number(props.MousePointer), number(d.MousePointer));
}

ButtonProperties read_button_properties(const PropertyBag& bag, const QString& own_name, const QFont& host_font) {
  ButtonProperties p;
  const QStringList& k = button_property_keys();
  auto i32 = [&](int i, std::int32_t fallback) { return static_cast<std::int32_t>(bag.read_int(k[i], fallback)); };
  auto color = [&](int i, OleColor fallback) { return static_cast<OleColor>(bag.read_int(k[i], fallback)); };
  p.ButtonShape = i32(0, p.ButtonShape);
  p.ButtonStyle = i32(1, p.ButtonStyle);
  p.ButtonStyleColors = i32(2, p.ButtonStyleColors);
  p.ButtonTheme = i32(3, p.ButtonTheme);
  p.ButtonType = i32(4, p.ButtonType);
  p.CaptionAlignment = i32(5, p.CaptionAlignment);
  p.CaptionEffect = i32(6, p.CaptionEffect);
  p.CaptionStyle = i32(7, p.CaptionStyle);
  p.DropDown = i32(8, p.DropDown);
  p.PictureAlignment = i32(9, p.PictureAlignment);
  p.BackColor = color(10, p.BackColor);
  p.BackColorPressed = color(11, p.BackColorPressed);
  p.BackColorHover = color(12, p.BackColorHover);
  p.BorderColor = color(13, p.BorderColor);
  p.BorderColorPressed = color(14, p.BorderColorPressed);
  p.BorderColorHover = color(15, p.BorderColorHover);
  p.ForeColor = color(16, p.ForeColor);
  p.ForeColorPressed = color(17, p.ForeColorPressed);
  p.ForeColorHover = color(18, p.ForeColorHover);
  p.EffectColor = color(19, p.EffectColor);
  p.Caption = bag.read_string(k[20], own_name);
  p.FocusRect = bag.read_bool(k[21], p.FocusRect);
  p.Value = bag.read_bool(k[22], p.Value);
  p.HandPointer = bag.read_bool(k[23], p.HandPointer);
  p.Picture = bag.read_image(k[24]);
  p.PictureGray = bag.read_bool(k[25], p.PictureGray);
  p.Enabled = bag.read_bool(k[26], p.Enabled);
  p.Font = bag.read_font(k[27], host_font);
  p.MouseIcon = bag.read_image(k[28]);
  p.MousePointer = static_cast<std::int16_t>(bag.read_int(k[29], p.MousePointer));
  return p;
}

}  // namespace velmora::controls
