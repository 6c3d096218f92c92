// Template expansion, name collisions and page names.
#include "engine/naming.h"

#include <cctype>

#include "engine/number_text.h"
#include "engine/paths.h"

namespace velmora::engine {
namespace {

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// Replaces every case-insensitive occurrence of `token` (given in lower case) with `value`.
void ReplaceToken(std::string& text, const std::string& token, const std::string& value) {
  std::string lowered = Lower(text);
  std::string result;
  std::size_t start = 0;
  for (std::size_t hit = lowered.find(token); hit != std::string::npos; hit = lowered.find(token, start)) {
    result.append(text, start, hit - start);
    result += value;
    start = hit + token.size();
  }
  result.append(text, start, std::string::npos);
  text = std::move(result);
}

}  // namespace

std::string ExpandTemplate(const std::string& output_folder, const std::string& name_template,
                           const std::string& source, const std::string& output_extension, std::int64_t row) {
  std::string path = output_folder + name_template;
  ReplaceToken(path, "{title}", TitleOfName(FileNameOfPath(source)));
  ReplaceToken(path, "{sourcetype}", ExtensionOfPath(source));
  ReplaceToken(path, "{outputtype}", output_extension);
  ReplaceToken(path, "{counter}", ThreeDigits(row));
  return path;
}

std::string AutoChangedName(const std::string& target_path, const std::function<bool(const std::string&)>& exists) {
  const std::string base = FolderOfPath(target_path, true);
  const std::string title = TitleOfName(FileNameOfPath(target_path));
  const std::string extension = ExtensionOfPath(FileNameOfPath(target_path));
  std::string candidate;
  for (std::int16_t n = 1;; ++n) {
    candidate = base + title + "-" + ThreeDigits(n) + "." + extension;
    if (!exists(candidate) || n > 999) return candidate;
  }
}

Collision ApplyOutputPolicy(std::int16_t policy, std::string& target_path,
                            const std::function<bool(const std::string&)>& exists,
                            const std::function<void(const std::string&)>& remove,
                            const std::function<void()>& after_delete) {
  if (!exists(target_path)) return Collision::kWrite;
  switch (policy) {
    case 0: target_path.clear(); return Collision::kSkip;
    case 1:
      remove(target_path);
      after_delete();
      return Collision::kWrite;
    case 2: target_path = AutoChangedName(target_path, exists); return Collision::kWrite;
    default: return Collision::kWrite;  // the name stands and the save writes over the file
  }
}

std::string PageName(const std::string& expanded, int page) {
  return TitleOfName(expanded) + " (page " + std::to_string(page) + ")." + ExtensionOfPath(expanded);
}

}  // namespace velmora::engine
