// Turning pages: by right angles and by any angle, over FreeImage_Rotate. Depths FreeImage cannot
// turn (4 and 16 bits, 1 bit at free angles) are widened to the nearest depth it can.
#pragma once

#include "imaging/bitmap.h"

namespace velmora::imaging {

// 0, 90, 180, 270 or 360 degrees; null for any other angle.
Bitmap RotateByRightAngle(FIBITMAP* dib, int angle);

// Any angle in degrees. With a negative origin the page turns about its centre on a canvas that
// grows to hold it; otherwise about (x_origin, y_origin) within the same canvas, `mask` asking for
// the uncovered corners to be left out of the picture.
Bitmap RotateByAngle(FIBITMAP* dib, double angle, double x_origin, double y_origin, bool mask);

}  // namespace velmora::imaging
