// ApplyProfile and RefreshProfile: the window's working copy (the operation entries and the
// controls of the three fixed entries) moved into the program state, and back.
#pragma once

#include <string>

#include "engine/app_state.h"
#include "shell/operation_entries.h"

namespace velmora::shell {

// The output format names of FormatCombo1; the index is OutputFormat.
const std::vector<std::string>& OutputFormatNames();

// The controls of "Convert to", "Save to" and "File name".
struct FixedControls {
  int FormatCombo1 = 1;
  bool Check1 = false;  // "Open target folder after conversion"
  std::string SaveToText1;
  std::string FileNameText1;

  bool operator==(const FixedControls&) const = default;
};

// Window into state: the output choices the window owns and a chain rebuilt from the entries
// whose tag is an operation, in index order. Text that holds no number gives 0.
void ApplyProfile(const OperationEntries& entries, const FixedControls& fixed, engine::AppState& state);

// State into window: the fixed controls, then one new entry per block appended behind what is
// listed, its controls set from the block's fields. A Kind outside the operations adds nothing.
void RefreshProfile(engine::AppState& state, OperationEntries& entries, FixedControls& fixed);

// The window lists at most this many operations: a profile that asks for more (a damaged one
// with a "ProcessTotal" in the tens of thousands, say) is cut to it instead of hanging the window.
inline constexpr int kLongestListedChain = 1000;
// Operations listed now, and the blocks of a chain that RefreshProfile would list.
int ListedOperationCount(const OperationEntries& entries);
int ListableOperationCount(const engine::Blocks& blocks);
// The chain cut after its first `count` listable blocks.
engine::Blocks FirstListableOperations(const engine::Blocks& blocks, int count);

// The three fixed entries in the order the window makes them: "Convert to", "Save to", "File name".
void AddFixedEntries(OperationEntries& entries, engine::PreviewFlags& flags);

}  // namespace velmora::shell
