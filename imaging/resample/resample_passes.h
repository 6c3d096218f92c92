// The two passes of a separable resize over rows of interleaved samples (bytes, 16-bit words or
// floats): a row at a time across, and output row by output row down. Sums run in double in the
// order FreeImage uses and are rounded the way it rounds, so the outputs match its bytes. Each pass
// has a plain loop for runs of any length and an unrolled one for short padded runs.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

// The innermost loops are built twice, for AVX2 and for the plain x86-64 baseline, and the
// processor picks at load time. AVX2 brings wider double lanes but no fused multiply-adds, which
// these files never use: they are compiled with -ffp-contract=off.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define VELMORA_RESAMPLE_KERNEL __attribute__((target_clones("avx2", "default")))
#else
#define VELMORA_RESAMPLE_KERNEL
#endif

namespace velmora::imaging::resample {

// Rows of interleaved samples at a fixed distance in bytes.
template <typename Sample>
struct Plane {
  std::byte* bits = nullptr;
  std::size_t pitch = 0;
  unsigned width = 0, height = 0, channels = 0;

  Sample* Row(unsigned y) const { return reinterpret_cast<Sample*>(bits + y * pitch); }
  std::size_t RowSamples() const { return std::size_t{width} * channels; }
};

// How a sum becomes a stored sample. A scaled channel is first multiplied by `factor` and divided
// by `divisor`: it widens 1-bit and 5- or 6-bit fields to 0..255.
struct Rounding {
  bool scaled = false;
  std::array<double, 4> factor{1, 1, 1, 1};
  std::array<double, 4> divisor{1, 1, 1, 1};
};

// Resizes one row of the source width into one of the target width.
template <typename Sample>
using RowResize = std::function<void(const Sample* source, Sample* target)>;

template <typename Sample>
RowResize<Sample> MakeRowResize(unsigned source_width, unsigned target_width, unsigned channels,
                                const Rounding& rounding);

// The source row of a given index, read from a plane or made when first asked for. The rows of one
// output row's run are asked for together and must stay valid until the next output row.
template <typename Sample>
using SourceRow = std::function<const Sample*(unsigned y)>;

template <typename Sample>
void ResizeColumns(const SourceRow<Sample>& source, unsigned source_height, const Plane<Sample>& target,
                   const Rounding& rounding);

// Stores the sums of one row, `channels` to a pixel.
template <typename Sample>
void StoreRow(const double* sums, std::size_t count, unsigned channels, const Rounding& rounding, Sample* target);

}  // namespace velmora::imaging::resample
