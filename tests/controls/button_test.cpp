// The button's behaviour: its state machine without a screen, then the widget driven by synthetic
// Qt events (signals in order, size rules, mask, focus, cursor, persistence, drag and drop).
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "controls/button.h"
#include "controls/button_state_machine.h"
#include "controls/drag_data.h"
#include "controls/input_codes.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

class ButtonStateMachineTest : public ::testing::Test {
 protected:
  // The actions in order, then the flags left set: "redraw MouseDown 1 0 3 4 | pressed hover".
  std::string Did(const ButtonActions& actions) const {
    static const char* const kEvents[] = {"Click", "DblClick",  "KeyDown",   "KeyPress",
                                          "KeyUp", "MouseDown", "MouseMove", "MouseUp"};
    static const int kArgs[] = {0, 0, 2, 1, 2, 4, 4, 4};
    std::string out;
    for (const ButtonAction& a : actions) {
      if (a.kind == ButtonActionKind::Raise) {
        out += kEvents[static_cast<int>(a.event.kind)];
        for (int i = 0; i < kArgs[static_cast<int>(a.event.kind)]; ++i) out += ' ' + std::to_string(a.event.args[i]);
      } else {
        out += a.kind == ButtonActionKind::Redraw       ? "redraw"
               : a.kind == ButtonActionKind::SetCapture ? "capture"
                                                        : "release";
      }
      out += ' ';
    }
    return out + "|" + (machine.state().Pressed ? " pressed" : "") + (machine.state().Hover ? " hover" : "");
  }
  std::string Move(int button, int x, int y) { return Did(machine.mouse_move(props, button, 0, x, y, 80, 33)); }
  std::string Down() { return Did(machine.mouse_down(props, 1, 0, 3, 4)); }
  std::string Up() { return Did(machine.mouse_up(props, 1, 0, 3, 4)); }
  std::string Click() {
    Down();
    Up();
    return Did(machine.click(props));
  }

  ButtonProperties props = new_button_properties("Button1");
  ButtonStateMachine machine;
};

TEST_F(ButtonStateMachineTest, PointerComingAndGoing) {
  EXPECT_EQ(Did(machine.mouse_move(props, 0, 1, 10, 12, 80, 33)), "capture redraw MouseMove 0 1 10 12 | hover");
  EXPECT_TRUE(machine.captured());
  EXPECT_EQ(Move(0, 80, 33), "capture MouseMove 0 0 80 33 | hover");  // the far edges are inside
  EXPECT_EQ(Move(0, 81, 33), "release redraw MouseMove 0 0 81 33 |");
  EXPECT_FALSE(machine.captured());
  EXPECT_EQ(Move(0, 0, 0), "capture redraw MouseMove 0 0 0 0 | hover");
  EXPECT_EQ(Move(0, 5, -1), "release redraw MouseMove 0 0 5 -1 |");
}

TEST_F(ButtonStateMachineTest, PressDragOffReleaseAndComeBack) {
  Move(0, 10, 10);
  EXPECT_EQ(Down(), "redraw MouseDown 1 0 3 4 | pressed hover");
  EXPECT_EQ(Move(1, 100, 10), "release redraw MouseMove 1 0 100 10 |");
  // Releasing outside takes the capture back and still reports the mouse up.
  EXPECT_EQ(Up(), "capture redraw MouseUp 1 0 3 4 |");
  EXPECT_TRUE(machine.captured());
  // Sliding back on a held button does not press it.
  Down();
  Move(1, 100, 10);
  EXPECT_EQ(Move(1, 10, 10), "capture redraw MouseMove 1 0 10 10 | hover");
  EXPECT_EQ(Up(), "redraw MouseUp 1 0 3 4 | hover");
}

