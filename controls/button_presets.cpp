#include "controls/button_presets.h"

#include <array>

namespace velmora::controls {
namespace {

struct FaceColors {
  OleColor normal;
  OleColor hover;
  OleColor pressed;
};

constexpr std::array<FaceColors, 8> kStyleFaces = {{
    {kSysButtonFace, kSysButtonFace, kSysButtonFace},  // 1
    {kSysButtonFace, kSysButtonFace, kSysButtonFace},  // 2
    {kSysButtonFace, kSysButtonFace, kSysButtonFace},  // 3
    {kSysButtonFace, kSysButtonFace, 0x999999},        // 4
    {kSysButtonFace, 0xB6A59F, 0xAF8C80},              // 5
    {0xD2DEDD, 0xFFFFFF, 0xFFFFFF},                    // 6
    {0xD8D8D8, 0xF7DBA5, 0xEFCE92},                    // 7
    {kSysDesktop, kSysDesktop, kSysDesktop},           // 8
}};

constexpr std::array<FaceColors, 8> kThemeFaces = {{
    {0xF1B39A, 0xFDF7F4, 0xFAE6DD},  // 1
    {0x3DB4A2, 0xDFF4F2, 0xB8E7E0},  // 2
    {0xB5A09D, 0xF7F5F4, 0xECE7E6},  // 3
    {0xABC2C2, 0xF2F8F8, 0xE6EDEE},  // 4
    {0x02C5F5, 0xE2F9FF, 0xAFEFFE},  // 5
    {0x26368B, 0x4763FF, 0x425CEE},  // 6
    {0x578B2E, 0x9FFF54, 0x80CD43},  // 7
    {0x8B4027, 0xFF7648, 0xCD5F3A},  // 8
}};

constexpr OleColor kThemeBorder = 0xFF0000;

void write_faces(ButtonProperties& props, const FaceColors& faces) {
  props.BackColor = faces.normal;
  props.BackColorHover = faces.hover;
  props.BackColorPressed = faces.pressed;
}

}  // namespace

void apply_button_style(ButtonProperties& props, std::int32_t style) {
  props.ButtonStyle = style;
  if (style < 1 || style > 8) return;
  write_faces(props, kStyleFaces[style - 1]);
  if (props.ButtonStyleColors != 0) {
    if (style == 4) props.ButtonStyleColors = 1;
    if (style == 6) props.ButtonStyleColors = 3;
  }
}

void apply_button_theme(ButtonProperties& props, std::int32_t theme) {
  props.ButtonTheme = theme;
  if (theme < 1 || theme > 8) return;
  write_faces(props, kThemeFaces[theme - 1]);
  props.BorderColor = kThemeBorder;
  props.BorderColorHover = kThemeBorder;
  props.BorderColorPressed = kThemeBorder;
}

}  // namespace velmora::controls
