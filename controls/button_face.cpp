#include "controls/button_face.h"

#include "controls/gradient_fill.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {
namespace {

constexpr auto kV = GradientAxis::Vertical;
constexpr auto kH = GradientAxis::Horizontal;

// The two bands of styles 7 and 8 run across the height, or across the width for the shapes
// that point up or down.
bool bands_run_across_width(int shape) {
  return shape == shape::kTriangleUp || shape == shape::kTriangleDown || shape == shape::kArrowUp ||
         shape == shape::kArrowDown;
}

void paint_bands(QImage& image, int shape, int style, const GradientPair& colors) {
  const bool across_width = bands_run_across_width(shape);
  const GradientAxis axis = across_width ? kH : kV;
  const int side = across_width ? image.width() : image.height();
  const QRgb first = to_rgb(colors.first);
  const QRgb second = to_rgb(colors.second);
  if (style == 7) {
    fill_gradient(image, axis, 0, round_half_even(side / 1.5), first, second);
    fill_gradient(image, axis, round_half_even(side / 2.0), side + 25, first, second);
  } else {
    fill_gradient(image, axis, side, round_half_even(side / 6.0), first, second);
    fill_gradient(image, axis, round_half_even(side / 2.0), round_half_even(side / 3.0) + side, first, second);
  }
}

}  // namespace

void fill_face(QImage& image, int mode, const GradientPair& colors) {
  const int w = image.width();
  const int h = image.height();
  const int w2 = round_half_even(w / 2.0);
  const int h2 = round_half_even(h / 2.0);
  const QRgb a = to_rgb(colors.first);
  const QRgb b = to_rgb(colors.second);
  switch (mode) {
    case 2: fill_gradient(image, kH, 0, w, a, b); break;
    case 3: fill_gradient(image, kV, h, 0, a, b); break;
    case 4:
      fill_gradient(image, kV, 0, h2, a, b);
      fill_gradient(image, kV, h, h2, a, b);
      break;
    case 5:
      fill_gradient(image, kV, h2, 0, a, b);
      fill_gradient(image, kV, h2, h, a, b);
      break;
    case 6:
      fill_gradient(image, kH, 0, w2, a, b);
      fill_gradient(image, kH, w, w2, a, b);
      break;
    case 7:
      fill_gradient(image, kH, w2, 0, a, b);
      fill_gradient(image, kH, w2, w, a, b);
      break;
    default: break;  // 0 none, 1 solid: the cleared surface is the face
  }
}

void overwrite_style_face(QImage& image, const ButtonProperties& props, const ButtonLook& look) {
  if (props.ButtonStyleColors == 0) return;
  const int h = image.height();
  switch (props.ButtonStyle) {
    case 5: {
      const OleColor first = look.pressed ? 0xA57F71 : (look.hover ? 0xAC9891 : props.BackColor);
      fill_gradient(image, kV, 0, h, to_rgb(first), to_rgb(state_back_color(props, look)));
      break;
    }
    case 6: {
      GradientPair pair{props.BackColor, look.pressed ? 0xE0E6E6u : props.BackColorPressed};
      if (!look.enabled) pair = {0xDBE7E7, 0xDBE7E7};
      fill_gradient(image, kV, 0, h, to_rgb(pair.first), to_rgb(pair.second));
      break;
    }
    case 7: {
      GradientPair pair{props.BackColor, 0xEFEFEF};
      if (!look.enabled) {
        pair = {0xF0F0F0, 0xF4F4F4};
      } else if (look.pressed) {
        pair = {props.BackColorPressed, 0xF8ECD5};
      } else if (look.hover) {
        pair = {props.BackColorHover, 0xFEFCF7};
      }
      paint_bands(image, props.ButtonShape, 7, pair);
      break;
    }
    case 8: {
      GradientPair pair{state_back_color(props, look), 0xFFFFFF};
      if (!look.enabled) pair.first = 0xA4B6B7;
      paint_bands(image, props.ButtonShape, 8, pair);
      break;
    }
    default: break;
  }
}

QImage paint_face(const ButtonProperties& props, const ButtonLook& look, QSize size) {
  QImage image(size, QImage::Format_ARGB32);
  if (props.ButtonStyleColors == 0) {
    image.fill(Qt::transparent);
  } else {
    image.fill(to_qcolor(surface_back_color(props, look)));
  }
  fill_face(image, props.ButtonStyleColors, state_gradient(props, look));
  overwrite_style_face(image, props, look);
  return image;
}

}  // namespace velmora::controls
