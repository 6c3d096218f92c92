// velmora-batch and the user's files, through the real program: converting a folder into itself
// replaces every original with its conversion at any --jobs, a run killed part-way and a run
// on a full disk leave no partial file under a final name.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "engine/app_state.h"
#include "imaging/tiff_messages.h"
#include "scripts/sample_images.h"
#include "settings/profile_file.h"
#include "tests/app/batch_process.h"
#include "tests/support/test_support.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
using testing::ReadImageFacts;
using testing::ReadWholeFile;
using testing::TempFolder;

// Names in a folder, hidden ones (the temporaries) apart.
struct Listing {
  std::vector<std::string> visible, hidden;
};
Listing List(const fs::path& folder) {
  Listing listing;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    const std::string name = entry.path().filename().string();
    (name[0] == '.' ? listing.hidden : listing.visible).push_back(name);
  }
  std::sort(listing.visible.begin(), listing.visible.end());
  return listing;
}

class BatchSafetyTest : public ::testing::Test {
 protected:
  void SetUp() override { imaging::SilenceTiffMessages(); }

  std::string Work(const std::string& relative) const { return work_.file(relative); }

  // A TIFF job (32 bits, no compression: large files) or a JPEG job, with a 50% resize.
  void Profile(const std::string& template_text, int format, bool multipage) const {
    engine::AppState state;
    state.AppDataFolder = home_.file("data");
    settings::NewProfile(state);
    state.output.NameTemplate = template_text;
    state.output.OutputFormat = static_cast<std::int16_t>(format);
    state.output.MultipageMode = multipage ? 1 : 0;
    state.output.CompressionIndex = 0;
    state.blocks.Append(engine::NewBlock(engine::kResize));
    settings::SaveProfile(state, Work("job.profile"));
  }

  testing::ProcessResult Run(const std::string& output, std::vector<std::string> arguments,
                             const std::function<void(pid_t)>& while_running = {}) const {
    arguments.insert(arguments.begin(), {"--profile", Work("job.profile"), "--output-folder", output});
    return testing::RunBatchProcess(arguments, work_.path().string(), home_.path().string(), while_running);
  }

  // Every visible file of `folder` is byte for byte the file of that name in `reference`.
  static void ExpectCompleteFiles(const fs::path& folder, const fs::path& reference) {
    for (const std::string& name : List(folder).visible) {
      SCOPED_TRACE(name);
      EXPECT_TRUE(ReadWholeFile((folder / name).string()) == ReadWholeFile((reference / name).string()));
    }
  }

  TempFolder home_, work_;
};

struct InPlaceCase {
  int jobs;
  bool crosswise;  // sources in reverse order named by counter: each output is another row's source
};

class BatchInPlaceTest : public BatchSafetyTest, public ::testing::WithParamInterface<InPlaceCase> {};

TEST_P(BatchInPlaceTest, EveryOriginalIsReplacedByItsConversion) {
  const InPlaceCase c = GetParam();
  Profile(c.crosswise ? "{Counter}.{OutputType}" : "{Title}.{OutputType}", 1, false);
  auto make_sources = [&](const std::string& folder) {
    fs::create_directories(Work(folder));
    std::vector<std::string> rows;
    for (int i = 0; i < 6; ++i) {
      const std::string name = folder + "/00" + std::to_string(i) + ".jpg";
      EXPECT_TRUE(samples::WritePhotoJpeg(Work(name), 64 + 16 * i, 48, 90, static_cast<unsigned>(i + 1)));
      rows.push_back(name);
    }
    if (c.crosswise) std::reverse(rows.begin(), rows.end());
    return c.crosswise ? rows : std::vector<std::string>{folder};
  };
  ASSERT_EQ(Run(Work("reference"), make_sources("originals")).exit_code, 0);
  for (int i = 0; i < 6; ++i) {
    const int source = c.crosswise ? 5 - i : i;  // the counter names the row, not the source
    EXPECT_EQ(ReadImageFacts(Work("reference/00" + std::to_string(i) + ".jpg")).width, 32u + 8u * source);
  }
  for (int repeat = 0; repeat < 3; ++repeat) {
    SCOPED_TRACE(repeat);
    const std::string folder = "photos" + std::to_string(repeat);
    auto arguments = make_sources(folder);
    arguments.insert(arguments.begin(), {"--jobs", std::to_string(c.jobs)});
    const auto result = Run(Work(folder), arguments);
    ASSERT_EQ(result.exit_code, 0) << result.err;
    EXPECT_EQ(List(Work(folder)).visible, List(Work("reference")).visible);
    EXPECT_TRUE(List(Work(folder)).hidden.empty());
    ExpectCompleteFiles(Work(folder), Work("reference"));
  }
}

