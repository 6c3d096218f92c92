// The eight pictures of the new-operation rows, 76 by 57 pixels, drawn here in row order:
// resize, rotate, mirror, text watermark, image watermark, effects, brightness/contrast, gamma.
#pragma once

#include <QPixmap>

namespace velmora::shell {

inline constexpr int kOperationIconWidth = 76;
inline constexpr int kOperationIconHeight = 57;

QPixmap OperationIcon(int index);

}  // namespace velmora::shell
