// The rules of the source image list that need no window: the size text, the pieces an open
// dialog hands back, the icon key of a file, the "Remove" walk and the folder loop.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmora::shell {

// The filters of "Add Images", in the order the dialog lists them.
struct FileFilter {
  const char* name;
  const char* patterns;
};
const std::vector<FileFilter>& SourceImageFilters();

// The "Size" column: "123 bytes", or three significant digits with a unit ("1.23 MB", "12.3 KB",
// "123 GB"); digits beyond the third are dropped, not rounded.
std::string FormatFileSize(std::uint64_t bytes);

// The open dialog's answer as the pieces of its name buffer: one chosen file gives that path; several
// give their folder (with a trailing '/' only for the root) followed by the bare names.
std::vector<std::string> ChosenFilePieces(const std::vector<std::string>& chosen_paths);

// The paths that "Add Images" tries, in order, from those pieces. A first piece that ends in '/'
// was the root and loses that '/'; otherwise it is tried as a file itself (a folder then fails
// the rule of adding one item). Every further non-empty piece is tried as folder + '/' + name.
std::vector<std::string> PathsFromPieces(const std::vector<std::string>& pieces);

// How a file's icon is looked up and shared.
enum class FileIconClass { kOrdinary, kShortcut, kProgram, kOtherProgram };
// The key of a file's icon: one per type name (lower case) for ordinary files; the file's own
// name for shortcuts and programs, whose icons differ per file; "DOSExeIcon" for other programs.
std::string IconKey(const std::string& type_name, const std::string& file_name, FileIconClass kind);

// The result of "Remove" over rows with their selection marks.
struct RemoveResult {
  std::vector<std::string> rows;
  int select = -1;  // the row to select afterwards, -1 when the list is empty
};
// Walks the indices upwards over the count noted at the start and removes each selected row
// found at the current index. The row that moves up into a removed row's place is not looked at,
// so of three selected neighbours the middle one stays. `noted` is the row that was the selected
// item before the walk; afterwards that index is selected again, or the last row when it is gone.
RemoveResult RemoveWalk(const std::vector<std::string>& rows, const std::vector<bool>& selected, int noted);

// The loop of "Add Folder" over a scan result: names from index 1 on, a yield at every hundredth
// name, and `add` called for each non-empty name.
void AddScannedNames(const std::vector<std::string>& result, const std::function<void(const std::string&)>& add,
                     const std::function<void()>& yield);

}  // namespace velmora::shell
