// The ordered half of a run: names and collision policy, the texts the user sees for each page,
// and the writing of files, the index cells and the list of written files.
#include "engine/file_replace.h"
#include "engine/naming.h"
#include "engine/paths.h"
#include "engine/run_context.h"
#include "engine/stage_times.h"

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

// Writes a page's encoded bytes under a temporary name and hands the finished file to the ledger,
// which renames it over `target`.
void PlaceEncodedPage(RunContext& run, const FinishedPage& page, const std::string& target, std::size_t row,
                      CallResult& result) {
  if (!page.encoded_ok) return;
  const std::string temporary = TemporaryNameFor(target);
  const StageTimer timer(Stage::kWrite);
  run.lib.WriteEncodedImage(page.encoded, temporary, result);
  if (result != 0) run.outputs.Place(temporary, target, row);
}

void WritePage(RunContext& run, const SourcePlan& plan, const FinishedPage& page, int page_index,
               std::size_t page_count, std::string& TargetPath) {
  CallResult result = 0;
  const auto row = static_cast<std::size_t>(plan.row);
  if (page_count == 1) {
    PlaceEncodedPage(run, page, TargetPath, row, result);
  } else if (WritesMultipageFile(run.job.output)) {
    return;  // the source's file was written whole; it goes in place after the last page
  } else {
    TargetPath = SeparatePageName(run.job, plan, page_index);
    PlaceEncodedPage(run, page, TargetPath, row, result);
  }
  if (result == 0 && page.readable) run.view.LogFailure(kCannotWrite + TargetPath);
}

// Puts the multipage file of a source in place, or throws it away when the source is skipped.
void PlaceMultipageFile(RunContext& run, const SourcePlan& plan, const FinishedSource& finished) {
  if (finished.multipage_file.empty()) return;
  if (plan.TargetPath.empty() || !finished.multipage_ok) {
    DiscardTemporary(finished.multipage_file);
    if (!plan.TargetPath.empty()) run.view.LogFailure(kCannotWrite + plan.TargetPath);
    return;
  }
  run.outputs.Place(finished.multipage_file, plan.TargetPath, static_cast<std::size_t>(plan.row));
}

}  // namespace

std::string SeparatePageName(const RunJob& job, const SourcePlan& plan, int page) {
  // A fresh expansion: no collision policy applies to page names.
  const OutputChoices& output = job.output;
  return PageName(
      ExpandTemplate(output.OutputFolder, output.NameTemplate, plan.path, job.target.OutputExtension, plan.row), page);
}

SourcePlan PlanSource(RunContext& run, const std::string& path, std::int64_t row) {
  const OutputChoices& output = run.job.output;
  SourcePlan plan{path, row,
                  ExpandTemplate(output.OutputFolder, output.NameTemplate, path, run.job.target.OutputExtension, row)};
  // Overwrite gives the old file up rather than deleting it: the finished replacement is renamed
  // over it, so a failed or interrupted run never costs the file it would have replaced.
  const Collision collision = ApplyOutputPolicy(
      run.state.settings.IfOutputFileExists, plan.TargetPath,
      [&run](const std::string& path) { return run.outputs.Exists(path); },
      [&run](const std::string& path) { run.outputs.GiveUp(path); }, [&run] { run.view.Yield(); });
  if (collision == Collision::kSkip) ++run.state.SkipCounter;
  return plan;
}

void CommitSource(RunContext& run, const SourcePlan& plan, const FinishedSource& finished) {
  for (const std::string& failure : finished.failures) run.view.LogFailure(failure);
  std::string TargetPath = plan.TargetPath;
  const std::size_t page_count = finished.pages.size();
  for (std::size_t p = 0; p < page_count; ++p) {
    ShowChainProgress(run);
    if (run.html) run.html->AddCell(TargetPath);
    if (run.row_cells) run.row_cells->push_back(TargetPath);
    run.view.SetWaitLabel("100%");
    run.view.Yield();
    if (run.job.preview) TargetPath = run.job.preview_file;
    if (!TargetPath.empty()) {  // a skipped source is processed all the same, never written
      WritePage(run, plan, finished.pages[p], static_cast<int>(p), page_count, TargetPath);
      run.state.WrittenFiles.Append(TargetPath);
    }
  }
  PlaceMultipageFile(run, plan, finished);
}

}  // namespace velmora::engine