TEST_F(ButtonStateMachineTest, ClicksOfPushAndToggleButtons) {
  Move(0, 10, 10);
  EXPECT_EQ(Click(), "redraw Click | hover");
  EXPECT_FALSE(props.Value);
  // A checked toggle draws down. The mouse up redraws it down again, so the second click finds it
  // pressed and clears it; nothing lifts it until the pointer leaves or enters.
  props.ButtonType = kToggleButton;
  EXPECT_EQ(Click(), "redraw Click | pressed hover");
  EXPECT_TRUE(props.Value);
  EXPECT_EQ(Click(), "redraw Click | pressed hover");
  EXPECT_FALSE(props.Value);
  EXPECT_EQ(Move(0, 200, 0), "release redraw MouseMove 0 0 200 0 |");
  // A checked toggle stays down when the pointer comes and goes; a push button ignores Value.
  props.Value = true;
  Move(0, 10, 10);
  EXPECT_EQ(Move(0, 200, 0), "release redraw MouseMove 0 0 200 0 | pressed");
  props.ButtonType = kPushButton;
  EXPECT_EQ(Move(0, 10, 10), "capture redraw MouseMove 0 0 10 10 | hover");
}

TEST_F(ButtonStateMachineTest, DoubleClickAndKeys) {
  EXPECT_EQ(Did(machine.dbl_click(props)), "redraw DblClick | pressed");
  EXPECT_EQ(Did(machine.key_up(props, 65, 0)), "redraw KeyUp 65 0 |");  // any key lifts it
  EXPECT_EQ(Did(machine.key_down(props, 65, 2)), "KeyDown 65 2 |");
  EXPECT_EQ(Did(machine.key_press(97)), "KeyPress 97 |");
  EXPECT_EQ(Did(machine.key_up(props, 65, 2)), "KeyUp 65 2 |");
  // Enter and Space press it; releasing Enter leaves it down with a mouse down of zeros, and
  // neither raises Click.
  EXPECT_EQ(Did(machine.key_down(props, kKeyEnter, 0)), "redraw KeyDown 13 0 | pressed");
  EXPECT_EQ(Did(machine.key_up(props, kKeyEnter, 0)), "redraw redraw MouseDown 0 0 0 0 KeyUp 13 0 | pressed");
  machine.key_up(props, 65, 0);
  EXPECT_EQ(Did(machine.key_down(props, kKeySpace, 1)), "redraw KeyDown 32 1 | pressed");
  EXPECT_EQ(Did(machine.key_up(props, kKeySpace, 1)), "redraw KeyUp 32 1 |");
  EXPECT_EQ(Did(machine.redraw(props)), "redraw |");
}

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

  void Mouse(QEvent::Type type, QPoint at, Qt::MouseButtons held = Qt::LeftButton) {
    const Qt::MouseButton which = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, button.mapToGlobal(at), which, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &event);
  }
  void Hover(QPoint at) { Mouse(QEvent::MouseMove, at, Qt::NoButton); }
  void Release(QPoint at) { Mouse(QEvent::MouseButtonRelease, at, Qt::NoButton); }
  void Key(QEvent::Type type, int key, const QString& text) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&button, &event);
  }
  void Focus(QEvent::Type type) {
    QFocusEvent event(type);
    QCoreApplication::sendEvent(&button, &event);
  }

  Button button;
  QStringList log;
};

// A new control takes its name as caption, 80 by 33 pixels and Tahoma. Never under 25 pixels a
// side, and square but for the two rectangles (0 and 1); only shapes 1 to 11 clip the window.
TEST_F(ButtonWidgetTest, NewControlAndSizeRulesAndWindowMask) {
  EXPECT_EQ(button.Caption(), "cmdStart");
  EXPECT_EQ(button.size(), QSize(80, 33));
  EXPECT_EQ(button.font().family(), "Tahoma");
  struct Row {
    int shape;
    QSize asked, got;
  };
  for (const Row& r : {Row{2, {80, 33}, {80, 80}}, Row{2, {100, 50}, {100, 100}}, Row{3, {50, 100}, {50, 50}},
                       Row{0, {10, 10}, {25, 25}}, Row{1, {80, 20}, {80, 25}}, Row{12, {60, 30}, {60, 60}}}) {
    button.setButtonShape(r.shape);
    button.resize(r.asked);
    EXPECT_EQ(button.size(), r.got) << "shape " << r.shape;
    EXPECT_EQ(button.mask().isEmpty(), r.shape == 0 || r.shape == 12) << "shape " << r.shape;
  }
  button.setButtonShape(shape::kDiamond);
  EXPECT_FALSE(button.mask().contains(QPoint(0, 0)));
  EXPECT_TRUE(button.mask().contains(QPoint(30, 30)));
}

