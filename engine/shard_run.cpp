// The shards of a planned run and its finish: the rows converted under the planned names by the
// run's own machinery, the journal of finished rows, and the checks and closing of the whole run.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "engine/fd_io.h"
#include "engine/paths.h"
#include "engine/plan_run.h"
#include "engine/run_context.h"
#include "engine/source_executor.h"

namespace velmora::engine {
namespace {

AppState StateOfPlan(const RunPlan& plan) {
  AppState state;
  state.blocks = plan.job.blocks;
  state.output = plan.job.output;
  state.font = plan.job.font;
  state.settings.RotateByCameraOrientation = plan.job.upright ? kTrue : kFalse;
  state.settings.KeepColourProfiles = plan.job.keep_colour_profile ? kTrue : kFalse;
  state.settings.GenerateHtmlIndex = plan.html_index ? kTrue : kFalse;
  return state;
}

// Appends finished rows to a shard's journal. A row goes in only once every file it wrote is in
// place; held-back files (a source replaced by an earlier row's output) make it wait, so that the
// journal always lists a leading run of the shard's rows.
class JournalWriter {
 public:
  JournalWriter(const std::string& path, const std::string& plan_id, std::size_t keep_bytes) {
    fd_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (fd_ < 0) return;
    // A line cut short by a crash goes; a journal of another plan starts afresh.
    ok_ = ::ftruncate(fd_, static_cast<off_t>(keep_bytes)) == 0 && ::lseek(fd_, 0, SEEK_END) >= 0;
    if (ok_ && keep_bytes == 0) ok_ = Write(JournalHeader(plan_id));
  }
  ~JournalWriter() {
    if (fd_ >= 0) ::close(fd_);
  }
  JournalWriter(const JournalWriter&) = delete;
  JournalWriter& operator=(const JournalWriter&) = delete;

  bool ok() const { return ok_; }
  void Finished(std::size_t row, JournalEntry entry) { pending_.emplace_back(row, std::move(entry)); }
  // Writes the finished rows and makes them durable.
  void Flush() {
    std::string lines;
    for (auto& [row, entry] : pending_) {
      std::erase_if(entry.written, [](const std::string& name) { return !OutputFileExists(name); });
      lines += JournalLine(row, entry);
    }
    pending_.clear();
    if (!lines.empty()) ok_ = Write(lines) && ok_;
  }

 private:
  bool Write(const std::string& text) { return WriteAll(fd_, text) && ::fdatasync(fd_) == 0; }

  int fd_ = -1;
  bool ok_ = false;
  std::vector<std::pair<std::size_t, JournalEntry>> pending_;
};

// The names a row recorded in the written-files list since `mark`, each once.
std::vector<std::string> NamesSince(const WrittenFileList& list, std::int32_t mark) {
  std::vector<std::string> names;
  for (std::int32_t i = mark; i < list.UpperBound(); ++i)
    if (std::find(names.begin(), names.end(), list[i]) == names.end()) names.push_back(list[i]);
  return names;
}

// Removes the temporaries that killed shards left beside the planned outputs: ".velmora-<pid>-<n>-"
// and the end of an output's name.
void RemoveLeftoverTemporaries(const RunPlan& plan) {
  namespace fs = std::filesystem;
  std::map<std::string, std::vector<std::string>> names_by_folder;
  for (const PlannedRow& row : plan.rows)
    for (const std::string& output : row.outputs)
      names_by_folder[fs::path(output).parent_path().string()].push_back(FileNameOfPath(output));
  for (const auto& [folder, names] : names_by_folder) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with(".velmora-")) continue;
      const std::size_t pid_end = name.find('-', 9), count_end = name.find('-', pid_end + 1);
      if (pid_end == std::string::npos || count_end == std::string::npos) continue;
      const std::string kept = name.substr(count_end + 1);
      if (std::any_of(names.begin(), names.end(), [&](const std::string& n) { return n.ends_with(kept); }))
        fs::remove(entry.path(), error);
    }
  }
}

}  // namespace

ShardRows RowsOfShard(std::size_t row_count, int shard, int shards) {
  const auto at = [&](int k) { return row_count * static_cast<std::size_t>(k) / static_cast<std::size_t>(shards); };
  return {at(shard), at(shard + 1)};
}

