#include "controls/label_persistence.h"

namespace velmora::controls {

const QStringList& label_property_keys() {
  static const QStringList keys = {
      QStringLiteral("Caption"),      QStringLiteral("Alignment"),    QStringLiteral("RightToLeft"),
      QStringLiteral("Enabled"),      QStringLiteral("ForeColor"),    QStringLiteral("Font"),
      QStringLiteral("BackColor"),    QStringLiteral("BorderStyle"),  QStringLiteral("BackStyle"),
      QStringLiteral("BackStyle"),    QStringLiteral("BorderStyle"),  QStringLiteral("AutoSize"),
      QStringLiteral("WordWrap"),     QStringLiteral("MousePointer"), QStringLiteral("MouseIcon"),
      QStringLiteral("MousePointer"), QStringLiteral("PathEllipsis"), QStringLiteral("UseMnemonic"),
  };
  return keys;
}

void write_label_properties(const LabelProperties& props, const QString& own_name, const QFont& host_font,
                            PropertyBag& bag) {
  const LabelProperties d;
  const QStringList& k = label_property_keys();
  auto number = [](auto v) { return PropertyBag::Value(static_cast<qint64>(v)); };
  bag.write(k[0], props.Caption, own_name);
  bag.write(k[1], number(props.Alignment), number(d.Alignment));
  bag.write(k[2], props.RightToLeft, d.RightToLeft);
  bag.write(k[3], props.Enabled, d.Enabled);
  bag.write(k[4], number(props.EnabledForeColor), number(d.ForeColor));
  bag.write(k[5], props.Font, host_font);
  bag.write(k[6], number(props.BackColor), number(d.BackColor));
  bag.write(k[7], number(props.BorderStyle), number(d.BorderStyle));
  bag.write(k[8], number(props.BackStyle), number(d.BackStyle));
  bag.write(k[9], number(props.BackStyle), number(d.BackStyle));
  bag.write(k[10], number(props.BorderStyle), number(d.BorderStyle));
  bag.write(k[11], props.AutoSize, d.AutoSize);
  bag.write(k[12], props.WordWrap, d.WordWrap);
  bag.write(k[13], number(props.MousePointer), number(d.MousePointer));
  bag.write(k[14], props.MouseIcon, QImage());
  bag.write(k[15], number(props.MousePointer), number(d.MousePointer));
  bag.write(k[16], props.PathEllipsis, d.PathEllipsis);
  bag.write(k[17], props.UseMnemonic, d.UseMnemonic);
}

LabelProperties read_label_properties(const PropertyBag& bag, const QString& own_name, const QFont& host_font) {
  LabelProperties p;
  const QStringList& k = label_property_keys();
  auto i32 = [&](int i, std::int32_t fallback) { return static_cast<std::int32_t>(bag.read_int(k[i], fallback)); };
  p.Caption = bag.read_string(k[0], own_name);
  p.Alignment = i32(1, p.Alignment);
  p.RightToLeft = bag.read_bool(k[2], p.RightToLeft);
  p.Enabled = bag.read_bool(k[3], p.Enabled);
  set_label_fore_color(p, static_cast<OleColor>(bag.read_int(k[4], p.ForeColor)));
  p.Font = bag.read_font(k[5], host_font);
  p.BackColor = static_cast<OleColor>(bag.read_int(k[6], p.BackColor));
  // The first reads of the doubled keys set the surface, the second the control's own fields;
  // here the widget is its own surface, so both land in the same field.
  p.BorderStyle = i32(7, p.BorderStyle);
  p.BackStyle = i32(8, p.BackStyle);
  p.BackStyle = i32(9, p.BackStyle);
  p.BorderStyle = i32(10, p.BorderStyle);
  p.AutoSize = bag.read_bool(k[11], p.AutoSize);
  p.WordWrap = bag.read_bool(k[12], p.WordWrap);
  p.MousePointer = i32(13, p.MousePointer);
  p.MouseIcon = bag.read_image(k[14]);
  p.MousePointer = i32(15, p.MousePointer);
  p.PathEllipsis = bag.read_bool(k[16], p.PathEllipsis);
  p.UseMnemonic = bag.read_bool(k[17], p.UseMnemonic);
  return p;
}

}  // namespace velmora::controls
