// The seven operation panels, one class per kind; each lives in a file of its own and edits
// its entry's values through the handlers of panel_controls.h.
#pragma once

#include "shell/panels/operation_panel.h"

namespace velmora::shell {

// Kind 0: "Pixel dimensions:" width x height, units, "Keep proportions", "Method:".
class ResizePanel : public OperationPanel {
  Q_OBJECT
 public:
  ResizePanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  SelectAllEdit *ElemText1_, *ElemText2_;
  QComboBox *ElemCombo1_, *ElemCombo2_;
  QCheckBox* ElemCheck1_;
};

// Kind 1: "Angle:" and ", direction:".
class RotatePanel : public OperationPanel {
  Q_OBJECT
 public:
  RotatePanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  SelectAllEdit* ElemText1_;
  QComboBox* ElemCombo1_;
};

// Kind 2: "Mirror image:".
class MirrorPanel : public OperationPanel {
  Q_OBJECT
 public:
  MirrorPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  QComboBox* ElemCombo1_;
};

// Kind 3: type, text or path with "Style..." or "Browse...", alignments, offsets and angle.
class WatermarkPanel : public OperationPanel {
  Q_OBJECT
 public:
  WatermarkPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  QComboBox *ElemCombo1_, *ElemCombo2_, *ElemCombo3_;
  QLabel *ElemLabelWatermark_, *ElemLabel7_;
  SelectAllEdit *ElemTextWatermark_, *ElemText1_, *ElemText2_, *ElemText3_;
  QPushButton* ElemCommandWatermark_;
  QSlider* ElemSlider1_;
};

// Kind 4: "Effect:".
class EffectPanel : public OperationPanel {
  Q_OBJECT
 public:
  EffectPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  QComboBox* ElemCombo1_;
};

// Kind 5: "Brightness:" and "Contrast:" sliders with their value boxes.
class BrightnessPanel : public OperationPanel {
  Q_OBJECT
 public:
  BrightnessPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  SelectAllEdit *ElemText1_, *ElemText2_;
  QSlider *ElemSlider1_, *ElemSlider2_;
};

// Kind 6: "Gamma:" slider, its value shown divided by 100.
class GammaPanel : public OperationPanel {
  Q_OBJECT
 public:
  GammaPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  SelectAllEdit* ElemText1_;
  QSlider* ElemSlider1_;
};

}  // namespace velmora::shell
