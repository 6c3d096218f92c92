// velmora-bench-rescale: times one bilinear resize of a generated page, ours against
// FreeImage_Rescale, in CPU time of one thread, and checks that both give the same bytes.
//   velmora-bench-rescale [--width W] [--height H] [--bpp 24|32] [--percent P] [--runs N]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "imaging/resample/resample.h"

namespace {

using velmora::imaging::Bitmap;

// A page of smooth gradients with some noise, as photographs have.
Bitmap MakePage(int width, int height, int bpp) {
  Bitmap page(FreeImage_Allocate(width, height, bpp));
  unsigned noise = 12345;
  for (int y = 0; y < height; ++y) {
    BYTE* line = FreeImage_GetScanLine(page.get(), y);
    for (unsigned i = 0; i < FreeImage_GetLine(page.get()); ++i) {
      noise = noise * 1103515245u + 12345u;
      line[i] = BYTE((i * 7 + y * 3) / 16 + ((noise >> 16) & 15));
    }
  }
  return page;
}

// CPU time of this thread, which other work on the machine does not inflate as it does the clock.
double ThreadMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

// The median CPU time of `runs` calls, in milliseconds, and the last result.
double MedianMilliseconds(int runs, const std::function<Bitmap()>& resize, Bitmap& result) {
  std::vector<double> times;
  for (int i = 0; i < runs; ++i) {
    const double start = ThreadMilliseconds();
    result = resize();
    times.push_back(ThreadMilliseconds() - start);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

bool SameBytes(FIBITMAP* a, FIBITMAP* b) {
  if (!a || !b || FreeImage_GetLine(a) != FreeImage_GetLine(b) || FreeImage_GetHeight(a) != FreeImage_GetHeight(b))
    return false;
  for (unsigned y = 0; y < FreeImage_GetHeight(a); ++y)
    if (std::memcmp(FreeImage_GetScanLine(a, int(y)), FreeImage_GetScanLine(b, int(y)), FreeImage_GetLine(a)))
      return false;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  int width = 4000, height = 3000, bpp = 24, percent = 50, runs = 3;
  for (int i = 1; i + 1 < argc; i += 2) {
    const int value = std::atoi(argv[i + 1]);
    if (!std::strcmp(argv[i], "--width")) width = value;
    if (!std::strcmp(argv[i], "--height")) height = value;
    if (!std::strcmp(argv[i], "--bpp")) bpp = value;
    if (!std::strcmp(argv[i], "--percent")) percent = value;
    if (!std::strcmp(argv[i], "--runs")) runs = value;
  }
  const Bitmap page = MakePage(width, height, bpp);
  const int to_width = width * percent / 100, to_height = height * percent / 100;
  Bitmap ours, theirs;
  const double our_time = MedianMilliseconds(
      runs, [&] { return velmora::imaging::RescaleBilinear(page.get(), to_width, to_height); }, ours);
  const double their_time = MedianMilliseconds(
      runs, [&] { return Bitmap(FreeImage_Rescale(page.get(), to_width, to_height, FILTER_BILINEAR)); }, theirs);
  std::printf("%dx%d %d-bit to %d%%: ours %.1f ms, FreeImage %.1f ms, %.2fx, %s\n", width, height, bpp, percent,
              our_time, their_time, their_time / our_time,
              SameBytes(ours.get(), theirs.get()) ? "same bytes" : "DIFFERENT");
  return SameBytes(ours.get(), theirs.get()) ? 0 : 1;
}
