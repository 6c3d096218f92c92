// The run's account of its output names: which names hold a file as far as the naming rules are
// concerned, and finished files that wait to be put in place until the sources they would
// replace have been read. Nothing is ever deleted ahead of its replacement.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace velmora::engine {

class OutputLedger {
 public:
  using Report = std::function<void(const std::string& message)>;

  // `sources` are the run's rows in order; a file whose name is the source of a later row is
  // held back until that row has been read. A rename that fails is told to `report` as
  // "cannot write <target>".
  explicit OutputLedger(Report report = {}, const std::vector<std::string>& sources = {});

  // Whether a file stands at `path` for the naming rules: one this run has written, or one on
  // disk that the Overwrite policy has not given up.
  bool Exists(const std::string& path);
  // The Overwrite policy gives up the file at `path`: from now on it counts as gone, and it is
  // replaced when a row writes that name. If no row does, the file stays.
  void GiveUp(const std::string& path);
  // A planning pass: an earlier row will write `target`, so it exists for the rows after it,
  // given up or not before.
  void Reserve(const std::string& target);
  // Whether `target` is the source of a row other than `row`.
  bool ReadByOtherRow(const std::string& target, std::size_t row);
  // A later row replaces `target` after `row` has written it: the row's file is thrown away
  // rather than put in place, so that the later row's file stands whichever is finished first.
  void Supersede(const std::string& target, std::size_t row);
  // Whether finished files wait for their sources to be read.
  bool HoldsBack() const { return !waiting_.empty(); }

  // `temporary` holds the finished file for `target`, written for row `row`. It is renamed over
  // `target` now, or once every later row reading `target` has been read.
  void Place(const std::string& temporary, const std::string& target, std::size_t row);
  // Row `row` has been read: files held back for it go in place, in the order they came.
  void RowRead(std::size_t row);
  // Puts every file still held back in place (the end of a run).
  void PlaceAll();

 private:
  struct Waiting {
    std::string temporary, target, key;
    std::size_t release_row;
  };
  // One spelling per file: the real path of its folder and its own name.
  std::string Key(const std::string& path);
  void Release(std::size_t up_to_row);
  void Rename(const std::string& temporary, const std::string& target);

  Report report_;
  std::unordered_map<std::string, std::string> real_folders_;
  std::unordered_map<std::string, std::size_t> last_reader_;  // key of a source -> last row reading it
  std::unordered_set<std::string> given_up_;
  std::unordered_set<std::string> reserved_;
  std::set<std::pair<std::string, std::size_t>> superseded_;  // key and row
  std::map<std::string, int> waiting_names_;                  // key -> files held back for it
  std::vector<Waiting> waiting_;
};

}  // namespace velmora::engine
