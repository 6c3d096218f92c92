// Command-line parsing and the help text of velmora-batch.
#include "app/batch/batch_options.h"

#include <charconv>

#include "engine/number_text.h"

#ifndef VELMORA_VERSION
#define VELMORA_VERSION "unknown"
#endif

namespace velmora::app {
namespace {

bool TakesValue(std::string_view option) {
  return option == "--profile" || option == "--output-folder" || option == "--format" || option == "--template" ||
         option == "--jobs" || option == "--source-timeout" || option == "--upload" || option == "--album" ||
         option == "--sources-from" || option == "--write-plan" || option == "--from-plan" || option == "--shard" ||
         option == "--finish-plan" || option == "--slurm" || option == "--slurm-args";
}

// A whole number of at least 1, or nothing.
std::optional<int> PositiveNumber(const std::string& value) {
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (error != std::errc() || end != value.data() + value.size() || number < 1) return std::nullopt;
  return number;
}

// "K/N" with 0 <= K < N.
bool StoreShard(BatchOptions& options, const std::string& value) {
  const std::size_t slash = value.find('/');
  if (slash == std::string::npos) return false;
  const std::optional<int> shards = PositiveNumber(value.substr(slash + 1));
  const std::optional<int> shard = value.substr(0, slash) == "0" ? 0 : PositiveNumber(value.substr(0, slash));
  if (!shard || !shards || *shard >= *shards) return false;
  options.shard = *shard;
  options.shards = *shards;
  options.shard_given = true;
  return true;
}

// The plan options: one file name each.
std::optional<std::string>* PlanFile(BatchOptions& options, std::string_view option) {
  if (option == "--sources-from") return &options.sources_from;
  if (option == "--write-plan") return &options.write_plan;
  if (option == "--from-plan") return &options.from_plan;
  if (option == "--finish-plan") return &options.finish_plan;
  return nullptr;
}

// Which of the run's forms the options ask for, and whether they fit it; an error text or "".
std::string CheckForm(const BatchOptions& options) {
  const int forms = options.write_plan.has_value() + options.from_plan.has_value() + options.finish_plan.has_value();
  if (forms > 1) return "--write-plan, --from-plan and --finish-plan go one at a time";
  if (options.shard_given && !options.from_plan) return "--shard goes with --from-plan";
  if ((options.slurm_tasks > 0 || options.slurm_arguments) && !options.write_plan)
    return "--slurm and --slurm-args go with --write-plan";
  const bool planned = options.from_plan || options.finish_plan;
  if (planned && (!options.sources.empty() || options.sources_from))
    return std::string(options.from_plan ? "--from-plan" : "--finish-plan") + " takes no sources: they are in the plan";
  const bool job_options = options.profile || options.output_folder || options.output_format || options.name_template;
  if (planned && job_options)
    return std::string(options.from_plan ? "--from-plan" : "--finish-plan") +
           " takes no job options: the job is in the plan";
  if (forms > 0 && (options.upload_ftp || options.upload_album)) return "--upload does not go with a planned run";
  if (options.sources.empty() && !options.sources_from && !planned && !options.help && !options.version)
    return "no source images given: name at least one file or folder";
  return {};
}

// Stores one option's value; returns an error text or "".
std::string StoreValue(BatchOptions& options, std::string_view option, const std::string& value) {
  if (std::optional<std::string>* file = PlanFile(options, option)) {
    if (value.empty()) return std::string(option) + " needs a file name";
    *file = value;
  } else if (option == "--shard") {
    if (!StoreShard(options, value)) return "--shard needs K/N with 0 <= K < N, not '" + value + "'";
  } else if (option == "--profile") {
    if (value.empty()) return "--profile needs a file name";
    options.profile = value;
  } else if (option == "--output-folder") {
    if (value.empty()) return "--output-folder needs a folder name";
    options.output_folder = value;
  } else if (option == "--format") {
    options.output_format = OutputFormatFromName(value);
    if (!options.output_format)
      return "unknown format '" + value + "' (use bmp, jpeg, gif, png, tga, tiff, exr, webp or avif)";
  } else if (option == "--template") {
    if (value.empty()) return "--template needs a non-empty template";
    options.name_template = value;
  } else if (option == "--upload") {
    options.upload_ftp = engine::EqualsIgnoreCase(value, "ftp");
    options.upload_album = engine::EqualsIgnoreCase(value, "album");
    if (!options.upload_ftp && !options.upload_album) return "unknown upload '" + value + "' (use ftp or album)";
  } else if (option == "--album") {
    if (value.empty()) return "--album needs an album title";
    options.album = value;
  } else if (option == "--slurm-args") {
    options.slurm_arguments = value;
  } else if (option == "--jobs" || option == "--source-timeout" || option == "--slurm") {
    const std::optional<int> number = PositiveNumber(value);
    if (!number) return std::string(option) + " needs a whole number of at least 1, not '" + value + "'";
    (option == "--jobs" ? options.jobs : option == "--slurm" ? options.slurm_tasks : options.source_timeout) = *number;
  }
  return {};
}

}  // namespace

ParsedArguments ParseBatchArguments(const std::vector<std::string>& arguments) {
  ParsedArguments parsed;
  BatchOptions& options = parsed.options;
  bool options_ended = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (options_ended || argument.size() < 2 || argument[0] != '-') {
      options.sources.push_back(argument);
      continue;
    }
    if (argument == "--") {
      options_ended = true;
      continue;
    }
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    if (name == "--help" || name == "-h" || name == "--version" || name == "--quiet" || name == "-q") {
      if (equals != std::string::npos) {
        parsed.error = name + " takes no value";
        return parsed;
      }
      if (name == "--help" || name == "-h") options.help = true;
      if (name == "--version") options.version = true;
      if (name == "--quiet" || name == "-q") options.quiet = true;
      continue;
    }
    if (!TakesValue(name)) {
      parsed.error = "unknown option '" + name + "'";
      return parsed;
    }
    std::string value;
    if (equals != std::string::npos) {
      value = argument.substr(equals + 1);
    } else if (i + 1 < arguments.size()) {
      value = arguments[++i];
    } else {
      parsed.error = name + " needs a value";
      return parsed;
    }
    parsed.error = StoreValue(options, name, value);
    if (!parsed.error.empty()) return parsed;
  }
  parsed.error = CheckForm(options);
  return parsed;
}

