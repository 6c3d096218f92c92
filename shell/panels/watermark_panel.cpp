// The Watermark panel, text or image.
#include "shell/panels/kind_panels.h"

namespace velmora::shell {

WatermarkPanel::WatermarkPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : OperationPanel(entry, preview_flags, parent) {
  AddLabel(0, "ElemLabel1", "Watermark type:");
  ElemCombo1_ = MakeCombo("ElemCombo1", 1);
  AddControl(0, ElemCombo1_);

  ElemLabelWatermark_ = AddLabel(1, "ElemLabelWatermark", "Text:");
  ElemTextWatermark_ = new SelectAllEdit("ElemTextWatermark", this);
  ElemTextWatermark_->setMinimumWidth(220);
  ElemCommandWatermark_ = new QPushButton("Style...", this);
  ElemCommandWatermark_->setObjectName("ElemCommandWatermark");
  AddControl(1, RowOf({ElemTextWatermark_, ElemCommandWatermark_}));

  AddLabel(2, "ElemLabel2", "Horisontal alignment:");
  ElemCombo2_ = MakeCombo("ElemCombo2", 2);
  AddControl(2, ElemCombo2_);
  AddLabel(3, "ElemLabel3", "Vertical alignment:");
  ElemCombo3_ = MakeCombo("ElemCombo3", 3);
  AddControl(3, ElemCombo3_);
  AddLabel(4, "ElemLabel4", "Horisontal offset:");
  ElemText1_ = MakeText("ElemText1");
  AddControl(4, ElemText1_);
  AddLabel(5, "ElemLabel5", "Vertical offset:");
  ElemText2_ = MakeText("ElemText2");
  AddControl(5, ElemText2_);
  ElemLabel7_ = AddLabel(6, "ElemLabel7", "Angle:");
  ElemText3_ = MakeText("ElemText3", false);
  ElemSlider1_ = MakeSlider("ElemSlider1", 1);
  AddControl(6, RowOf({ElemText3_, ElemSlider1_}));
  // Hiding the angle row keeps the panel's height: the entry was sized when it was made.
  for (QWidget* keep :
       {static_cast<QWidget*>(ElemLabel7_), static_cast<QWidget*>(ElemText3_), static_cast<QWidget*>(ElemSlider1_)}) {
    QSizePolicy policy = keep->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    keep->setSizePolicy(policy);
  }

  connect(ElemCombo1_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo1(c(), index, flags());
    Edited();
  });
  connect(ElemCombo2_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo(c(), 2, index, flags());
    Edited();
  });
  connect(ElemCombo3_, &QComboBox::activated, this, [this](int index) {
    ChooseElemCombo(c(), 3, index, flags());
    Edited();
  });
  connect(ElemTextWatermark_, &QLineEdit::textChanged, this,
          [this](const QString& t) { EditElemText(c(), 0, t.toStdString(), flags()); });
  connect(ElemText1_, &QLineEdit::textChanged, this,
          [this](const QString& t) { EditElemText(c(), 1, t.toStdString(), flags()); });
  connect(ElemText2_, &QLineEdit::textChanged, this,
          [this](const QString& t) { EditElemText(c(), 2, t.toStdString(), flags()); });
  connect(ElemSlider1_, &QSlider::valueChanged, this, [this](int value) {
    MoveElemSlider1(c(), value, flags());
    Edited();
  });
  connect(ElemCommandWatermark_, &QPushButton::clicked, this, &OperationPanel::commandClicked);
}

void WatermarkPanel::Load() {
  SetCombo(ElemCombo1_, c().ElemCombo1);
  SetCombo(ElemCombo2_, c().ElemCombo2);
  SetCombo(ElemCombo3_, c().ElemCombo3);
  ElemLabelWatermark_->setText(QString::fromStdString(c().ElemLabelWatermark));
  ElemCommandWatermark_->setText(QString::fromStdString(c().ElemCommandWatermark));
  SetText(ElemTextWatermark_, c().ElemTextWatermark);
  SetText(ElemText1_, c().ElemText1);
  SetText(ElemText2_, c().ElemText2);
  SetText(ElemText3_, c().ElemText3);
  SetSlider(ElemSlider1_, c().ElemSlider1);
  ElemLabel7_->setVisible(c().AngleControlsShown);
  ElemText3_->setVisible(c().AngleControlsShown);
  ElemSlider1_->setVisible(c().AngleControlsShown);
}

}  // namespace velmora::shell
