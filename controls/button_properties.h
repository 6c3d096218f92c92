// The skinned button's properties with their defaults, the named values of its enumerations
// and its three state flags. Plain data: the widget, the presets and the renderer share it.
#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <cstdint>

#include "controls/ole_color.h"

namespace velmora::controls {

// `ButtonShape` values; any value above 11 draws no outline and clips nothing.
namespace shape {
inline constexpr int kRectangle = 0;
inline constexpr int kRoundedRectangle = 1;
inline constexpr int kEllipse = 2;
inline constexpr int kDiamond = 3;
inline constexpr int kTriangleUp = 4;
inline constexpr int kTriangleLeft = 5;
inline constexpr int kTriangleRight = 6;
inline constexpr int kTriangleDown = 7;
inline constexpr int kArrowUp = 8;
inline constexpr int kArrowLeft = 9;
inline constexpr int kArrowRight = 10;
inline constexpr int kArrowDown = 11;
inline constexpr int kCount = 12;
}  // namespace shape

// `CaptionAlignment` and `PictureAlignment` values.
namespace align {
inline constexpr int kTop = 0;
inline constexpr int kLeft = 1;
inline constexpr int kCenter = 2;
inline constexpr int kRight = 3;
inline constexpr int kBottom = 4;
}  // namespace align

// `CaptionEffect` values.
namespace effect {
inline constexpr int kNone = 0;
inline constexpr int kShadowUpLeft = 1;
inline constexpr int kShadowDownRight = 2;
inline constexpr int kOutline = 3;
}  // namespace effect

// `DropDown` values.
namespace dropdown {
inline constexpr int kNone = 0;
inline constexpr int kLeft = 1;
inline constexpr int kRight = 2;
}  // namespace dropdown

// `ButtonType` values.
inline constexpr int kPushButton = 0;
inline constexpr int kToggleButton = 1;

// Size of a new control in pixels (1200 by 500 twips at 15 twips a pixel).
inline constexpr int kNewButtonWidth = 80;
inline constexpr int kNewButtonHeight = 33;

// The properties in their declared order, which is also the order they are saved in.
struct ButtonProperties {
  std::int32_t ButtonShape = shape::kRectangle;
  std::int32_t ButtonStyle = 1;
  std::int32_t ButtonStyleColors = 1;
  std::int32_t ButtonTheme = 0;
  std::int32_t ButtonType = kPushButton;
  std::int32_t CaptionAlignment = align::kCenter;
  std::int32_t CaptionEffect = effect::kNone;
  std::int32_t CaptionStyle = 0;
  std::int32_t DropDown = dropdown::kNone;
  std::int32_t PictureAlignment = align::kCenter;
  OleColor BackColor = kSysButtonFace;
  OleColor BackColorPressed = kSysButtonFace;
  OleColor BackColorHover = kSysButtonFace;
  OleColor BorderColor = 0;
  OleColor BorderColorPressed = 0;
  OleColor BorderColorHover = 0;
  OleColor ForeColor = 0;
  OleColor ForeColorPressed = 255;
  OleColor ForeColorHover = 0xFF0000;
  OleColor EffectColor = 0xFFFFFF;
  QString Caption;
  bool FocusRect = true;
  bool Value = false;
  bool HandPointer = false;
  QImage Picture;
  bool PictureGray = false;
  bool Enabled = true;
  QFont Font;
  std::int16_t MousePointer = 0;
  QImage MouseIcon;
};

// The state flags; none of them is saved.
struct ButtonState {
  bool Pressed = false;
  bool Hover = false;
  bool HasFocus = false;
};

// A new control: the defaults above, the caption taken from the control's own name, "Tahoma".
ButtonProperties new_button_properties(const QString& own_name);

// The font a new control starts with.
QFont new_button_font();

}  // namespace velmora::controls
