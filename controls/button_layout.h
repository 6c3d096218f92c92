// Where the skinned button places its picture and its caption, by alignment, from the surface
// size and the item's size.
#pragma once

#include <QPoint>
#include <QSize>

namespace velmora::controls {

// Margin of the top and left places: 4 for the picture, 5 for the caption.
inline constexpr int kPictureMargin = 4;
inline constexpr int kCaptionMargin = 5;
// Margin of the right and bottom places, for both.
inline constexpr int kFarMargin = 5;

// Top-left corner of an item. The top and left places take the free space divided by the whole
// side, plus the margin, which keeps such items close to the edge. An unknown alignment gives (0,
// 0).
QPoint place_item(int alignment, QSize surface, QSize item, int near_margin);

}  // namespace velmora::controls
