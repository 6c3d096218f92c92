// The titled frame of an operation list entry (StructCaption): a rounded border with the
// entry's caption in blue on the program's own transparent label, and the entry's kind as tag.
#pragma once

#include <QFrame>

#include "controls/tindra_label.h"

namespace velmora::shell {

class CaptionFrame : public QFrame {
  Q_OBJECT
 public:
  CaptionFrame(const QString& title, QWidget* parent = nullptr);

  QString title() const { return label_->Caption(); }
  void setTitle(const QString& title);
  controls::TindraLabel* label() const { return label_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  controls::TindraLabel* label_;
};

}  // namespace velmora::shell
