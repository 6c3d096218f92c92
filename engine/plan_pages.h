// The page counts a plan needs: sources that may hold several pages, told from their first bytes,
// counted from their headers in a child process.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::engine {

// Whether the source may have several pages: GIF, TIFF, ICO, HEIF or AVIF by its name or content.
bool MayHoldPages(const std::string& path);

// The page count of each of `paths` as the run counts them (0 for a file that can't be read). The
// headers are read in a child process: a decoder that crashes on a damaged file costs only that
// file, which counts as unreadable, and a new child goes on after it.
std::vector<std::int32_t> CountPagesApart(const std::vector<std::string>& paths);

}  // namespace velmora::engine
