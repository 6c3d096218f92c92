// "Convert to": the output format.
#include "shell/panels/fixed_panels.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

namespace velmora::shell {

ConvertPanel::ConvertPanel(FixedControls* fixed_controls, engine::PreviewFlags* preview_flags, QWidget* parent)
    : FixedPanel(fixed_controls, preview_flags, parent) {
  setObjectName("fr2convert");
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel("Output format:", this);
  label->setObjectName("FormatLabel1");
  label->setFixedWidth(104);
  FormatCombo1_ = new QComboBox(this);
  FormatCombo1_->setObjectName("FormatCombo1");
  for (const std::string& name : OutputFormatNames()) FormatCombo1_->addItem(QString::fromStdString(name));
  FormatCombo1_->setMinimumWidth(120);
  auto* settings = new QPushButton("Settings...", this);
  settings->setObjectName("FormatCommand1");
  layout->addWidget(label);
  layout->addWidget(FormatCombo1_);
  layout->addWidget(settings);
  layout->addStretch(1);

  connect(FormatCombo1_, &QComboBox::activated, this, [this](int index) {
    fixed().FormatCombo1 = index;
    this->flags().PreviewDirty = engine::kTrue;
  });
  connect(settings, &QPushButton::clicked, this, &FixedPanel::commandClicked);
}

void ConvertPanel::Load() {
  const QSignalBlocker block(FormatCombo1_);
  FormatCombo1_->setCurrentIndex(fixed().FormatCombo1);
}

}  // namespace velmora::shell
