// File access behind the ini helpers: whole-file reads and writes with every error swallowed.
#include "settings/ini_file.h"

#include <cerrno>
#include <cstdio>
#include <string>

#include "engine/file_replace.h"
#include "engine/number_text.h"

namespace velmora::settings {
namespace {

enum class ReadResult { kRead, kMissing, kUnreadable };

// The bytes of `file`, telling a file that isn't there from one that is there but can't be read
// to the end (a folder opens but fails to read).
ReadResult ReadBytes(const std::string& file, std::string& bytes) {
  std::FILE* stream = std::fopen(file.c_str(), "rb");
  if (!stream) return errno == ENOENT ? ReadResult::kMissing : ReadResult::kUnreadable;
  char buffer[8192];
  std::size_t count = 0;
  while ((count = std::fread(buffer, 1, sizeof buffer, stream)) > 0) bytes.append(buffer, count);
  const bool failed = std::ferror(stream) != 0;
  std::fclose(stream);
  return failed ? ReadResult::kUnreadable : ReadResult::kRead;
}

}  // namespace

IniDocument LoadIniDocument(const std::string& file) {
  std::string bytes;
  if (ReadBytes(file, bytes) != ReadResult::kRead) return IniDocument();
  return IniDocument(bytes);
}

bool LoadIniDocumentForEdit(const std::string& file, IniDocument& document) {
  std::string bytes;
  const ReadResult result = ReadBytes(file, bytes);
  document = result == ReadResult::kRead ? IniDocument(bytes) : IniDocument();
  return result != ReadResult::kUnreadable;
}

bool StoreIniDocument(const IniDocument& document, const std::string& file) {
  return engine::WriteFileAtomically(file, document.Serialize());
}

std::string ReadIni(std::string_view section, std::string_view key, const std::string& file) {
  return LoadIniDocument(file).Get(section, key);
}

void WriteIni(std::string_view section, std::string_view key, const std::string& value, const std::string& file) {
  IniDocument document;
  if (file.empty() || !LoadIniDocumentForEdit(file, document)) return;
  document.Set(section, key, value);
  StoreIniDocument(document, file);
}

void WriteIni(std::string_view section, std::string_view key, const char* value, const std::string& file) {
  WriteIni(section, key, std::string(value ? value : ""), file);
}

void WriteIni(std::string_view section, std::string_view key, std::int32_t value, const std::string& file) {
  WriteIni(section, key, std::to_string(value), file);
}

void WriteIni(std::string_view section, std::string_view key, bool value, const std::string& file) {
  WriteIni(section, key, std::string(engine::BooleanWord(value)), file);
}

}  // namespace velmora::settings
