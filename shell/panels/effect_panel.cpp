// The Effect panel.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

EffectPanel::EffectPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Effect:");
  ElemCombo1_ = MakeCombo("ElemCombo1", 1);
  AddControl(0, ElemCombo1_);
  connect(ElemCombo1_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo1(c(), index, flags());
    Edited();
  });
}

void EffectPanel::Load() {
  SetCombo(ElemCombo1_, c().ElemCombo1);
}

}  // namespace velmora::shell
