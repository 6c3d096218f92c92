// velmora-batch: converts images with a Velmora job from the command line, without a window.
// See `velmora-batch --help`; the work is done by RunBatch.
#include <cstdio>
#include <string>
#include <vector>

#include "app/batch/batch_main.h"
#include "imaging/allocator_tuning.h"

int main(int argc, char** argv) {
  velmora::imaging::KeepLargeBuffersForReuse();
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return velmora::app::RunBatch(arguments, stdout, stderr);
}
