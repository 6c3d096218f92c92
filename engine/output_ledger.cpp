// Deciding when a finished output may replace what stands under its name.
#include "engine/output_ledger.h"

#include <filesystem>

#include "engine/file_replace.h"
#include "engine/paths.h"
#include "engine/run_view.h"

namespace velmora::engine {

OutputLedger::OutputLedger(const std::vector<std::string>& sources) {
  for (std::size_t row = 0; row < sources.size(); ++row) last_reader_[Key(sources[row])] = row;
}

std::string OutputLedger::Key(const std::string& path) {
  if (path.empty()) return path;
  const std::string folder = FolderOfPath(path, true);
  const std::string name = folder == path ? path : path.substr(folder.size());
  const std::string folder_asked = folder == path ? "." : folder;
  auto known = real_folders_.find(folder_asked);
  if (known == real_folders_.end()) {
    std::error_code error;
    std::filesystem::path real =
        std::filesystem::weakly_canonical(std::filesystem::absolute(folder_asked, error), error);
    if (error) real = folder_asked;
    known = real_folders_.emplace(folder_asked, real.string()).first;
  }
  return known->second + "/" + name;
}

bool OutputLedger::Exists(const std::string& path) {
  const std::string key = Key(path);
  if (given_up_.count(key)) return false;
  return waiting_names_.count(key) > 0 || OutputFileExists(path);
}

void OutputLedger::GiveUp(const std::string& path) {
  given_up_.insert(Key(path));
}

void OutputLedger::Place(const std::string& temporary, const std::string& target, std::size_t row,
                         const Report& report) {
  const std::string key = Key(target);
  given_up_.erase(key);
  const auto reader = last_reader_.find(key);
  if (reader != last_reader_.end() && reader->second > row) {
    waiting_.push_back({temporary, target, reader->second});
    ++waiting_names_[key];
    return;
  }
  if (!ReplaceWithTemporary(temporary, target)) report(kCannotWrite + target);
}

void OutputLedger::RowRead(std::size_t row, const Report& report) {
  Release(row, report);
}

void OutputLedger::PlaceAll(const Report& report) {
  Release(static_cast<std::size_t>(-1), report);
}

void OutputLedger::Release(std::size_t up_to_row, const Report& report) {
  std::vector<Waiting> still;
  for (Waiting& waiting : waiting_) {
    if (waiting.release_row > up_to_row) {
      still.push_back(std::move(waiting));
      continue;
    }
    const std::string key = Key(waiting.target);
    if (--waiting_names_[key] == 0) waiting_names_.erase(key);
    if (!ReplaceWithTemporary(waiting.temporary, waiting.target)) report(kCannotWrite + waiting.target);
  }
  waiting_ = std::move(still);
}

}  // namespace velmora::engine
