// The last stage of a page: the output format table, the colour depth conversion chosen by
// format and depth index, and the flags of the save call.
#pragma once

#include <cstdint>
#include <string>

#include "engine/app_state.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

struct OutputTarget {
  std::string OutputExtension;  // "jpg", ...; empty for an unknown format
  int OutputFormatNumber = 0;   // the back end's format number; 0 for an unknown format
};

// The extension and format number of `OutputFormat` (0 BMP ... 6 EXR, 7 WebP, 8 AVIF); any other
// value gives "" and 0.
OutputTarget OutputTargetFor(std::int16_t output_format);

// Converts `page` in place to the depth that `ColorDepth` names for this format. An index outside
// the format's list converts nothing.
void ConvertDepth(imaging::ImagingLibrary& lib, imaging::Handle& page, const OutputChoices& output);

// The save flags after this page. `flags` carries over from page to page and from source to
// source: BMP, PNG and TGA leave it, TIFF only adds bits to it.
std::int32_t NextSaveFlags(std::int32_t flags, const OutputChoices& output);

// True when a multi-page source is written as one file of pages (GIF or TIFF, multipage mode 1).
bool WritesMultipageFile(const OutputChoices& output);

}  // namespace velmora::engine
