#include "controls/button_state_machine.h"

#include <gtest/gtest.h>

namespace velmora::controls {
namespace {

ButtonAction Redraw() {
  return {ButtonActionKind::Redraw, {}};
}
ButtonAction Capture() {
  return {ButtonActionKind::SetCapture, {}};
}
ButtonAction Release() {
  return {ButtonActionKind::ReleaseCapture, {}};
}
ButtonAction Raise(ButtonEventKind kind, int a = 0, int b = 0, int c = 0, int d = 0) {
  ButtonAction action{ButtonActionKind::Raise, {}};
  action.event = {kind, {a, b, c, d}};
  return action;
}

class ButtonStateMachineTest : public ::testing::Test {
 protected:
  ButtonProperties props = new_button_properties("Button1");
  ButtonStateMachine machine;

  void Enter() { machine.mouse_move(props, 0, 0, 10, 10, 80, 33); }
  void FullClick() {
    machine.mouse_down(props, 1, 0, 10, 10);
    machine.mouse_up(props, 1, 0, 10, 10);
    machine.click(props);
  }
};

TEST_F(ButtonStateMachineTest, PointerEnteringTakesCaptureRedrawsAndRaisesMove) {
  const ButtonActions actions = machine.mouse_move(props, 0, 1, 10, 12, 80, 33);
  EXPECT_EQ(actions, (ButtonActions{Capture(), Redraw(), Raise(ButtonEventKind::MouseMove, 0, 1, 10, 12)}));
  EXPECT_TRUE(machine.state().Hover);
  EXPECT_TRUE(machine.captured());
}

TEST_F(ButtonStateMachineTest, MovingInsideDoesNotRedraw) {
  Enter();
  const ButtonActions actions = machine.mouse_move(props, 0, 0, 20, 20, 80, 33);
  EXPECT_EQ(actions, (ButtonActions{Capture(), Raise(ButtonEventKind::MouseMove, 0, 0, 20, 20)}));
}

TEST_F(ButtonStateMachineTest, InsideIncludesTheFarEdges) {
  machine.mouse_move(props, 0, 0, 80, 33, 80, 33);
  EXPECT_TRUE(machine.state().Hover);
  machine.mouse_move(props, 0, 0, 81, 33, 80, 33);
  EXPECT_FALSE(machine.state().Hover);
  machine.mouse_move(props, 0, 0, 0, 0, 80, 33);
  EXPECT_TRUE(machine.state().Hover);
  machine.mouse_move(props, 0, 0, 5, -1, 80, 33);
  EXPECT_FALSE(machine.state().Hover);
}

TEST_F(ButtonStateMachineTest, DraggingOffClearsPressedAndReleasesCapture) {
  Enter();
  machine.mouse_down(props, 1, 0, 10, 10);
  ASSERT_TRUE(machine.state().Pressed);
  const ButtonActions off = machine.mouse_move(props, 1, 0, 100, 10, 80, 33);
  EXPECT_EQ(off, (ButtonActions{Release(), Redraw(), Raise(ButtonEventKind::MouseMove, 1, 0, 100, 10)}));
  EXPECT_FALSE(machine.state().Pressed);
  EXPECT_FALSE(machine.state().Hover);
  EXPECT_FALSE(machine.captured());
  // Releasing outside takes the capture back and still reports the mouse up.
  const ButtonActions up = machine.mouse_up(props, 1, 0, 100, 10);
  EXPECT_EQ(up, (ButtonActions{Capture(), Redraw(), Raise(ButtonEventKind::MouseUp, 1, 0, 100, 10)}));
}

TEST_F(ButtonStateMachineTest, SlidingBackOnAHeldButtonDoesNotPressIt) {
  Enter();
  machine.mouse_down(props, 1, 0, 10, 10);
  machine.mouse_move(props, 1, 0, 100, 10, 80, 33);
  machine.mouse_move(props, 1, 0, 10, 10, 80, 33);
  EXPECT_TRUE(machine.state().Hover);
  EXPECT_FALSE(machine.state().Pressed);
}

TEST_F(ButtonStateMachineTest, MouseDownAndUp) {
  Enter();
  EXPECT_EQ(machine.mouse_down(props, 1, 2, 3, 4),
            (ButtonActions{Redraw(), Raise(ButtonEventKind::MouseDown, 1, 2, 3, 4)}));
  EXPECT_TRUE(machine.state().Pressed);
  EXPECT_EQ(machine.mouse_up(props, 1, 2, 3, 4),
            (ButtonActions{Redraw(), Raise(ButtonEventKind::MouseUp, 1, 2, 3, 4)}));
  EXPECT_FALSE(machine.state().Pressed);
  EXPECT_TRUE(machine.state().Hover);
}

TEST_F(ButtonStateMachineTest, PushButtonClickLeavesValue) {
  Enter();
  machine.mouse_down(props, 1, 0, 1, 1);
  machine.mouse_up(props, 1, 0, 1, 1);
  EXPECT_EQ(machine.click(props), (ButtonActions{Redraw(), Raise(ButtonEventKind::Click)}));
  EXPECT_FALSE(props.Value);
  EXPECT_FALSE(machine.state().Pressed);
}

TEST_F(ButtonStateMachineTest, ToggleFirstClickChecksSecondClears) {
  props.ButtonType = kToggleButton;
  Enter();
  FullClick();
  EXPECT_TRUE(props.Value);
  EXPECT_TRUE(machine.state().Pressed);  // a checked toggle draws down
  // The mouse up redraws the checked toggle down again, so the click finds it pressed.
  FullClick();
  EXPECT_FALSE(props.Value);
  // Nothing lifts it until the pointer leaves or enters.
  EXPECT_TRUE(machine.state().Pressed);
  machine.mouse_move(props, 0, 0, 200, 0, 80, 33);
  EXPECT_FALSE(machine.state().Pressed);
}

TEST_F(ButtonStateMachineTest, CheckedToggleStaysDownWhenThePointerLeaves) {
  props.ButtonType = kToggleButton;
  props.Value = true;
  Enter();
  machine.mouse_move(props, 0, 0, 200, 0, 80, 33);
  EXPECT_TRUE(machine.state().Pressed);
}

TEST_F(ButtonStateMachineTest, RedrawPressesACheckedToggleOnly) {
  props.Value = true;
  machine.redraw(props);
  EXPECT_FALSE(machine.state().Pressed);  // a push button ignores Value
  props.ButtonType = kToggleButton;
  EXPECT_EQ(machine.redraw(props), ButtonActions{Redraw()});
  EXPECT_TRUE(machine.state().Pressed);
}

TEST_F(ButtonStateMachineTest, DoubleClickPresses) {
  EXPECT_EQ(machine.dbl_click(props), (ButtonActions{Redraw(), Raise(ButtonEventKind::DblClick)}));
  EXPECT_TRUE(machine.state().Pressed);
}

TEST_F(ButtonStateMachineTest, OtherKeysOnlyReport) {
  EXPECT_EQ(machine.key_down(props, 65, 2), ButtonActions{Raise(ButtonEventKind::KeyDown, 65, 2)});
  EXPECT_FALSE(machine.state().Pressed);
  EXPECT_EQ(machine.key_press(97), ButtonActions{Raise(ButtonEventKind::KeyPress, 97)});
  EXPECT_EQ(machine.key_up(props, 65, 2), ButtonActions{Raise(ButtonEventKind::KeyUp, 65, 2)});
}

TEST_F(ButtonStateMachineTest, AnyKeyUpLiftsAPressedButton) {
  machine.mouse_down(props, 1, 0, 1, 1);
  EXPECT_EQ(machine.key_up(props, 65, 0), (ButtonActions{Redraw(), Raise(ButtonEventKind::KeyUp, 65, 0)}));
  EXPECT_FALSE(machine.state().Pressed);
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
  state = {};
  EXPECT_FALSE(wants_hand_cursor(props, state));
}

}  // namespace
}  // namespace velmora::controls
