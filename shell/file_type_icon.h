// A small picture for a file type when the desktop's icon theme has none: a page with a band in
// a colour of its own and the type's extension on it.
#pragma once

#include <QIcon>
#include <QString>

namespace velmora::shell {

// The 16 by 16 icon of files with extension `suffix`; the same suffix always gives the same colour.
QIcon FileTypeIcon(const QString& suffix);

}  // namespace velmora::shell
