// Turning the command line's files and folders into the run's source rows.
#include "app/batch/batch_sources.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iostream>

#include "engine/source_scan.h"

namespace velmora::app {
namespace {

std::string FullPath(const std::string& path) {
  std::error_code error;
  std::filesystem::path full = std::filesystem::absolute(path, error);
  if (error) full = path;
  std::string text = full.lexically_normal().string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

}  // namespace

CollectedSources CollectSources(const std::vector<std::string>& paths) {
  CollectedSources collected;
  engine::SourceAdder adder(collected.list);
  for (const std::string& given : paths) {
    const std::string path = FullPath(given);
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
      collected.error = "no such file or folder: " + given;
      return collected;
    }
    if (!S_ISDIR(info.st_mode)) {
      adder.Add(path);
      continue;
    }
    std::vector<std::string> found(1);  // the scan fills from index 1
    engine::ScanFolder(path, engine::kAllImageFilePatterns, found);
    for (std::size_t i = 1; i < found.size(); ++i)
      if (!found[i].empty()) adder.Add(found[i]);
  }
  return collected;
}

std::string ReadSourceList(const std::string& file, std::vector<std::string>& paths) {
  std::ifstream named;
  if (file != "-") named.open(file);
  std::istream& in = file == "-" ? std::cin : named;
  if (!in) return "cannot read the source list " + file;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) paths.push_back(line);
  }
  if (in.bad()) return "cannot read the source list " + file;
  return {};
}

}  // namespace velmora::app
