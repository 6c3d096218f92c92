// The Gamma correction panel.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

GammaPanel::GammaPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Gamma:");
  ElemText1_ = MakeText("ElemText1", false);
  ElemSlider1_ = MakeSlider("ElemSlider1", 1);
  AddControl(0, RowOf({ElemText1_, ElemSlider1_}));
  connect(ElemSlider1_, &QSlider::valueChanged, this, [this](int value) {
    MoveElemSlider1(c(), value, flags());
    Edited();
  });
}

void GammaPanel::Load() {
  SetText(ElemText1_, c().ElemText1);
  SetSlider(ElemSlider1_, c().ElemSlider1);
}

}  // namespace velmora::shell
