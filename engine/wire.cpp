// Length-prefixed messages over file descriptors, whole or not at all.
#include "engine/wire.h"

#include "engine/fd_io.h"

namespace velmora::engine {
namespace {

// A message larger than this is no message of ours: the stream is broken.
constexpr std::uint64_t kLargestMessage = std::uint64_t{1} << 36;

}  // namespace

bool SendMessage(int fd, std::string_view payload) {
  const std::uint64_t size = payload.size();
  return WriteAll(fd, std::string_view(reinterpret_cast<const char*>(&size), sizeof size)) && WriteAll(fd, payload);
}

bool ReceiveMessage(int fd, std::string& payload) {
  std::uint64_t size = 0;
  if (!ReadAll(fd, reinterpret_cast<char*>(&size), sizeof size) || size > kLargestMessage) return false;
  payload.resize(static_cast<std::size_t>(size));
  return ReadAll(fd, payload.data(), payload.size());
}

}  // namespace velmora::engine
