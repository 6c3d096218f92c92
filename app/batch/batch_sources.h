// The source list of a batch run: files taken as given, folders searched for image files, each
// path added by the source list's rule (non-empty, not listed yet).
#pragma once

#include <string>
#include <vector>

#include "engine/run_view.h"

namespace velmora::app {

struct CollectedSources {
  engine::SourceList list;
  std::string error;  // a path that doesn't exist; the list is then incomplete
};

// Full paths in the order given: a file as it is (any type), a folder by the folder scan with
// the "All image files" patterns. Relative paths are made absolute against the current folder.
CollectedSources CollectSources(const std::vector<std::string>& paths);

// Adds the paths listed in `file` (standard input for "-"), one a line, to `paths`; empty lines
// are passed over. Returns why the list can't be read, or "".
std::string ReadSourceList(const std::string& file, std::vector<std::string>& paths);

}  // namespace velmora::app
