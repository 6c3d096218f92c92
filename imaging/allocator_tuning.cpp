// glibc malloc tuning for image-sized blocks.
#include "imaging/allocator_tuning.h"

#include <malloc.h>

namespace velmora::imaging {

void KeepLargeBuffersForReuse() {
  // Every block comes from the one main heap (which has no size limit, unlike the heaps of
  // per-thread arenas) rather than from a fresh mapping, and the heap is not trimmed after each
  // free. The peak stays what the pages in flight need.
  mallopt(M_ARENA_MAX, 1);
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

}  // namespace velmora::imaging
