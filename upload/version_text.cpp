// The version numbers the update check compares.
#include "upload/version_text.h"

#include <cstdio>
#include <string>

#include "engine/number_text.h"

namespace velmora::upload {

std::optional<double> RemoteVersionOf(std::string_view version_file) {
  const std::size_t open = version_file.find('<');
  const std::size_t close = version_file.find('>');
  if (version_file.empty() || open == std::string_view::npos || close == std::string_view::npos) return std::nullopt;
  // A ">" ahead of the "<" leaves nothing to cut: the file is unreadable, not version 0.
  if (close < open) return std::nullopt;
  return engine::LeadingNumber(version_file.substr(open + 1, close - open - 1));
}

double LocalVersionNumber(int major, int minor) {
  char minor_text[16];
  std::snprintf(minor_text, sizeof minor_text, "%02d", minor);
  return engine::LeadingNumber(std::to_string(major) + minor_text);
}

}  // namespace velmora::upload
