// Ini text of any shape: parsed, read, edited and written back; writing what was read and reading
// it again gives the same text.
#include <cstdint>
#include <string_view>

#include "settings/ini_document.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  velmora::settings::IniDocument document(text);
  document.Get("Profile", "ProcessTotal");
  document.Set("Main", "LastProfile", text.substr(0, 40));
  const std::string written = document.Serialize();
  if (velmora::settings::IniDocument(written).Serialize() != written) __builtin_trap();
  return 0;
}
