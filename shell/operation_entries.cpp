// Adding, removing and stacking operation list entries.
#include "shell/operation_entries.h"

#include <cmath>

namespace velmora::shell {

OperationEntries::OperationEntries() {
  auto design = std::make_unique<OperationEntry>();
  design->controls = NewPanel(kDesignEntry);
  design->height = kDesignEntryHeight;
  entries_.push_back(std::move(design));
}

OperationEntries::OperationEntries(const OperationEntries& other) {
  *this = other;
}

OperationEntries& OperationEntries::operator=(const OperationEntries& other) {
  if (this == &other) return *this;
  entries_.clear();
  for (const auto& entry : other.entries_)
    entries_.push_back(entry ? std::make_unique<OperationEntry>(*entry) : nullptr);
  listener_ = nullptr;
  return *this;
}

bool OperationEntries::ControlExists(int index) const {
  return index >= 0 && index <= UpperBound() && entries_[static_cast<std::size_t>(index)] != nullptr;
}

OperationEntry* OperationEntries::Entry(int index) {
  return ControlExists(index) ? entries_[static_cast<std::size_t>(index)].get() : nullptr;
}

const OperationEntry* OperationEntries::Entry(int index) const {
  return ControlExists(index) ? entries_[static_cast<std::size_t>(index)].get() : nullptr;
}

std::vector<int> OperationEntries::Indices() const {
  std::vector<int> indices;
  for (int i = 0; i <= UpperBound(); ++i)
    if (ControlExists(i)) indices.push_back(i);
  return indices;
}

int OperationEntries::lblProcess_Click(std::int16_t kind, engine::PreviewFlags& flags) {
  auto entry = std::make_unique<OperationEntry>();
  entry->controls = NewPanel(kind);
  entries_.push_back(std::move(entry));
  const int index = UpperBound();
  if (listener_) listener_->EntryAdded(index);
  flags.PreviewDirty = engine::kTrue;
  return index;
}

void OperationEntries::Drop(int index) {
  entries_[static_cast<std::size_t>(index)].reset();
  // A control array's upper bound is its highest living element.
  while (entries_.size() > 1 && !entries_.back()) entries_.pop_back();
  if (listener_) listener_->EntryRemoved(index);
}

void OperationEntries::StructRemove_Click(int index, engine::PreviewFlags& flags) {
  const OperationEntry* entry = Entry(index);
  if (index == 0 || !entry || IsFixedEntry(entry->controls.tag)) return;
  Drop(index);
  flags.PreviewDirty = engine::kTrue;
}

void OperationEntries::RemoveAllOperations() {
  for (int index = 1; index <= UpperBound(); ++index) {
    const OperationEntry* entry = Entry(index);
    if (entry && !IsFixedEntry(entry->controls.tag)) Drop(index);
  }
}

void OperationEntries::NotifyChanged(int index) {
  if (listener_ && ControlExists(index)) listener_->EntryChanged(index);
}

StructLayout RelayOperationList(const OperationEntries& entries, int viewport_height) {
  StructLayout layout;
  for (int index : entries.Indices()) {
    const int height = entries.Entry(index)->height;
    layout.total += height + kEntryGap;
    if (index != 0) layout.places.push_back({index, layout.total - height, height});
  }
  layout.scroll_enabled = viewport_height < layout.total;
  layout.inner_height = layout.total + kInnerExtra;
  layout.scroll_min = 0;
  layout.scroll_max = viewport_height - layout.total;
  layout.large_change = viewport_height;
  layout.small_change = static_cast<int>(std::lround(viewport_height / 5.0));
  return layout;
}

}  // namespace velmora::shell
