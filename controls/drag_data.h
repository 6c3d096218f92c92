// Drag data that can promise a format and fill it only when a drop target asks for it, so that
// a control can let its form supply the data late.
#pragma once

#include <QMimeData>
#include <QStringList>
#include <functional>

namespace velmora::controls {

class DragData : public QMimeData {
  Q_OBJECT

 public:
  // Called with the data and the format when a promised format is first asked for.
  using Filler = std::function<void(DragData*, const QString&)>;

  explicit DragData(Filler filler) : filler_(std::move(filler)) {}

  // Lists a format that has no data yet.
  void promise(const QString& format);

  QStringList formats() const override;
  bool hasFormat(const QString& format) const override;

 protected:
  QVariant retrieveData(const QString& format, QMetaType type) const override;

 private:
  Filler filler_;
  QStringList promised_;
  mutable bool filling_ = false;
};

}  // namespace velmora::controls
