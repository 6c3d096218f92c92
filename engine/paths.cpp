// Path routines for output naming.
#include "engine/paths.h"

#include <sys/stat.h>

namespace velmora::engine {

std::string TitleOfName(const std::string& name) {
  const std::size_t length = name.size();
  // Positions count from 1: for k = 1..length look at position length-k, i.e. index length-k-1.
  for (std::size_t k = 1; k <= length; ++k) {
    if (length - k == 0) break;  // position 0 is before the string: the scan ends without a dot
    if (name[length - k - 1] == '.') return name.substr(0, length - k - 1);
  }
  return name;
}

std::string ExtensionOfPath(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string::npos ? path : path.substr(dot + 1);
}

std::string FolderOfPath(const std::string& path, bool with_drive) {
  const std::size_t slash = path.rfind(kSeparator);
  if (slash == std::string::npos) return path;
  const std::size_t start = with_drive ? 0 : 3;
  if (start > slash) return std::string(1, kSeparator);
  return path.substr(start, slash - start) + kSeparator;
}

std::string FileNameOfPath(const std::string& path) {
  const std::size_t slash = path.rfind(kSeparator);
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool OutputFileExists(const std::string& path) {
  if (path.empty()) return false;
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

void MakePath(const std::string& path) {
  for (std::size_t slash = path.find(kSeparator); slash != std::string::npos;
       slash = path.find(kSeparator, slash + 1)) {
    if (slash > 0) ::mkdir(path.substr(0, slash).c_str(), 0777);
  }
}

}  // namespace velmora::engine
