// `Button`, the program's own skinned push button as a Qt widget: Qt properties for every
// property, signals for its events, and the state machine and renderer doing the work behind it.
#pragma once

#include <QImage>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "controls/button_properties.h"
#include "controls/button_renderer.h"
#include "controls/button_state_machine.h"
#include "controls/property_bag.h"

class QMimeData;

namespace velmora::controls {

// Colours are 0x00BBGGRR values or system colours (0x80000000 | index), see ole_color.h.
// `Enabled` and `Font` are the widget's own enabled state and font (setEnabled, setFont).
// The control sizes itself: never under 25 pixels a side, and square for shapes 2 to 11, so give
// it a fixed place rather than a stretching layout cell.
class Button : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int ButtonShape READ ButtonShape WRITE setButtonShape)
  Q_PROPERTY(int ButtonStyle READ ButtonStyle WRITE setButtonStyle)
  Q_PROPERTY(int ButtonStyleColors READ ButtonStyleColors WRITE setButtonStyleColors)
  Q_PROPERTY(int ButtonTheme READ ButtonTheme WRITE setButtonTheme)
  Q_PROPERTY(int ButtonType READ ButtonType WRITE setButtonType)
  Q_PROPERTY(int CaptionAlignment READ CaptionAlignment WRITE setCaptionAlignment)
  Q_PROPERTY(int CaptionEffect READ CaptionEffect WRITE setCaptionEffect)
  Q_PROPERTY(int CaptionStyle READ CaptionStyle WRITE setCaptionStyle)
  Q_PROPERTY(int DropDown READ DropDown WRITE setDropDown)
  Q_PROPERTY(int PictureAlignment READ PictureAlignment WRITE setPictureAlignment)
  Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
  Q_PROPERTY(quint32 BackColorPressed READ BackColorPressed WRITE setBackColorPressed)
  Q_PROPERTY(quint32 BackColorHover READ BackColorHover WRITE setBackColorHover)
  Q_PROPERTY(quint32 BorderColor READ BorderColor WRITE setBorderColor)
  Q_PROPERTY(quint32 BorderColorPressed READ BorderColorPressed WRITE setBorderColorPressed)
  Q_PROPERTY(quint32 BorderColorHover READ BorderColorHover WRITE setBorderColorHover)
  Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
  Q_PROPERTY(quint32 ForeColorPressed READ ForeColorPressed WRITE setForeColorPressed)
  Q_PROPERTY(quint32 ForeColorHover READ ForeColorHover WRITE setForeColorHover)
  Q_PROPERTY(quint32 EffectColor READ EffectColor WRITE setEffectColor)
  Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
  Q_PROPERTY(bool FocusRect READ FocusRect WRITE setFocusRect)
  Q_PROPERTY(bool Value READ Value WRITE setValue)
  Q_PROPERTY(bool HandPointer READ HandPointer WRITE setHandPointer)
  Q_PROPERTY(QImage Picture READ Picture WRITE setPicture)
  Q_PROPERTY(bool PictureGray READ PictureGray WRITE setPictureGray)
  Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
  Q_PROPERTY(QImage MouseIcon READ MouseIcon WRITE setMouseIcon)
  Q_PROPERTY(bool DesignMode READ DesignMode WRITE setDesignMode)

 public:
  // `name` is the control's own name: its object name and the caption of a new control.
  explicit Button(QWidget* parent = nullptr, const QString& name = QStringLiteral("Button1"));

  int ButtonShape() const { return props_.ButtonShape; }
  int ButtonStyle() const { return props_.ButtonStyle; }
  int ButtonStyleColors() const { return props_.ButtonStyleColors; }
  int ButtonTheme() const { return props_.ButtonTheme; }
  int ButtonType() const { return props_.ButtonType; }
  int CaptionAlignment() const { return props_.CaptionAlignment; }
  int CaptionEffect() const { return props_.CaptionEffect; }
  int CaptionStyle() const { return props_.CaptionStyle; }
  int DropDown() const { return props_.DropDown; }
  int PictureAlignment() const { return props_.PictureAlignment; }
  quint32 BackColor() const { return props_.BackColor; }
  quint32 BackColorPressed() const { return props_.BackColorPressed; }
  quint32 BackColorHover() const { return props_.BackColorHover; }
  quint32 BorderColor() const { return props_.BorderColor; }
  quint32 BorderColorPressed() const { return props_.BorderColorPressed; }
  quint32 BorderColorHover() const { return props_.BorderColorHover; }
  quint32 ForeColor() const { return props_.ForeColor; }
  quint32 ForeColorPressed() const { return props_.ForeColorPressed; }
  quint32 ForeColorHover() const { return props_.ForeColorHover; }
  quint32 EffectColor() const { return props_.EffectColor; }
  QString Caption() const { return props_.Caption; }
  bool FocusRect() const { return props_.FocusRect; }
  bool Value() const { return props_.Value; }
  bool HandPointer() const { return props_.HandPointer; }
  QImage Picture() const { return props_.Picture; }
  bool PictureGray() const { return props_.PictureGray; }
  int MousePointer() const { return props_.MousePointer; }
  QImage MouseIcon() const { return props_.MouseIcon; }
  bool DesignMode() const { return machine_.design_mode(); }

  void setButtonShape(int value);
  void setButtonStyle(int value);  // runs the style preset
  void setButtonStyleColors(int value);
  void setButtonTheme(int value);  // runs the theme preset
  void setButtonType(int value);
  void setCaptionAlignment(int value);
  void setCaptionEffect(int value);
  void setCaptionStyle(int value);
  void setDropDown(int value);
  void setPictureAlignment(int value);
  void setBackColor(quint32 value);
  void setBackColorPressed(quint32 value);
  void setBackColorHover(quint32 value);
  void setBorderColor(quint32 value);
  void setBorderColorPressed(quint32 value);
  void setBorderColorHover(quint32 value);
  void setForeColor(quint32 value);
  void setForeColorPressed(quint32 value);
  void setForeColorHover(quint32 value);
  void setEffectColor(quint32 value);
  void setCaption(const QString& value);
  void setFocusRect(bool value);
  void setValue(bool value);
  void setHandPointer(bool value);
  void setPicture(const QImage& value);
  void setPictureGray(bool value);
  void setMousePointer(int value);
  void setMouseIcon(const QImage& value);
  // In a design host the control ignores the pointer's moves.
  void setDesignMode(bool on);

  // The control's native window, 0 while it has none.
  quintptr hWnd() const;
  const ButtonProperties& properties() const { return props_; }
  const ButtonState& state() const { return machine_.state(); }
  // The last drawn image of the control (what the platform would hold in its device context).
  const QImage& surface() const { return frame_.image; }

  // Saving and restoring; reading does not run the style and theme presets.
  void WriteProperties(PropertyBag& bag) const;
  void ReadProperties(const PropertyBag& bag);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 public slots:
  void Refresh();
  // Starts dragging the control's data; the ole* signals let the form fill and follow it.
  void OLEDrag();

 signals:
  void clicked();
  void doubleClicked();
  void keyDown(int keyCode, int shift);
  void keyPress(int keyAscii);
  void keyUp(int keyCode, int shift);
  void mouseDown(int button, int shift, int x, int y);
  void mouseMove(int button, int shift, int x, int y);
  void mouseUp(int button, int shift, int x, int y);
  // Drag and drop, forwarded as they come. Effects are 0 none, 1 copy, 2 move; a handler may
  // change the pointed-to effect. `state` of oleDragOver is 0 enter, 1 leave, 2 over.
  void oleCompleteDrag(int effect);
  void oleDragDrop(const QMimeData* data, int* effect, int button, int shift, int x, int y);
  void oleDragOver(const QMimeData* data, int* effect, int button, int shift, int x, int y, int state);
  void oleGiveFeedback(int effect, bool* defaultCursors);
  void oleSetData(QMimeData* data, const QString& dataFormat);
  void oleStartDrag(QMimeData* data, int* allowedEffects);
  // A property was set (the host saves the control when it sees this).
  void propertyChanged(const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  template <typename T>
  void set_field(T ButtonProperties::*field, const T& value, const char* name);
  void changed(const char* name);
  void run(const ButtonActions& actions);
  void raise(const ButtonEvent& event);
  void paint_now();
  void update_cursor();
  QFont host_font() const;

  ButtonProperties props_;
  ButtonStateMachine machine_;
  ButtonFrame frame_;
  bool painting_ = false;
  bool press_on_control_ = false;
  bool release_after_double_click_ = false;
};

}  // namespace velmora::controls
