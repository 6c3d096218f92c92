// The Mirror panel.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

MirrorPanel::MirrorPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Mirror image:");
  ElemCombo1_ = MakeCombo("ElemCombo1", 1);
  AddControl(0, ElemCombo1_);
  connect(ElemCombo1_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo1(c(), index, flags());
    Edited();
  });
}

void MirrorPanel::Load() {
  SetCombo(ElemCombo1_, c().ElemCombo1);
}

}  // namespace velmora::shell
