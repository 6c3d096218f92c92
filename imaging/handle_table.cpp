// Handle numbering and ownership of the back end's bitmaps.
#include "imaging/handle_table.h"

namespace velmora::imaging {

Handle HandleTable::Add(Bitmap bitmap) {
  if (!bitmap) return 0;
  std::lock_guard lock(mutex_);
  // Skip 0 and any number still in use should the counter ever wrap.
  while (next_ == 0 || images_.contains(next_)) ++next_;
  const Handle handle = next_++;
  images_.emplace(handle, std::move(bitmap));
  return handle;
}

FIBITMAP* HandleTable::Find(Handle handle) const {
  if (handle == 0) return nullptr;
  std::lock_guard lock(mutex_);
  const auto found = images_.find(handle);
  return found == images_.end() ? nullptr : found->second.get();
}

bool HandleTable::Replace(Handle handle, Bitmap bitmap) {
  if (handle == 0 || !bitmap) return false;
  Bitmap old;
  {
    std::lock_guard lock(mutex_);
    const auto found = images_.find(handle);
    if (found == images_.end()) return false;
    old = std::move(found->second);
    found->second = std::move(bitmap);
  }
  return true;  // `old` is unloaded here, outside the lock
}

bool HandleTable::Release(Handle handle) {
  Bitmap old;
  {
    std::lock_guard lock(mutex_);
    const auto found = images_.find(handle);
    if (found == images_.end()) return false;
    old = std::move(found->second);
    images_.erase(found);
  }
  return true;
}

std::size_t HandleTable::Count() const {
  std::lock_guard lock(mutex_);
  return images_.size();
}

}  // namespace velmora::imaging
