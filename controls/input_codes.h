// Translation of Qt input into the arguments the controls' events carry: virtual key codes, the
// shift mask, mouse button masks, key characters, and the cursor a `MousePointer` value names.
#pragma once

#include <QCursor>
#include <QImage>
#include <QString>
#include <optional>

namespace velmora::controls {

// Virtual key code of a Qt key (Enter 13, Space 32, letters 65 to 90, ...); 0 when it has none.
int virtual_key_code(int qt_key);

// 1 Shift, 2 Ctrl, 4 Alt.
int shift_mask(Qt::KeyboardModifiers modifiers);

// 1 left, 2 right, 4 middle.
int button_mask(Qt::MouseButtons buttons);

// Character code of the text a key typed, 0 when it typed none.
int key_ascii(const QString& text);

// Cursor for a `MousePointer` value: nothing for 0 (the default), the `MouseIcon` for 99 when
// there is one, otherwise the nearest standard shape.
std::optional<QCursor> cursor_for_pointer(int mouse_pointer, const QImage& mouse_icon);

}  // namespace velmora::controls
