// velmora-batch run as a real program over generated folder trees: which files it converts, in
// which order, what it prints, what it leaves alone, and its exit codes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "engine/app_state.h"
#include "scripts/sample_images.h"
#include "settings/profile_file.h"
#include "tests/app/batch_process.h"
#include "tests/support/test_support.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
using testing::ProcessResult;
using testing::ReadImageFacts;
using testing::ReadWholeFile;
using testing::RunBatchProcess;
using testing::TempFolder;
using testing::WriteWholeFile;

class BatchRunTest : public ::testing::Test {
 protected:
  ProcessResult Run(const std::vector<std::string>& arguments) {
    return RunBatchProcess(arguments, work_.path().string(), home_.path().string());
  }
  std::string Work(const std::string& relative) const { return work_.file(relative); }
  std::string DataFolder() const { return home_.file("Documents/Velmora"); }

  void MakeFolders(const std::string& relative) const { fs::create_directories(work_.path() / relative); }

  // pics/ with nested folders, an empty image, a text file and a file that only looks like an
  // image; extra/cover.jpeg beside it.
  void MakeTree() const {
    MakeFolders("pics/trips/2019");
    MakeFolders("pics/archive");
    MakeFolders("extra");
    ASSERT_TRUE(samples::WritePhotoJpeg(Work("pics/harbour.jpg"), 64, 48));
    ASSERT_TRUE(samples::WriteAlphaPng(Work("pics/badge.png"), 40, 30));
    WriteWholeFile(Work("pics/empty.jpg"), "");
    WriteWholeFile(Work("pics/notes.txt"), "not a picture");
    WriteWholeFile(Work("pics/broken.png"), "not a picture either");
    ASSERT_TRUE(samples::WritePaletteBmp(Work("pics/archive/old.bmp"), 20, 10));
    ASSERT_TRUE(samples::WritePaletteBmp(Work("pics/trips/poster.bmp"), 30, 20));
    ASSERT_TRUE(samples::WritePhotoJpeg(Work("pics/trips/2019/beach.JPG"), 32, 32));
    ASSERT_TRUE(samples::WritePhotoJpeg(Work("extra/cover.jpeg"), 16, 8));
  }

  // A profile file written through the settings code, over the defaults of a new profile.
  std::string WriteProfile(const std::string& name, const std::function<void(engine::AppState&)>& edit) const {
    engine::AppState state;
    state.AppDataFolder = DataFolder();
    settings::NewProfile(state);
    edit(state);
    const std::string path = Work(name);
    settings::SaveProfile(state, path);
    return path;
  }

