// The steps one page takes: metadata kept aside, the chain with its percent texts, the index
// cell, then depth conversion, flags, metadata back and one of three saves.
#include <string>

#include "engine/naming.h"
#include "engine/paths.h"
#include "engine/run_context.h"

namespace velmora::engine {
namespace {

using imaging::CallResult;
using imaging::Handle;

const char* KindName(std::int16_t kind) {
  static const char* const kNames[] = {"Resize", "Rotate", "Mirror", "Watermark", "Effect",
                                       "Brightness/Contrast", "Gamma correction"};
  return kind >= 0 && kind <= 6 ? kNames[kind] : "Unknown";
}

// The operations may replace the page, so its metadata waits in a blank image of the same shape.
Handle KeepMetadataAside(imaging::ImagingLibrary& lib, Handle page) {
  std::uint32_t w = 0, h = 0, bpp = 0;
  lib.FreeImage_GetWidth(page, w);
  lib.FreeImage_GetHeight(page, h);
  lib.FreeImage_GetBPP(page, bpp);
  Handle holder = 0;
  CallResult result = 0;
  lib.FreeImage_Allocate(holder, static_cast<std::int32_t>(w), static_cast<std::int32_t>(h),
                         static_cast<std::int32_t>(bpp), 0, 0, 0, result);
  lib.CopyMetadata(page, holder, result);
  return holder;
}

void RunChain(RunContext& run, Handle& page, const SourcePlan& plan, int page_index) {
  const Blocks& blocks = run.state.blocks;
  const std::int32_t count = blocks.UpperBound();
  for (std::int32_t b = 0; b < count; ++b) {
    run.view.Yield();
    const bool worked = ApplyBlock(run.lib, page, blocks[b], run.chain);
    if (!worked && page != 0)
      run.view.LogFailure(std::string(KindName(blocks[b].Kind)) + " (operation " + std::to_string(b + 1) +
                          ") failed on page " + std::to_string(page_index) + " of " + plan.path);
    run.view.SetWaitLabel(std::to_string((b + 1) * 80 / count + 10) + "%");
    run.view.Yield();
  }
}

void Save(RunContext& run, Handle page, int page_index, int page_upper_bound, const SourcePlan& plan,
          std::string& TargetPath) {
  imaging::ImagingLibrary& lib = run.lib;
  const OutputChoices& output = run.state.output;
  CallResult result = 0;
  if (page_upper_bound == 0) {
    lib.FreeImage_Save(page, TargetPath, run.target.OutputFormatNumber, run.SaveFlags, -1, result);
  } else if (WritesMultipageFile(output)) {
    lib.AppendPageToFile(TargetPath, page, -1, run.SaveFlags, -1, result);
  } else {
    // Separate files: the page name comes from a fresh expansion; no collision policy applies.
    const std::string expanded = ExpandTemplate(output.OutputFolder, output.NameTemplate, plan.path,
                                                run.target.OutputExtension, plan.row);
    TargetPath = PageName(expanded, page_index);
    lib.FreeImage_Save(page, TargetPath, run.target.OutputFormatNumber, run.SaveFlags, -1, result);
  }
  if (result == 0 && page != 0) run.view.LogFailure("cannot write " + TargetPath);
}

}  // namespace

void ProcessPage(RunContext& run, Handle& page, int page_index, int page_upper_bound, const SourcePlan& plan,
                 std::string& TargetPath) {
  imaging::ImagingLibrary& lib = run.lib;
  const Handle holder = KeepMetadataAside(lib, page);
  run.view.SetWaitLabel("10%");
  run.view.Yield();

  RunChain(run, page, plan, page_index);

  if (run.html) run.html->AddCell(TargetPath);
  run.view.SetWaitLabel("100%");
  run.view.Yield();

  if (run.preview()) TargetPath = run.state.AppDataFolder + "/Temp/preview.dat";
  if (!TargetPath.empty()) {
    ConvertDepth(lib, page, run.state.output);
    run.SaveFlags = NextSaveFlags(run.SaveFlags, run.state.output);
    CallResult result = 0;
    lib.CopyMetadata(holder, page, result);
    Save(run, page, page_index, page_upper_bound, plan, TargetPath);
    run.state.WrittenFiles.Append(TargetPath);
  }
  lib.Release(holder);
}

}  // namespace velmora::engine
