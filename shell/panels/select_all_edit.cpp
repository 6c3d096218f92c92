// Whole-text selection on focus.
#include "shell/panels/select_all_edit.h"

#include <QTimer>

namespace velmora::shell {

SelectAllEdit::SelectAllEdit(const QString& name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
}

void SelectAllEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // After the click that gave the focus has placed the cursor.
  QTimer::singleShot(0, this, &QLineEdit::selectAll);
}

}  // namespace velmora::shell
