// velmora-worker: transforms sources for velmora and velmora-batch in a process of its own, so
// that a decoder that crashes on a damaged file costs the run only that file. Started by the
// run with its requests on descriptor 3 and its answers on descriptor 4; not for use by hand.
#include <sys/prctl.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <cstring>

#include "engine/worker_loop.h"
#include "imaging/allocator_tuning.h"
#include "imaging/tiff_messages.h"

// AddressSanitizer reserves terabytes of address space for itself: its builds go without the limit.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kAddressSpaceLimited = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kAddressSpaceLimited = false;
#else
constexpr bool kAddressSpaceLimited = true;
#endif
#else
constexpr bool kAddressSpaceLimited = true;
#endif

int main(int argc, char** argv) {
  // A worker never outlives the run that started it.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // glibc reports a corrupted heap on the terminal unless told to use standard error, which the
  // run has closed for us.
  ::setenv("LIBC_FATAL_STDERR_", "1", 1);
  // One bomb of a file must not take the machine's memory: allocations past the budget fail.
  if (argc == 3 && std::strcmp(argv[1], "--memory-limit") == 0) {
    const rlim_t bytes = std::strtoull(argv[2], nullptr, 10);
    const rlimit limit{bytes, bytes};
    if (bytes > 0 && kAddressSpaceLimited) ::setrlimit(RLIMIT_AS, &limit);
  }
  velmora::imaging::KeepLargeBuffersForReuse();
  velmora::imaging::SilenceTiffMessages();
  return velmora::engine::RunWorkerLoop(3, 4);
}
