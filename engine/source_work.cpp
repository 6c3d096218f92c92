// Loading, chain, depth conversion, metadata and encoding of one source's pages.
#include "engine/source_work.h"

#include "engine/file_replace.h"
#include "engine/naming.h"
#include "engine/number_text.h"
#include "engine/paths.h"
#include "engine/preview_fit.h"
#include "engine/stage_times.h"

namespace velmora::engine {
namespace {

using imaging::CallResult;
using imaging::Handle;

const char* KindName(std::int16_t kind) {
  static const char* const kNames[] = {
      "Resize", "Rotate", "Mirror", "Watermark", "Effect", "Brightness/Contrast", "Gamma correction"};
  return kind >= 0 && kind <= 6 ? kNames[kind] : "Unknown";
}

std::vector<Handle> LoadPages(imaging::ImagingLibrary& lib, const std::string& path, bool first_only, bool upright) {
  std::vector<Handle> pages;
  std::int32_t count = first_only ? 1 : 0, unused = 0;
  CallResult result = 0;
  if (!first_only) lib.CountPages(path, count, result);
  if (count == 1) {
    pages.assign(1, 0);
    LoadSinglePage(lib, path, pages[0]);
  } else {
    lib.LoadAllPages(path, pages, unused, result);
  }
  // A source that can't be read still goes through the page steps with an empty handle: every
  // operation and the save fail quietly, and its name is still recorded.
  if (pages.empty()) pages.assign(1, 0);
  if (upright) {
    for (std::size_t p = 0; p < pages.size(); ++p) lib.TurnUpright(pages[p], path, static_cast<int>(p), result);
  }
  return pages;
}

// The operations may replace the page, so its metadata waits in a blank image of the page's depth.
// Only what travels beside the pixels (tags and resolution) is ever read back from it, so one
// pixel does: a blank of the page's full size would cost a large cleared buffer on every page.
Handle KeepMetadataAside(imaging::ImagingLibrary& lib, Handle page, bool colour_profile) {
  std::uint32_t bpp = 0;
  lib.FreeImage_GetBPP(page, bpp);
  Handle holder = 0;
  CallResult result = 0;
  lib.FreeImage_Allocate(holder, 1, 1, static_cast<std::int32_t>(bpp), 0, 0, 0, result);
  lib.CopyMetadata(page, holder, result);
  if (colour_profile) lib.CopyColourProfile(page, holder, result);
  return holder;
}

void RunChain(const RunJob& job, imaging::ImagingLibrary& lib, Handle& page, ChainState& chain, const std::string& path,
              int page_index, std::vector<std::string>& failures) {
  for (std::int32_t b = 0; b < job.blocks.UpperBound(); ++b) {
    const bool worked = ApplyBlock(lib, page, job.blocks[b], chain);
    if (!worked && page != 0)
      failures.push_back(std::string(KindName(job.blocks[b].Kind)) + " (operation " + std::to_string(b + 1) +
                         ") failed on page " + std::to_string(page_index) + " of " + path);
  }
}

// `page` as a picture to show, scaled down first when `rule` (FitPreview or FitSourceBox) says so
// for a frame of `frame_width` by `frame_height`.
template <typename Fit>
bool FittedPicture(imaging::ImagingLibrary& lib, Handle page,
                   Fit (*rule)(std::int64_t, std::int64_t, std::int64_t, std::int64_t), int frame_width,
                   int frame_height, imaging::DisplayPicture& picture) {
  std::uint32_t w = 0, h = 0;
  lib.FreeImage_GetWidth(page, w);
  lib.FreeImage_GetHeight(page, h);
  const Fit fit = rule(w, h, frame_width, frame_height);
  CallResult result = 0;
  if (fit.rescale) lib.FreeImage_Rescale(page, fit.width, fit.height, 1, result);
  lib.MakeDisplayPicture(page, picture, result);
  return result != 0;
}

}  // namespace

void LoadSinglePage(imaging::ImagingLibrary& lib, const std::string& path, Handle& page) {
  CallResult result = 0;
  if (EqualsIgnoreCase(ExtensionOfPath(path), "ICO"))
    lib.FreeImage_Load(path, page, imaging::kFormatIco, 1, result);
  else
    lib.FreeImage_Load(path, page, imaging::kFormatUnknown, 0, result);
}

FinishedSource TransformRow(const RunJob& job, imaging::ImagingLibrary& lib, const std::string& path, std::size_t row,
                            std::optional<ChainState>* carried) {
  const auto row_number = static_cast<std::int64_t>(row);
  try {
    if (carried) {
      if (!*carried) *carried = ChainStateForRow(job, row);
      return TransformSource(job, lib, path, row_number, **carried);
    }
    ChainState chain = ChainStateForRow(job, row);
    FinishedSource finished = TransformSource(job, lib, path, row_number, chain);
    ReleaseOwnedWatermark(lib, chain);
    return finished;
  } catch (...) {
    return UnreadableSource("out of memory while converting " + path);
  }
}

FinishedSource PictureOfSource(imaging::ImagingLibrary& lib, const std::string& path, int box_width, int box_height,
                               bool upright) {
  FinishedSource finished;
  finished.pages.assign(1, FinishedPage{});
  Handle image = 0;
  CallResult result = 0;
  lib.FreeImage_Load(path, image, imaging::kFormatUnknown, 0, result);
  if (result == 0) return finished;
  finished.pages[0].readable = true;
  if (upright) lib.TurnUpright(image, path, 0, result);
  finished.picture_ok = FittedPicture(lib, image, FitSourceBox, box_width, box_height, finished.picture);
  lib.Release(image);
  return finished;
}

FinishedSource UnreadableSource(const std::string& failure) {
  FinishedSource finished;
  finished.pages.assign(1, FinishedPage{});
  finished.failures.push_back(failure);
  return finished;
}

FinishedSource TransformSource(const RunJob& job, imaging::ImagingLibrary& lib, const std::string& path,
                               std::int64_t row, ChainState& chain) {
  FinishedSource finished;
  std::vector<Handle> pages;
  {
    const StageTimer timer(Stage::kDecode);
    pages = LoadPages(lib, path, job.preview, job.upright);
  }
  if (pages.size() == 1 && pages[0] == 0) finished.failures.push_back("cannot read " + path);
  const bool multipage_file = pages.size() > 1 && WritesMultipageFile(job.output);
  std::vector<Handle> kept;  // for the multipage file or the preview

  for (std::size_t p = 0; p < pages.size(); ++p) {
    Handle& page = pages[p];
    const Handle holder = KeepMetadataAside(lib, page, job.keep_colour_profile);
    {
      const StageTimer timer(Stage::kChain);
      RunChain(job, lib, page, chain, path, static_cast<int>(p), finished.failures);
    }
    CallResult result = 0;
    {
      const StageTimer timer(Stage::kDepth);
      ConvertDepth(lib, page, job.output);
      lib.CopyMetadata(holder, page, result);
      if (job.keep_colour_profile) lib.CopyColourProfile(holder, page, result);
      lib.Release(holder);
    }

    FinishedPage done;
    done.readable = page != 0;
    if (!multipage_file) {
      const StageTimer timer(Stage::kEncode);
      lib.EncodeImage(page, job.target.OutputFormatNumber, job.SaveFlags, done.encoded, result);
      done.encoded_ok = result != 0;
    }
    if (multipage_file || job.preview) {
      kept.push_back(page);
    } else {
      lib.Release(page);  // a page that is encoded is not needed again
    }
    finished.pages.push_back(std::move(done));
  }
  if (multipage_file) {
    const OutputChoices& output = job.output;
    finished.multipage_file = TemporaryNameFor(
        ExpandTemplate(output.OutputFolder, output.NameTemplate, path, job.target.OutputExtension, row));
    CallResult result = 0;
    const StageTimer timer(Stage::kEncode);
    lib.WriteMultipageFile(finished.multipage_file, kept, job.SaveFlags, result);
    finished.multipage_ok = result != 0;
    if (!finished.multipage_ok) DiscardTemporary(finished.multipage_file);
  }
  if (job.preview && !kept.empty())
    finished.picture_ok = FittedPicture(lib, kept.front(), FitPreview, job.preview_frame_width,
                                        job.preview_frame_height, finished.picture);
  for (const Handle page : kept) lib.Release(page);
  return finished;
}

}  // namespace velmora::engine
