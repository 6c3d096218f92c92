// Rows, widget helpers and the panel factory.
#include "shell/panels/operation_panel.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

#include "shell/panels/kind_panels.h"

namespace velmora::shell {

// Labels stand at the panel's left and controls in one column beside them, wide enough for the
// longest label ("Horisontal alignment:") in the window's font.
constexpr int kLabelColumnWidth = 150;

OperationPanel::OperationPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent)
    : QWidget(parent), entry_(entry), flags_(preview_flags) {
  grid_ = new QGridLayout(this);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(0);
  grid_->setVerticalSpacing(4);
  grid_->setColumnMinimumWidth(0, kLabelColumnWidth);
  grid_->setColumnStretch(1, 1);
}

void OperationPanel::Edited() {
  Load();
  emit changed();
}

QLabel* OperationPanel::AddLabel(int row, const QString& name, const QString& text) {
  auto* label = new QLabel(text, this);
  label->setObjectName(name);
  grid_->addWidget(label, row, 0);
  return label;
}

void OperationPanel::AddControl(int row, QWidget* control) {
  grid_->addWidget(control, row, 1, Qt::AlignLeft);
}

QWidget* OperationPanel::RowOf(std::initializer_list<QWidget*> widgets) {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  for (QWidget* widget : widgets) {
    widget->setParent(row);
    layout->addWidget(widget);
  }
  layout->addStretch(1);
  return row;
}

QComboBox* OperationPanel::MakeCombo(const QString& name, int which) {
  auto* combo = new QComboBox(this);
  combo->setObjectName(name);
  for (const std::string& item : ComboItems(c().tag, which)) combo->addItem(QString::fromStdString(item));
  combo->setMinimumWidth(120);
  return combo;
}

SelectAllEdit* OperationPanel::MakeText(const QString& name, bool enabled) {
  auto* edit = new SelectAllEdit(name, this);
  edit->setFixedWidth(60);
  edit->setEnabled(enabled);
  return edit;
}

QSlider* OperationPanel::MakeSlider(const QString& name, int which) {
  auto* slider = new QSlider(Qt::Horizontal, this);
  slider->setObjectName(name);
  const SliderRange range = SliderRangeOf(c().tag, which);
  slider->setRange(range.minimum, range.maximum);
  slider->setMinimumWidth(160);
  return slider;
}

void OperationPanel::SetCombo(QComboBox* combo, int index) {
  const QSignalBlocker block(combo);
  combo->setCurrentIndex(index);
}

void OperationPanel::SetText(QLineEdit* edit, const std::string& text) {
  const QString value = QString::fromStdString(text);
  if (edit->text() == value) return;
  const QSignalBlocker block(edit);
  edit->setText(value);
}

void OperationPanel::SetSlider(QSlider* slider, int value) {
  const QSignalBlocker block(slider);
  slider->setValue(value);
}

OperationPanel* MakeOperationPanel(OperationEntry* entry, engine::PreviewFlags* preview_flags, QWidget* parent) {
  OperationPanel* panel = nullptr;
  switch (entry->controls.tag) {
    case engine::kResize: panel = new ResizePanel(entry, preview_flags, parent); break;
    case engine::kRotate: panel = new RotatePanel(entry, preview_flags, parent); break;
    case engine::kMirror: panel = new MirrorPanel(entry, preview_flags, parent); break;
    case engine::kWatermark: panel = new WatermarkPanel(entry, preview_flags, parent); break;
    case engine::kEffect: panel = new EffectPanel(entry, preview_flags, parent); break;
    case engine::kBrightnessContrast: panel = new BrightnessPanel(entry, preview_flags, parent); break;
    case engine::kGamma: panel = new GammaPanel(entry, preview_flags, parent); break;
    default: return nullptr;
  }
  panel->Load();
  return panel;
}

}  // namespace velmora::shell
