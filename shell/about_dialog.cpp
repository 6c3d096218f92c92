// The about box's texts, links and logo.
#include "shell/about_dialog.h"

#include <QFrame>
#include <QLabel>
#include <QPainter>

namespace velmora::shell {
namespace {

QLabel* Text(QWidget* parent, const char* name, const QString& text, int left, int top, int width, int height = 18) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setGeometry(left, top, width, height);
  label->setWordWrap(true);
  return label;
}

ClickableLabel* Link(QWidget* parent, const char* name, const QString& text, int left, int top) {
  auto* link = new ClickableLabel(name, parent);
  link->setText(text);
  QFont font = link->font();
  font.setUnderline(true);
  link->setFont(font);
  QPalette blue = link->palette();
  blue.setColor(QPalette::WindowText, Qt::blue);
  link->setPalette(blue);
  link->move(left, top);
  link->adjustSize();
  return link;
}

}  // namespace

std::string AboutCaption() {
  return "Velmora " + std::to_string(VELMORA_VERSION_MAJOR) + "." + std::to_string(VELMORA_VERSION_MINOR) + "." +
         std::to_string(VELMORA_VERSION_PATCH);
}

AboutDialog::AboutDialog(QWidget* owner, ShellServices& services, std::function<void()> check_updates)
    : DialogFrame(owner, "Form2", QString(), 459, 270), services_(services), check_updates_(std::move(check_updates)) {
  setAutoFillBackground(true);
  QPalette white = palette();
  white.setColor(QPalette::Window, Qt::white);
  setPalette(white);

  auto rule = [this](const char* name, int top) {
    auto* line = new QFrame(this);
    line->setObjectName(name);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setGeometry(8, top, 443, 2);
  };
  rule("Frame1", 56);
  rule("Frame2", 224);

  Text(this, "Label1", "Developed by Brondale Software", 16, 66, 420);
  Text(this, "Label3", "Copyright (C) Brondale Software. All rights reserved.", 16, 86, 420);
  Text(this, "Label4",
       "This software uses the FreeImage open source image library. See http://freeimage.sourceforge.net for "
       "details. FreeImage is used under the FIPL, version 1.0.",
       16, 112, 427, 48);
  Text(this, "Label7", "Technical support:", 16, 172, 120);
  mail_ = Link(this, "Label5", kSupportAddress, 140, 172);
  Text(this, "Label8", "Official website:", 16, 194, 120);
  site_ = Link(this, "Label6", kWebSiteText, 140, 194);

  close_ = MakeButton("Command1", "Close", 459 - kDialogButtonWidth - 8, 236);
  close_->setDefault(true);
  updates_ = MakeButton("Command2", "Check for updates", 8, 236, 225);
  updates_->setEnabled(static_cast<bool>(check_updates_));

  connect(mail_, &ClickableLabel::clicked, this,
          [this] { services_.OpenUrl("mailto:" + mail_->text().toStdString()); });
  // The site's label shows the short address; the link goes to the product's own page.
  connect(site_, &ClickableLabel::clicked, this, [this] { services_.OpenUrl(kProductPage); });
  connect(close_, &QPushButton::clicked, this, &QDialog::accept);
  connect(updates_, &QPushButton::clicked, this, [this] {
    accept();
    if (check_updates_) check_updates_();
  });
}

void AboutDialog::Open() {
  setWindowTitle(QString::fromStdString(AboutCaption()));
  ShowOwned();
}

void AboutDialog::paintEvent(QPaintEvent* event) {
  DialogFrame::paintEvent(event);
  // The logo (Picture3), 174 by 25.
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QRect logo(16, 16, 174, 25);
  QLinearGradient fill(logo.topLeft(), logo.topRight());
  fill.setColorAt(0, QColor(0x2B, 0x4C, 0x8C));
  fill.setColorAt(1, QColor(0x44, 0x87, 0xEC));
  p.setPen(Qt::NoPen);
  p.setBrush(fill);
  p.drawRoundedRect(logo, 4, 4);
  QFont font(QStringLiteral("Arial"), 13, QFont::Bold);
  p.setFont(font);
  p.setPen(Qt::white);
  p.drawText(logo, Qt::AlignCenter, QStringLiteral("Velmora"));
}

}  // namespace velmora::shell
