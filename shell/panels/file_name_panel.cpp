// "File name": the output file name template and the menu of its tokens.
#include "shell/panels/fixed_panels.h"

#include <QHBoxLayout>

namespace velmora::shell {

FileNamePanel::FileNamePanel(FixedControls* fixed_controls, engine::PreviewFlags* preview_flags, QWidget* parent)
    : FixedPanel(fixed_controls, preview_flags, parent) {
  setObjectName("fr2filename");
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel("Output file name template:", this);
  label->setObjectName("FileNameLabel1");
  FileNameText1_ = new SelectAllEdit("FileNameText1", this);
  FileNameText1_->setMinimumWidth(200);
  FileNameCommand1_ = new QPushButton(QString::fromUtf8("\u25BC"), this);
  FileNameCommand1_->setObjectName("FileNameCommand1");
  FileNameCommand1_->setFixedWidth(28);
  FileNameCommand1_->setToolTip("Insert a name part");
  layout->addWidget(label);
  layout->addWidget(FileNameText1_, 1);
  layout->addWidget(FileNameCommand1_);

  // The template has no effect on the preview: an edit asks for none.
  connect(FileNameText1_, &QLineEdit::textChanged, this,
          [this](const QString& text) { fixed().FileNameText1 = text.toStdString(); });
  connect(FileNameCommand1_, &QPushButton::clicked, this, &FixedPanel::commandClicked);
}

void FileNamePanel::Load() {
  SetText(FileNameText1_, fixed().FileNameText1);
}

}  // namespace velmora::shell
