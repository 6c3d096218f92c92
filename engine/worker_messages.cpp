// Field by field, the same order for writing and reading.
#include "engine/worker_messages.h"

#include "engine/wire.h"

namespace velmora::engine {
namespace {

// One visit per type, used by both directions: `B` is const for writing.
template <typename Io, typename B>
void VisitBlock(Io& io, B& b) {
  io(b.Kind), io(b.Width), io(b.Height), io(b.Method), io(b.Units), io(b.KeepProportions), io(b.Angle);
  io(b.Direction), io(b.MirrorAxis), io(b.WatermarkKind), io(b.WatermarkSource), io(b.HAlign), io(b.VAlign);
  io(b.HOffset), io(b.VOffset), io(b.ReservedBlock12), io(b.WatermarkAngle), io(b.EffectKind), io(b.Brightness);
  io(b.Contrast), io(b.GammaValue), io(b.WatermarkFont);
}

template <typename Io, typename O>
void VisitOutput(Io& io, O& o) {
  io(o.ColorDepth), io(o.ColorsCount), io(o.CompressionIndex), io(o.Compression2Index), io(o.OutputFormat);
  io(o.MultipageMode), io(o.Quality), io(o.NameTemplate), io(o.OpenTargetFolder), io(o.OutputFolder);
}

template <typename Io, typename F>
void VisitFont(Io& io, F& f) {
  io(f.FontColor), io(f.FontItalic), io(f.FontUnderline), io(f.FontStrikeOut), io(f.FontFace), io(f.FontSize);
  io(f.FontBold);
}

template <typename Io, typename P>
void VisitPicture(Io& io, P& p) {
  io(p.width), io(p.height), io(p.rgba);
}

bool Finished(const WireReader& reader) {
  return !reader.failed() && reader.at_end();
}

}  // namespace

std::string EncodeWorkerJob(const WorkerJob& job) {
  WireWriter out;
  out(job.blocks.UpperBound());
  for (std::int32_t b = 0; b < job.blocks.UpperBound(); ++b) VisitBlock(out, job.blocks[b]);
  VisitOutput(out, job.output);
  VisitFont(out, job.font);
  out(job.preview), out(job.frame_width), out(job.frame_height), out(job.source_picture), out(job.upright),
      out(job.keep_colour_profile);
  return out.TakeBytes();
}

bool DecodeWorkerJob(std::string_view bytes, WorkerJob& job) {
  WireReader in(bytes);
  std::int32_t count = 0;
  in(count);
  if (count < 0 || static_cast<std::size_t>(count) > bytes.size()) return false;
  job.blocks = Blocks();
  for (std::int32_t b = 0; b < count && !in.failed(); ++b) {
    Block block;
    VisitBlock(in, block);
    job.blocks.Append(block);
  }
  VisitOutput(in, job.output);
  VisitFont(in, job.font);
  in(job.preview), in(job.frame_width), in(job.frame_height), in(job.source_picture), in(job.upright),
      in(job.keep_colour_profile);
  return Finished(in);
}

std::string EncodeWorkerRow(const WorkerRow& row) {
  WireWriter out;
  out(row.row), out(row.path);
  return out.TakeBytes();
}

bool DecodeWorkerRow(std::string_view bytes, WorkerRow& row) {
  WireReader in(bytes);
  in(row.row), in(row.path);
  return Finished(in);
}

std::string EncodeFinishedSource(const FinishedSource& finished) {
  WireWriter out;
  out(static_cast<std::uint64_t>(finished.pages.size()));
  for (const FinishedPage& page : finished.pages) out(page.encoded.bytes), out(page.encoded_ok), out(page.readable);
  out(static_cast<std::uint64_t>(finished.failures.size()));
  for (const std::string& failure : finished.failures) out(failure);
  out(finished.multipage_file), out(finished.multipage_ok);
  VisitPicture(out, finished.picture);
  out(finished.picture_ok);
  return out.TakeBytes();
}

bool DecodeFinishedSource(std::string_view bytes, FinishedSource& finished) {
  WireReader in(bytes);
  std::uint64_t count = 0;
  in(count);
  if (count > bytes.size()) return false;
  finished.pages.assign(static_cast<std::size_t>(count), FinishedPage{});
  for (FinishedPage& page : finished.pages) in(page.encoded.bytes), in(page.encoded_ok), in(page.readable);
  in(count);
  if (count > bytes.size()) return false;
  finished.failures.assign(static_cast<std::size_t>(count), std::string());
  for (std::string& failure : finished.failures) in(failure);
  in(finished.multipage_file), in(finished.multipage_ok);
  VisitPicture(in, finished.picture);
  in(finished.picture_ok);
  return Finished(in) && !finished.pages.empty();
}

}  // namespace velmora::engine
