// Case-insensitive searching and replacing in server answers and settings text, and the few
// string helpers the upload commands share. Positions are zero-based; npos means "not found".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::upload {

// First occurrence of `what` in `text` at or after `from`, ASCII case ignored.
std::size_t FindIgnoreCase(std::string_view text, std::string_view what, std::size_t from = 0);

bool ContainsIgnoreCase(std::string_view text, std::string_view what);

// Every occurrence of `what` replaced by `with`, left to right, case ignored; the replacement
// text is not searched again.
std::string ReplaceAllIgnoreCase(std::string_view text, std::string_view what, std::string_view with);

// `text` without the spaces at both ends (tabs and line breaks stay).
std::string TrimBlanks(std::string_view text);

std::string LowerAscii(std::string_view text);

// Up to `length` characters from `start`; a start beyond the end gives the empty string.
std::string SafeSub(std::string_view text, std::size_t start, std::size_t length = std::string_view::npos);

// The text behind the last "/" of a local path; the whole path if there is none.
std::string FileNameOfPath(std::string_view path);

}  // namespace velmora::upload
