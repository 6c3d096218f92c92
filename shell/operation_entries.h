// The operation list as plain data: entries by index with the gaps that removals leave, the design
// element 0, the three fixed entries, and the arithmetic that stacks the entries in the viewport.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/app_state.h"
#include "shell/panel_controls.h"

namespace velmora::shell {

// Heights and gaps in pixels (the design element is 15 twips, the gap 50, the extra room 80).
inline constexpr int kDesignEntryHeight = 1;
inline constexpr int kEntryGap = 3;
inline constexpr int kInnerExtra = 5;

struct OperationEntry {
  PanelControls controls;
  int height = 0;  // the entry box's height, set by the view to fit its lowest control
};

// Told of every entry that appears, goes, or changes its controls without the user.
class OperationListListener {
 public:
  virtual ~OperationListListener() = default;
  virtual void EntryAdded(int index) = 0;
  virtual void EntryRemoved(int index) = 0;
  virtual void EntryChanged(int index) = 0;
};

class OperationEntries {
 public:
  OperationEntries();
  // A copy holds the same entries and no listener; the preview works on one.
  OperationEntries(const OperationEntries& other);
  OperationEntries& operator=(const OperationEntries& other);

  void SetListener(OperationListListener* listener) { listener_ = listener; }

  // The highest index that exists; removing the last entry lowers it.
  int UpperBound() const { return static_cast<int>(entries_.size()) - 1; }
  bool ControlExists(int index) const;
  OperationEntry* Entry(int index);
  const OperationEntry* Entry(int index) const;
  // The indices that exist, in order, element 0 included.
  std::vector<int> Indices() const;

  // Adds an entry of `kind` behind the last one with its panel's defaults and asks for a new
  // preview. Returns the new index.
  int lblProcess_Click(std::int16_t kind, engine::PreviewFlags& flags);
  // Removes an operation entry; the fixed entries and element 0 can't be removed.
  void StructRemove_Click(int index, engine::PreviewFlags& flags);
  // Removes every operation, leaving element 0 and the fixed entries; no preview is asked for.
  void RemoveAllOperations();
  // The listener learns that entry `index` changed without the user.
  void NotifyChanged(int index);

 private:
  void Drop(int index);

  std::vector<std::unique_ptr<OperationEntry>> entries_;  // null where an entry was removed
  OperationListListener* listener_ = nullptr;
};

// Where each entry stands in the scrolling inner box, and the scroll bar's settings.
struct StructLayout {
  struct Place {
    int index = 0, top = 0, height = 0;
  };
  std::vector<Place> places;  // existing entries but element 0
  int total = 0;
  bool scroll_enabled = false;
  int inner_height = 0;  // StructFON1
  // The bar's value is the inner box's top: 0 at the start, down to `scroll_max` (negative) at the end.
  int scroll_min = 0, scroll_max = 0, large_change = 0, small_change = 0;
};
StructLayout RelayOperationList(const OperationEntries& entries, int viewport_height);

}  // namespace velmora::shell
