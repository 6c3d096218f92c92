// "Save to": the output folder and whether to open it after the run.
#include "shell/panels/fixed_panels.h"

#include <QGridLayout>
#include <QSignalBlocker>

namespace velmora::shell {

SavePanel::SavePanel(FixedControls* fixed_controls, engine::PreviewFlags* preview_flags, QWidget* parent)
    : FixedPanel(fixed_controls, preview_flags, parent) {
  setObjectName("fr2save");
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  SaveToText1_ = new SelectAllEdit("SaveToText1", this);
  SaveToText1_->setMinimumWidth(300);
  auto* browse = new QPushButton("Browse...", this);
  browse->setObjectName("SaveToCommand5");
  Check1_ = new QCheckBox("Open target folder after conversion", this);
  Check1_->setObjectName("Check1");
  layout->addWidget(SaveToText1_, 0, 0);
  layout->addWidget(browse, 0, 1);
  layout->addWidget(Check1_, 1, 0, 1, 2);
  layout->setColumnStretch(0, 1);

  connect(SaveToText1_, &QLineEdit::textChanged, this, [this](const QString& text) {
    fixed().SaveToText1 = text.toStdString();
    this->flags().PreviewDirty = engine::kTrue;
  });
  connect(Check1_, &QCheckBox::clicked, this, [this](bool checked) { fixed().Check1 = checked; });
  connect(browse, &QPushButton::clicked, this, &FixedPanel::commandClicked);
}

void SavePanel::Load() {
  SetText(SaveToText1_, fixed().SaveToText1);
  const QSignalBlocker block(Check1_);
  Check1_->setChecked(fixed().Check1);
}

}  // namespace velmora::shell
