// Small path routines the run names its output with, on the native separator '/'.
// They work on strings as given and are deliberately not each other's complement.
#pragma once

#include <string>

namespace velmora::engine {

inline constexpr char kSeparator = '/';

// Strips a last extension; the last character is never looked at, so "abc." stays "abc."
// and ".ini" gives "". No dot: the whole string.
std::string TitleOfName(const std::string& name);
// Text behind the last dot, which may include folders ("/a.b/file" gives "b/file"). No dot: the whole string.
std::string ExtensionOfPath(const std::string& path);
// Everything up to and including the last separator; `with_drive` false drops a three-character
// drive prefix. No separator: the whole string.
std::string FolderOfPath(const std::string& path, bool with_drive);
// Text behind the last separator; the whole string if there is none.
std::string FileNameOfPath(const std::string& path);

// True if a regular file (hidden ones included) of that name exists; folders and errors give false.
bool OutputFileExists(const std::string& path);
// Creates every folder along `path` up to its last separator; failures are ignored.
void MakePath(const std::string& path);

}  // namespace velmora::engine
