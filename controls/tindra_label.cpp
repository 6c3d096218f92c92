#include "controls/tindra_label.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcutEvent>

#include "controls/input_codes.h"
#include "controls/label_persistence.h"
#include "controls/label_renderer.h"
#include "controls/label_text.h"

namespace velmora::controls {

TindraLabel::TindraLabel(QWidget* parent, const QString& name) : QWidget(parent) {
  setObjectName(name);
  setMouseTracking(true);
  const QPalette host = parent != nullptr ? parent->palette() : QApplication::palette();
  props_ = new_label_properties(name, ole_from_qcolor(host.color(QPalette::Window)),
                                ole_from_qcolor(host.color(QPalette::WindowText)), host_font());
  Refresh();
}

template <typename T>
void TindraLabel::set_field(T LabelProperties::*field, const T& value, const char* name) {
  props_.*field = value;
  changed_property(name);
}

void TindraLabel::changed_property(const char* name) {
  emit propertyChanged(QString::fromLatin1(name));
  Refresh();
}

void TindraLabel::setAlignment(int v) {
  set_field(&LabelProperties::Alignment, v, "Alignment");
}
void TindraLabel::setAutoSize(bool v) {
  set_field(&LabelProperties::AutoSize, v, "AutoSize");
}
void TindraLabel::setBackColor(quint32 v) {
  set_field(&LabelProperties::BackColor, v, "BackColor");
}
void TindraLabel::setBackStyle(int v) {
  set_field(&LabelProperties::BackStyle, v, "BackStyle");
}
void TindraLabel::setBorderStyle(int v) {
  set_field(&LabelProperties::BorderStyle, v, "BorderStyle");
}
void TindraLabel::setPathEllipsis(bool v) {
  set_field(&LabelProperties::PathEllipsis, v, "PathEllipsis");
}
void TindraLabel::setRightToLeft(bool v) {
  set_field(&LabelProperties::RightToLeft, v, "RightToLeft");
}
void TindraLabel::setWordWrap(bool v) {
  set_field(&LabelProperties::WordWrap, v, "WordWrap");
}

void TindraLabel::setMousePointer(int v) {
  props_.MousePointer = v;
  update_cursor();
  changed_property("MousePointer");
}

void TindraLabel::setMouseIcon(const QImage& v) {
  props_.MouseIcon = v;
  update_cursor();
  changed_property("MouseIcon");
}

void TindraLabel::setUseMnemonic(bool v) {
  props_.UseMnemonic = v;
  update_shortcut();
  changed_property("UseMnemonic");
}

void TindraLabel::setCaption(const QString& v) {
  props_.Caption = v;
  update_shortcut();
  emit changed();
  changed_property("Caption");
}

void TindraLabel::setForeColor(quint32 v) {
  set_label_fore_color(props_, v);
  changed_property("ForeColor");
}

void TindraLabel::setBuddy(QWidget* buddy) {
  buddy_ = buddy;
}

quintptr TindraLabel::hWnd() const {
  return static_cast<quintptr>(effectiveWinId());
}

QFont TindraLabel::host_font() const {
  return parentWidget() != nullptr ? parentWidget()->font() : QApplication::font();
}

QSize TindraLabel::sizeHint() const {
  return label_auto_size(props_.BorderStyle, label_text_extent(props_)).value_or(size());
}

void TindraLabel::WriteProperties(PropertyBag& bag) const {
  write_label_properties(props_, objectName(), host_font(), bag);
}

void TindraLabel::ReadProperties(const PropertyBag& bag) {
  props_ = read_label_properties(bag, objectName(), host_font());
  const bool enabled = props_.Enabled;
  QWidget::setFont(props_.Font);
  setEnabled(enabled);
  set_label_enabled(props_, enabled);
  update_shortcut();
  update_cursor();
  Refresh();
}

void TindraLabel::update_cursor() {
  if (auto cursor = cursor_for_pointer(props_.MousePointer, props_.MouseIcon)) {
    setCursor(*cursor);
  } else {
    unsetCursor();
  }
}

void TindraLabel::update_shortcut() {
  if (shortcut_id_ != 0) releaseShortcut(shortcut_id_);
  shortcut_id_ = 0;
  if (!props_.UseMnemonic) return;
  const QKeySequence key = QKeySequence::mnemonic(props_.Caption);
  if (!key.isEmpty()) shortcut_id_ = grabShortcut(key);
}

void TindraLabel::Refresh() {
  if (props_.AutoSize && !resizing_) {
    if (auto wanted = label_auto_size(props_.BorderStyle, label_text_extent(props_))) {
      resizing_ = true;
      resize(*wanted);
      resizing_ = false;
    }
  }
  update();
}

bool TindraLabel::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut && static_cast<QShortcutEvent*>(event)->shortcutId() == shortcut_id_) {
    if (buddy_) buddy_->setFocus(Qt::ShortcutFocusReason);
    return true;
  }
  return QWidget::event(event);
}

void TindraLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paint_label(painter, props_, size());
}

void TindraLabel::resizeEvent(QResizeEvent* /*event*/) {
  Refresh();
}

void TindraLabel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) {
    set_label_enabled(props_, isEnabled());
    changed_property("Enabled");
  } else if (event->type() == QEvent::FontChange) {
    props_.Font = font();
    changed_property("Font");
  }
}

void TindraLabel::mousePressEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  press_on_control_ = true;
  emit mouseDown(button_mask(event->button()), shift_mask(event->modifiers()), p.x(), p.y());
}

void TindraLabel::mouseMoveEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  emit mouseMove(button_mask(event->buttons()), shift_mask(event->modifiers()), p.x(), p.y());
}

void TindraLabel::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  const QPointer<TindraLabel> alive(this);
  emit mouseUp(button_mask(event->button()), shift_mask(event->modifiers()), p.x(), p.y());
  if (!alive) return;
  const bool click = press_on_control_ && event->button() == Qt::LeftButton && rect().contains(p);
  press_on_control_ = false;
  if (click) emit clicked();
}

void TindraLabel::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  press_on_control_ = false;
  emit doubleClicked();
}

void TindraLabel::keyPressEvent(QKeyEvent* event) {
  const QPointer<TindraLabel> alive(this);
  emit keyDown(virtual_key_code(event->key()), shift_mask(event->modifiers()));
  if (!alive) return;
  if (const int ascii = key_ascii(event->text()); ascii != 0) emit keyPress(ascii);
}

void TindraLabel::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return;
  emit keyUp(virtual_key_code(event->key()), shift_mask(event->modifiers()));
}

}  // namespace velmora::controls
