// The Button widget driven by synthetic Qt events: signals in order, the size rules, the window
// mask, focus, the hand cursor, persistence and the drop side of drag and drop.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

#include "controls/button.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

class ButtonWidgetTest : public ::testing::Test {
 protected:
  ButtonWidgetTest() : button(nullptr, "cmdStart") {
    button.show();
    QObject::connect(&button, &Button::clicked, [this] { log << "Click"; });
    QObject::connect(&button, &Button::doubleClicked, [this] { log << "DblClick"; });
    QObject::connect(&button, &Button::keyDown,
                     [this](int k, int s) { log << QString("KeyDown %1 %2").arg(k).arg(s); });
    QObject::connect(&button, &Button::keyPress, [this](int k) { log << QString("KeyPress %1").arg(k); });
    QObject::connect(&button, &Button::keyUp, [this](int k, int s) { log << QString("KeyUp %1 %2").arg(k).arg(s); });
    auto mouse = [this](const char* name) {
      return [this, name](int b, int s, int x, int y) {
        log << QString("%1 %2 %3 %4 %5").arg(name).arg(b).arg(s).arg(x).arg(y);
      };
    };
    QObject::connect(&button, &Button::mouseDown, mouse("MouseDown"));
    QObject::connect(&button, &Button::mouseMove, mouse("MouseMove"));
    QObject::connect(&button, &Button::mouseUp, mouse("MouseUp"));
  }

  void Mouse(QEvent::Type type, QPoint at, Qt::MouseButton which = Qt::LeftButton,
             Qt::MouseButtons held = Qt::LeftButton) {
    QMouseEvent event(type, at, button.mapToGlobal(at), which, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &event);
  }
  void Key(QEvent::Type type, int key, const QString& text) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&button, &event);
  }
  void ClickAt(QPoint at) {
    Mouse(QEvent::MouseButtonPress, at);
    Mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
  }

  Button button;
  QStringList log;
};

TEST_F(ButtonWidgetTest, NewControlTakesItsNameAndSize) {
  EXPECT_EQ(button.objectName(), "cmdStart");
  EXPECT_EQ(button.Caption(), "cmdStart");
  EXPECT_EQ(button.size(), QSize(80, 33));
  EXPECT_EQ(button.font().family(), "Tahoma");
  EXPECT_EQ(button.property("ButtonStyle").toInt(), 1);
  EXPECT_EQ(button.property("ForeColorHover").toUInt(), 0xFF0000u);
}

TEST_F(ButtonWidgetTest, SquareShapesAndMinimumSize) {
  button.setButtonShape(shape::kEllipse);
  EXPECT_EQ(button.size(), QSize(80, 80));
  button.resize(100, 50);
  EXPECT_EQ(button.size(), QSize(100, 100));
  button.resize(50, 100);
  EXPECT_EQ(button.size(), QSize(50, 50));
  button.setButtonShape(shape::kRectangle);
  button.resize(10, 10);
  EXPECT_EQ(button.size(), QSize(25, 25));
  button.resize(80, 20);
  EXPECT_EQ(button.size(), QSize(80, 25));
  button.setButtonShape(12);  // unknown shapes are square too
  button.resize(60, 30);
  EXPECT_EQ(button.size(), QSize(60, 60));
}

TEST_F(ButtonWidgetTest, ShapeSetsTheWindowMask) {
  EXPECT_TRUE(button.mask().isEmpty());
  button.setButtonShape(shape::kDiamond);
  EXPECT_FALSE(button.mask().isEmpty());
  EXPECT_FALSE(button.mask().contains(QPoint(0, 0)));
  EXPECT_TRUE(button.mask().contains(QPoint(40, 40)));
  button.setButtonShape(12);
  EXPECT_TRUE(button.mask().isEmpty());
}

TEST_F(ButtonWidgetTest, MouseClickRaisesEventsInOrder) {
  Mouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton);
  EXPECT_TRUE(button.state().Hover);
  ClickAt({10, 10});
  EXPECT_EQ(log, (QStringList{"MouseMove 0 0 10 10", "MouseDown 1 0 10 10", "MouseUp 1 0 10 10", "Click"}));
  EXPECT_FALSE(button.state().Pressed);
}

TEST_F(ButtonWidgetTest, LeavingEndsTheHover) {
  Mouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton);
  ASSERT_TRUE(button.state().Hover);
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&button, &leave);
  EXPECT_FALSE(button.state().Hover);
}

TEST_F(ButtonWidgetTest, ReleaseOffTheControlRaisesNoClick) {
  Mouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton);
  Mouse(QEvent::MouseButtonPress, {10, 10});
  Mouse(QEvent::MouseMove, {200, 10});
  EXPECT_FALSE(button.state().Pressed);
  Mouse(QEvent::MouseButtonRelease, {200, 10}, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(log.last(), "MouseUp 1 0 200 10");
  EXPECT_FALSE(log.contains("Click"));
}

