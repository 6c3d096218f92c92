// A profile file of any content, loaded as the window and the batch load it, saved and loaded
// again: the second load gives the state the first one did.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "settings/profile_file.h"

namespace {

std::string WriteTemporary(const std::uint8_t* data, std::size_t size) {
  char path[] = "/tmp/velmora-fuzz-profile-XXXXXX";
  const int fd = ::mkstemp(path);
  if (fd < 0) return {};
  const bool written = ::write(fd, data, size) == static_cast<ssize_t>(size);
  ::close(fd);
  return written ? path : std::string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = WriteTemporary(data, size);
  if (path.empty()) return 0;
  velmora::engine::AppState loaded;
  velmora::settings::LoadProfile(loaded, path);
  velmora::settings::SaveProfile(loaded, path);
  velmora::engine::AppState again;
  velmora::settings::LoadProfile(again, path);
  std::remove(path.c_str());
  if (!(again.settings == loaded.settings && again.output == loaded.output && again.blocks == loaded.blocks))
    __builtin_trap();
  return 0;
}