TEST_F(ButtonWidgetTest, MouseEventsInOrder) {
  Hover({10, 10});
  Mouse(QEvent::MouseButtonPress, {10, 10});
  Release({10, 10});
  // The release that ends a double click raises no second click, nor does a release off the
  // control.
  Mouse(QEvent::MouseButtonDblClick, {5, 5});
  Release({5, 5});
  Mouse(QEvent::MouseButtonPress, {10, 10});
  Mouse(QEvent::MouseMove, {200, 10});
  Release({200, 10});
  EXPECT_EQ(log, (QStringList{"MouseMove 0 0 10 10", "MouseDown 1 0 10 10", "MouseUp 1 0 10 10", "Click", "DblClick",
                              "MouseUp 1 0 5 5", "MouseDown 1 0 10 10", "MouseMove 1 0 200 10", "MouseUp 1 0 200 10"}));
  // Qt reports the pointer leaving, which ends the hover.
  Hover({10, 10});
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&button, &leave);
  EXPECT_FALSE(button.state().Hover);
}

TEST_F(ButtonWidgetTest, EnterLeavesAMouseDownAndNeitherKeyClicks) {
  Key(QEvent::KeyPress, Qt::Key_Return, "\r");
  Key(QEvent::KeyRelease, Qt::Key_Return, "\r");
  Key(QEvent::KeyPress, Qt::Key_Space, " ");
  Key(QEvent::KeyRelease, Qt::Key_Space, " ");
  EXPECT_EQ(log, (QStringList{"KeyDown 13 0", "KeyPress 13", "MouseDown 0 0 0 0", "KeyUp 13 0", "KeyDown 32 0",
                              "KeyPress 32", "KeyUp 32 0"}));
}

TEST(InputCodes, KeysModifiersAndButtons) {
  const std::pair<int, int> keys[] = {{Qt::Key_A, 65},   {Qt::Key_Z, 90},    {Qt::Key_0, 48},      {Qt::Key_9, 57},
                                      {Qt::Key_F1, 112}, {Qt::Key_F24, 135}, {Qt::Key_Escape, 27}, {Qt::Key_Menu, 0}};
  for (const auto& [key, code] : keys) EXPECT_EQ(virtual_key_code(key), code) << key;
  EXPECT_EQ(shift_mask(Qt::ShiftModifier | Qt::AltModifier), 5);
  EXPECT_EQ(shift_mask(Qt::ControlModifier), 2);
  EXPECT_EQ(button_mask(Qt::RightButton | Qt::MiddleButton), 6);
  EXPECT_EQ(button_mask(Qt::LeftButton), 1);
}

TEST_F(ButtonWidgetTest, FocusDrawsTheMark) {
  button.setCaption(QString());
  Focus(QEvent::FocusIn);
  testing::ExpectPixels(button.surface(), {{3, 3, 0}});
  Focus(QEvent::FocusOut);
  testing::ExpectPixels(button.surface(), {{3, 3, kSysButtonFace}});
}

// The hand shows over the control while it is not pressed, and with the focus.
TEST_F(ButtonWidgetTest, HandCursorOverTheControlOrWithTheFocus) {
  button.setHandPointer(true);
  EXPECT_NE(button.cursor().shape(), Qt::PointingHandCursor);
  Hover({10, 10});
  EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
  Mouse(QEvent::MouseButtonPress, {10, 10});
  EXPECT_NE(button.cursor().shape(), Qt::PointingHandCursor);
  Focus(QEvent::FocusIn);
  EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
  button.setHandPointer(false);
  button.setMousePointer(2);
  EXPECT_EQ(button.cursor().shape(), Qt::CrossCursor);
}

