// Length-prefixed messages over file descriptors, whole or not at all.
#include "engine/wire.h"

#include <unistd.h>

#include <cerrno>

namespace velmora::engine {
namespace {

// A message larger than this is no message of ours: the stream is broken.
constexpr std::uint64_t kLargestMessage = std::uint64_t{1} << 36;

bool WriteAll(int fd, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(fd, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    data += written;
    size -= static_cast<std::size_t>(written);
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

}  // namespace

bool SendMessage(int fd, std::string_view payload) {
  const std::uint64_t size = payload.size();
  return WriteAll(fd, reinterpret_cast<const char*>(&size), sizeof size) &&
         WriteAll(fd, payload.data(), payload.size());
}

bool ReceiveMessage(int fd, std::string& payload) {
  std::uint64_t size = 0;
  if (!ReadAll(fd, reinterpret_cast<char*>(&size), sizeof size) || size > kLargestMessage) return false;
  payload.resize(static_cast<std::size_t>(size));
  return ReadAll(fd, payload.data(), payload.size());
}

}  // namespace velmora::engine
