// `TindraLabel`, the program's own text label as a Qt widget: transparent or opaque, sizing itself
// to its caption, eliding long paths; Qt properties for its properties, signals for its events.
#pragma once

#include <QImage>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "controls/label_properties.h"
#include "controls/property_bag.h"

namespace velmora::controls {

// Colours are 0x00BBGGRR values or system colours (0x80000000 | index), see ole_color.h.
// `Enabled` and `Font` are the widget's own enabled state and font (setEnabled, setFont);
// disabling grays the text and enabling restores the colour last set.
class TindraLabel : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int Alignment READ Alignment WRITE setAlignment)
  Q_PROPERTY(bool AutoSize READ AutoSize WRITE setAutoSize)
  Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
  Q_PROPERTY(int BackStyle READ BackStyle WRITE setBackStyle)
  Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
  Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
  Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
  Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
  Q_PROPERTY(QImage MouseIcon READ MouseIcon WRITE setMouseIcon)
  Q_PROPERTY(bool PathEllipsis READ PathEllipsis WRITE setPathEllipsis)
  Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE setRightToLeft)
  Q_PROPERTY(bool UseMnemonic READ UseMnemonic WRITE setUseMnemonic)
  Q_PROPERTY(bool WordWrap READ WordWrap WRITE setWordWrap)

 public:
  // `name` is the control's own name: its object name and the caption of a new control. A new
  // control takes its colours and font from its parent.
  explicit TindraLabel(QWidget* parent = nullptr, const QString& name = QStringLiteral("TindraLabel1"));

  int Alignment() const { return props_.Alignment; }
  bool AutoSize() const { return props_.AutoSize; }
  quint32 BackColor() const { return props_.BackColor; }
  int BackStyle() const { return props_.BackStyle; }
  int BorderStyle() const { return props_.BorderStyle; }
  QString Caption() const { return props_.Caption; }
  quint32 ForeColor() const { return props_.ForeColor; }
  int MousePointer() const { return props_.MousePointer; }
  QImage MouseIcon() const { return props_.MouseIcon; }
  bool PathEllipsis() const { return props_.PathEllipsis; }
  bool RightToLeft() const { return props_.RightToLeft; }
  bool UseMnemonic() const { return props_.UseMnemonic; }
  bool WordWrap() const { return props_.WordWrap; }

  void setAlignment(int value);
  void setAutoSize(bool value);
  void setBackColor(quint32 value);
  void setBackStyle(int value);
  void setBorderStyle(int value);
  // Raises `changed` every time, even for the same text, before the redraw.
  void setCaption(const QString& value);
  void setForeColor(quint32 value);
  void setMousePointer(int value);
  void setMouseIcon(const QImage& value);
  void setPathEllipsis(bool value);
  void setRightToLeft(bool value);
  void setUseMnemonic(bool value);
  void setWordWrap(bool value);

  // The widget that takes the focus when the caption's access key ("&x") is pressed.
  void setBuddy(QWidget* buddy);

  quintptr hWnd() const;
  const LabelProperties& properties() const { return props_; }

  void WriteProperties(PropertyBag& bag) const;
  void ReadProperties(const PropertyBag& bag);

  QSize sizeHint() const override;

 public slots:
  void Refresh();

 signals:
  void changed();
  void clicked();
  void doubleClicked();
  void keyDown(int keyCode, int shift);
  void keyPress(int keyAscii);
  void keyUp(int keyCode, int shift);
  void mouseDown(int button, int shift, int x, int y);
  void mouseMove(int button, int shift, int x, int y);
  void mouseUp(int button, int shift, int x, int y);
  void propertyChanged(const QString& name);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

 private:
  template <typename T>
  void set_field(T LabelProperties::*field, const T& value, const char* name);
  void changed_property(const char* name);
  void update_shortcut();
  void update_cursor();
  QFont host_font() const;

  LabelProperties props_;
  QPointer<QWidget> buddy_;
  int shortcut_id_ = 0;
  bool resizing_ = false;
  bool press_on_control_ = false;
};

}  // namespace velmora::controls
