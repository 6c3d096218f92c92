// Layout of the source page and the hint's drops.
#include "shell/source_page.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QVBoxLayout>

#include "shell/button_images.h"

namespace velmora::shell {

constexpr int kListMargin = 16;  // 240 twips right and below the list

DropHint::DropHint(QWidget* parent) : QFrame(parent) {
  setObjectName("Picture4");
  setAcceptDrops(true);
  setAutoFillBackground(true);
  QPalette pale = palette();
  pale.setColor(QPalette::Window, QColor(0xF4, 0xF7, 0xFC));
  setPalette(pale);
  setFrameShape(QFrame::StyledPanel);
  label_ = new QLabel(
      "Add your images for conversion here. Drag & drop them or press \"Add Images\" or \"Add Folder\" button", this);
  label_->setObjectName("Label2");
  label_->setWordWrap(true);
  label_->setAlignment(Qt::AlignCenter);
  label_->setAcceptDrops(false);  // drops on the label reach the hint
  QFont font = label_->font();
  font.setPointSizeF(font.pointSizeF() + 1);
  label_->setFont(font);
  QPalette grey = label_->palette();
  grey.setColor(QPalette::WindowText, QColor(0x60, 0x68, 0x78));
  label_->setPalette(grey);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 12, 16, 12);
  layout->addWidget(label_);
  resize(300, 90);
}

void DropHint::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void DropHint::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = DroppedPaths(event->mimeData());
  if (paths.empty()) return;
  event->acceptProposedAction();
  emit filesDropped(paths);
}

SourcePage::SourcePage(QWidget* parent) : QWidget(parent) {
  setObjectName("fr1");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, kListMargin, kListMargin);
  auto* buttons = new QHBoxLayout();
  auto make = [this, buttons](const char* name, const char* text, int image) {
    auto* button = new QPushButton(FirstStripImage(image), text, this);
    button->setObjectName(name);
    buttons->addWidget(button);
    return button;
  };
  add_images_ = make("Button1", "Add Images", 1);
  add_folder_ = make("Button2", "Add Folder", 2);
  remove_ = make("Button3", "Remove", 3);
  remove_all_ = make("Button4", "Remove All", 4);
  buttons->addStretch(1);
  show_preview_ = new QPushButton("Show Preview", this);
  show_preview_->setObjectName("EnPreview_0");
  buttons->addWidget(show_preview_);
  layout->addLayout(buttons);

  list_ = new SourceListWidget(this);
  layout->addWidget(list_, 1);
  hint_ = new DropHint(this);
  hint_->raise();
}

void SourcePage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // The hint stays centred on the list.
  const QRect area = list_->geometry();
  const int width = std::min(360, std::max(200, area.width() - 40));
  hint_->resize(width, hint_->heightForWidth(width) > 0 ? hint_->heightForWidth(width) : 90);
  hint_->move(area.center().x() - hint_->width() / 2, area.center().y() - hint_->height() / 2);
}

}  // namespace velmora::shell
