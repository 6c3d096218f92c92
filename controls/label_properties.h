// `TindraLabel`'s properties with the defaults of a new control and of a stored one, and the
// rules that tie its fore colour to its enabled state.
#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <cstdint>

#include "controls/ole_color.h"

namespace velmora::controls {

// `Alignment` values.
namespace label_align {
inline constexpr int kLeft = 0;
inline constexpr int kRight = 1;
inline constexpr int kCenter = 2;
}  // namespace label_align

// `BackStyle` and `BorderStyle` values.
inline constexpr int kBackTransparent = 0;
inline constexpr int kBackOpaque = 1;
inline constexpr int kBorderNone = 0;
inline constexpr int kBorderFixedSingle = 1;

// Width of the fixed single border on each side, in pixels.
inline constexpr int kLabelBorderWidth = 2;

// Declared order. `ForeColor` is the colour the text is drawn in; `EnabledForeColor` keeps the
// last colour set, which comes back when the control is enabled again.
struct LabelProperties {
  std::int32_t Alignment = label_align::kLeft;
  bool AutoSize = true;
  OleColor BackColor = kSysButtonFace;
  std::int32_t BackStyle = kBackOpaque;
  std::int32_t BorderStyle = kBorderNone;
  QString Caption;
  bool Enabled = true;
  QFont Font;
  OleColor ForeColor = kSysButtonText;
  std::int32_t MousePointer = 0;
  QImage MouseIcon;
  bool PathEllipsis = false;
  bool RightToLeft = false;
  bool UseMnemonic = true;
  bool WordWrap = false;
  OleColor EnabledForeColor = kSysButtonText;
};

// A new control: transparent, with the host's colours and font and its own name as caption.
LabelProperties new_label_properties(const QString& own_name, OleColor host_back, OleColor host_fore,
                                     const QFont& host_font);

// Sets the fore colour and keeps it for re-enabling.
void set_label_fore_color(LabelProperties& props, OleColor color);

// Sets `Enabled`; the text turns gray (0x80000011) when disabled and takes the kept colour back
// when enabled.
void set_label_enabled(LabelProperties& props, bool enabled);

}  // namespace velmora::controls
