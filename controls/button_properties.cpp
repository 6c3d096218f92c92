#include "controls/button_properties.h"

namespace velmora::controls {

QFont new_button_font() {
  QFont font(QStringLiteral("Tahoma"));
  font.setPointSize(8);
  return font;
}

ButtonProperties new_button_properties(const QString& own_name) {
  ButtonProperties props;
  props.Caption = own_name;
  props.Font = new_button_font();
  return props;
}

}  // namespace velmora::controls
