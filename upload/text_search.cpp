// Case-insensitive text helpers of the upload commands.
#include "upload/text_search.h"

#include <algorithm>

namespace velmora::upload {
namespace {

char Lower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::size_t FindIgnoreCase(std::string_view text, std::string_view what, std::size_t from) {
  if (from > text.size() || what.size() > text.size() - from) return std::string_view::npos;
  const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), what.begin(), what.end(),
                                 [](char a, char b) { return Lower(a) == Lower(b); });
  if (found == text.end() && !what.empty()) return std::string_view::npos;
  return static_cast<std::size_t>(found - text.begin());
}

bool ContainsIgnoreCase(std::string_view text, std::string_view what) {
  return FindIgnoreCase(text, what) != std::string_view::npos;
}

std::string ReplaceAllIgnoreCase(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = FindIgnoreCase(text, what); at != std::string_view::npos;
       at = FindIgnoreCase(text, what, from)) {
    result.append(text.substr(from, at - from));
    result.append(with);
    from = at + what.size();
  }
  result.append(text.substr(from));
  return result;
}

std::string TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

std::string LowerAscii(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Lower);
  return result;
}

std::string SafeSub(std::string_view text, std::size_t start, std::size_t length) {
  if (start >= text.size()) return {};
  return std::string(text.substr(start, length));
}

std::string FileNameOfPath(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

}  // namespace velmora::upload
