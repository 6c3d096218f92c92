// File-name templates, sources and folders of any content: expansion, page names, the auto-change
// candidates and the path routines.
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/naming.h"
#include "engine/paths.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Three strings, split at the first two NUL bytes.
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::string parts[3];
  for (std::string& part : parts) {
    const std::size_t end = text.find('\0');
    part = std::string(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  using namespace velmora::engine;
  const std::int64_t row = static_cast<std::int64_t>(size) * 37;
  const std::string expanded = ExpandTemplate(parts[0], parts[1], parts[2], "jpg", row);
  PageName(expanded, static_cast<int>(size % 7));
  int asked = 0;
  const std::string candidate = AutoChangedName(expanded, [&](const std::string&) { return ++asked < 5; });
  if (asked != 5 || candidate.find("-005.") == std::string::npos) __builtin_trap();
  TitleOfName(parts[2]), ExtensionOfPath(parts[2]), FolderOfPath(parts[2], false), FileNameOfPath(parts[2]);
  return 0;
}
