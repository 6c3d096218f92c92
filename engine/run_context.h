// What one conversion run carries while it goes: the back end, the settled job, the program
// state it writes back to, the surroundings and the index page. The run decides names and
// writes files in row order; the pixel work on sources happens in the executor.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/app_state.h"
#include "engine/html_index.h"
#include "engine/output_ledger.h"
#include "engine/run_job.h"
#include "engine/run_view.h"
#include "engine/source_work.h"
#include "engine/worker_processes.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

struct RunContext {
  RunContext(AppState& app_state, RunView& run_view) : state(app_state), view(run_view), outputs(FailureLog()) {}
  RunContext(const RunContext&) = delete;
  RunContext& operator=(const RunContext&) = delete;

  // Where failures go: the view's log.
  OutputLedger::Report FailureLog() {
    return [this](const std::string& message) { view.LogFailure(message); };
  }

  imaging::ImagingLibrary lib;
  AppState& state;
  RunView& view;
  RunJob job;
  std::optional<HtmlIndex> html;  // present when GenerateHtmlIndex is on
  // When set, the names the index cells of the source being committed get, in order.
  std::vector<std::string>* row_cells = nullptr;
  OutputLedger outputs;
};

// The output decision for one source: its path, its row (zero-based) and the name it will be
// written under, empty when the collision policy skips it.
struct SourcePlan {
  std::string path;
  std::int64_t row = 0;
  std::string TargetPath;
};

// Expands the template for `row` and applies the collision policy against the files on disk,
// which by then hold everything the rows before it wrote.
SourcePlan PlanSource(RunContext& run, const std::string& path, std::int64_t row);

// Shows the page steps of a finished source and writes its pages, in order: the percent texts of
// the chain, the index cell, then the file.
void CommitSource(RunContext& run, const SourcePlan& plan, const FinishedSource& finished);

// The name page `page` of a source of several pages is written under when pages go to separate
// files: the template expanded afresh with a page mark, whatever the collision policy decided.
std::string SeparatePageName(const RunJob& job, const SourcePlan& plan, int page);

// What a worker process needs to transform sources as this run would: the chain, the output
// choices, the font values and the per-run settings.
WorkerJob WorkerJobOf(const RunContext& run);

// Converts rows `first_row` to the last of `rows` in order: the decision for each from
// `plan_row`, its source from the run's workers, then its commit and `row_done` (if any), with
// run.outputs made for `rows`. Files held back for sources still to be read go in place at the end.
void ConvertRows(RunContext& run, const std::vector<std::string>& rows, std::size_t first_row, int jobs,
                 const WorkerLimits& limits, const std::function<SourcePlan(std::size_t row)>& plan_row,
                 const std::function<void(std::size_t row)>& row_done);

// The end of a real run of `row_count` rows: the index page, the folder opening and the closing
// status lines with the skip count.
void FinishRun(RunContext& run, std::size_t row_count);

}  // namespace velmora::engine
