// The work on one source that needs no other source: load its pages, send each through the
// chain, convert its depth, restore its metadata and encode it. Safe on any thread: it touches
// the shared imaging object and the state it is given, nothing else.
#pragma once

#include <string>
#include <vector>

#include "engine/ops/chain_state.h"
#include "engine/run_job.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

struct FinishedPage {
  // Kept when the page is added to a multipage file or shown as a preview; else 0.
  imaging::Handle page = 0;
  imaging::EncodedImage encoded;
  bool encoded_ok = false;
  bool readable = false;  // false for the empty page of a source that could not be read
};

struct FinishedSource {
  std::vector<FinishedPage> pages;  // at least one: an unreadable source has one empty page
  std::vector<std::string> failures;
};

// Processes `path`: all its pages in a real run, the first page only in a preview.
FinishedSource TransformSource(const RunJob& job, imaging::ImagingLibrary& lib, const std::string& path,
                               ChainState& chain);

// Loads a file as one image: icons with their alpha channel, anything else by its content.
void LoadSinglePage(imaging::ImagingLibrary& lib, const std::string& path, imaging::Handle& page);

}  // namespace velmora::engine
