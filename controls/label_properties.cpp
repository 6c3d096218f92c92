#include "controls/label_properties.h"

namespace velmora::controls {

LabelProperties new_label_properties(const QString& own_name, OleColor host_back, OleColor host_fore,
                                     const QFont& host_font) {
  LabelProperties props;
  props.BackColor = host_back;
  props.BackStyle = kBackTransparent;
  props.Caption = own_name;
  props.Font = host_font;
  set_label_fore_color(props, host_fore);
  return props;
}

void set_label_fore_color(LabelProperties& props, OleColor color) {
  props.ForeColor = color;
  props.EnabledForeColor = color;
}

void set_label_enabled(LabelProperties& props, bool enabled) {
  props.Enabled = enabled;
  props.ForeColor = enabled ? props.EnabledForeColor : kSysGrayText;
}

}  // namespace velmora::controls
