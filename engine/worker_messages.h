// What the run tells a worker process once (the job) and for each source (its row), and what
// the worker sends back (the finished source), in the wire form of engine/wire.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/app_state.h"
#include "engine/source_work.h"

namespace velmora::engine {

// The parts of the program state a worker builds its RunJob from.
struct WorkerJob {
  Blocks blocks;
  OutputChoices output;
  FontState font;
  bool preview = false;
  std::int32_t frame_width = 0, frame_height = 0;  // the preview frame
  // Instead of the chain: each source only read and fitted to the frame, as the preview's
  // source box shows it.
  bool source_picture = false;
  bool upright = false;  // photos turned upright by their camera orientation
  bool keep_colour_profile = false;
};

struct WorkerRow {
  std::uint64_t row = 0;
  std::string path;
};

std::string EncodeWorkerJob(const WorkerJob& job);
bool DecodeWorkerJob(std::string_view bytes, WorkerJob& job);
std::string EncodeWorkerRow(const WorkerRow& row);
bool DecodeWorkerRow(std::string_view bytes, WorkerRow& row);
std::string EncodeFinishedSource(const FinishedSource& finished);
bool DecodeFinishedSource(std::string_view bytes, FinishedSource& finished);

}  // namespace velmora::engine
