// Keeps libtiff's own messages off the terminal. FreeImage's TIFF writer asks libtiff about tags it
// does not know, and libtiff prints an "Internal error" line for each on every TIFF save.
#pragma once

namespace velmora::imaging {

// Replaces libtiff's message handlers with silent ones, once per process. A TIFF that really
// fails to load or save still fails, and the caller sees it in the operation's result.
void SilenceTiffMessages();

}  // namespace velmora::imaging
