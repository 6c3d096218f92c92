// The button's behaviour without a screen: each input's redraws, capture changes and raised
// events, written as one line ("capture redraw MouseMove 0 1 10 12"), and the state flags after it.
#include "controls/button_state_machine.h"

#include <gtest/gtest.h>

namespace velmora::controls {
namespace {

std::string Text(const ButtonActions& actions) {
  static const char* const kEvents[] = {"Click", "DblClick",  "KeyDown",   "KeyPress",
                                        "KeyUp", "MouseDown", "MouseMove", "MouseUp"};
  static const int kArgs[] = {0, 0, 2, 1, 2, 4, 4, 4};
  std::string out;
  for (const ButtonAction& a : actions) {
    out += out.empty() ? "" : " ";
    if (a.kind != ButtonActionKind::Raise) {
      out += a.kind == ButtonActionKind::Redraw       ? "redraw"
             : a.kind == ButtonActionKind::SetCapture ? "capture"
                                                      : "release";
      continue;
    }
    const int kind = static_cast<int>(a.event.kind);
    out += kEvents[kind];
    for (int i = 0; i < kArgs[kind]; ++i) out += ' ' + std::to_string(a.event.args[i]);
  }
  return out;
}

class ButtonStateMachineTest : public ::testing::Test {
 protected:
  std::string Move(int button, int x, int y) { return Text(machine.mouse_move(props, button, 0, x, y, 80, 33)); }
  void FullClick() {
    machine.mouse_down(props, 1, 0, 10, 10);
    machine.mouse_up(props, 1, 0, 10, 10);
    machine.click(props);
  }
  bool Pressed() const { return machine.state().Pressed; }
  bool Hover() const { return machine.state().Hover; }

  ButtonProperties props = new_button_properties("Button1");
  ButtonStateMachine machine;
};

TEST_F(ButtonStateMachineTest, PointerComingAndGoing) {
  EXPECT_EQ(Text(machine.mouse_move(props, 0, 1, 10, 12, 80, 33)), "capture redraw MouseMove 0 1 10 12");
  EXPECT_TRUE(Hover());
  EXPECT_TRUE(machine.captured());
  EXPECT_EQ(Move(0, 80, 33), "capture MouseMove 0 0 80 33");  // the far edges are inside
  EXPECT_EQ(Move(0, 81, 33), "release redraw MouseMove 0 0 81 33");
  EXPECT_FALSE(Hover());
  EXPECT_FALSE(machine.captured());
  Move(0, 0, 0);
  EXPECT_TRUE(Hover());
  Move(0, 5, -1);
  EXPECT_FALSE(Hover());
}

TEST_F(ButtonStateMachineTest, PressDragOffReleaseAndComeBack) {
  Move(0, 10, 10);
  EXPECT_EQ(Text(machine.mouse_down(props, 1, 2, 3, 4)), "redraw MouseDown 1 2 3 4");
  EXPECT_TRUE(Pressed());
  EXPECT_EQ(Move(1, 100, 10), "release redraw MouseMove 1 0 100 10");
  EXPECT_FALSE(Pressed());
  EXPECT_FALSE(Hover());
  // Releasing outside takes the capture back and still reports the mouse up.
  EXPECT_EQ(Text(machine.mouse_up(props, 1, 0, 100, 10)), "capture redraw MouseUp 1 0 100 10");
  EXPECT_TRUE(machine.captured());
  // Sliding back on a held button does not press it.
  machine.mouse_down(props, 1, 0, 10, 10);
  Move(1, 100, 10);
  Move(1, 10, 10);
  EXPECT_TRUE(Hover());
  EXPECT_FALSE(Pressed());
  EXPECT_EQ(Text(machine.mouse_up(props, 1, 2, 3, 4)), "redraw MouseUp 1 2 3 4");
}

TEST_F(ButtonStateMachineTest, ClicksOfPushAndToggleButtons) {
  Move(0, 10, 10);
  machine.mouse_down(props, 1, 0, 1, 1);
  machine.mouse_up(props, 1, 0, 1, 1);
  EXPECT_EQ(Text(machine.click(props)), "redraw Click");
  EXPECT_FALSE(props.Value);
  EXPECT_FALSE(Pressed());
  props.ButtonType = kToggleButton;
  FullClick();
  EXPECT_TRUE(props.Value);
  EXPECT_TRUE(Pressed());  // a checked toggle draws down
  // The mouse up redraws the checked toggle down again, so the second click finds it pressed and
  // clears it; nothing lifts it until the pointer leaves or enters.
  FullClick();
  EXPECT_FALSE(props.Value);
  EXPECT_TRUE(Pressed());
  Move(0, 200, 0);
  EXPECT_FALSE(Pressed());
  // A checked toggle stays down when the pointer leaves.
  props.Value = true;
  Move(0, 10, 10);
  Move(0, 200, 0);
  EXPECT_TRUE(Pressed());
}

TEST_F(ButtonStateMachineTest, RedrawPressesACheckedToggleOnly) {
  props.Value = true;
  machine.redraw(props);
  EXPECT_FALSE(Pressed());  // a push button ignores Value
  props.ButtonType = kToggleButton;
  EXPECT_EQ(Text(machine.redraw(props)), "redraw");
  EXPECT_TRUE(Pressed());
}

TEST_F(ButtonStateMachineTest, DoubleClickAndKeys) {
  EXPECT_EQ(Text(machine.dbl_click(props)), "redraw DblClick");
  EXPECT_TRUE(Pressed());
  EXPECT_EQ(Text(machine.key_up(props, 65, 0)), "redraw KeyUp 65 0");  // any key lifts it
  EXPECT_FALSE(Pressed());
  EXPECT_EQ(Text(machine.key_down(props, 65, 2)), "KeyDown 65 2");
  EXPECT_EQ(Text(machine.key_press(97)), "KeyPress 97");
  EXPECT_EQ(Text(machine.key_up(props, 65, 2)), "KeyUp 65 2");
  // Enter and Space press it; releasing Enter leaves it down with a mouse down of zeros, and
  // neither raises Click.
  EXPECT_EQ(Text(machine.key_down(props, kKeyEnter, 0)), "redraw KeyDown 13 0");
  EXPECT_EQ(Text(machine.key_up(props, kKeyEnter, 0)), "redraw redraw MouseDown 0 0 0 0 KeyUp 13 0");
  EXPECT_TRUE(Pressed());
  machine.key_up(props, 65, 0);
  EXPECT_EQ(Text(machine.key_down(props, kKeySpace, 1)), "redraw KeyDown 32 1");
  EXPECT_EQ(Text(machine.key_up(props, kKeySpace, 1)), "redraw KeyUp 32 1");
  EXPECT_FALSE(Pressed());
}

TEST(HandCursor, ShowsWithFocusOrUnpressedHover) {
  ButtonProperties props;
  ButtonState state;
  state.Hover = true;
  EXPECT_FALSE(wants_hand_cursor(props, state));
  props.HandPointer = true;
  EXPECT_TRUE(wants_hand_cursor(props, state));
  state.Pressed = true;
  EXPECT_FALSE(wants_hand_cursor(props, state));
  state.HasFocus = true;
  EXPECT_TRUE(wants_hand_cursor(props, state));
  EXPECT_FALSE(wants_hand_cursor(props, ButtonState{}));
}

}  // namespace
}  // namespace velmora::controls
