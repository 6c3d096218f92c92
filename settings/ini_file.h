// Reading and writing single ini values in files on disk (`ReadIni`, `WriteIni`), and the
// whole-file load and store that they and the profile code are built on. Failures are silent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/ini_document.h"

namespace velmora::settings {

// The file as an ini document; a missing or unreadable file (a folder, say) gives an empty one.
IniDocument LoadIniDocument(const std::string& file);
// The file as a document to change and store back: false when the file is there but can't be
// read, so that an edit never replaces what it could not see. A missing file gives an empty one.
bool LoadIniDocumentForEdit(const std::string& file, IniDocument& document);
// Replaces `file` with the document, creating it if need be: written to a temporary beside it
// and renamed over it, so that the file holds the old or the new text whatever happens. False
// if it could not be written; an empty file name writes nothing.
bool StoreIniDocument(const IniDocument& document, const std::string& file);

// The value of `key` in `section` of `file`, at most 254 characters; empty when there is none.
std::string ReadIni(std::string_view section, std::string_view key, const std::string& file);

// Sets `key` in `section` of `file`. Integers are written in plain decimal, booleans as the words
// "True" and "False". Nothing is reported: a write that fails is lost.
// (Pass 16-bit booleans as `value != 0`: a 16-bit integer is written as a number.)
void WriteIni(std::string_view section, std::string_view key, const std::string& value, const std::string& file);
void WriteIni(std::string_view section, std::string_view key, const char* value, const std::string& file);
void WriteIni(std::string_view section, std::string_view key, std::int32_t value, const std::string& file);
void WriteIni(std::string_view section, std::string_view key, bool value, const std::string& file);

}  // namespace velmora::settings