std::optional<std::int16_t> OutputFormatFromName(std::string_view name) {
  static constexpr std::pair<std::string_view, std::int16_t> kNames[] = {
      {"bmp", 0},  {"jpeg", 1}, {"jpg", 1}, {"gif", 2},  {"png", 3}, {"tga", 4},
      {"tiff", 5}, {"tif", 5},  {"exr", 6}, {"webp", 7}, {"avif", 8}};
  for (const auto& [known, index] : kNames)
    if (engine::EqualsIgnoreCase(name, known)) return index;
  return std::nullopt;
}

std::string BatchVersionText() {
  return std::string("velmora-batch ") + VELMORA_VERSION + "\n";
}

std::string BatchHelpText() {
  return R"(Usage: velmora-batch [OPTIONS] SOURCE...
       velmora-batch --write-plan PLAN [OPTIONS] SOURCE...
       velmora-batch --from-plan PLAN --shard K/N [--jobs N] [--quiet]
       velmora-batch --finish-plan PLAN [--quiet]
       velmora-batch --slurm N [--slurm-args TEXT] --write-plan PLAN [OPTIONS] SOURCE...

Converts images without a window: every page of every source goes through the
job's chain of operations and is written under a name from the job's file-name
template, exactly as the Velmora window would convert it.

Sources are image files and folders. A folder is searched with all its
subfolders for the file types Velmora reads (*.bmp, *.jpg, *.jpeg, *.png,
*.gif, *.tif, *.tiff, *.ico, *.exr, *.psd, *.heic, *.heif, *.avif, *.webp and
more, in any letter case): the files of a folder come first, type by type in
that list's order and by name within a type, then its subfolders by name. A
file named on the command line is taken whatever its type. Empty files, and
paths already taken, are passed over.

  --sources-from FILE  also take the sources listed in FILE, one path a line
                       (- for standard input), after those of the command
                       line; for runs too large for a command line

The job:
  --profile FILE       run the job saved in FILE (a .profile file). Without it,
                       the job is the profile Velmora opens at start: the last
                       profile used, else Profiles/default.profile in the data
                       folder (the Velmora folder in your documents folder),
                       else the settings of a new profile; a line on standard
                       error says so when the last profile is missing.
                       velmora-batch never saves a profile and never writes
                       settings.ini.
  --output-folder DIR  write into DIR instead of the job's output folder; DIR
                       is created when missing
  --format NAME        output format: bmp, jpeg, gif, png, tga, tiff, exr, webp
                       or avif (see Formats below)
  --template TEXT      file-name template, such as "{Title}_{Counter}.{OutputType}"
                       with the tokens {Title}, {SourceType}, {OutputType} and
                       {Counter}
  --jobs N             how many images to convert at once (N >= 1; default: one
                       per core). The files written are the same for any N
  --source-timeout S   give up on a source that takes longer than S seconds to
                       read, convert and encode (default: 300); it is then
                       passed over like an unreadable one
  --upload ftp         when the run ends, send the files it wrote to the FTP
                       server, folder and account of the job's settings, as the
                       window's "Upload to FTP" does; each file that did not
                       arrive (a transfer error, a refusal, a size that
                       differs) is named in a warning
  --upload album       when the run ends, post the files it wrote to a web
                       album of the job's account, as the window's "Upload to
                       Picasa" does; a sign-in that asks for a captcha must be
                       made once in the window
  --album TITLE        the album to post to (needed when the account has more
                       than one)

Formats:
  format       read  written  notes
  JPEG         yes   yes      quality from the job
  PNG, BMP     yes   yes
  GIF, TIFF    yes   yes      several pages in one file, or a file per page
  TGA, EXR     yes   yes
  WebP         yes   yes      quality from the job, or lossless
  AVIF         yes   yes      quality from the job, 8 or 10 bits per channel
  HEIC, HEIF   yes   no       every image of the file as a page
  ICO, PSD, RAW, PCX, DDS, HDR and more: read only
  Colour profiles go with the image into JPEG, PNG, TIFF, WebP and AVIF, and
  the camera's EXIF block into JPEG, WebP and AVIF. With "Rotate by camera
  orientation" on in the job's settings, photos are turned upright as read.

A run in shards (on many machines, or many processes of one):
  --write-plan PLAN    convert nothing, but settle the run the job options and
                       sources describe into the file PLAN: each source's
                       output names, the "if the output file exists" choice
                       against the files there and those the sources before it
                       will write, the counter and the skip count, and the job
                       itself, so that the shards need nothing but PLAN
  --from-plan PLAN     convert one shard of the plan's sources under the
                       planned names; the plan's paths must be visible where it
                       runs. A shard run again (after a crash, say) redoes only
                       the sources it has not finished: each shard keeps a
                       journal beside PLAN
  --shard K/N          the shard to convert: K from 0 to N-1 (as a job array's
                       index), each a contiguous range of the plan's sources;
                       the default is 0/1, the whole plan
  --finish-plan PLAN   when every shard has run: check that every planned file
                       is there, write index.html and print the closing lines,
                       exactly as one run of the job would; each missing file
                       is named, with exit status 3
  --slurm N            with --write-plan, write the plan, run its N shards as
                       one Slurm job array of N tasks (task K running
                       --from-plan PLAN --shard K/N), show how many tasks have
                       ended, then finish the plan as --finish-plan does.
                       Each task's output goes to PLAN.task-JOB_K.log
  --slurm-args TEXT    more arguments for sbatch, split as a shell would split
                       them, such as a partition and a time limit for the
                       tasks
The files, their names, index.html and the closing lines are those of one run
of the job. The plan counts the pages of multipage sources (GIF, TIFF, ICO,
HEIF) from their headers: a source that reads there but not in full writes
other names than planned, which --finish-plan reports. A job whose chain
carries values from page to page (a resize of unknown units, a watermark of
unknown alignment), and a plan in which an output replaces another source,
run as one shard only (--shard 0/1).

Output:
  -q, --quiet          print nothing on standard output
  -h, --help           show this help and exit
      --version        show the version and exit

On a terminal a progress bar shows the current file; otherwise each source
gives one line. The run ends with "Completed." and "N file(s) processed.",
with the number of files skipped when the job skips existing output files.
Steps that failed and were passed over (an unreadable image, a save that did
not work) are listed afterwards as warnings on standard error. Images are
decoded and converted in worker processes (velmora-worker, installed beside
velmora-batch), each with a memory budget of half the machine's memory: a
damaged file that crashes a decoder, or exhausts its budget, costs only that
file, which is named in a warning. The job's "open the target folder" choice
is a desktop action and does nothing here.

Every file is written under a temporary name beside its final one and renamed
into place only when complete, so an interrupted run or a full disk never
leaves a partial file under a final name. Overwriting replaces the old file
only once its replacement is complete, and a source is always read before
anything of the run replaces it, so converting a folder into itself is safe.

Exit status:
  0  the run took place; any warnings are about sources that were passed over
  1  the profile or a source does not exist, no source images were found, or
     the output folder cannot be used, or a plan cannot be read or split as
     asked; nothing was converted
  2  bad command line
  3  the run took place, but some output files could not be written (each is
     named in a warning; nothing partial was left under its name); with
     --finish-plan, planned files are missing
  4  the run took place and every file was written, but some did not arrive
     by --upload (each is named in a warning)
)";
}

}  // namespace velmora::app
