// Size text, dialog pieces, icon keys and the removal walk of the source list.
#include "shell/source_rules.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "engine/source_scan.h"

namespace velmora::shell {

const std::vector<FileFilter>& SourceImageFilters() {
  static const std::vector<FileFilter> filters = {
      {"All image files", engine::kAllImageFilePatterns},
      {"JPEG (*.jpg, *.jpeg)", "*.jpg;*.jpeg"},
      {"GIF (*.gif)", "*.gif"},
      {"Portable Graphics PNG (*.png)", "*.png"},
      {"TIFF (*.tif, *.tiff)", "*.tif;*.tiff"},
      {"HEIC and AVIF photos (*.heic, *.heif, *.avif)", "*.heic;*.heif;*.avif"},
      {"WebP (*.webp)", "*.webp"},
      {"Windows Bitmap (*.bmp, *.dib)", "*.bmp;*.dib"},
      {"Windows Metafile (*.wmf)", "*.wmf"},
      {"Windows Enhanced Matafile (*.emf)", "*.emf"},
  };
  return filters;
}

std::string FormatFileSize(std::uint64_t bytes) {
  if (bytes < 1024) return std::to_string(bytes) + " bytes";
  static const char* const kUnits[] = {"KB", "MB", "GB", "TB", "PB", "EB"};
  double value = static_cast<double>(bytes) / 1024.0;
  std::size_t unit = 0;
  while (value >= 1000.0 && unit + 1 < std::size(kUnits)) {
    value /= 1024.0;
    ++unit;
  }
  // Three significant digits, the rest cut off.
  int decimals = value < 10.0 ? 2 : (value < 100.0 ? 1 : 0);
  double scale = decimals == 2 ? 100.0 : (decimals == 1 ? 10.0 : 1.0);
  const double cut = static_cast<double>(static_cast<std::uint64_t>(value * scale + 1e-9)) / scale;
  char text[32];
  std::snprintf(text, sizeof text, "%.*f %s", decimals, cut, kUnits[unit]);
  return text;
}

std::vector<std::string> ChosenFilePieces(const std::vector<std::string>& chosen_paths) {
  if (chosen_paths.empty()) return {};
  if (chosen_paths.size() == 1) return {chosen_paths.front()};
  const std::string& first = chosen_paths.front();
  const std::size_t slash = first.rfind('/');
  std::string folder = slash == std::string::npos ? std::string() : first.substr(0, slash);
  if (folder.empty()) folder = "/";  // the root keeps its separator, as a drive root does
  std::vector<std::string> pieces{folder};
  for (const std::string& path : chosen_paths) {
    const std::size_t cut = path.rfind('/');
    pieces.push_back(cut == std::string::npos ? path : path.substr(cut + 1));
  }
  return pieces;
}

std::vector<std::string> PathsFromPieces(const std::vector<std::string>& pieces) {
  std::vector<std::string> paths;
  if (pieces.empty()) return paths;
  std::string folder = pieces.front();
  if (!folder.empty() && folder.back() == '/') {
    folder.pop_back();
  } else {
    paths.push_back(folder);
  }
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    if (!pieces[i].empty()) paths.push_back(folder + "/" + pieces[i]);
  }
  return paths;
}

std::string IconKey(const std::string& type_name, const std::string& file_name, FileIconClass kind) {
  switch (kind) {
    case FileIconClass::kShortcut:
    case FileIconClass::kProgram: return file_name;
    case FileIconClass::kOtherProgram: return "DOSExeIcon";
    case FileIconClass::kOrdinary: break;
  }
  std::string key = type_name;
  std::transform(key.begin(), key.end(), key.begin(), [](unsigned char c) { return std::tolower(c); });
  return key;
}

RemoveResult RemoveWalk(const std::vector<std::string>& rows, const std::vector<bool>& selected, int noted) {
  RemoveResult result{rows, -1};
  std::vector<bool> marks = selected;
  marks.resize(rows.size(), false);
  const std::size_t count = rows.size();
  for (std::size_t index = 0; index < count; ++index) {
    // Past the end the access fails and nothing happens.
    if (index < result.rows.size() && marks[index]) {
      result.rows.erase(result.rows.begin() + static_cast<std::ptrdiff_t>(index));
      marks.erase(marks.begin() + static_cast<std::ptrdiff_t>(index));
    }
  }
  // With no selected item before the walk there is no noted row, and nothing gets selected.
  if (!result.rows.empty() && noted >= 0) {
    const int last = static_cast<int>(result.rows.size()) - 1;
    result.select = noted > last ? last : noted;
  }
  return result;
}

void AddScannedNames(const std::vector<std::string>& result, const std::function<void(const std::string&)>& add,
                     const std::function<void()>& yield) {
  int counted = 0;
  for (std::size_t i = 1; i < result.size(); ++i) {
    if (++counted == 100) {
      if (yield) yield();
      counted = 0;
    }
    if (!result[i].empty()) add(result[i]);
  }
}

}  // namespace velmora::shell
