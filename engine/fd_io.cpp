// The write and read loops.
#include "engine/fd_io.h"

#include <unistd.h>

#include <cerrno>

namespace velmora::engine {

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool ReadAll(int fd, char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t got = ::read(fd, data, size);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    data += got;
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace velmora::engine
