#include "controls/button_look.h"

namespace velmora::controls {

ButtonLook make_look(const ButtonState& state, bool enabled) {
  return {enabled, state.Pressed, state.Hover, state.HasFocus};
}

OleColor state_back_color(const ButtonProperties& props, const ButtonLook& look) {
  if (look.pressed) return props.BackColorPressed;
  return look.hover ? props.BackColorHover : props.BackColor;
}

OleColor state_border_color(const ButtonProperties& props, const ButtonLook& look) {
  if (look.pressed) return props.BorderColorPressed;
  return look.hover ? props.BorderColorHover : props.BorderColor;
}

OleColor state_fore_color(const ButtonProperties& props, const ButtonLook& look) {
  if (look.pressed) return props.ForeColorPressed;
  return look.hover ? props.ForeColorHover : props.ForeColor;
}

GradientPair state_gradient(const ButtonProperties& props, const ButtonLook& look) {
  return {props.BackColor, state_back_color(props, look)};
}

OleColor surface_back_color(const ButtonProperties& props, const ButtonLook& look) {
  return props.ButtonStyleColors == 1 ? state_back_color(props, look) : kSysButtonFace;
}

bool focus_shown(const ButtonProperties& props, const ButtonLook& look) {
  return props.FocusRect && look.has_focus;
}

void apply_style_borders(ButtonProperties& props, bool enabled) {
  auto set = [&props](OleColor normal, OleColor hover, OleColor pressed) {
    props.BorderColor = normal;
    props.BorderColorHover = hover;
    props.BorderColorPressed = pressed;
  };
  const bool disabled_face = !enabled && props.ButtonStyleColors != 0;
  switch (props.ButtonStyle) {
    case 1:
    case 2: set(kSys3DDarkShadow, kSys3DDarkShadow, kSys3DHighlight); break;
    case 3: set(props.BackColor, kSys3DDarkShadow, kSys3DHighlight); break;
    case 4: set(kSysButtonShadow, kSysButtonShadow, kSysButtonShadow); break;
    case 5: set(kSysButtonFace, 0, 0); break;
    case 6:
      set(0, 0, 0);
      if (disabled_face) props.BorderColor = 0x8DABAB;
      break;
    case 7:
      set(0x8F8F8E, 0xB17F3C, 0x5C411D);
      if (disabled_face) props.BorderColor = 0xB5B2AD;
      break;
    case 8:
      set(props.BackColor, props.BackColorHover, props.BackColorPressed);
      if (disabled_face) props.BorderColor = 0xA4B6B7;
      break;
    default: break;
  }
}

}  // namespace velmora::controls
