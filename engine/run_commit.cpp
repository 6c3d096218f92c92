// The ordered half of a run: names and collision policy, the texts the user sees for each page,
// and the writing of files, the index cells and the list of written files.
#include "engine/naming.h"
#include "engine/paths.h"
#include "engine/run_context.h"

namespace velmora::engine {
namespace {

using imaging::CallResult;

// The percent texts of one page: 10% before the chain, one text after each operation.
void ShowChainProgress(RunContext& run) {
  run.view.SetWaitLabel("10%");
  run.view.Yield();
  const std::int32_t count = run.job.blocks.UpperBound();
  for (std::int32_t b = 0; b < count; ++b) {
    run.view.Yield();
    run.view.SetWaitLabel(std::to_string((b + 1) * 80 / count + 10) + "%");
    run.view.Yield();
  }
}

void WritePage(RunContext& run, const SourcePlan& plan, const FinishedPage& page, int page_index,
               std::size_t page_count, std::string& TargetPath) {
  CallResult result = 0;
  if (page_count == 1) {
    if (page.encoded_ok) run.lib.WriteEncodedImage(page.encoded, TargetPath, result);
  } else if (WritesMultipageFile(run.job.output)) {
    run.lib.AppendPageToFile(TargetPath, page.page, -1, run.job.SaveFlags, -1, result);
  } else {
    // Separate files: the page name comes from a fresh expansion; no collision policy applies.
    const OutputChoices& output = run.job.output;
    TargetPath = PageName(
        ExpandTemplate(output.OutputFolder, output.NameTemplate, plan.path, run.job.target.OutputExtension, plan.row),
        page_index);
    if (page.encoded_ok) run.lib.WriteEncodedImage(page.encoded, TargetPath, result);
  }
  if (result == 0 && page.readable) run.view.LogFailure("cannot write " + TargetPath);
}

}  // namespace

SourcePlan PlanSource(RunContext& run, const std::string& path, std::int64_t row) {
  const OutputChoices& output = run.job.output;
  SourcePlan plan{path, row,
                  ExpandTemplate(output.OutputFolder, output.NameTemplate, path, run.job.target.OutputExtension, row)};
  const Collision collision = ApplyOutputPolicy(run.state.settings.IfOutputFileExists, plan.TargetPath,
                                                OutputFileExists, DeleteOutputFile, [&run] { run.view.Yield(); });
  if (collision == Collision::kSkip) ++run.state.SkipCounter;
  return plan;
}

void CommitSource(RunContext& run, const SourcePlan& plan, FinishedSource& finished) {
  for (const std::string& failure : finished.failures) run.view.LogFailure(failure);
  std::string TargetPath = plan.TargetPath;
  const std::size_t page_count = finished.pages.size();
  for (std::size_t p = 0; p < page_count; ++p) {
    ShowChainProgress(run);
    if (run.html) run.html->AddCell(TargetPath);
    run.view.SetWaitLabel("100%");
    run.view.Yield();
    if (run.job.preview) TargetPath = run.job.preview_file;
    if (!TargetPath.empty()) {  // a skipped source is processed all the same, never written
      WritePage(run, plan, finished.pages[p], static_cast<int>(p), page_count, TargetPath);
      run.state.WrittenFiles.Append(TargetPath);
    }
    // A preview still shows its page; any other kept page has been appended by now.
    if (!run.job.preview) run.lib.Release(finished.pages[p].page);
  }
  run.lib.FlushAppendedPages();
}

}  // namespace velmora::engine