ShardOutcome RunShard(const RunPlan& plan, const std::string& plan_path, int shard, int shards, RunView& view,
                      const RunOptions& options) {
  if (shards > 1 && !plan.single_shard_reason.empty())
    return {"this plan cannot be split among shards that run at the same time: " + plan.single_shard_reason +
            "; run it as one shard (--shard 0/1)"};
  AppState state = StateOfPlan(plan);
  RunContext run(state, view);
  run.job = MakeRunJob(state, run.lib);
  const ShardRows rows = RowsOfShard(plan.rows.size(), shard, shards);
  const std::string journal_path = JournalPath(plan_path, shard, shards);
  Journal done;
  std::size_t journal_bytes = ReadJournal(journal_path, plan.id, done);
  std::size_t first = rows.first;
  // Rows listed in the journal are done, except where pages carry values from page to page: the
  // values a later row starts from are known only by going through the rows before it again.
  if (run.job.carries_page_state) journal_bytes = 0;
  while (journal_bytes > 0 && first < rows.end && done.contains(first)) ++first;
  JournalWriter journal(journal_path, plan.id, journal_bytes);
  if (!journal.ok()) return {"cannot write the journal " + journal_path};

  std::vector<std::string> sources;
  sources.reserve(rows.end);
  for (std::size_t i = 0; i < rows.end; ++i) sources.push_back(plan.rows[i].source);
  view.SetProgressRange(0, static_cast<int>(rows.end - first));
  view.SetProgressValue(0);
  view.SetStatus("Processing...");
  run.outputs = OutputLedger(run.FailureLog(), sources);
  for (std::size_t i = first; i < rows.end; ++i)
    for (const std::string& name : plan.rows[i].superseded) run.outputs.Supersede(name, i);
  std::vector<std::string> cells;
  run.row_cells = &cells;
  std::int32_t mark = 0;
  ConvertRows(
      run, sources, first, options.jobs > 0 ? options.jobs : DefaultJobs(), options.workers,
      [&](std::size_t row) {
        mark = state.WrittenFiles.UpperBound();
        return SourcePlan{plan.rows[row].source, static_cast<std::int64_t>(row), plan.rows[row].target};
      },
      [&](std::size_t row) {
        std::vector<std::string> written = NamesSince(state.WrittenFiles, mark);
        std::erase_if(written, [&](const std::string& name) {
          return std::ranges::find(plan.rows[row].superseded, name) != plan.rows[row].superseded.end();
        });
        journal.Finished(row, {std::move(cells), std::move(written)});
        cells.clear();
        if (!run.outputs.HoldsBack()) journal.Flush();
      });
  journal.Flush();  // the held-back files are in place now
  view.SetStatus("");
  if (!journal.ok()) return {"cannot write the journal " + journal_path};
  return {"", rows.end - first, first - rows.first};
}

PlanCheck FinishPlan(const RunPlan& plan, const std::string& plan_path, RunView& view) {
  Journal journal;
  for (const std::string& path : JournalPaths(plan_path)) ReadJournal(path, plan.id, journal);
  AppState state = StateOfPlan(plan);
  RunContext run(state, view);
  run.job.output = state.output;
  if (plan.html_index) run.html.emplace();
  PlanCheck check;
  for (std::size_t i = 0; i < plan.rows.size(); ++i) {
    const PlannedRow& row = plan.rows[i];
    const auto entry = journal.find(i);
    if (entry == journal.end()) {
      if (row.outputs.empty()) check.missing.push_back("row " + std::to_string(i) + " (" + row.source + ")");
      check.missing.insert(check.missing.end(), row.outputs.begin(), row.outputs.end());
      continue;
    }
    for (const std::string& name : entry->second.written)
      if (!OutputFileExists(name)) check.missing.push_back(name);
    if (entry->second.written != row.outputs) check.differing.push_back(row.source);
    // One cell per page, with the name each had as the row was committed.
    if (run.html)
      for (const std::string& cell : entry->second.cells) run.html->AddCell(cell);
  }
  if (!check.missing.empty()) return check;
  RemoveLeftoverTemporaries(plan);
  state.SkipCounter = plan.skipped;
  FinishRun(run, plan.rows.size());
  return check;
}

}  // namespace velmora::engine
