// The Brightness/Contrast panel.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

BrightnessPanel::BrightnessPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Brightness:");
  ElemText1_ = MakeText("ElemText1", false);
  ElemSlider1_ = MakeSlider("ElemSlider1", 1);
  AddControl(0, RowOf({ElemText1_, ElemSlider1_}));
  AddLabel(1, "ElemLabel2", "Contrast:");
  ElemText2_ = MakeText("ElemText2", false);
  ElemSlider2_ = MakeSlider("ElemSlider2", 2);
  AddControl(1, RowOf({ElemText2_, ElemSlider2_}));

  connect(ElemSlider1_, &QSlider::valueChanged, this, [this](int value) {
    MoveElemSlider1(c(), value, flags());
    Edited();
  });
  connect(ElemSlider2_, &QSlider::valueChanged, this, [this](int value) {
    MoveElemSlider2(c(), value, flags());
    Edited();
  });
}

void BrightnessPanel::Load() {
  SetText(ElemText1_, c().ElemText1);
  SetText(ElemText2_, c().ElemText2);
  SetSlider(ElemSlider1_, c().ElemSlider1);
  SetSlider(ElemSlider2_, c().ElemSlider2);
}

}  // namespace velmora::shell
