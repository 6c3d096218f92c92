#include "app/batch/slurm_array.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <wordexp.h>

#include <chrono>
#include <optional>
#include <sstream>
#include <thread>
#include <vector>

extern char** environ;

namespace velmora::app {
namespace {

// The standard output of a command found on PATH, or nothing when it cannot start or fails.
std::optional<std::string> CommandOutput(const std::vector<std::string>& command) {
  int pipe_ends[2];
  if (::pipe2(pipe_ends, O_CLOEXEC) != 0) return std::nullopt;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipe_ends[1], STDOUT_FILENO);
  std::vector<char*> argv;
  for (const std::string& word : command) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  pid_t pid = -1;
  const int spawned = ::posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(pipe_ends[1]);
  std::string output;
  char buffer[4096];
  for (ssize_t got; spawned == 0 && (got = ::read(pipe_ends[0], buffer, sizeof buffer)) != 0;) {
    if (got > 0)
      output.append(buffer, static_cast<std::size_t>(got));
    else if (errno != EINTR)
      break;
  }
  ::close(pipe_ends[0]);
  if (spawned != 0) return std::nullopt;
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
  return output;
}

// Splits `text` as a shell would, without running anything it names.
std::optional<std::vector<std::string>> ShellWords(const std::string& text) {
  wordexp_t words;
  if (::wordexp(text.c_str(), &words, WRDE_NOCMD | WRDE_UNDEF) != 0) return std::nullopt;
  std::vector<std::string> result(words.we_wordv, words.we_wordv + words.we_wordc);
  ::wordfree(&words);
  return result;
}

int LineCount(const std::string& text) {
  int lines = 0;
  for (char c : text) lines += c == '\n';
  return lines;
}

// The tasks of the job that did not end well, from what the controller still remembers of them.
int FailedTasks(const std::string& job_id) {
  const std::optional<std::string> records = CommandOutput({"scontrol", "-o", "show", "job", job_id});
  if (!records) return 0;  // forgotten already: the outputs themselves tell at the finish
  std::istringstream lines(*records);
  int failed = 0;
  for (std::string line; std::getline(lines, line);)
    if (line.find("JobState=") != std::string::npos && line.find("JobState=COMPLETED") == std::string::npos) ++failed;
  return failed;
}

}  // namespace

std::string ShellQuoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

SlurmOutcome RunSlurmArray(const SlurmArray& array, const std::function<void(const std::string&, int)>& progress) {
  const std::optional<std::vector<std::string>> extra = ShellWords(array.extra_arguments);
  if (!extra) return {"", "cannot split the --slurm-args text into arguments"};
  const std::string task_command = "exec " + ShellQuoted(array.batch_program) + " --from-plan " +
                                   ShellQuoted(array.plan) + " --shard \"$SLURM_ARRAY_TASK_ID/" +
                                   std::to_string(array.tasks) + "\"";
  std::vector<std::string> submit{"sbatch", "--parsable", "--array=0-" + std::to_string(array.tasks - 1),
                                  "--job-name=velmora", "--output=" + array.log_pattern};
  submit.insert(submit.end(), extra->begin(), extra->end());
  submit.insert(submit.end(), {"--wrap", task_command});
  const std::optional<std::string> submitted = CommandOutput(submit);
  if (!submitted) return {"", "sbatch did not take the job"};
  // "--parsable" answers "id" or "id;cluster".
  const std::string job_id = submitted->substr(0, submitted->find_first_of(";\n"));

  // A task leaves the queue when it ends; the job is over when none is left.
  // A controller that does not answer three times running has forgotten the job or is gone.
  int done = -1;
  for (int silent = 0; silent < 3; std::this_thread::sleep_for(std::chrono::milliseconds(500))) {
    const std::optional<std::string> queued = CommandOutput({"squeue", "-h", "-r", "-j", job_id, "-o", "%i"});
    if (!queued) {
      ++silent;
      continue;
    }
    silent = 0;
    const int left = LineCount(*queued);
    if (array.tasks - left != done) progress(job_id, done = array.tasks - left);
    if (left == 0) break;
  }
  const int failed = FailedTasks(job_id);
  if (failed == 0) return {job_id, ""};
  return {job_id, std::to_string(failed) + " of " + std::to_string(array.tasks) + " tasks of Slurm job " + job_id +
                      " failed; their output is in " + array.log_pattern};
}

}  // namespace velmora::app
