// Two-colour linear gradients painted into an image, one colour stop at each end coordinate,
// the way the skinned button fills its face and its bands.
#pragma once

#include <QImage>
#include <QRgb>

namespace velmora::controls {

enum class GradientAxis { Vertical, Horizontal };

// Paints the rows (Vertical) or columns (Horizontal) between `from` and `to` across the whole
// image. The colour runs from `first` at `from` to `second` at `to`; `from` may be the larger
// coordinate. Each pixel takes the colour at its centre, channels rounded; rows or columns past
// the image are skipped.
void fill_gradient(QImage& image, GradientAxis axis, int from, int to, QRgb first, QRgb second);

// The colour a fraction t (0 to 1) of the way from a to b, channels rounded, opaque.
QRgb mix_rgb(QRgb a, QRgb b, double t);

}  // namespace velmora::controls
