// Sniffing multipage sources and counting their pages away from the planning process.
#include "engine/plan_pages.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string_view>

#include "engine/fd_io.h"
#include "engine/number_text.h"
#include "engine/paths.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {
namespace {

std::int32_t PagesOf(imaging::ImagingLibrary& lib, const std::string& path) {
  std::int32_t count = 0;
  imaging::CallResult result = 0;
  lib.CountPages(path, count, result);
  return count;
}

// Counts from `next` on, one 32-bit count at a time down `fd`, in the child.
[[noreturn]] void CountInChild(const std::vector<std::string>& paths, std::size_t next, int fd) {
  imaging::ImagingLibrary lib;
  for (; next < paths.size(); ++next) {
    const std::int32_t count = PagesOf(lib, paths[next]);
    if (!WriteAll(fd, {reinterpret_cast<const char*>(&count), sizeof count})) break;
  }
  ::_exit(0);
}

}  // namespace

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

std::vector<std::int32_t> CountPagesApart(const std::vector<std::string>& paths) {
  std::vector<std::int32_t> counts;
  counts.reserve(paths.size());
  while (counts.size() < paths.size()) {
    int fds[2] = {-1, -1};
    const pid_t child = ::pipe2(fds, O_CLOEXEC) == 0 ? ::fork() : -1;
    if (child < 0) {  // no child to be had: counted here, unprotected
      for (const int fd : fds)
        if (fd >= 0) ::close(fd);
      imaging::ImagingLibrary lib;
      while (counts.size() < paths.size()) counts.push_back(PagesOf(lib, paths[counts.size()]));
      break;
    }
    if (child == 0) {
      ::close(fds[0]);
      CountInChild(paths, counts.size(), fds[1]);
    }
    ::close(fds[1]);
    std::int32_t count = 0;
    while (counts.size() < paths.size() && ReadAll(fds[0], reinterpret_cast<char*>(&count), sizeof count))
      counts.push_back(count);
    ::close(fds[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    // The child ended early: the file it was reading took the decoder down with it.
    if (counts.size() < paths.size()) counts.push_back(0);
  }
  return counts;
}

}  // namespace velmora::engine
