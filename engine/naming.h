// Output names: the file-name template with its tokens, the policy for names that already
// exist, and the names of pages written to separate files.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace velmora::engine {

// OutputFolder + NameTemplate with {title}, {sourcetype}, {outputtype}, {counter} replaced, in that
// order, over the whole joined string and with no regard to case. `row` is zero-based.
std::string ExpandTemplate(const std::string& output_folder, const std::string& name_template,
                           const std::string& source, const std::string& output_extension, std::int64_t row);

enum class Collision { kWrite, kSkip };

// Applies IfOutputFileExists (0 skip, 1 overwrite, 2 auto change file name) to `target_path` when
// `exists` says a file of that name is there. Overwrite deletes through `remove` and then calls
// `after_delete`. Returns kSkip when the source must not be written (`target_path` is then empty).
Collision ApplyOutputPolicy(std::int16_t policy, std::string& target_path,
                            const std::function<bool(const std::string&)>& exists,
                            const std::function<void(const std::string&)>& remove,
                            const std::function<void()>& after_delete);

// The first free "name-NNN.ext" candidate of `target_path`, or the "-1000" one if all are taken.
std::string AutoChangedName(const std::string& target_path, const std::function<bool(const std::string&)>& exists);

// "title (page N).ext" from a freshly expanded name.
std::string PageName(const std::string& expanded, int page);

}  // namespace velmora::engine