  static std::vector<std::string> Names(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  TempFolder home_;
  TempFolder work_;
};

TEST_F(BatchRunTest, ConvertsATreeInScanOrderAndSkipsWhatTheAddRuleSkips) {
  MakeTree();
  const ProcessResult result = Run({"--output-folder", "out", "--format", "png", "--template",
                                    "{Counter}_{Title}.{OutputType}", "pics", "pics/badge.png", "extra/cover.jpeg"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.out,
            "[1/7] Current file: harbour.jpg\n"
            "[2/7] Current file: badge.png\n"
            "[3/7] Current file: broken.png\n"
            "[4/7] Current file: old.bmp\n"
            "[5/7] Current file: poster.bmp\n"
            "[6/7] Current file: beach.JPG\n"
            "[7/7] Current file: cover.jpeg\n"
            "Completed.\n"
            "7 file(s) processed.\n");
  EXPECT_NE(result.err.find("velmora-batch: warning: cannot read " + Work("pics/broken.png") + "\n"), std::string::npos)
      << result.err;
  EXPECT_EQ(Names(Work("out")), (std::vector<std::string>{"000_harbour.png", "001_badge.png", "003_old.png",
                                                          "004_poster.png", "005_beach.png", "006_cover.png"}));
  const auto harbour = ReadImageFacts(Work("out/000_harbour.png"));
  EXPECT_EQ(harbour.format, 13);  // PNG
  EXPECT_EQ(harbour.width, 64u);
  EXPECT_EQ(harbour.height, 48u);
}

// Without --profile the job is the window's last profile, else "default.profile", else the
// defaults of a new profile; whichever it is, no profile and no settings.ini is written.
struct StartProfileCase {
  const char* name;
  bool last_exists, default_exists, last_too_long;
  const char* output;  // the folder the output lands in, "" for the data folder's Output
  const char* notice;  // the line on standard error; %L the last profile, %D default.profile
};

class BatchStartProfileTest : public BatchRunTest, public ::testing::WithParamInterface<StartProfileCase> {};

TEST_P(BatchStartProfileTest, ReadsTheStartProfileAndWritesNoProfile) {
  const StartProfileCase& c = GetParam();
  MakeTree();
  const std::string default_path = DataFolder() + "/Profiles/default.profile";
  fs::create_directories(DataFolder() + "/Profiles");
  const std::string last = Work(c.last_too_long ? std::string(250, 'l') + ".profile" : "last.profile");
  auto write_job = [&](const std::string& path, const std::string& folder) {
    WriteProfile(path, [&](engine::AppState& state) {
      state.output.OutputFolder = Work(folder + "/");
      state.output.NameTemplate = "{Title}.{OutputType}";
    });
  };
  if (c.last_exists) write_job(last, "from-last");
  if (c.default_exists) write_job(default_path, "from-default");
  const std::string settings_text = "[Main]\r\nLastProfile=" + last + "\r\n";
  if (c.default_exists) WriteWholeFile(DataFolder() + "/settings.ini", settings_text);
  const std::string last_before = ReadWholeFile(last), default_before = ReadWholeFile(default_path);

  const ProcessResult result = Run({"extra/cover.jpeg"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  std::string notice = c.notice;
  if (const auto at = notice.find("%L"); at != std::string::npos) notice.replace(at, 2, last.substr(0, 254));
  if (const auto at = notice.find("%D"); at != std::string::npos) notice.replace(at, 2, default_path);
  EXPECT_EQ(result.err, notice.empty() ? "" : "velmora-batch: " + notice + "\n");
  const std::string output =
      *c.output ? Work(std::string(c.output) + "/cover.jpg") : DataFolder() + "/Output/cover_000.jpg";
  EXPECT_EQ(ReadImageFacts(output).format, 2);
  EXPECT_EQ(ReadWholeFile(last), last_before);
  EXPECT_EQ(ReadWholeFile(default_path), default_before);
  EXPECT_EQ(fs::exists(default_path), c.default_exists);
  EXPECT_EQ(ReadWholeFile(DataFolder() + "/settings.ini"), c.default_exists ? settings_text : "");
}

INSTANTIATE_TEST_SUITE_P(Cases, BatchStartProfileTest,
                         ::testing::Values(StartProfileCase{"NothingOnDisk", false, false, false, "",
                                                            "no profile found; using the settings of a new profile"},
                                           StartProfileCase{"LastProfile", true, true, false, "from-last", ""},
                                           StartProfileCase{"LastProfileGone", false, true, false, "from-default",
                                                            "the last profile %L is missing; using %D"},
                                           StartProfileCase{"LastPathOver254Bytes", true, true, true, "from-default",
                                                            "the last profile %L is missing; using %D"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(BatchRunTest, AProfileFileBringsItsChain) {
  MakeTree();
  const std::string profile = WriteProfile("half.profile", [&](engine::AppState& state) {
    state.output.OutputFormat = 3;
    state.output.OutputFolder = Work("halves");  // no trailing separator: the batch adds it
    state.output.NameTemplate = "{Title}.{OutputType}";
    state.blocks.Append(engine::NewBlock(engine::kResize));  // 50 percent, proportions kept
  });
  const std::string profile_before = ReadWholeFile(profile);
  const ProcessResult result = Run({"--profile", profile, "pics/harbour.jpg"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const auto half = ReadImageFacts(Work("halves/harbour.png"));
  EXPECT_EQ(half.width, 32u);
  EXPECT_EQ(half.height, 24u);
  EXPECT_EQ(ReadWholeFile(profile), profile_before);
  EXPECT_FALSE(fs::exists(DataFolder() + "/settings.ini"));
  EXPECT_FALSE(fs::exists(DataFolder() + "/Profiles/default.profile"));
}

TEST_F(BatchRunTest, TheSkipPolicyIsCountedInTheLastLine) {
  MakeTree();
  const std::string profile = WriteProfile("skip.profile", [&](engine::AppState& state) {
    state.settings.IfOutputFileExists = 0;
    state.output.OutputFolder = Work("kept/");
  });
  ASSERT_EQ(Run({"--profile", profile, "pics/trips"}).exit_code, 0);
  const auto first = Names(Work("kept"));
  ASSERT_EQ(first, (std::vector<std::string>{"beach_001.jpg", "poster_000.jpg"}));
  const ProcessResult again = Run({"--profile", profile, "pics/trips"});
  ASSERT_EQ(again.exit_code, 0) << again.err;
  EXPECT_EQ(again.out.substr(again.out.find("Completed.")), "Completed.\n2 file(s) processed. 2 file(s) skipped.\n");
  EXPECT_EQ(Names(Work("kept")), first);
}

TEST_F(BatchRunTest, QuietPrintsNothingAndStillConverts) {
  MakeTree();
  const ProcessResult result = Run({"--quiet", "--jobs", "2", "--output-folder", "q", "pics/trips"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(Names(Work("q")).size(), 2u);
}

TEST_F(BatchRunTest, UsageErrorsExitWithTwoAndWriteNothing) {
  MakeTree();
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"--colour", "red", "pics"}, "velmora-batch: unknown option '--colour'\n"},
      {{}, "velmora-batch: no source images given: name at least one file or folder\n"},
      {{"--format", "webp", "pics"},
       "velmora-batch: unknown format 'webp' (use bmp, jpeg, gif, png, tga, tiff or exr)\n"},
      {{"--jobs", "none", "pics"}, "velmora-batch: --jobs needs a whole number of at least 1, not 'none'\n"},
  };
  for (const auto& [arguments, message] : cases) {
    const ProcessResult result = Run(arguments);
    EXPECT_EQ(result.exit_code, 2) << message;
    EXPECT_EQ(result.err, message + "Try 'velmora-batch --help' for more information.\n");
    EXPECT_EQ(result.out, "");
  }
  EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(BatchRunTest, MissingProfileOrSourceExitsWithOneBeforeWritingAnything) {
  MakeTree();
  const ProcessResult no_profile = Run({"--profile", "missing.profile", "pics"});
  EXPECT_EQ(no_profile.exit_code, 1);
  EXPECT_EQ(no_profile.err, "velmora-batch: profile not found: missing.profile\n");
  const ProcessResult folder_profile = Run({"--profile", "pics", "pics"});
  EXPECT_EQ(folder_profile.exit_code, 1);
  EXPECT_EQ(folder_profile.err, "velmora-batch: profile is a folder, not a file: pics\n");
  const ProcessResult no_source = Run({"pics", "nope.jpg"});
  EXPECT_EQ(no_source.exit_code, 1);
  EXPECT_EQ(no_source.err, "velmora-batch: no such file or folder: nope.jpg\n");
  EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(BatchRunTest, NoImagesAmongTheSourcesExitsWithOne) {
  MakeFolders("nothing/inner");
  WriteWholeFile(Work("nothing/readme.txt"), "text");
  WriteWholeFile(Work("nothing/inner/empty.png"), "");
  const ProcessResult result = Run({"nothing", "nothing/inner/empty.png"});
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.err.rfind("velmora-batch: no source images found", 0), 0u) << result.err;
  EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(BatchRunTest, AnOutputFolderThatCannotBeMadeExitsWithOne) {
  MakeTree();
  WriteWholeFile(Work("blocker"), "a file where a folder should go");
  const ProcessResult under_file = Run({"--output-folder", "blocker/out", "pics"});
  EXPECT_EQ(under_file.exit_code, 1);
  EXPECT_EQ(under_file.err, "velmora-batch: cannot create output folder: blocker/out/\n");
  const ProcessResult is_file = Run({"--output-folder", "blocker", "pics"});
  EXPECT_EQ(is_file.exit_code, 1);
  EXPECT_EQ(is_file.err, "velmora-batch: output folder is not a folder: blocker/\n");

  const std::string profile = WriteProfile("nocreate.profile", [&](engine::AppState& state) {
    state.settings.AlwaysCreateOutputFolder = engine::kFalse;
    state.output.OutputFolder = Work("not-made/");
  });
  const ProcessResult not_made = Run({"--profile", profile, "pics"});
  EXPECT_EQ(not_made.exit_code, 1);
  EXPECT_NE(not_made.err.find("\"Always Create Output Folder\" is off"), std::string::npos) << not_made.err;
  EXPECT_FALSE(fs::exists(Work("not-made")));
  EXPECT_EQ(not_made.out, "");
}

TEST_F(BatchRunTest, HelpAndVersion) {
  const ProcessResult help = Run({"--help"});
  EXPECT_EQ(help.exit_code, 0);
  EXPECT_EQ(help.out.rfind("Usage: velmora-batch [OPTIONS] SOURCE...\n", 0), 0u);
  EXPECT_NE(help.out.find("does nothing here"), std::string::npos);
  const ProcessResult version = Run({"--version"});
  EXPECT_EQ(version.exit_code, 0);
  EXPECT_EQ(version.out.rfind("velmora-batch ", 0), 0u);
  EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(BatchRunTest, TheBundledSamplesConvertWithTheDefaultJob) {
  MakeFolders("samples");
  ASSERT_EQ(samples::WriteSampleSet(Work("samples")).size(), 8u);
  const ProcessResult result = Run({"--output-folder", "converted", "samples"});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  EXPECT_NE(result.out.find("Completed.\n8 file(s) processed.\n"), std::string::npos) << result.out;
  const auto names = Names(Work("converted"));
  EXPECT_GE(names.size(), 8u);
  for (const std::string& name : names) EXPECT_EQ(ReadImageFacts(Work("converted/" + name)).format, 2) << name;
}

}  // namespace
}  // namespace velmora
