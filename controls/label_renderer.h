// Drawing of `TindraLabel`: an opaque label fills its back colour, a transparent one paints only
// its text over what lies behind it; then the border and the caption with its text flags.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QSize>
#include <QString>

#include "controls/label_properties.h"

namespace velmora::controls {

// The area inside the border that the text is laid out in.
QRect label_text_rect(const LabelProperties& props, QSize size);

// The text actually drawn: the caption, elided for a single-line label with `PathEllipsis`.
QString label_display_text(const LabelProperties& props, int width);

void paint_label(QPainter& painter, const LabelProperties& props, QSize size);

// The label on a transparent image of the given size.
QImage render_label(const LabelProperties& props, QSize size);

}  // namespace velmora::controls
