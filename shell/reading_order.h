// Keyboard focus in reading order. Qt's focus chain follows the order widgets were made in, and
// the operation list makes its widgets in no reading order (an entry's remove button, at the end
// of the entry's first line, is made after the panel below it); the window walks its widgets by
// where they stand instead.
#pragma once

#include <QWidget>
#include <vector>

namespace velmora::shell {

// The widgets Tab can reach inside `regions`, region after region; within one region line by
// line from the top, and left to right within a line.
std::vector<QWidget*> ReadingOrder(const std::vector<QWidget*>& regions);

// The widget after `current` in that order (before it when `forward` is false), wrapping round;
// the first (or last) when `current` is not among them; null when there is none.
QWidget* NextInReadingOrder(const std::vector<QWidget*>& regions, QWidget* current, bool forward);

}  // namespace velmora::shell