INSTANTIATE_TEST_SUITE_P(Jobs, BatchInPlaceTest,
                         ::testing::Values(InPlaceCase{1, false}, InPlaceCase{2, false}, InPlaceCase{8, false},
                                           InPlaceCase{1, true}, InPlaceCase{8, true}));

// Single-page files, or multipage TIFF files appended page by page.
class BatchInterruptionTest : public BatchSafetyTest, public ::testing::WithParamInterface<bool> {
 protected:
  std::vector<std::string> MakeSources(int count, int width, int height) {
    fs::create_directories(Work("sources"));
    std::vector<std::string> rows;
    for (int i = 0; i < count; ++i) {
      const std::string name = Work("sources/s" + std::to_string(10 + i) + ".tif");
      EXPECT_TRUE(GetParam() ? samples::WriteMultipageTiff(name, width, height, 3)
                             : samples::WritePhoto(name, width, height, static_cast<unsigned>(i + 1)));
      rows.push_back(name);
    }
    Profile("{Title}.{OutputType}", 5, GetParam());
    EXPECT_EQ(Run(Work("reference"), rows).exit_code, 0);
    return rows;
  }
};

TEST_P(BatchInterruptionTest, AKilledRunLeavesNoPartialFileUnderAFinalName) {
  const std::vector<std::string> rows = GetParam() ? MakeSources(4, 1200, 800) : MakeSources(6, 2400, 1600);
  bool saw_temporary = false;
  fs::create_directories(Work("out"));
  Run(Work("out"), rows, [&](pid_t child) {
    // Killed while a file is being written, after at least one has been put in place.
    const auto give_up = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (std::chrono::steady_clock::now() < give_up) {
      const Listing now = List(Work("out"));
      if (!now.visible.empty() && !now.hidden.empty()) {
        saw_temporary = true;
        break;
      }
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    ::kill(child, SIGKILL);
  });
  EXPECT_TRUE(saw_temporary);
  EXPECT_LT(List(Work("out")).visible.size(), rows.size());
  ExpectCompleteFiles(Work("out"), Work("reference"));
}

// A small file system that fills up during the run (mounting one needs root).
TEST_P(BatchInterruptionTest, AFullDiskIsReportedAndLeavesNothingPartial) {
  const std::vector<std::string> rows = MakeSources(3, 300, 200);
  const auto first = fs::file_size(Work("reference/s10.tif"));
  fs::create_directories(Work("full"));
  const std::string size = "size=" + std::to_string((first * 3 / 2 + 4095) / 4096 * 4) + "k";
  if (::mount("tmpfs", Work("full").c_str(), "tmpfs", 0, size.c_str()) != 0) GTEST_SKIP() << "cannot mount a tmpfs";
  std::vector<std::string> arguments = rows;
  arguments.insert(arguments.begin(), {"--jobs", "1"});  // one source at a time in the small space
  const auto result = Run(Work("full"), arguments);
  const Listing listing = List(Work("full"));
  ExpectCompleteFiles(Work("full"), Work("reference"));
  ::umount(Work("full").c_str());
  EXPECT_EQ(result.exit_code, 3);
  EXPECT_EQ(listing.visible, std::vector<std::string>{"s10.tif"});
  EXPECT_TRUE(listing.hidden.empty());
  EXPECT_NE(result.err.find("velmora-batch: warning: cannot write " + Work("full/s11.tif") + "\n"), std::string::npos)
      << result.err;
}

INSTANTIATE_TEST_SUITE_P(Output, BatchInterruptionTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "MultipageFiles" : "SingleFiles"; });

}  // namespace
}  // namespace velmora
