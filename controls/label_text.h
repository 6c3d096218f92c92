// Text rules of `TindraLabel`: its text-drawing flags, how the caption is measured (mnemonic
// ampersands left out), the size auto-size gives, and the eliding of a long path in its middle.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

#include "controls/label_properties.h"

namespace velmora::controls {

// Text-drawing flags, with the platform's values.
namespace text_flag {
inline constexpr std::uint32_t kCenter = 0x1;
inline constexpr std::uint32_t kRight = 0x2;
inline constexpr std::uint32_t kWordBreak = 0x10;
inline constexpr std::uint32_t kSingleLine = 0x20;
inline constexpr std::uint32_t kNoClip = 0x100;
inline constexpr std::uint32_t kNoPrefix = 0x800;
inline constexpr std::uint32_t kPathEllipsis = 0x4000;
inline constexpr std::uint32_t kRtlReading = 0x20000;
}  // namespace text_flag

// The flags the caption is drawn with.
std::uint32_t label_text_flags(const LabelProperties& props);

// Qt alignment and text flags for drawing with those flags (top-aligned, never clipped).
int qt_text_flags(std::uint32_t flags);

// The caption as measured: with `UseMnemonic` every "&" is left out.
QString measured_caption(const LabelProperties& props);

// Width and height of the measured caption on one line.
QSize label_text_extent(const LabelProperties& props);

// The size auto-size gives for a measured text: the text plus 4 pixels with the fixed single
// border, the text alone without a border; nothing for other border styles.
std::optional<QSize> label_auto_size(int border_style, QSize text);

// Shortens a text that is wider than `width` by putting "..." in place of characters before its
// last backslash, keeping all of the name after it; a text without a backslash loses characters
// from its middle. `measure` gives a text's width.
QString elide_path(const QString& text, int width, const std::function<int(const QString&)>& measure);

}  // namespace velmora::controls
