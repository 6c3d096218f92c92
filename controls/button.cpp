#include "controls/button.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>

#include "controls/button_persistence.h"
#include "controls/button_presets.h"
#include "controls/input_codes.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {

Button::Button(QWidget* parent, const QString& name) : QWidget(parent), props_(new_button_properties(name)) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  QWidget::setFont(props_.Font);
  resize(kNewButtonWidth, kNewButtonHeight);
}

template <typename T>
void Button::set_field(T ButtonProperties::*field, const T& value, const char* name) {
  props_.*field = value;
  changed(name);
}

void Button::changed(const char* name) {
  emit propertyChanged(QString::fromLatin1(name));
  Refresh();
}

void Button::setButtonShape(int v) {
  set_field(&ButtonProperties::ButtonShape, v, "ButtonShape");
}
void Button::setButtonStyleColors(int v) {
  set_field(&ButtonProperties::ButtonStyleColors, v, "ButtonStyleColors");
}
void Button::setButtonType(int v) {
  set_field(&ButtonProperties::ButtonType, v, "ButtonType");
}
void Button::setCaptionAlignment(int v) {
  set_field(&ButtonProperties::CaptionAlignment, v, "CaptionAlignment");
}
void Button::setCaptionEffect(int v) {
  set_field(&ButtonProperties::CaptionEffect, v, "CaptionEffect");
}
void Button::setCaptionStyle(int v) {
  set_field(&ButtonProperties::CaptionStyle, v, "CaptionStyle");
}
void Button::setDropDown(int v) {
  set_field(&ButtonProperties::DropDown, v, "DropDown");
}
void Button::setPictureAlignment(int v) {
  set_field(&ButtonProperties::PictureAlignment, v, "PictureAlignment");
}
void Button::setBackColor(quint32 v) {
  set_field(&ButtonProperties::BackColor, v, "BackColor");
}
void Button::setBackColorPressed(quint32 v) {
  set_field(&ButtonProperties::BackColorPressed, v, "BackColorPressed");
}
void Button::setBackColorHover(quint32 v) {
  set_field(&ButtonProperties::BackColorHover, v, "BackColorHover");
}
void Button::setBorderColor(quint32 v) {
  set_field(&ButtonProperties::BorderColor, v, "BorderColor");
}
void Button::setBorderColorPressed(quint32 v) {
  set_field(&ButtonProperties::BorderColorPressed, v, "BorderColorPressed");
}
void Button::setBorderColorHover(quint32 v) {
  set_field(&ButtonProperties::BorderColorHover, v, "BorderColorHover");
}
void Button::setForeColor(quint32 v) {
  set_field(&ButtonProperties::ForeColor, v, "ForeColor");
}
void Button::setForeColorPressed(quint32 v) {
  set_field(&ButtonProperties::ForeColorPressed, v, "ForeColorPressed");
}
void Button::setForeColorHover(quint32 v) {
  set_field(&ButtonProperties::ForeColorHover, v, "ForeColorHover");
}
void Button::setEffectColor(quint32 v) {
  set_field(&ButtonProperties::EffectColor, v, "EffectColor");
}
void Button::setCaption(const QString& v) {
  set_field(&ButtonProperties::Caption, v, "Caption");
}
void Button::setFocusRect(bool v) {
  set_field(&ButtonProperties::FocusRect, v, "FocusRect");
}
void Button::setValue(bool v) {
  set_field(&ButtonProperties::Value, v, "Value");
}
void Button::setHandPointer(bool v) {
  set_field(&ButtonProperties::HandPointer, v, "HandPointer");
}
void Button::setPicture(const QImage& v) {
  set_field(&ButtonProperties::Picture, v, "Picture");
}
void Button::setPictureGray(bool v) {
  set_field(&ButtonProperties::PictureGray, v, "PictureGray");
}
void Button::setMousePointer(int v) {
  set_field(&ButtonProperties::MousePointer, static_cast<std::int16_t>(v), "MousePointer");
}
void Button::setMouseIcon(const QImage& v) {
  set_field(&ButtonProperties::MouseIcon, v, "MouseIcon");
}

void Button::setButtonStyle(int value) {
  apply_button_style(props_, value);
  changed("ButtonStyle");
}

void Button::setButtonTheme(int value) {
  apply_button_theme(props_, value);
  changed("ButtonTheme");
}

void Button::setDesignMode(bool on) {
  machine_.set_design_mode(on);
}

quintptr Button::hWnd() const {
  return static_cast<quintptr>(effectiveWinId());
}

QSize Button::sizeHint() const {
  return button_surface_size(props_.ButtonShape, QSize(kNewButtonWidth, kNewButtonHeight));
}

QSize Button::minimumSizeHint() const {
  return {kMinButtonSide, kMinButtonSide};
}

QFont Button::host_font() const {
  return parentWidget() != nullptr ? parentWidget()->font() : QApplication::font();
}

void Button::WriteProperties(PropertyBag& bag) const {
  write_button_properties(props_, objectName(), host_font(), bag);
}

void Button::ReadProperties(const PropertyBag& bag) {
  props_ = read_button_properties(bag, objectName(), host_font());
  const bool enabled = props_.Enabled;
  QWidget::setFont(props_.Font);
  setEnabled(enabled);
  Refresh();
}

void Button::Refresh() {
  run(machine_.redraw(props_));
}

void Button::update_cursor() {
  if (wants_hand_cursor(props_, machine_.state())) {
    setCursor(Qt::PointingHandCursor);
  } else if (auto cursor = cursor_for_pointer(props_.MousePointer, props_.MouseIcon)) {
    setCursor(*cursor);
  } else {
    unsetCursor();
  }
}

void Button::paint_now() {
  if (painting_) return;  // the size rule below resizes, which asks for a redraw again
  painting_ = true;
  const QSize wanted = button_surface_size(props_.ButtonShape, size());
  if (wanted != size()) resize(wanted);
  update_cursor();
  // Drawn at the screen's resolution, so that a scaled desktop shows it as sharp as Qt's widgets.
  frame_ = redraw_button(props_, machine_.state(), size(), devicePixelRatioF());
  if (frame_.clip) {
    setMask(*frame_.clip);
  } else {
    clearMask();
  }
  painting_ = false;
  update();
}

void Button::paintEvent(QPaintEvent* /*event*/) {
  if (frame_.image.deviceIndependentSize().toSize() != size() || frame_.image.devicePixelRatio() != devicePixelRatioF())
    paint_now();
  QPainter painter(this);
  painter.drawImage(0, 0, frame_.image);
}

void Button::resizeEvent(QResizeEvent* /*event*/) {
  Refresh();
}

void Button::showEvent(QShowEvent* /*event*/) {
  Refresh();
}

void Button::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) {
    props_.Enabled = isEnabled();
    changed("Enabled");
  } else if (event->type() == QEvent::FontChange) {
    props_.Font = font();
    changed("Font");
  }
}

}  // namespace velmora::controls
