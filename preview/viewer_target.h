// What a click on a preview picture hands to the external viewer: the preview file for the
// result (not while a worker writes it), the selected source for the original; nothing with an
// empty list.
#pragma once

#include <optional>
#include <string>

#include "engine/app_state.h"
#include "engine/run_view.h"

namespace velmora::preview {

// The viewer program that may stand beside ours; it takes one path argument.
inline constexpr const char* kViewerProgramName = "Viewer";

// The preview file: AppDataFolder + "/Temp/preview.dat".
std::string PreviewFilePath(const engine::AppState& state);

// A click on prw or prwFon.
std::optional<std::string> ResultClickTarget(const engine::AppState& state, const engine::SourceList& sources);
// A click on prw2 or prwFon2: the selected row's text, which is empty when no row is selected.
std::optional<std::string> SourceClickTarget(const engine::SourceList& sources);

}  // namespace velmora::preview
