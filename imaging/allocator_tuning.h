// Keeps freed image memory in the process for the next image instead of handing it back to the
// system: a run allocates and frees many buffers of the same large size, and fresh pages from
// the system cost a page fault each.
#pragma once

namespace velmora::imaging {

// Call once at program start, before any image is made.
void KeepLargeBuffersForReuse();

}  // namespace velmora::imaging
