// Mouse, key and focus input of `Button`, passed through its state machine.
#include <QApplication>
#include <QCursor>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "controls/button.h"
#include "controls/input_codes.h"

namespace velmora::controls {

void Button::run(const ButtonActions& actions) {
  const QPointer<Button> alive(this);  // a handler of an event may delete the control
  for (const ButtonAction& action : actions) {
    if (!alive) return;
    switch (action.kind) {
      case ButtonActionKind::Redraw: paint_now(); break;
      case ButtonActionKind::Raise: raise(action.event); break;
      // Qt keeps the pointer on the pressed widget and reports the pointer leaving, which is
      // what holding the capture achieves; the machine only records it.
      case ButtonActionKind::SetCapture:
      case ButtonActionKind::ReleaseCapture: break;
    }
  }
}

void Button::raise(const ButtonEvent& event) {
  const int* a = event.args;
  switch (event.kind) {
    case ButtonEventKind::Click: emit clicked(); break;
    case ButtonEventKind::DblClick: emit doubleClicked(); break;
    case ButtonEventKind::KeyDown: emit keyDown(a[0], a[1]); break;
    case ButtonEventKind::KeyPress: emit keyPress(a[0]); break;
    case ButtonEventKind::KeyUp: emit keyUp(a[0], a[1]); break;
    case ButtonEventKind::MouseDown: emit mouseDown(a[0], a[1], a[2], a[3]); break;
    case ButtonEventKind::MouseMove: emit mouseMove(a[0], a[1], a[2], a[3]); break;
    case ButtonEventKind::MouseUp: emit mouseUp(a[0], a[1], a[2], a[3]); break;
  }
}

void Button::mouseMoveEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  run(machine_.mouse_move(props_, button_mask(event->buttons()), shift_mask(event->modifiers()), p.x(), p.y(), width(),
                          height()));
}

void Button::leaveEvent(QEvent* /*event*/) {
  // The move that took the pointer off the control (or off its shape).
  QPoint p = mapFromGlobal(QCursor::pos());
  if (rect().contains(p)) p = QPoint(-1, -1);
  run(machine_.mouse_move(props_, button_mask(QApplication::mouseButtons()),
                          shift_mask(QApplication::keyboardModifiers()), p.x(), p.y(), width(), height()));
}

void Button::mousePressEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  press_on_control_ = true;
  run(machine_.mouse_down(props_, button_mask(event->button()), shift_mask(event->modifiers()), p.x(), p.y()));
}

void Button::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint p = event->position().toPoint();
  const QPointer<Button> alive(this);
  run(machine_.mouse_up(props_, button_mask(event->button()), shift_mask(event->modifiers()), p.x(), p.y()));
  if (!alive) return;
  // Click needs a left press on the control released over it; the release that ends a double
  // click raises none.
  const bool click =
      press_on_control_ && event->button() == Qt::LeftButton && rect().contains(p) && !release_after_double_click_;
  press_on_control_ = false;
  release_after_double_click_ = false;
  if (click) run(machine_.click(props_));
}

void Button::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  release_after_double_click_ = true;
  run(machine_.dbl_click(props_));
}

void Button::keyPressEvent(QKeyEvent* event) {
  const QPointer<Button> alive(this);
  run(machine_.key_down(props_, virtual_key_code(event->key()), shift_mask(event->modifiers())));
  if (!alive) return;
  if (const int ascii = key_ascii(event->text()); ascii != 0) run(machine_.key_press(ascii));
}

void Button::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return;
  run(machine_.key_up(props_, virtual_key_code(event->key()), shift_mask(event->modifiers())));
}

void Button::focusInEvent(QFocusEvent* /*event*/) {
  run(machine_.focus_changed(props_, true));
}

void Button::focusOutEvent(QFocusEvent* /*event*/) {
  run(machine_.focus_changed(props_, false));
}

}  // namespace velmora::controls
