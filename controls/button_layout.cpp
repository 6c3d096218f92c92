#include "controls/button_layout.h"

#include "controls/button_properties.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {

QPoint place_item(int alignment, QSize surface, QSize item, int near_margin) {
  const double w = surface.width();
  const double h = surface.height();
  const double free_x = w - item.width();
  const double free_y = h - item.height();
  const int center_x = round_half_even(free_x / 2);
  const int center_y = round_half_even(free_y / 2);
  switch (alignment) {
    case align::kTop: return {center_x, round_half_even(free_y / h + near_margin)};
    case align::kLeft: return {round_half_even(free_x / w + near_margin), center_y};
    case align::kCenter: return {center_x, center_y};
    case align::kRight: return {surface.width() - item.width() - kFarMargin, center_y};
    case align::kBottom: return {center_x, surface.height() - item.height() - kFarMargin};
    default: return {0, 0};
  }
}

}  // namespace velmora::controls
