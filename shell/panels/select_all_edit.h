// A one-line text box that selects its whole text when it gets the focus, as every text box of
// the panels and dialogs does.
#pragma once

#include <QLineEdit>

namespace velmora::shell {

class SelectAllEdit : public QLineEdit {
  Q_OBJECT
 public:
  explicit SelectAllEdit(const QString& name, QWidget* parent = nullptr);

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace velmora::shell
