// The small pictures of the window's buttons, drawn here: the first strip (add images, add folder,
// remove, remove all, add operation) and the second (open folder, web album, FTP).
#pragma once

#include <QIcon>

namespace velmora::shell {

// Image `number` (from 1) of the first strip.
QIcon FirstStripImage(int number);
// Image `number` (from 1) of the second strip.
QIcon SecondStripImage(int number);

}  // namespace velmora::shell
