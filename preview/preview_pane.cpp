// Layout and painting of the preview pane.
#include "preview/preview_pane.h"

#include <QEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace velmora::preview {

PreviewBox::PreviewBox(const QString& name, QWidget* parent) : QFrame(parent) {
  setObjectName(name);
  setFrameShape(QFrame::Box);
  setLineWidth(1);
  setAutoFillBackground(true);
  QPalette white = palette();
  white.setColor(QPalette::Window, Qt::white);
  white.setColor(QPalette::WindowText, QColor(0x80, 0x80, 0x80));
  setPalette(white);
  // The design size is the least; the boxes share the pane's height as the window grows.
  setMinimumSize(kPreviewBoxWidth + 2, kPreviewBoxHeight + 2);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setCursor(Qt::PointingHandCursor);

  picture_ = new QLabel(this);
  picture_->setObjectName(name == "prwFon" ? "prw" : "prw2");
  picture_->hide();
  picture_->installEventFilter(this);

  no_image_ = new QLabel(QStringLiteral("No Image"), this);
  no_image_->setObjectName(name == "prwFon" ? "nim" : "nim2");
  no_image_->setFont(QFont(QStringLiteral("Arial"), 10));
  no_image_->setAlignment(Qt::AlignCenter);
  no_image_->setGeometry(contentsRect());
  // The label has no click of its own: a click on it is a click on the box.
  no_image_->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PreviewBox::ShowPicture(const QImage& image, int top, int left) {
  picture_->setPixmap(QPixmap::fromImage(image));
  const QPoint origin = contentsRect().topLeft();
  picture_->setGeometry(origin.x() + left, origin.y() + top, image.width(), image.height());
  picture_->show();
  no_image_->hide();
}

void PreviewBox::ClearPicture() {
  picture_->hide();
  no_image_->show();
  picture_->clear();
}

void PreviewBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
  QFrame::mouseReleaseEvent(event);
}

bool PreviewBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == picture_ && event->type() == QEvent::MouseButtonRelease &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    emit clicked();
    return true;
  }
  return QFrame::eventFilter(watched, event);
}

PreviewPane::PreviewPane(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("frPreview"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 4, 8, 8);
  layout->setSpacing(4);

  auto* original = new QLabel(QStringLiteral("Original:"), this);
  source_box_ = new PreviewBox(QStringLiteral("prwFon2"), this);
  auto* preview = new QLabel(QStringLiteral("Preview:"), this);
  result_box_ = new PreviewBox(QStringLiteral("prwFon"), this);
  hide_ = new QPushButton(QStringLiteral("Hide Preview"), this);
  hide_->setObjectName(QStringLiteral("Command3"));

  layout->addWidget(original);
  layout->addWidget(source_box_);
  layout->addSpacing(6);
  layout->addWidget(preview);
  layout->addWidget(result_box_);
  layout->addWidget(hide_, 0, Qt::AlignRight);

  wait_ = new QFrame(result_box_);
  wait_->setObjectName(QStringLiteral("prwFonWait"));
  static_cast<QFrame*>(wait_)->setFrameShape(QFrame::Box);
  wait_->setAutoFillBackground(true);
  QPalette pale = wait_->palette();
  pale.setColor(QPalette::Window, QColor(0xFF, 0xFF, 0xE1));
  wait_->setPalette(pale);
  wait_label_ = new QLabel(QStringLiteral("0%"), wait_);
  wait_label_->setObjectName(QStringLiteral("PrwFonWaitLabel"));
  wait_label_->setAlignment(Qt::AlignCenter);
  wait_->resize(44, 20);
  wait_label_->setGeometry(0, 0, 44, 20);
  wait_->hide();
  PlaceWait();

  connect(source_box_, &PreviewBox::clicked, this, &PreviewPane::sourceClicked);
  connect(result_box_, &PreviewBox::clicked, this, &PreviewPane::resultClicked);
}

void PreviewPane::PlaceWait() {
  // Kept at the bottom right corner inside the result box.
  const QRect inner = result_box_->contentsRect();
  wait_->move(inner.right() + 1 - wait_->width(), inner.bottom() + 1 - wait_->height());
}

void PreviewPane::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceWait();
}

void PreviewPane::ShowOriginal(const QImage& image, int top, int left) {
  source_box_->ShowPicture(image, top, left);
}

void PreviewPane::ShowNoOriginal() {
  source_box_->ClearPicture();
}

void PreviewPane::ClearBoth() {
  result_box_->ClearPicture();
  source_box_->ClearPicture();
}

void PreviewPane::ShowResult(const QImage& image, int top, int left) {
  result_box_->ShowPicture(image, top, left);
}

void PreviewPane::ShowWait(bool shown) {
  wait_->setVisible(shown);
  if (shown) wait_->raise();
}

void PreviewPane::SetWaitLabel(const QString& text) {
  wait_label_->setText(text);
}

}  // namespace velmora::preview
