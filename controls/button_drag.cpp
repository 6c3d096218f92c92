// Drag and drop of `Button`: the drop side forwards Qt's drag events, the drag side is started
// by OLEDrag and reports its start, the feedback, late data and its end.
#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>

#include "controls/button.h"
#include "controls/drag_data.h"
#include "controls/input_codes.h"

namespace velmora::controls {
namespace {

constexpr int kEffectMask = Qt::CopyAction | Qt::MoveAction;
constexpr int kDragEnter = 0;
constexpr int kDragLeave = 1;
constexpr int kDragOver = 2;

// Offers the effect the form left; an effect of 0 refuses the drop.
void answer(QDropEvent* event, int effect) {
  effect &= static_cast<int>(event->possibleActions()) & kEffectMask;
  if (effect == 0) {
    event->ignore();
    return;
  }
  event->setDropAction((effect & Qt::MoveAction) != 0 && (effect & Qt::CopyAction) == 0 ? Qt::MoveAction
                                                                                        : Qt::CopyAction);
  event->accept();
}

}  // namespace

void Button::dragEnterEvent(QDragEnterEvent* event) {
  int effect = static_cast<int>(event->possibleActions()) & kEffectMask;
  const QPoint p = event->position().toPoint();
  emit oleDragOver(event->mimeData(), &effect, button_mask(event->buttons()), shift_mask(event->modifiers()), p.x(),
                   p.y(), kDragEnter);
  answer(event, effect);
}

void Button::dragMoveEvent(QDragMoveEvent* event) {
  int effect = static_cast<int>(event->possibleActions()) & kEffectMask;
  const QPoint p = event->position().toPoint();
  emit oleDragOver(event->mimeData(), &effect, button_mask(event->buttons()), shift_mask(event->modifiers()), p.x(),
                   p.y(), kDragOver);
  answer(event, effect);
}

void Button::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
  int effect = 0;
  const QPoint p = mapFromGlobal(QCursor::pos());
  emit oleDragOver(nullptr, &effect, button_mask(QApplication::mouseButtons()),
                   shift_mask(QApplication::keyboardModifiers()), p.x(), p.y(), kDragLeave);
}

void Button::dropEvent(QDropEvent* event) {
  int effect = static_cast<int>(event->possibleActions()) & kEffectMask;
  const QPoint p = event->position().toPoint();
  emit oleDragDrop(event->mimeData(), &effect, button_mask(event->buttons()), shift_mask(event->modifiers()), p.x(),
                   p.y());
  answer(event, effect);
}

void Button::OLEDrag() {
  const QPointer<Button> alive(this);
  auto* data = new DragData([alive](DragData* d, const QString& format) {
    if (alive) emit alive->oleSetData(d, format);
  });
  int allowed = kEffectMask;
  emit oleStartDrag(data, &allowed);
  allowed &= kEffectMask;
  if (!alive || allowed == 0) {
    delete data;
    return;
  }
  auto* drag = new QDrag(this);
  drag->setMimeData(data);
  connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
    bool default_cursors = true;
    emit oleGiveFeedback(static_cast<int>(action) & kEffectMask, &default_cursors);
  });
  const Qt::DropAction result = drag->exec(Qt::DropActions(allowed));
  if (alive) emit oleCompleteDrag(static_cast<int>(result) & kEffectMask);
}

}  // namespace velmora::controls
