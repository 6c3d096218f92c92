// Layout of the run page.
#include "shell/run_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/button_images.h"

namespace velmora::shell {

RunPage::RunPage(QWidget* parent) : QWidget(parent) {
  setObjectName("fr3");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 24, 24, 16);
  layout->setSpacing(10);
  status_ = new QLabel("Processing...", this);
  status_->setObjectName("lblStatus");
  QFont big = status_->font();
  big.setPointSizeF(big.pointSizeF() * 1.4);
  big.setBold(true);
  status_->setFont(big);
  file_ = new QLabel("Current file:", this);
  file_->setObjectName("lblFile");
  file_->setWordWrap(true);
  progress_ = new QProgressBar(this);
  progress_->setObjectName("pb1");
  progress_->setRange(0, 100);
  progress_->setValue(0);
  progress_->setTextVisible(false);
  layout->addWidget(status_);
  layout->addWidget(file_);
  layout->addWidget(progress_);
  layout->addSpacing(12);

  auto* buttons = new QHBoxLayout();
  auto make = [this, buttons](const char* name, const char* text, int image) {
    auto* button = new QPushButton(SecondStripImage(image), text, this);
    button->setObjectName(name);
    buttons->addWidget(button);
    return button;
  };
  open_folder_ = make("Button5", "Open folder", 1);
  picasa_ = make("Button6", "Upload to Picasa", 2);
  ftp_ = make("Button7", "Upload to FTP", 3);
  buttons->addStretch(1);
  layout->addLayout(buttons);
  layout->addStretch(1);
}

}  // namespace velmora::shell
