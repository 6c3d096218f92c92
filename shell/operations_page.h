// The second wizard page (fr2): the operation list with "Add Operation", "Remove All",
// "Show Preview" and the page's hint.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "shell/operation_list_view.h"

namespace velmora::shell {

class OperationsPage : public QWidget {
  Q_OBJECT
 public:
  OperationsPage(OperationEntries* entries, FixedControls* fixed, engine::PreviewFlags* flags,
                 QWidget* parent = nullptr);

  OperationListView* list() const { return list_; }
  QPushButton* Button8() const { return add_; }
  QPushButton* Button9() const { return remove_all_; }
  QPushButton* EnPreview() const { return show_preview_; }

 private:
  OperationListView* list_;
  QPushButton *add_, *remove_all_, *show_preview_;
};

}  // namespace velmora::shell