TEST_F(ButtonWidgetTest, SettersReportTheChangedProperty) {
  QStringList changed;
  QObject::connect(&button, &Button::propertyChanged, [&changed](const QString& n) { changed << n; });
  button.setButtonStyleColors(2);
  button.setButtonStyle(4);
  button.setEnabled(false);
  EXPECT_FALSE(button.properties().Enabled);
  button.setProperty("Caption", "Next >>");
  EXPECT_EQ(button.Caption(), "Next >>");
  EXPECT_EQ(changed, (QStringList{"ButtonStyleColors", "ButtonStyle", "Enabled", "Caption"}));
}

TEST_F(ButtonWidgetTest, DesignModeIgnoresMoves) {
  button.setDesignMode(true);
  Hover({10, 10});
  EXPECT_FALSE(button.state().Hover);
  EXPECT_TRUE(log.isEmpty());
}

// Reading sets the widget's own enabled state and font; a missing caption is the control's name.
TEST_F(ButtonWidgetTest, ReadPropertiesSetEnabledAndFont) {
  button.setEnabled(false);
  button.setFont(QFont("DejaVu Serif", 12));
  button.setCaption("Go");
  PropertyBag bag;
  button.WriteProperties(bag);
  Button copy(nullptr, "cmdOther");
  copy.ReadProperties(bag);
  EXPECT_FALSE(copy.isEnabled());
  EXPECT_EQ(copy.font(), button.font());
  EXPECT_EQ(copy.Caption(), "Go");
  copy.ReadProperties(PropertyBag());
  EXPECT_EQ(copy.Caption(), "cmdOther");
  EXPECT_TRUE(copy.isEnabled());
}

TEST_F(ButtonWidgetTest, DragAndDrop) {
  button.setAcceptDrops(true);
  QMimeData data;
  data.setText("x");
  bool refuse = false;
  QStringList seen;
  QObject::connect(&button, &Button::oleDragOver, [&](const QMimeData*, int* effect, int, int, int x, int, int state) {
    seen << QString("over %1 %2 %3").arg(*effect).arg(x).arg(state);
    if (refuse) *effect = 0;
  });
  QObject::connect(&button, &Button::oleDragDrop, [&](const QMimeData* d, int* effect, int, int, int, int) {
    seen << QString("drop %1 %2").arg(*effect).arg(d->text());
    *effect = 2;
  });
  const Qt::DropActions both = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter(QPoint(5, 6), both, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&button, &enter);
  EXPECT_TRUE(enter.isAccepted());
  EXPECT_EQ(enter.dropAction(), Qt::CopyAction);  // copy wins when both are offered
  refuse = true;
  QDragMoveEvent move(QPoint(7, 6), both, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&button, &move);
  EXPECT_FALSE(move.isAccepted());
  QDropEvent drop(QPointF(7, 6), both, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&button, &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::MoveAction);
  EXPECT_EQ(seen, (QStringList{"over 3 5 0", "over 3 7 2", "drop 3 x"}));
  // The drag side's data lists a promised format before it has data, fills it once when asked, then reads it stored.
  int fills = 0;
  DragData promised([&fills](DragData* d, const QString& format) { d->setData(format, QByteArray::number(++fills)); });
  promised.promise("text/x-velmora");
  promised.promise("text/x-velmora");
  EXPECT_TRUE(promised.hasFormat("text/x-velmora") && !promised.hasFormat("text/plain"));
  EXPECT_EQ(promised.formats(), QStringList{"text/x-velmora"});
  EXPECT_EQ(promised.data("text/x-velmora") + promised.data("text/x-velmora"), "11");
}

}  // namespace
}  // namespace velmora::controls
