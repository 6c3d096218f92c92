// Folder scan and the add rule of the source list.
#include "engine/source_scan.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>

namespace velmora::engine {
namespace {

char Fold(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

struct FolderEntries {
  std::vector<std::string> subfolders;
  std::vector<std::string> files;
};

// Directory entries in name order, letter case folded first and exact bytes breaking ties, so
// that a scan gives the same order on every file system and every run. Subfolders are real
// folders only: a link to a folder is neither followed (no loops) nor taken as a file.
FolderEntries ListFolder(const std::string& folder) {
  FolderEntries entries;
  DIR* directory = ::opendir(folder.c_str());
  if (!directory) return entries;
  while (const dirent* entry = ::readdir(directory)) {
    const std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    const std::string path = folder + name;
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0) continue;
    if (S_ISDIR(info.st_mode)) {
      entries.subfolders.push_back(name);
    } else if (S_ISLNK(info.st_mode)) {
      struct stat target {};
      if (::stat(path.c_str(), &target) != 0 || !S_ISDIR(target.st_mode)) entries.files.push_back(name);
    } else {
      entries.files.push_back(name);
    }
  }
  ::closedir(directory);
  const auto by_name = [](const std::string& a, const std::string& b) {
    std::string folded_a = a, folded_b = b;
    for (char& c : folded_a) c = Fold(c);
    for (char& c : folded_b) c = Fold(c);
    return folded_a != folded_b ? folded_a < folded_b : a < b;
  };
  std::sort(entries.subfolders.begin(), entries.subfolders.end(), by_name);
  std::sort(entries.files.begin(), entries.files.end(), by_name);
  return entries;
}

std::vector<std::string> SplitPatterns(const std::string& patterns) {
  if (patterns.empty()) return {"*"};
  std::vector<std::string> pieces;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = patterns.find(';', start);
    pieces.push_back(patterns.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return pieces;
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  // Greedy match with one backtrack point: the last '*' seen and where it started matching.
  std::size_t n = 0, p = 0;
  std::size_t star = std::string_view::npos, star_name = 0;
  while (n < name.size()) {
    if (p < pattern.size() && (pattern[p] == '?' || Fold(pattern[p]) == Fold(name[n]))) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      star_name = n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++star_name;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

void ScanFolder(const std::string& path, const std::string& patterns, std::vector<std::string>& result) {
  const std::string folder = (!path.empty() && path.back() == '/') ? path : path + "/";
  const FolderEntries entries = ListFolder(folder);

  // An empty pattern (as in "a;;b") matches nothing, as a search for no name finds nothing.
  for (const std::string& pattern : SplitPatterns(patterns)) {
    if (pattern.empty()) continue;
    for (const std::string& name : entries.files) {
      if (!MatchesPattern(name, pattern)) continue;
      result.emplace_back();
      if (result.size() - 1 < kScanNameLimit) result.back() = folder + name;
    }
  }
  for (const std::string& subfolder : entries.subfolders) ScanFolder(folder + subfolder, patterns, result);
}

std::uint64_t SourceFileLength(const std::string& path) {
  struct stat info {};
  if (path.empty() || ::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return 0;
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return 0;  // there but not readable
  ::close(descriptor);
  return static_cast<std::uint64_t>(info.st_size);
}

bool IsInList(const SourceList& list, const std::string& path) {
  return std::find(list.rows.begin(), list.rows.end(), path) != list.rows.end();
}

SourceAdder::SourceAdder(SourceList& list) : list_(list), rows_(list.rows.begin(), list.rows.end()) {}

bool SourceAdder::Add(const std::string& path) {
  if (SourceFileLength(path) == 0 || rows_.count(path) != 0) return false;
  list_.rows.push_back(path);
  rows_.insert(path);
  return true;
}

}  // namespace velmora::engine
