// Reading the maker's version file and the running version as comparable numbers: major
// version followed by the minor version in two digits (4.2 is 402).
#pragma once

#include <optional>
#include <string_view>

namespace velmora::upload {

// The number between the first "<" and the first ">" of the version file: its leading number,
// 0 when the bracketed text does not start with one. Nothing when the text is empty, a bracket
// is missing, or the ">" comes before the "<".
std::optional<double> RemoteVersionOf(std::string_view version_file);

// The running version in the same form: `major` then `minor` with at least two digits.
double LocalVersionNumber(int major, int minor);

}  // namespace velmora::upload
