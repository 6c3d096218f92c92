// Deciding when a finished output may replace what stands under its name.
#include "engine/output_ledger.h"

#include <filesystem>

#include "engine/file_replace.h"
#include "engine/paths.h"
#include "engine/run_view.h"

namespace velmora::engine {

OutputLedger::OutputLedger(Report report, const std::vector<std::string>& sources) : report_(std::move(report)) {
  for (std::size_t row = 0; row < sources.size(); ++row) last_reader_[Key(sources[row])] = row;
}

std::string OutputLedger::Key(const std::string& path) {
  if (path.empty()) return path;
  const std::string name = FileNameOfPath(path);
  const std::string folder_asked = name.size() == path.size() ? "." : path.substr(0, path.size() - name.size());
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
  return waiting_names_.count(key) > 0 || reserved_.count(key) > 0 || OutputFileExists(path);
}

void OutputLedger::GiveUp(const std::string& path) {
  given_up_.insert(Key(path));
}

void OutputLedger::Reserve(const std::string& target) {
  const std::string key = Key(target);
  given_up_.erase(key);
  reserved_.insert(key);
}

bool OutputLedger::ReadByOtherRow(const std::string& target, std::size_t row) {
  const auto reader = last_reader_.find(Key(target));
  return reader != last_reader_.end() && reader->second != row;
}

void OutputLedger::Supersede(const std::string& target, std::size_t row) {
  superseded_.emplace(Key(target), row);
}

void OutputLedger::Place(const std::string& temporary, const std::string& target, std::size_t row) {
  const std::string key = Key(target);
  if (superseded_.contains({key, row})) {
    DiscardTemporary(temporary);
    return;
  }
  given_up_.erase(key);
  const auto reader = last_reader_.find(key);
  if (reader != last_reader_.end() && reader->second > row) {
    waiting_.push_back({temporary, target, key, reader->second});
    ++waiting_names_[key];
    return;
  }
  Rename(temporary, target);
}

void OutputLedger::RowRead(std::size_t row) {
  Release(row);
}

void OutputLedger::PlaceAll() {
  Release(static_cast<std::size_t>(-1));
}

void OutputLedger::Rename(const std::string& temporary, const std::string& target) {
  if (!ReplaceWithTemporary(temporary, target) && report_) report_(kCannotWrite + target);
}

void OutputLedger::Release(std::size_t up_to_row) {
  std::vector<Waiting> still;
  for (Waiting& waiting : waiting_) {
    if (waiting.release_row > up_to_row) {
      still.push_back(std::move(waiting));
      continue;
    }
    if (--waiting_names_[waiting.key] == 0) waiting_names_.erase(waiting.key);
    Rename(waiting.temporary, waiting.target);
  }
  waiting_ = std::move(still);
}

}  // namespace velmora::engine
