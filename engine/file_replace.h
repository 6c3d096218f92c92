// Files replaced whole: written under a temporary name beside the final one and renamed over it
// only once complete, so that no partial file ever stands under a name the user sees.
#pragma once

#include <string>
#include <string_view>

namespace velmora::engine {

// A name for writing `target` that no other writer uses: a hidden file in the same folder (so
// that the rename stays on one file system) that keeps the target's extension, which is what
// tells some writers the format.
std::string TemporaryNameFor(const std::string& target);

// Makes what was written to `temporary` durable and renames it over `target`. On failure the
// temporary is removed and `target` is left as it was.
bool ReplaceWithTemporary(const std::string& temporary, const std::string& target);

// Removes a temporary that will not be used, ignoring every failure.
void DiscardTemporary(const std::string& temporary);

// Writes `bytes` to a temporary and renames it over `path`: afterwards `path` holds either its
// old content or all of `bytes`, whatever stops the process. False when nothing was replaced.
bool WriteFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace velmora::engine
