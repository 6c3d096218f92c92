// The preview pane (frPreview): the source box ("Original:") and the result box ("Preview:"),
// each with its picture and "No Image" label, the percent overlay and "Hide Preview".
#pragma once

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

namespace velmora::preview {

// Inner size of a preview box in pixels (3255 by 2895 twips less the border).
inline constexpr int kPreviewBoxWidth = 215;
inline constexpr int kPreviewBoxHeight = 191;

// A white box that clips its picture and reports clicks on itself and on the picture.
class PreviewBox : public QFrame {
  Q_OBJECT
 public:
  explicit PreviewBox(const QString& name, QWidget* parent = nullptr);
  QLabel* picture() const { return picture_; }    // prw / prw2
  QLabel* no_image() const { return no_image_; }  // nim / nim2
  QSize innerSize() const { return contentsRect().size(); }

  void ShowPicture(const QImage& image, int top, int left);
  void ClearPicture();  // hides and clears the picture, shows "No Image"

 signals:
  void clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLabel* picture_;
  QLabel* no_image_;
};

class PreviewPane : public QWidget {
  Q_OBJECT
 public:
  explicit PreviewPane(QWidget* parent = nullptr);

  PreviewBox* prwFon2() const { return source_box_; }
  PreviewBox* prwFon() const { return result_box_; }
  QWidget* prwFonWait() const { return wait_; }
  QLabel* PrwFonWaitLabel() const { return wait_label_; }
  QPushButton* Command3() const { return hide_; }

 public slots:
  void ShowOriginal(const QImage& image, int top, int left);
  void ShowNoOriginal();
  void ClearBoth();
  void ShowResult(const QImage& image, int top, int left);
  void ShowWait(bool shown);
  void SetWaitLabel(const QString& text);

 signals:
  void sourceClicked();  // prw2 or prwFon2
  void resultClicked();  // prw or prwFon

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceWait();

  PreviewBox* source_box_;
  PreviewBox* result_box_;
  QWidget* wait_;
  QLabel* wait_label_;
  QPushButton* hide_;
};

}  // namespace velmora::preview
