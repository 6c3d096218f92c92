// Style and theme presets of the skinned button: what setting `ButtonStyle` or `ButtonTheme`
// writes into the face and border colours.
#pragma once

#include <cstdint>

#include "controls/button_properties.h"

namespace velmora::controls {

// Stores `ButtonStyle` and writes its face colours. Styles 4 and 6 also pull
// `ButtonStyleColors` to 1 and 3 unless it is 0. A value outside 1 to 8 writes no colour.
void apply_button_style(ButtonProperties& props, std::int32_t style);

// Stores `ButtonTheme`; themes 1 to 8 write the three face colours and set all three border
// colours to 0xFF0000. Any other value writes nothing.
void apply_button_theme(ButtonProperties& props, std::int32_t theme);

}  // namespace velmora::controls
