#include "controls/input_codes.h"

#include <QPixmap>
#include <array>
#include <utility>

namespace velmora::controls {
namespace {

constexpr std::array<std::pair<int, int>, 33> kKeyTable = {{
    {Qt::Key_Return, 13},       {Qt::Key_Enter, 13},      {Qt::Key_Escape, 27},        {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},       {Qt::Key_Backspace, 8},   {Qt::Key_Delete, 46},        {Qt::Key_Insert, 45},
    {Qt::Key_Home, 36},         {Qt::Key_End, 35},        {Qt::Key_PageUp, 33},        {Qt::Key_PageDown, 34},
    {Qt::Key_Left, 37},         {Qt::Key_Up, 38},         {Qt::Key_Right, 39},         {Qt::Key_Down, 40},
    {Qt::Key_Shift, 16},        {Qt::Key_Control, 17},    {Qt::Key_Alt, 18},           {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},     {Qt::Key_Semicolon, 186}, {Qt::Key_Equal, 187},        {Qt::Key_Comma, 188},
    {Qt::Key_Minus, 189},       {Qt::Key_Period, 190},    {Qt::Key_Slash, 191},        {Qt::Key_QuoteLeft, 192},
    {Qt::Key_BracketLeft, 219}, {Qt::Key_Backslash, 220}, {Qt::Key_BracketRight, 221}, {Qt::Key_Apostrophe, 222},
    {Qt::Key_Space, 32},
}};

}  // namespace

int virtual_key_code(int qt_key) {
  if ((qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z) || (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9)) {
    return qt_key;  // the same codes
  }
  if (qt_key >= Qt::Key_F1 && qt_key <= Qt::Key_F24) return 112 + (qt_key - Qt::Key_F1);
  for (const auto& [qt, code] : kKeyTable) {
    if (qt == qt_key) return code;
  }
  return 0;
}

int shift_mask(Qt::KeyboardModifiers modifiers) {
  int mask = 0;
  if (modifiers & Qt::ShiftModifier) mask |= 1;
  if (modifiers & Qt::ControlModifier) mask |= 2;
  if (modifiers & Qt::AltModifier) mask |= 4;
  return mask;
}

int button_mask(Qt::MouseButtons buttons) {
  int mask = 0;
  if (buttons & Qt::LeftButton) mask |= 1;
  if (buttons & Qt::RightButton) mask |= 2;
  if (buttons & Qt::MiddleButton) mask |= 4;
  return mask;
}

int key_ascii(const QString& text) {
  return text.isEmpty() ? 0 : text.front().unicode();
}

std::optional<QCursor> cursor_for_pointer(int mouse_pointer, const QImage& mouse_icon) {
  switch (mouse_pointer) {
    case 0: return std::nullopt;
    case 2: return QCursor(Qt::CrossCursor);
    case 3: return QCursor(Qt::IBeamCursor);
    case 5:
    case 15: return QCursor(Qt::SizeAllCursor);
    case 6: return QCursor(Qt::SizeBDiagCursor);
    case 7: return QCursor(Qt::SizeVerCursor);
    case 8: return QCursor(Qt::SizeFDiagCursor);
    case 9: return QCursor(Qt::SizeHorCursor);
    case 10: return QCursor(Qt::UpArrowCursor);
    case 11: return QCursor(Qt::WaitCursor);
    case 12: return QCursor(Qt::ForbiddenCursor);
    case 13: return QCursor(Qt::BusyCursor);
    case 14: return QCursor(Qt::WhatsThisCursor);
    case 99:
      if (!mouse_icon.isNull()) return QCursor(QPixmap::fromImage(mouse_icon));
      return std::nullopt;
    default: return QCursor(Qt::ArrowCursor);
  }
}

}  // namespace velmora::controls
