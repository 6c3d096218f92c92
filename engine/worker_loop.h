// The worker process's side: the job once, then one source after another, each answered with
// its finished source. Whatever crashes in here costs the run only the source at hand.
#pragma once

namespace velmora::engine {

// Serves requests read from `in` with answers written to `out` until `in` closes. Returns the
// process's exit code.
int RunWorkerLoop(int in, int out);

}  // namespace velmora::engine
