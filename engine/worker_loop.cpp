// A worker's job, its chain state and the request loop.
#include "engine/worker_loop.h"

#include <optional>

#include "engine/run_job.h"
#include "engine/wire.h"
#include "engine/worker_messages.h"

namespace velmora::engine {

int RunWorkerLoop(int in, int out) {
  std::string message;
  WorkerJob spec;
  if (!ReceiveMessage(in, message) || !DecodeWorkerJob(message, spec)) return 2;
  AppState state;
  state.blocks = spec.blocks;
  state.output = spec.output;
  state.font = spec.font;
  state.preview.PreviewMode = spec.preview ? kTrue : kFalse;
  state.settings.RotateByCameraOrientation = spec.upright ? kTrue : kFalse;
  state.settings.KeepColourProfiles = spec.keep_colour_profile ? kTrue : kFalse;

  imaging::ImagingLibrary lib;
  RunJob job = MakeRunJob(state, lib);
  job.preview_frame_width = spec.frame_width;
  job.preview_frame_height = spec.frame_height;
  // A job whose pages depend on the page before goes to one worker, row after row, with one
  // chain state, as a plain loop would.
  std::optional<ChainState> carried;

  while (ReceiveMessage(in, message)) {
    WorkerRow request;
    if (!DecodeWorkerRow(message, request)) return 2;
    const FinishedSource finished =
        spec.source_picture
            ? PictureOfSource(lib, request.path, spec.frame_width, spec.frame_height, spec.upright)
            : TransformRow(job, lib, request.path, request.row, job.carries_page_state ? &carried : nullptr);
    if (!SendMessage(out, EncodeFinishedSource(finished))) return 2;
  }
  return 0;
}

}  // namespace velmora::engine
