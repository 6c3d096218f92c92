// The Resize panel.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

ResizePanel::ResizePanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Pixel dimensions:");
  ElemText1_ = MakeText("ElemText1");
  ElemText2_ = MakeText("ElemText2");
  auto* times = new QLabel("x", this);
  times->setObjectName("ElemLabel2");
  ElemCombo1_ = MakeCombo("ElemCombo1", 1);
  AddControl(0, RowOf({ElemText1_, times, ElemText2_, ElemCombo1_}));
  ElemCheck1_ = new QCheckBox("Keep proportions", this);
  ElemCheck1_->setObjectName("ElemCheck1");
  AddControl(1, ElemCheck1_);
  AddLabel(2, "ElemLabel3", "Method:");
  ElemCombo2_ = MakeCombo("ElemCombo2", 2);
  AddControl(2, ElemCombo2_);

  connect(ElemText1_, &QLineEdit::textChanged, this,
          [this](const QString& t) { EditElemText(c(), 1, t.toStdString(), flags()); });
  connect(ElemText2_, &QLineEdit::textChanged, this,
          [this](const QString& t) { EditElemText(c(), 2, t.toStdString(), flags()); });
  connect(ElemCombo1_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo1(c(), index, flags());
    Edited();
  });
  connect(ElemCombo2_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo(c(), 2, index, flags());
    Edited();
  });
  connect(ElemCheck1_, &QCheckBox::clicked, this, [this](bool checked) {
    ClickElemCheck1(c(), checked, flags());
    Edited();
  });
}

void ResizePanel::Load() {
  SetText(ElemText1_, c().ElemText1);
  SetText(ElemText2_, c().ElemText2);
  SetCombo(ElemCombo1_, c().ElemCombo1);
  SetCombo(ElemCombo2_, c().ElemCombo2);
  const QSignalBlocker block(ElemCheck1_);
  ElemCheck1_->setChecked(c().ElemCheck1);
  ElemCheck1_->setEnabled(c().ElemCheck1Enabled);
}

}  // namespace velmora::shell
