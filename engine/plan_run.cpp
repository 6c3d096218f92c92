// The planning pass: each row's name and collision policy in row order, against the files on disk
// and the files the rows before it will write, as one run decides them just before each source.
#include "engine/plan_run.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <unordered_map>

#include "engine/encoder.h"
#include "engine/plan_pages.h"
#include "engine/run_context.h"

namespace velmora::engine {
namespace {

// The files a row writes: a source of several pages written as page files writes page names, not
// its row's name; a source whose pages can't be counted can't be read, and writes nothing.
std::vector<std::string> PlannedOutputs(const RunJob& job, const SourcePlan& plan, std::int32_t pages) {
  if (plan.TargetPath.empty() || pages < 1) return {};
  if (pages == 1 || WritesMultipageFile(job.output)) return {plan.TargetPath};
  std::vector<std::string> names;
  for (int p = 0; p < pages; ++p) names.push_back(SeparatePageName(job, plan, p));
  return names;
}

// The page count of each row: counted only where it can change the names, that is for sources
// that may have several pages when pages go to files of their own; 1 elsewhere.
std::vector<std::int32_t> PagesOfRows(const RunJob& job, const std::vector<std::string>& rows) {
  std::vector<std::int32_t> pages(rows.size(), 1);
  if (WritesMultipageFile(job.output)) return pages;
  std::vector<std::size_t> counted;
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!MayHoldPages(rows[i])) continue;
    counted.push_back(i);
    paths.push_back(rows[i]);
  }
  const std::vector<std::int32_t> counts = CountPagesApart(paths);
  for (std::size_t c = 0; c < counted.size(); ++c) pages[counted[c]] = counts[c];
  return pages;
}

// A name that several rows write (the Overwrite policy) ends with the last one's file.
void SetAsideSuperseded(RunPlan& plan) {
  std::unordered_map<std::string, std::size_t> last_writer;
  last_writer.reserve(plan.rows.size());
  for (std::size_t i = 0; i < plan.rows.size(); ++i)
    for (const std::string& output : plan.rows[i].outputs) last_writer[output] = i;
  for (std::size_t i = 0; i < plan.rows.size(); ++i) {
    std::vector<std::string>& outputs = plan.rows[i].outputs;
    if (std::all_of(outputs.begin(), outputs.end(),
                    [&](const std::string& output) { return last_writer[output] == i; }))
      continue;
    const auto kept = std::stable_partition(outputs.begin(), outputs.end(),
                                            [&](const std::string& output) { return last_writer[output] == i; });
    plan.rows[i].superseded.assign(kept, outputs.end());
    outputs.erase(kept, outputs.end());
  }
}

std::string NewPlanId() {
  std::random_device random;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return std::to_string(now) + "-" + std::to_string(random()) + std::to_string(random());
}

}  // namespace

RunPlan PlanRun(AppState& state, const SourceList& sources, RunView& view) {
  RunContext run(state, view);
  run.job = MakeRunJob(state, run.lib);
  run.outputs = OutputLedger({}, sources.rows);
  state.SkipCounter = 0;

  RunPlan plan;
  plan.id = NewPlanId();
  plan.job = WorkerJobOf(run);  // not a preview: no frame
  plan.html_index = state.settings.GenerateHtmlIndex != kFalse;
  // Pages that start from what the page before them left can't start anywhere but at the first row.
  if (run.job.carries_page_state)
    plan.single_shard_reason =
        "its chain carries values from each page to the next (a resize of unknown units or a watermark of "
        "unknown alignment)";
  const std::vector<std::int32_t> pages = PagesOfRows(run.job, sources.rows);
  plan.rows.reserve(sources.rows.size());
  for (std::size_t i = 0; i < sources.rows.size(); ++i) {
    const SourcePlan decided = PlanSource(run, sources.rows[i], static_cast<std::int64_t>(i));
    PlannedRow row{decided.path, decided.TargetPath, PlannedOutputs(run.job, decided, pages[i]), {}};
    for (const std::string& output : row.outputs) {
      // The later rows meet this file, as one run's rows meet what the rows before them wrote.
      run.outputs.Reserve(output);
      // Shards running at the same time could replace a source before its own shard reads it.
      if (plan.single_shard_reason.empty() && run.outputs.ReadByOtherRow(output, i))
        plan.single_shard_reason = "the output " + output + " of " + row.source + " replaces the source of another row";
    }
    plan.rows.push_back(std::move(row));
  }
  plan.skipped = state.SkipCounter;
  SetAsideSuperseded(plan);
  return plan;
}

}  // namespace velmora::engine
