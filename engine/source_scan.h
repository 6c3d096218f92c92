// Collecting source images: the recursive folder scan with its file patterns and its cap, and the
// rule by which one path joins the source list (non-empty file, not listed yet).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "engine/run_view.h"

namespace velmora::engine {

// The file types the image library reads, as the "All image files" choice lists them. Photo
// formats of later years come last, so that older folders scan in the same order as before.
inline constexpr const char* kAllImageFilePatterns =
    "*.bmp;*.cut;*.dds;*.exr;*.fax;*.gif;*.hdr;*.ico;*.iff;*.jbig;*.jng;*.jpg;*.jif;*.jpeg;*.koa;*.pcd;"
    "*.mng;*.pcx;*.pbm;*.pgm;*.ppm;*.pfm;*.png;*.pict;*.pic;*.pct;*.psd;*.raw;*.ras;*.sgi;*.tga;*.tif;"
    "*.tiff;*.wbmp;*.xbm;*.xpm;*.dib;*.wmf;*.emf;*.heic;*.heif;*.avif;*.webp";

// A scan stores names at indices below this; from here on the elements it adds stay empty.
inline constexpr std::size_t kScanNameLimit = 60000;

// True if `name` matches a pattern of '*' (any run) and '?' (any one character), letters compared
// without regard to case. Only the name itself is matched; there are no short 8.3 aliases.
bool MatchesPattern(std::string_view name, std::string_view pattern);

// Appends to `result` the files under `path`, depth first: the files of a folder first, pattern
// by pattern in the order of `patterns` (split at ';', empty means "*"), then each subfolder in
// turn. Within a pattern, and among subfolders, names come sorted (letter case folded, then exact
// bytes) rather than in the file system's order, so a scan is the same everywhere and every time.
// A file that two patterns match comes twice. From index kScanNameLimit on the appended
// elements stay empty. Callers start `result` with one empty element at index 0.
void ScanFolder(const std::string& path, const std::string& patterns, std::vector<std::string>& result);

// The file's length in bytes; 0 for a folder, a missing or unreadable file.
std::uint64_t SourceFileLength(const std::string& path);

// True if a row's text equals `path` exactly (letter case counts).
bool IsInList(const SourceList& list, const std::string& path);

// Adds paths to a source list by the rule of adding one item: a path is taken only if its length
// isn't 0 and no row holds it yet. Keeps an index of the rows so that large scans stay fast.
class SourceAdder {
 public:
  explicit SourceAdder(SourceList& list);
  // True if `path` was appended.
  bool Add(const std::string& path);

 private:
  SourceList& list_;
  std::unordered_set<std::string> rows_;
};

}  // namespace velmora::engine
