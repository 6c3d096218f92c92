// Temporary names, flushing to disk and the rename that puts a finished file in place.
#include "engine/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <random>

#include "engine/fd_io.h"
#include "engine/paths.h"

namespace velmora::engine {
namespace {

// Flushes a file's data to the disk, so that a power cut after the rename cannot leave the new
// name pointing at blocks that were never written.
bool SyncFile(const std::string& path) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  const bool synced = ::fdatasync(fd) == 0;
  return ::close(fd) == 0 && synced;
}

// A replacement keeps the permissions of the file it replaces (a profile made private stays so).
void KeepModeOf(const std::string& target, const std::string& temporary) {
  struct stat info {};
  if (::stat(target.c_str(), &info) == 0) ::chmod(temporary.c_str(), info.st_mode & 07777);
}

// A link is followed, so that replacing a linked file (a profile kept elsewhere) keeps the link.
std::string FollowLinks(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_symlink(path, error)) return path;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real.string();
}

}  // namespace

std::string TemporaryNameFor(const std::string& target) {
  // Shards of one run on other machines (or in containers, where every process may have the same
  // pid) can write the same name in one shared folder: the count starts anywhere.
  static std::atomic<unsigned> counter{std::random_device()()};
  std::string name = FileNameOfPath(target);
  const std::string folder = target.substr(0, target.size() - name.size());
  // A name near the file system's limit of 255 bytes keeps its end, which holds the extension.
  constexpr std::size_t kLongestKeptName = 200;
  if (name.size() > kLongestKeptName) name.erase(0, name.size() - kLongestKeptName);
  return folder + ".velmora-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + "-" + name;
}

bool ReplaceWithTemporary(const std::string& temporary, const std::string& target) {
  KeepModeOf(target, temporary);
  if (SyncFile(temporary) && std::rename(temporary.c_str(), target.c_str()) == 0) return true;
  DiscardTemporary(temporary);
  return false;
}

void DiscardTemporary(const std::string& temporary) {
  std::remove(temporary.c_str());
}

bool WriteFileAtomically(const std::string& given_path, std::string_view bytes) {
  if (given_path.empty()) return false;
  const std::string path = FollowLinks(given_path);
  const std::string temporary = TemporaryNameFor(path);
  const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  const bool written = WriteAll(fd, bytes);
  if (::close(fd) != 0 || !written) {
    DiscardTemporary(temporary);
    return false;
  }
  return ReplaceWithTemporary(temporary, path);
}

}  // namespace velmora::engine
