// The skinned button's behaviour without a screen: how pointer, mouse buttons, keys and focus
// move its state flags, and which redraws, capture changes and events each input produces.
#pragma once

#include <vector>

#include "controls/button_properties.h"

namespace velmora::controls {

enum class ButtonEventKind { Click, DblClick, KeyDown, KeyPress, KeyUp, MouseDown, MouseMove, MouseUp };

// An event raised to the form. Arguments by kind: KeyDown and KeyUp (KeyCode, Shift);
// KeyPress (KeyAscii); the mouse events (Button, Shift, X, Y); Click and DblClick none.
struct ButtonEvent {
  ButtonEventKind kind = ButtonEventKind::Click;
  int args[4] = {0, 0, 0, 0};
  bool operator==(const ButtonEvent&) const = default;
};

enum class ButtonActionKind { Redraw, SetCapture, ReleaseCapture, Raise };

struct ButtonAction {
  ButtonActionKind kind = ButtonActionKind::Redraw;
  ButtonEvent event;  // for Raise
  bool operator==(const ButtonAction&) const = default;
};

using ButtonActions = std::vector<ButtonAction>;

// Virtual key codes the machine reacts to.
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeySpace = 32;

// Owns the three state flags and the pointer capture; reads and writes the toggle fields
// (`ButtonType`, `Value`) of the properties it is handed. Each input returns, in order, what the
// widget must do. Every redraw first makes a checked toggle pressed.
class ButtonStateMachine {
 public:
  const ButtonState& state() const { return state_; }
  bool captured() const { return captured_; }

  // In a design host mouse moves are dropped and raise nothing.
  void set_design_mode(bool on) { design_mode_ = on; }
  bool design_mode() const { return design_mode_; }

  // Pointer at (x, y) in pixels of a control of the given size.
  ButtonActions mouse_move(ButtonProperties& props, int button, int shift, int x, int y, int width, int height);
  ButtonActions mouse_down(ButtonProperties& props, int button, int shift, int x, int y);
  ButtonActions mouse_up(ButtonProperties& props, int button, int shift, int x, int y);
  ButtonActions click(ButtonProperties& props);
  ButtonActions dbl_click(ButtonProperties& props);
  ButtonActions key_down(ButtonProperties& props, int key_code, int shift);
  ButtonActions key_press(int key_ascii);
  ButtonActions key_up(ButtonProperties& props, int key_code, int shift);
  ButtonActions focus_changed(ButtonProperties& props, bool has_focus);
  // A redraw asked for from outside: a property set, a resize, the control shown.
  ButtonActions redraw(ButtonProperties& props);

 private:
  void push_redraw(ButtonProperties& props, ButtonActions& out);
  void mouse_down_steps(ButtonProperties& props, int button, int shift, int x, int y, ButtonActions& out);

  ButtonState state_;
  bool captured_ = false;
  bool design_mode_ = false;
};

// Whether the hand cursor shows: `HandPointer` and either the focus, or the pointer over a
// control that is not pressed.
bool wants_hand_cursor(const ButtonProperties& props, const ButtonState& state);

}  // namespace velmora::controls
