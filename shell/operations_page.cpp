// Layout of the operations page.
#include "shell/operations_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/button_images.h"

namespace velmora::shell {

OperationsPage::OperationsPage(OperationEntries* entries, FixedControls* fixed, engine::PreviewFlags* flags,
                               QWidget* parent)
    : QWidget(parent) {
  setObjectName("fr2");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 16, 16);
  auto* top = new QHBoxLayout();
  auto* hint = new QLabel(
      "At this step you can add operations (such as resize). You can save conversion settings as a profile "
      "to re-use later.",
      this);
  hint->setObjectName("fr2Hint");
  hint->setWordWrap(true);
  top->addWidget(hint, 1);
  show_preview_ = new QPushButton("Show Preview", this);
  show_preview_->setObjectName("EnPreview_1");
  top->addWidget(show_preview_, 0, Qt::AlignTop);
  layout->addLayout(top);

  list_ = new OperationListView(entries, fixed, flags, this);
  layout->addWidget(list_, 1);

  auto* buttons = new QHBoxLayout();
  add_ = new QPushButton(FirstStripImage(5), "Add Operation", this);
  add_->setObjectName("Button8");
  remove_all_ = new QPushButton(FirstStripImage(4), "Remove All", this);
  remove_all_->setObjectName("Button9");
  buttons->addWidget(add_);
  buttons->addWidget(remove_all_);
  buttons->addStretch(1);
  layout->addLayout(buttons);
}

}  // namespace velmora::shell