TEST_F(ButtonWidgetTest, DoubleClickRaisesOneClick) {
  ClickAt({5, 5});
  Mouse(QEvent::MouseButtonDblClick, {5, 5});
  Mouse(QEvent::MouseButtonRelease, {5, 5}, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(log, (QStringList{"MouseDown 1 0 5 5", "MouseUp 1 0 5 5", "Click", "DblClick", "MouseUp 1 0 5 5"}));
}

TEST_F(ButtonWidgetTest, ToggleChecksAndClears) {
  button.setButtonType(kToggleButton);
  ClickAt({10, 10});
  EXPECT_TRUE(button.Value());
  EXPECT_TRUE(button.state().Pressed);
  ClickAt({10, 10});
  EXPECT_FALSE(button.Value());
}

TEST_F(ButtonWidgetTest, EnterKeyLeavesItDownWithoutAClick) {
  Key(QEvent::KeyPress, Qt::Key_Return, "\r");
  EXPECT_TRUE(button.state().Pressed);
  Key(QEvent::KeyRelease, Qt::Key_Return, "\r");
  EXPECT_EQ(log, (QStringList{"KeyDown 13 0", "KeyPress 13", "MouseDown 0 0 0 0", "KeyUp 13 0"}));
  EXPECT_TRUE(button.state().Pressed);
}

TEST_F(ButtonWidgetTest, SpaceKeyRaisesNoClick) {
  Key(QEvent::KeyPress, Qt::Key_Space, " ");
  Key(QEvent::KeyRelease, Qt::Key_Space, " ");
  EXPECT_EQ(log, (QStringList{"KeyDown 32 0", "KeyPress 32", "KeyUp 32 0"}));
  EXPECT_FALSE(button.state().Pressed);
}

TEST_F(ButtonWidgetTest, FocusDrawsTheMark) {
  button.setCaption(QString());
  QFocusEvent in(QEvent::FocusIn);
  QCoreApplication::sendEvent(&button, &in);
  EXPECT_TRUE(button.state().HasFocus);
  EXPECT_TRUE(testing::PixelIs(button.surface(), 3, 3, 0));
  QFocusEvent out(QEvent::FocusOut);
  QCoreApplication::sendEvent(&button, &out);
  EXPECT_FALSE(button.state().HasFocus);
  EXPECT_TRUE(testing::PixelIs(button.surface(), 3, 3, kSysButtonFace));
}

TEST_F(ButtonWidgetTest, HandCursorOverTheControl) {
  button.setHandPointer(true);
  EXPECT_NE(button.cursor().shape(), Qt::PointingHandCursor);
  Mouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
  button.setMousePointer(2);
  Mouse(QEvent::MouseMove, {200, 10}, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(button.cursor().shape(), Qt::CrossCursor);
}

TEST_F(ButtonWidgetTest, SettersReportTheChangedProperty) {
  QStringList changed;
  QObject::connect(&button, &Button::propertyChanged, [&changed](const QString& n) { changed << n; });
  button.setButtonStyleColors(2);
  button.setButtonStyle(4);
  EXPECT_EQ(button.ButtonStyleColors(), 1);
  button.setEnabled(false);
  EXPECT_FALSE(button.properties().Enabled);
  button.setProperty("Caption", "Next >>");
  EXPECT_EQ(button.Caption(), "Next >>");
  EXPECT_EQ(changed, (QStringList{"ButtonStyleColors", "ButtonStyle", "Enabled", "Caption"}));
}

TEST_F(ButtonWidgetTest, DesignModeIgnoresMoves) {
  button.setDesignMode(true);
  Mouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton);
  EXPECT_FALSE(button.state().Hover);
  EXPECT_TRUE(log.isEmpty());
}

TEST_F(ButtonWidgetTest, PropertiesSurviveTheBagWithoutPresets) {
  button.setButtonShape(shape::kArrowRight);
  button.setButtonStyle(6);
  button.setBackColor(0x0000FF);
  button.setCaption("Go");
  button.setEnabled(false);
  PropertyBag bag;
  button.WriteProperties(bag);
  Button copy(nullptr, "cmdStart");
  copy.ReadProperties(bag);
  EXPECT_EQ(copy.ButtonShape(), shape::kArrowRight);
  EXPECT_EQ(copy.ButtonStyle(), 6);
  EXPECT_EQ(copy.BackColor(), 0x0000FFu);
  EXPECT_EQ(copy.Caption(), "Go");
  EXPECT_FALSE(copy.isEnabled());
  EXPECT_EQ(copy.font(), button.font());
  Button fresh(nullptr, "cmdOther");
  fresh.ReadProperties(PropertyBag());
  EXPECT_EQ(fresh.Caption(), "cmdOther");
}

TEST_F(ButtonWidgetTest, DropsAreOfferedToTheForm) {
  button.setAcceptDrops(true);
  QMimeData data;
  data.setText("x");
  int refuse = 0;
  QStringList seen;
  QObject::connect(&button, &Button::oleDragOver, [&](const QMimeData*, int* effect, int, int, int x, int, int state) {
    seen << QString("over %1 %2 %3").arg(*effect).arg(x).arg(state);
    if (refuse != 0) *effect = 0;
  });
  QObject::connect(&button, &Button::oleDragDrop, [&](const QMimeData* d, int* effect, int, int, int, int) {
    seen << QString("drop %1 %2").arg(*effect).arg(d->text());
    *effect = 2;
  });
  QDragEnterEvent enter(QPoint(5, 6), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&button, &enter);
  EXPECT_TRUE(enter.isAccepted());
  refuse = 1;
  QDragMoveEvent move(QPoint(7, 6), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&button, &move);
  EXPECT_FALSE(move.isAccepted());
  QDropEvent drop(QPointF(7, 6), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&button, &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::MoveAction);
  EXPECT_EQ(seen, (QStringList{"over 3 5 0", "over 3 7 2", "drop 3 x"}));
}

}  // namespace
}  // namespace velmora::controls
