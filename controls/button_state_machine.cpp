#include "controls/button_state_machine.h"

namespace velmora::controls {
namespace {

ButtonAction raise(ButtonEventKind kind, int a = 0, int b = 0, int c = 0, int d = 0) {
  ButtonAction action{ButtonActionKind::Raise, {}};
  action.event.kind = kind;
  action.event.args[0] = a;
  action.event.args[1] = b;
  action.event.args[2] = c;
  action.event.args[3] = d;
  return action;
}

}  // namespace

void ButtonStateMachine::push_redraw(ButtonProperties& props, ButtonActions& out) {
  if (props.ButtonType == kToggleButton && props.Value) state_.Pressed = true;
  out.push_back({ButtonActionKind::Redraw, {}});
}

ButtonActions ButtonStateMachine::mouse_move(ButtonProperties& props, int button, int shift, int x, int y, int width,
                                             int height) {
  ButtonActions out;
  if (design_mode_) return out;
  const bool inside = x >= 0 && y >= 0 && x <= width && y <= height;
  if (inside) {
    // Holding the capture lets the control see the move that takes the pointer off it.
    captured_ = true;
    out.push_back({ButtonActionKind::SetCapture, {}});
  } else {
    captured_ = false;
    out.push_back({ButtonActionKind::ReleaseCapture, {}});
  }
  if (inside != state_.Hover) {
    state_.Hover = inside;
    state_.Pressed = false;
    push_redraw(props, out);
  }
  out.push_back(raise(ButtonEventKind::MouseMove, button, shift, x, y));
  return out;
}

void ButtonStateMachine::mouse_down_steps(ButtonProperties& props, int button, int shift, int x, int y,
                                          ButtonActions& out) {
  state_.Pressed = true;
  push_redraw(props, out);
  out.push_back(raise(ButtonEventKind::MouseDown, button, shift, x, y));
}

ButtonActions ButtonStateMachine::mouse_down(ButtonProperties& props, int button, int shift, int x, int y) {
  ButtonActions out;
  mouse_down_steps(props, button, shift, x, y, out);
  return out;
}

ButtonActions ButtonStateMachine::mouse_up(ButtonProperties& props, int button, int shift, int x, int y) {
  ButtonActions out;
  if (!captured_) {
    captured_ = true;
    out.push_back({ButtonActionKind::SetCapture, {}});
  }
  state_.Pressed = false;
  push_redraw(props, out);
  out.push_back(raise(ButtonEventKind::MouseUp, button, shift, x, y));
  return out;
}

ButtonActions ButtonStateMachine::click(ButtonProperties& props) {
  ButtonActions out;
  if (props.ButtonType == kToggleButton) props.Value = !state_.Pressed;
  push_redraw(props, out);
  out.push_back(raise(ButtonEventKind::Click));
  return out;
}

ButtonActions ButtonStateMachine::dbl_click(ButtonProperties& props) {
  ButtonActions out;
  state_.Pressed = true;
  push_redraw(props, out);
  out.push_back(raise(ButtonEventKind::DblClick));
  return out;
}

ButtonActions ButtonStateMachine::key_down(ButtonProperties& props, int key_code, int shift) {
  ButtonActions out;
  if (key_code == kKeyEnter || key_code == kKeySpace) {
    state_.Pressed = true;
    push_redraw(props, out);
  }
  out.push_back(raise(ButtonEventKind::KeyDown, key_code, shift));
  return out;
}

ButtonActions ButtonStateMachine::key_press(int key_ascii) {
  return {raise(ButtonEventKind::KeyPress, key_ascii)};
}

ButtonActions ButtonStateMachine::key_up(ButtonProperties& props, int key_code, int shift) {
  ButtonActions out;
  if (state_.Pressed) {
    state_.Pressed = false;
    push_redraw(props, out);
    // Releasing Enter leaves the button drawn down and reports a mouse down with zeros; neither
    // Enter nor Space raises Click.
    if (key_code == kKeyEnter) mouse_down_steps(props, 0, 0, 0, 0, out);
  }
  out.push_back(raise(ButtonEventKind::KeyUp, key_code, shift));
  return out;
}

ButtonActions ButtonStateMachine::focus_changed(ButtonProperties& props, bool has_focus) {
  ButtonActions out;
  state_.HasFocus = has_focus;
  push_redraw(props, out);
  return out;
}

ButtonActions ButtonStateMachine::redraw(ButtonProperties& props) {
  ButtonActions out;
  push_redraw(props, out);
  return out;
}

bool wants_hand_cursor(const ButtonProperties& props, const ButtonState& state) {
  return props.HandPointer && (state.HasFocus || (!state.Pressed && state.Hover));
}

}  // namespace velmora::controls
