// Click rules of the preview pictures.
#include "preview/viewer_target.h"

namespace velmora::preview {

std::string PreviewFilePath(const engine::AppState& state) {
  return state.AppDataFolder + "/Temp/preview.dat";
}

std::optional<std::string> ResultClickTarget(const engine::AppState& state, const engine::SourceList& sources) {
  if (sources.rows.empty()) return std::nullopt;
  // The worker is writing the preview file now.
  if (state.preview.ThreadRunning != engine::kFalse) return std::nullopt;
  return PreviewFilePath(state);
}

std::optional<std::string> SourceClickTarget(const engine::SourceList& sources) {
  if (sources.rows.empty()) return std::nullopt;
  if (sources.selected < 0 || sources.selected >= static_cast<int>(sources.rows.size())) return std::string();
  return sources.rows[static_cast<std::size_t>(sources.selected)];
}

}  // namespace velmora::preview
