// The work on one source that needs no other source: load its pages, send each through the
// chain, convert its depth, restore its metadata and encode it. Safe on any thread: it touches
// the shared imaging object and the state it is given, nothing else.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/ops/chain_state.h"
#include "engine/run_job.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

// What the work on a source hands to the run: plain values, so that it can come from another
// thread or another process alike.
struct FinishedPage {
  imaging::EncodedImage encoded;  // empty when the page goes to a multipage file
  bool encoded_ok = false;
  bool readable = false;  // false for the empty page of a source that could not be read
};

struct FinishedSource {
  std::vector<FinishedPage> pages;  // at least one: an unreadable source has one empty page
  std::vector<std::string> failures;
  // A source of several pages in multipage mode is written whole to a temporary in its target's
  // folder, for the run to rename into place (or throw away when the source is skipped).
  std::string multipage_file;
  bool multipage_ok = false;
  // In a preview, the page fitted to the frame as the window shows it.
  imaging::DisplayPicture picture;
  bool picture_ok = false;
};

// Processes `path`, the source of zero-based `row`: all its pages in a real run, the first page
// only in a preview.
FinishedSource TransformSource(const RunJob& job, imaging::ImagingLibrary& lib, const std::string& path,
                               std::int64_t row, ChainState& chain);

// TransformSource for the source of `row` and a chain state of its own: the one a row starts from,
// or, given `carried`, the one state every row shares in turn (made for the first row that comes).
// Never throws: running out of memory gives an unreadable source.
FinishedSource TransformRow(const RunJob& job, imaging::ImagingLibrary& lib, const std::string& path, std::size_t row,
                            std::optional<ChainState>* carried);

// The source as the preview's source box shows it: its first image read by content, turned
// upright when `upright` and it records a camera orientation, and fitted to a box of `box_width`
// by `box_height` (`picture_ok` false when it can't be read).
FinishedSource PictureOfSource(imaging::ImagingLibrary& lib, const std::string& path, int box_width, int box_height,
                               bool upright);

// The finished source of a row whose work came to nothing: one empty page and `failure`.
FinishedSource UnreadableSource(const std::string& failure);

// Loads a file as one image: icons with their alpha channel, anything else by its content.
void LoadSinglePage(imaging::ImagingLibrary& lib, const std::string& path, imaging::Handle& page);

}  // namespace velmora::engine
