#include "controls/drag_data.h"

namespace velmora::controls {

void DragData::promise(const QString& format) {
  if (!promised_.contains(format)) promised_ << format;
}

QStringList DragData::formats() const {
  QStringList all = QMimeData::formats();
  for (const QString& format : promised_) {
    if (!all.contains(format)) all << format;
  }
  return all;
}

bool DragData::hasFormat(const QString& format) const {
  return QMimeData::hasFormat(format) || promised_.contains(format);
}

QVariant DragData::retrieveData(const QString& format, QMetaType type) const {
  // The base class's hasFormat asks our formats(), which lists promised formats too, so look at
  // the data actually stored.
  const bool stored = QMimeData::formats().contains(format);
  if (!stored && promised_.contains(format) && filler_ && !filling_) {
    filling_ = true;
    filler_(const_cast<DragData*>(this), format);
    filling_ = false;
  }
  return QMimeData::retrieveData(format, type);
}

}  // namespace velmora::controls
