// Entries by index with gaps, the fixed entries, and the stacking arithmetic of the list.
#include <gtest/gtest.h>

#include "shell/operation_entries.h"
#include "shell/profile_binding.h"

namespace velmora::shell {
namespace {

class OperationEntriesTest : public ::testing::Test {
 protected:
  void SetUp() override { AddFixedEntries(entries, flags); }
  int Add(std::int16_t kind, int height = 50) {
    const int index = entries.lblProcess_Click(kind, flags);
    entries.Entry(index)->height = height;
    return index;
  }
  OperationEntries entries;
  engine::PreviewFlags flags;
};

TEST_F(OperationEntriesTest, FixedEntriesComeFirstInTheirOrder) {
  EXPECT_EQ(entries.UpperBound(), 3);
  EXPECT_EQ(std::tuple(entries.Entry(0)->controls.tag, entries.Entry(1)->controls.tag),
            std::tuple(kDesignEntry, kConvertToEntry));
  const auto caption = [this](int index) { return entries.Entry(index)->controls.caption; };
  EXPECT_EQ(caption(1) + "," + caption(2) + "," + caption(3), "Convert to,Save to,File name");
}

TEST_F(OperationEntriesTest, AddingMarksThePreviewDirtyAndGoesBehindTheLast) {
  flags.PreviewDirty = engine::kFalse;
  EXPECT_EQ(Add(engine::kRotate), 4);
  EXPECT_EQ(Add(engine::kMirror), 5);
  EXPECT_NE(flags.PreviewDirty, engine::kFalse);
}

// Removing the last lowers the upper bound, a middle one leaves a gap, the fixed entries and the
// design element stay.
TEST_F(OperationEntriesTest, RemovingTheLastLowersTheBoundAndAMiddleOneLeavesAGap) {
  const int first = Add(engine::kRotate);
  Add(engine::kMirror);
  entries.StructRemove_Click(Add(engine::kGamma), flags);
  EXPECT_EQ(entries.UpperBound(), 5);
  entries.StructRemove_Click(first, flags);
  EXPECT_FALSE(entries.ControlExists(first));
  EXPECT_EQ(entries.UpperBound(), 5);
  EXPECT_EQ(Add(engine::kEffect), 6);
  entries.StructRemove_Click(0, flags);
  entries.StructRemove_Click(2, flags);
  EXPECT_EQ(entries.Indices(), (std::vector<int>{0, 1, 2, 3, 5, 6}));
}

TEST_F(OperationEntriesTest, RemoveAllOperationsKeepsTheFixedEntries) {
  Add(engine::kRotate);
  Add(engine::kWatermark);
  flags.PreviewDirty = engine::kFalse;
  entries.RemoveAllOperations();
  EXPECT_EQ(entries.Indices(), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(flags.PreviewDirty, engine::kFalse);
}

TEST_F(OperationEntriesTest, RelayStacksEntriesWithGapsClosed) {
  for (int index : {1, 2, 3}) entries.Entry(index)->height = 40;
  const int a = Add(engine::kRotate, 60);
  const int b = Add(engine::kMirror, 30);
  entries.StructRemove_Click(a, flags);
  const StructLayout layout = RelayOperationList(entries, 1000);
  ASSERT_EQ(layout.places.size(), 4u);
  // Each entry stands one gap below the running total before it.
  EXPECT_EQ(layout.places[0].top, kDesignEntryHeight + 2 * kEntryGap);
  EXPECT_EQ(layout.places[3].index, b);
  EXPECT_EQ(layout.places[3].top, layout.places[2].top + 40 + kEntryGap);
  EXPECT_EQ(layout.total, kDesignEntryHeight + 3 * 40 + 30 + 5 * kEntryGap);
  EXPECT_EQ(std::tuple(layout.inner_height, layout.scroll_enabled), std::tuple(layout.total + kInnerExtra, false));
}

TEST_F(OperationEntriesTest, TenOperationsInAShortViewportEnableTheBar) {
  for (int i = 0; i < 10; ++i) Add(engine::kResize, 100);
  const StructLayout layout = RelayOperationList(entries, 300);
  EXPECT_LT(layout.scroll_max, 0);
  EXPECT_EQ(
      std::tuple(layout.scroll_enabled, layout.scroll_min, layout.scroll_max, layout.large_change, layout.small_change),
      std::tuple(true, 0, 300 - layout.total, 300, 60));
}

TEST_F(OperationEntriesTest, ACopyHasTheSameEntriesAndIsIndependent) {
  const int index = Add(engine::kRotate);
  OperationEntries copy = entries;
  copy.Entry(index)->controls.ElemText1 = "45";
  EXPECT_EQ(entries.Entry(index)->controls.ElemText1, "90");
  EXPECT_EQ(copy.Indices(), entries.Indices());
}

}  // namespace
}  // namespace velmora::shell
