// One source of a real run: its output name, its pages and their way through the chain.
#include <vector>

#include "engine/naming.h"
#include "engine/number_text.h"
#include "engine/paths.h"
#include "engine/run_context.h"

namespace velmora::engine {
namespace {

std::vector<imaging::Handle> LoadPages(imaging::ImagingLibrary& lib, const std::string& path) {
  std::int32_t count = 0, unused = 0;
  imaging::CallResult result = 0;
  lib.CountPages(path, count, result);
  std::vector<imaging::Handle> pages;
  if (count == 1) {
    pages.assign(1, 0);
    LoadSinglePage(lib, path, pages[0]);
  } else {
    lib.LoadAllPages(path, pages, unused, result);
  }
  // A source that can't be read still goes through the page steps with an empty handle: every
  // operation and the save fail quietly, and its name is still recorded.
  if (pages.empty()) pages.assign(1, 0);
  return pages;
}

}  // namespace

void LoadSinglePage(imaging::ImagingLibrary& lib, const std::string& path, imaging::Handle& page) {
  imaging::CallResult result = 0;
  if (EqualsIgnoreCase(ExtensionOfPath(path), "ICO"))
    lib.FreeImage_Load(path, page, imaging::kFormatIco, 1, result);
  else
    lib.FreeImage_Load(path, page, imaging::kFormatUnknown, 0, result);
}

SourcePlan PlanSource(RunContext& run, const std::string& path, std::int64_t row) {
  const OutputChoices& output = run.state.output;
  SourcePlan plan{path, row, ExpandTemplate(output.OutputFolder, output.NameTemplate, path,
                                            run.target.OutputExtension, row)};
  const Collision collision = ApplyOutputPolicy(
      run.state.settings.IfOutputFileExists, plan.TargetPath, OutputFileExists, DeleteOutputFile,
      [&run] { run.view.Yield(); });
  if (collision == Collision::kSkip) ++run.state.SkipCounter;
  return plan;
}

void ExecuteSource(RunContext& run, const SourcePlan& plan) {
  run.view.SetProgressValue(static_cast<int>(plan.row + 1));
  run.view.SetFile("Current file: " + FileNameOfPath(plan.path));
  std::vector<imaging::Handle> pages = LoadPages(run.lib, plan.path);
  if (pages.size() == 1 && pages[0] == 0) run.view.LogFailure("cannot read " + plan.path);

  std::string TargetPath = plan.TargetPath;
  const int upper_bound = static_cast<int>(pages.size()) - 1;
  for (int p = 0; p <= upper_bound; ++p) {
    ProcessPage(run, pages[static_cast<std::size_t>(p)], p, upper_bound, plan, TargetPath);
    run.lib.Release(pages[static_cast<std::size_t>(p)]);  // a saved page is not needed again
  }
  run.lib.FlushAppendedPages();
  run.view.Yield();
}

}  // namespace velmora::engine
