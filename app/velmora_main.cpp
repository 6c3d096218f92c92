// The velmora program: the window of the batch image converter.
#include "imaging/allocator_tuning.h"
#include "shell/start_up.h"

int main(int argc, char** argv) {
  velmora::imaging::KeepLargeBuffersForReuse();
  return velmora::shell::Main(argc, argv);
}
