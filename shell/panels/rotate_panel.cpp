// The Rotate panel.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

RotatePanel::RotatePanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Angle:");
  ElemText1_ = MakeText("ElemText1");
  auto* direction = new QLabel(", direction:", this);
  direction->setObjectName("ElemLabel2");
  ElemCombo1_ = MakeCombo("ElemCombo1", 1);
  AddControl(0, RowOf({ElemText1_, direction, ElemCombo1_}));

  connect(ElemText1_, &QLineEdit::textChanged, this,
          [this](const QString& t) { EditElemText(c(), 1, t.toStdString(), flags()); });
  connect(ElemCombo1_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo1(c(), index, flags());
    Edited();
  });
}

void RotatePanel::Load() {
  SetText(ElemText1_, c().ElemText1);
  SetCombo(ElemCombo1_, c().ElemCombo1);
}

}  // namespace velmora::shell
