// The shared part of the fixed panels and their factory.
#include "shell/panels/fixed_panels.h"

#include <QSignalBlocker>

#include "shell/panel_controls.h"

namespace velmora::shell {

FixedPanel::FixedPanel(FixedControls* fixed_controls, engine::PreviewFlags* preview_flags, QWidget* parent)
    : QWidget(parent), fixed_(fixed_controls), flags_(preview_flags) {}

void FixedPanel::SetText(QLineEdit* edit, const std::string& text) {
  const QString value = QString::fromStdString(text);
  if (edit->text() == value) return;
  const QSignalBlocker block(edit);
  edit->setText(value);
  edit->setCursorPosition(0);  // a text longer than the box shows its beginning
}

FixedPanel* MakeFixedPanel(std::int16_t tag, FixedControls* fixed_controls, engine::PreviewFlags* preview_flags,
                           QWidget* parent) {
  FixedPanel* panel = nullptr;
  switch (tag) {
    case kConvertToEntry: panel = new ConvertPanel(fixed_controls, preview_flags, parent); break;
    case kSaveToEntry: panel = new SavePanel(fixed_controls, preview_flags, parent); break;
    case kFileNameEntry: panel = new FileNamePanel(fixed_controls, preview_flags, parent); break;
    default: return nullptr;
  }
  panel->Load();
  return panel;
}

}  // namespace velmora::shell
