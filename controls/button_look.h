// Which colours the skinned button draws with in its current state: face, border and caption by
// state, the gradient pair, the surface colour, and the border colours a style writes at draw time.
#pragma once

#include "controls/button_properties.h"

namespace velmora::controls {

// The state as the renderer sees it.
struct ButtonLook {
  bool enabled = true;
  bool pressed = false;
  bool hover = false;
  bool has_focus = false;
  // Device pixels to a pixel of the control: the rounded corner and the caption grow by it.
  double scale = 1.0;
};

ButtonLook make_look(const ButtonState& state, bool enabled);

// Pressed wins over hover, hover over normal.
OleColor state_back_color(const ButtonProperties& props, const ButtonLook& look);
OleColor state_border_color(const ButtonProperties& props, const ButtonLook& look);
OleColor state_fore_color(const ButtonProperties& props, const ButtonLook& look);

// The two gradient colours: `BackColor`, and the state's face colour.
struct GradientPair {
  OleColor first = 0;
  OleColor second = 0;
};
GradientPair state_gradient(const ButtonProperties& props, const ButtonLook& look);

// The surface's own back colour, which the face is cleared to and which the focus mark looks
// for: the state's face colour for a solid fill, the button face otherwise.
OleColor surface_back_color(const ButtonProperties& props, const ButtonLook& look);

// Whether the focus mark and focus rings are drawn.
bool focus_shown(const ButtonProperties& props, const ButtonLook& look);

// Writes the border colours of `ButtonStyle` into the properties, as the redraw does before
// drawing. A disabled control of style 6, 7 or 8 with a face fill also gets a fixed `BorderColor`.
void apply_style_borders(ButtonProperties& props, bool enabled);

}  // namespace velmora::controls
