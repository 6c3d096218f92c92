// The planning pass: each row's name and collision policy in row order, against the files on disk
// and the files the rows before it will write, as one run decides them just before each source.
#include "engine/plan_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <unordered_map>

#include "engine/encoder.h"
#include "engine/number_text.h"
#include "engine/paths.h"
#include "engine/run_context.h"

namespace velmora::engine {
namespace {

// Whether a source may have several pages: the types read as several pages (GIF, TIFF, ICO and
// HEIF or AVIF), told by the name or by the first bytes, as the reader tells them by content.
bool MayHoldPages(const std::string& path) {
  for (const char* type : {"gif", "tif", "tiff", "ico", "heic", "heif", "avif"})
    if (EqualsIgnoreCase(ExtensionOfPath(FileNameOfPath(path)), type)) return true;
  unsigned char head[12] = {};
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  const bool read = ::read(fd, head, sizeof head) == static_cast<ssize_t>(sizeof head);
  ::close(fd);
  if (!read) return false;
  const auto starts = [&head](std::string_view magic, std::size_t at = 0) {
    return std::string_view(reinterpret_cast<const char*>(head) + at, magic.size()) == magic;
  };
  return starts("GIF8") || starts({"II*\0", 4}) || starts({"MM\0*", 4}) || starts({"\0\0\1\0", 4}) ||
         starts({"\0\0\2\0", 4}) || starts("ftyp", 4);
}

// The files a row writes. A source of several pages written as page files writes page names, not
// its row's name, so only there are pages counted (from the headers); a source whose pages cannot
// be counted cannot be read, and writes nothing.
std::vector<std::string> PlannedOutputs(RunContext& run, const SourcePlan& plan) {
  if (plan.TargetPath.empty()) return {};
  if (WritesMultipageFile(run.job.output) || !MayHoldPages(plan.path)) return {plan.TargetPath};
  std::int32_t count = 0;
  imaging::CallResult result = 0;
  run.lib.CountPages(plan.path, count, result);
  if (count <= 1) return count == 1 ? std::vector<std::string>{plan.TargetPath} : std::vector<std::string>{};
  std::vector<std::string> names;
  for (int p = 0; p < count; ++p) names.push_back(SeparatePageName(run.job, plan, p));
  return names;
}

// A name that several rows write (the Overwrite policy) ends with the last one's file.
void SetAsideSuperseded(RunPlan& plan) {
  std::unordered_map<std::string, std::size_t> last_writer;
  for (std::size_t i = 0; i < plan.rows.size(); ++i)
    for (const std::string& output : plan.rows[i].outputs) last_writer[output] = i;
  for (std::size_t i = 0; i < plan.rows.size(); ++i) {
    std::vector<std::string>& outputs = plan.rows[i].outputs;
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
  plan.job = WorkerJob{state.blocks, state.output, state.font};
  plan.job.upright = run.job.upright;
  plan.job.keep_colour_profile = run.job.keep_colour_profile;
  plan.html_index = state.settings.GenerateHtmlIndex != kFalse;
  // Pages that start from what the page before them left can't start anywhere but at the first row.
  if (run.job.carries_page_state)
    plan.single_shard_reason =
        "its chain carries values from each page to the next (a resize of unknown units or a watermark of "
        "unknown alignment)";
  plan.rows.reserve(sources.rows.size());
  for (std::size_t i = 0; i < sources.rows.size(); ++i) {
    const SourcePlan decided = PlanSource(run, sources.rows[i], static_cast<std::int64_t>(i));
    PlannedRow row{decided.path, decided.TargetPath, PlannedOutputs(run, decided), {}};
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
