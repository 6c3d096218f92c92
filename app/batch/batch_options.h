// The command line of velmora-batch: its options, their checks, the help and version texts, and
// the exit codes the command ends with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::app {

inline constexpr int kExitOk = 0;           // the run took place
inline constexpr int kExitFailure = 1;      // a missing profile or source, no images, no output folder
inline constexpr int kExitUsage = 2;        // a bad command line
inline constexpr int kExitNotWritten = 3;   // the run took place, but some output files could not be written
inline constexpr int kExitNotUploaded = 4;  // the run took place, but some files did not arrive by upload

struct BatchOptions {
  std::vector<std::string> sources;           // files and folders, in the order given
  std::optional<std::string> profile;         // --profile
  std::optional<std::string> output_folder;   // --output-folder
  std::optional<std::int16_t> output_format;  // --format, as the OutputFormat index
  std::optional<std::string> name_template;   // --template
  int jobs = 0;                               // --jobs: workers; 0 means one per core
  int source_timeout = 300;                   // --source-timeout, in seconds
  bool upload_ftp = false;                    // --upload ftp
  bool upload_album = false;                  // --upload album
  std::string album;                          // --album: the title of the web album to post to
  std::optional<std::string> sources_from;    // --sources-from: a file of source paths, one a line; "-" stdin
  std::optional<std::string> write_plan;      // --write-plan: plan the run into this file
  std::optional<std::string> from_plan;       // --from-plan: convert a shard of this plan
  std::optional<std::string> finish_plan;     // --finish-plan: check and close this plan
  int shard = 0, shards = 1;                  // --shard K/N: 0-based K of N
  bool shard_given = false;
  int slurm_tasks = 0;                         // --slurm N: run the plan's N shards as a Slurm job array
  std::optional<std::string> slurm_arguments;  // --slurm-args: more sbatch arguments, split as a shell would
  bool quiet = false;
  bool help = false;
  bool version = false;
};

struct ParsedArguments {
  BatchOptions options;
  std::string error;  // non-empty for a bad command line
};

// Parses the arguments after the program name. Options take their value as the next argument or
// after "="; "--" ends the options. Without --help or --version at least one source is needed,
// except by --from-plan and --finish-plan, whose sources are in the plan.
ParsedArguments ParseBatchArguments(const std::vector<std::string>& arguments);

// The OutputFormat index of a format name: bmp 0, jpeg (jpg) 1, gif 2, png 3, tga 4, tiff (tif) 5,
// exr 6, in any letter case.
std::optional<std::int16_t> OutputFormatFromName(std::string_view name);

std::string BatchHelpText();
std::string BatchVersionText();

}  // namespace velmora::app
