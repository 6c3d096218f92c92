// velmora-batch run as a real program over generated folders: what it converts, in which order, prints and exits
// with; what a kill, a full disk, a slow source or a hostile file leave; then its terminal bar and format names.
#include <FreeImage.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <set>
#include <sstream>
#include <thread>
#include <tuple>

#include "app/batch/batch_options.h"
#include "app/batch/batch_view.h"
#include "engine/app_state.h"
#include "imaging/exif_block.h"
#include "imaging/image_files.h"
#include "imaging/tiff_messages.h"
#include "scripts/sample_images.h"
#include "settings/profile_file.h"
#include "tests/support/test_support.h"

extern char** environ;

namespace velmora {
namespace {

namespace fs = std::filesystem;
using namespace testing;
using Clock = std::chrono::steady_clock;
using Result = std::tuple<int, std::string, std::string>;  // exit status (-1: none), standard output, standard error

// The names in `folder` (or, `full`, the paths), sorted: temporaries, whose names start with a dot, come first.
std::vector<std::string> Names(const fs::path& folder, bool full = false) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    names.push_back((full ? entry.path() : entry.path().filename()).string());
  std::sort(names.begin(), names.end());
  return names;
}

class Batch : public ::testing::Test {
 protected:
  void SetUp() override { imaging::SilenceTiffMessages(); }  // the sample TIFF files would be noisy

  // Runs velmora-batch in the work folder with a home folder of its own and its output in files (no terminal). `during`
  // gets its pid (sh and env exec in turn, so the pid stays) before it is waited for.
  Result Run(std::vector<std::string> arguments, const std::function<void(pid_t)>& during = {}) const {
    const std::string out = streams_.file("out"), err = streams_.file("err");
    arguments.insert(arguments.begin(), {"sh", "-c", "exec \"$@\" <" + input_ + " >" + out + " 2>" + err, "sh", "env",
                                         "-u", "XDG_CONFIG_HOME", "-C", work_.path().string(),
                                         "HOME=" + home_.path().string(), VELMORA_BINARY_DIR "/app/velmora-batch"});
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    int status = 0;
    if (::posix_spawn(&child, "/bin/sh", nullptr, nullptr, argv.data(), environ) != 0) return {};
    if (during) during(child);
    const bool exited = ::waitpid(child, &status, 0) == child && WIFEXITED(status);
    return {exited ? WEXITSTATUS(status) : -1, ReadWholeFile(out), ReadWholeFile(err)};
  }

  std::string Work(const std::string& name) const { return work_.file(name); }
  std::string Data(const std::string& name) const { return home_.file("Documents/Velmora/" + name); }

  // A profile written through the settings code: a new profile's values with outputs named by title, then `edit`.
  void Profile(const std::function<void(engine::AppState&)>& edit, const std::string& path = "job.profile") const {
    engine::AppState state;
    settings::NewProfile(state);
    state.output.NameTemplate = "{Title}.{OutputType}";
    edit(state);
    settings::SaveProfile(state, Work(path));  // a full path stays as it is
  }

  TempFolder home_, work_, streams_;
  std::string input_ = "/dev/null";  // standard input of the runs
};

// A bad command line exits with 2; a missing profile or source, no images or an unusable output folder with 1, and
// nothing is written before the sources are known. A good run takes a folder's files type by type, by name without
// regard to case, then subfolders; passes over files already taken, empty ones and folder links; takes a file link
// and a named file whatever its type. The profile brings chain and output folder; options override format, names.
TEST_F(Batch, RefusesABadRunUpFrontAndConvertsAGoodOneInScanOrder) {
  for (const char* folder : {"pics/trips/2019", "pics/archive", "extra"}) fs::create_directories(Work(folder));
  fs::create_directory_symlink(Work("pics"), Work("pics/trips/loop"));
  fs::create_symlink(Work("pics/harbour.jpg"), Work("pics/trips/2019/shortcut.jpg"));
  // extra/ holds an image whose name is no image type; "blocker" is a file where a folder should go.
  for (const char* name : {"pics/harbour.jpg", "pics/trips/2019/beach.JPG", "extra/cover.dat"})
    ASSERT_TRUE(samples::WritePhotoJpeg(Work(name), 64, 48));
  for (const char* name : {"pics/archive/old.bmp", "pics/trips/poster.bmp"})
    ASSERT_TRUE(samples::WritePaletteBmp(Work(name), 20, 10));
  ASSERT_TRUE(samples::WriteAlphaPng(Work("pics/badge.png"), 40, 30));
  WriteWholeFile(Work("pics/empty.jpg"), "");
  for (const char* name : {"pics/notes.txt", "pics/Broken.png", "blocker"}) WriteWholeFile(Work(name), "not a picture");
  Profile([&](engine::AppState& state) {
    state.settings.AlwaysCreateOutputFolder = engine::kFalse;
    state.output.OutputFolder = Work("halves");  // no trailing separator: the batch adds it
    state.output.OutputFormat = 2;
    state.blocks.Append(engine::NewBlock(engine::kResize));  // 50 percent
  });
  const std::string profile_bytes = ReadWholeFile(Work("job.profile"));
  Profile([](engine::AppState& state) { state.output.OutputFolder.clear(); }, "nowhere.profile");
  const std::vector<std::tuple<std::vector<std::string>, int, std::string>> cases = {
      {{"--colour", "red", "pics"}, 2, "unknown option '--colour'"},
      {{"-q"}, 2, "no source images given: name at least one file or folder"},
      {{"--format", "heic", "pics"},
       2,
       "unknown format 'heic' (use bmp, jpeg, gif, png, tga, tiff, exr, webp or avif)"},
      {{"--jobs=0", "pics"}, 2, "--jobs needs a whole number of at least 1, not '0'"},
      {{"--jobs", "2x", "pics"}, 2, "--jobs needs a whole number of at least 1, not '2x'"},
      {{"pics", "--profile"}, 2, "--profile needs a value"},
      {{"--profile=", "pics"}, 2, "--profile needs a file name"},
      {{"--template", "", "pics"}, 2, "--template needs a non-empty template"},
      {{"--quiet=yes", "pics"}, 2, "--quiet takes no value"},
      {{"--upload", "web", "pics"}, 2, "unknown upload 'web' (use ftp or album)"},
      {{"--from-plan", "a.plan", "--shard", "4/4"}, 2, "--shard needs K/N with 0 <= K < N, not '4/4'"},
      {{"--shard", "0/2", "pics"}, 2, "--shard goes with --from-plan"},
      {{"--slurm", "4", "pics"}, 2, "--slurm and --slurm-args go with --write-plan"},
      {{"--finish-plan", "a.plan", "pics"}, 2, "--finish-plan takes no sources: they are in the plan"},
      {{"--from-plan", "a.plan", "--format", "png"}, 2, "--from-plan takes no job options: the job is in the plan"},
      {{"--from-plan", "a.plan"}, 1, "cannot read the plan a.plan"},
      {{"--sources-from", "pics/list"}, 1, "cannot read the source list pics/list"},
      {{"--profile", "missing.profile", "pics"}, 1, "profile not found: missing.profile"},
      {{"--profile", "pics", "pics"}, 1, "profile is a folder, not a file: pics"},
      {{"pics", "nope.jpg"}, 1, "no such file or folder: nope.jpg"},
      {{"pics", "--", "-q"}, 1, "no such file or folder: -q"},
      {{"pics", "-"}, 1, "no such file or folder: -"},
      {{"extra", "pics/empty.jpg"},
       1,
       "no source images found: the files given are empty or already listed, and "
       "the folders given hold no image files"},
      {{"--output-folder", "blocker/out", "pics"}, 1, "cannot create output folder: blocker/out/"},
      {{"--output-folder", "blocker", "pics"}, 1, "output folder is not a folder: blocker/"},
      {{"--profile", "nowhere.profile", "pics"}, 1, "the job names no output folder; give one with --output-folder"},
      {{"--profile", "job.profile", "pics"},
       1,
       "output folder does not exist and the job's \"Always Create Output Folder\" is off: " + Work("halves/")},
      {{"--upload=FTP", "pics"},
       1,
       "--upload ftp needs an FTP server in the job's settings (Program Settings, FTP tab, in the window)"},
      {{"--upload", "album", "pics"},
       1,
       "--upload album needs a web-album account in the job's settings (Program Settings, Picasa tab, in the "
       "window)"},
  };
  for (const auto& [arguments, code, message] : cases) {
    EXPECT_EQ(Run(arguments), (Result{code, "",
                                      "velmora-batch: " + message + "\n" +
                                          (code == 2 ? "Try 'velmora-batch --help' for more information.\n" : "")}));
    // The data folders are made only once the job is loaded, which the upload check needs.
    EXPECT_TRUE(message.find("output folder") != std::string::npos || message.starts_with("--upload") ||
                fs::is_empty(home_.path()))
        << message;
  }
  EXPECT_EQ(Run({"--help"}), (Result{0, app::BatchHelpText(), ""}));
  EXPECT_EQ(Run({"--version"}), (Result{0, app::BatchVersionText(), ""}));

  ASSERT_TRUE(fs::create_directory(Work("halves")));  // no refused run made it
  EXPECT_EQ(
      Run({"--profile", "job.profile", "--format=png", "--template", "{Counter}_{Title}.{OutputType}", "pics",
           "pics/badge.png", "extra/cover.dat"}),
      (Result{0,
              "[1/8] Current file: harbour.jpg\n[2/8] Current file: badge.png\n[3/8] Current file: Broken.png\n"
              "[4/8] Current file: old.bmp\n[5/8] Current file: poster.bmp\n[6/8] Current file: beach.JPG\n"
              "[7/8] Current file: shortcut.jpg\n[8/8] Current file: cover.dat\nCompleted.\n8 file(s) processed.\n",
              "velmora-batch: warning: cannot read " + Work("pics/Broken.png") + "\n"}));
  EXPECT_EQ(Names(Work("halves")),
            (std::vector<std::string>{"000_harbour.png", "001_badge.png", "003_old.png", "004_poster.png",
                                      "005_beach.png", "006_shortcut.png", "007_cover.png"}));
  const auto harbour = ReadImageFacts(Work("halves/000_harbour.png"));
  EXPECT_EQ(std::tuple(harbour.format, harbour.width, harbour.height), std::tuple(int{FIF_PNG}, 32u, 24u));
  EXPECT_EQ(ReadWholeFile(Work("job.profile")), profile_bytes);
  EXPECT_TRUE(ReadFolderFiles(home_.path()).empty());  // no settings.ini, no default.profile
}

// The bench jobs that resize write the same bytes whether our bilinear resize does the work or, with
// VELMORA_FREEIMAGE_RESCALE=1, FreeImage's own: photos, palette pages, 16-bit and see-through ones.
TEST_F(Batch, BenchResizeJobsWriteTheSameBytesWithFreeImagesOwnResize) {
  fs::create_directory(Work("src"));
  ASSERT_TRUE(samples::WritePhotoJpeg(Work("src/photo.jpg"), 333, 217));
  ASSERT_TRUE(samples::WritePaletteBmp(Work("src/palette.bmp"), 45, 31));
  ASSERT_TRUE(samples::WriteAlphaPng(Work("src/badge.png"), 41, 29));
  ASSERT_TRUE(samples::WriteDeepPng(Work("src/deep.png"), 37, 23));
  for (const std::string job : {"resize-jpeg", "watermark-jpeg"}) {
    for (const bool freeimage : {false, true}) {
      freeimage ? ::setenv("VELMORA_FREEIMAGE_RESCALE", "1", 1) : ::unsetenv("VELMORA_FREEIMAGE_RESCALE");
      EXPECT_EQ(Run({"-q", "--profile", VELMORA_SOURCE_DIR "/bench/jobs/" + job + ".profile", "--output-folder",
                     (freeimage ? "freeimage-" : "ours-") + job, "src"}),
                (Result{0, "", ""}));
    }
    ::unsetenv("VELMORA_FREEIMAGE_RESCALE");
    const auto ours = ReadFolderFiles(Work("ours-" + job));
    EXPECT_EQ(ours.size(), 4u) << job;
    EXPECT_TRUE(ours == ReadFolderFiles(Work("freeimage-" + job))) << job;
  }
}

// Without --profile the job is the window's last profile, else "default.profile", else a new profile's settings;
// whichever it is, the batch writes no profile and no settings.ini. The data folder gains those files step by step.
TEST_F(Batch, ReadsTheStartProfileAndWritesNoProfile) {
  ASSERT_TRUE(samples::WritePhotoJpeg(Work("cover.jpg"), 16, 8));
  const std::string last = Data("Profiles/last.profile"), fallback = Data("Profiles/default.profile");
  const std::tuple<std::function<void()>, std::string, std::string> steps[] = {
      {[] {}, Data("Output/cover_000.jpg"), "no profile found; using the settings of a new profile"},
      {[&] {
         fs::create_directories(Data("Profiles"));
         Profile([&](engine::AppState& state) { state.output.OutputFolder = Work("from-default/"); }, fallback);
         WriteWholeFile(Data("settings.ini"), "[Main]\r\nLastProfile=" + last + "\r\n");
       },
       Work("from-default/cover.jpg"), "the last profile " + last + " is missing; using " + fallback},
      {[&] { Profile([&](engine::AppState& state) { state.output.OutputFolder = Work("from-last/"); }, last); },
       Work("from-last/cover.jpg"), ""},
  };
  for (const auto& [prepare, output, notice] : steps) {
    SCOPED_TRACE(output);
    prepare();
    const auto before = ReadFolderFiles(home_.path());
    ASSERT_EQ(Run({"-q", "cover.jpg"}), (Result{0, "", notice.empty() ? "" : "velmora-batch: " + notice + "\n"}));
    EXPECT_EQ(ReadImageFacts(output).format, FIF_JPEG);
    auto after = ReadFolderFiles(home_.path());
    after.erase(fs::relative(output, home_.path()).string());
    EXPECT_TRUE(after == before);
  }
}

// Phone photos: HEIC and AVIF files made by libheif's own encoder convert to JPEG, PNG, WebP and AVIF at their size and
// near their pixels, a two-image HEIC into two pages, with the source's colour profile; so does the PNG they came from.
TEST_F(Batch, ConvertsPhonePhotosToEveryPhotoFormat) {
  const std::string icc = ReadWholeFile("/usr/share/color/icc/sRGB.icc");
  ASSERT_TRUE(samples::WritePhoto(Work("photo.png"), 64, 48, 5));
  const imaging::Bitmap photo = imaging::LoadImageFile(Work("photo.png"), -1, 0);
  ASSERT_TRUE(FreeImage_CreateICCProfile(photo.get(), const_cast<char*>(icc.data()), long(icc.size())));
  ASSERT_TRUE(FreeImage_Save(FIF_PNG, photo.get(), Work("photo.png").c_str(), 0));
  for (const auto& [sources, out] :
       {std::pair{"photo.png", "one.heic"}, {"photo.png photo.png", "two.heic"}, {"photo.png", "phone.avif"}})
    ASSERT_TRUE(HeifEnc(work_.path(), sources, out)) << out;
  Profile([](engine::AppState&) {});
  for (const std::string format : {"jpg", "png", "webp", "avif"}) {
    SCOPED_TRACE(format);
    const std::string folder = "out-" + format;
    const auto [status, out, err] =
        Run({"-q", "--profile", "job.profile", "--format", format == "jpg" ? "jpeg" : format, "--output-folder", folder,
             "one.heic", "two.heic", "phone.avif", "photo.png"});
    ASSERT_EQ(status, 0) << err;
    const std::vector<std::string> names = {"one." + format, "phone." + format, "photo." + format,
                                            "two (page 0)." + format, "two (page 1)." + format};
    ASSERT_EQ(Names(Work(folder)), names);
    for (const std::string& name : names) {
      const std::vector<imaging::Bitmap> pages = imaging::LoadImagePages(Work(folder + "/" + name));
      ASSERT_EQ(pages.size(), 1u) << name;
      EXPECT_LT(MeanDifference(pages[0].get(), photo.get()), 6.0) << name;
      EXPECT_EQ(ColourProfileOf(pages[0].get()), icc) << name;
    }
  }
}

// A camera JPEG stored on its side (orientation 6) comes out upright with "Rotate by camera orientation" on, as a new
// profile has it, and as stored with it off; "Keep colour profiles" likewise. A profile written before the two settings
// existed converts exactly as with them off.
TEST_F(Batch, TurnsCameraShotsUprightOnlyWhenTheProfileSaysSo) {
  ASSERT_TRUE(samples::WritePhoto(Work("side.png"), 32, 16, 7));
  const imaging::Bitmap side = imaging::LoadImageFile(Work("side.png"), -1, 0);
  imaging::AttachRawExif(side.get(),
                         {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 0x01, 3, 0, 1, 0, 0, 0, 6, 0, 0, 0, 0, 0, 0, 0});
  std::string icc = ReadWholeFile("/usr/share/color/icc/sRGB.icc");
  FreeImage_CreateICCProfile(side.get(), icc.data(), long(icc.size()));
  ASSERT_TRUE(FreeImage_Save(FIF_JPEG, side.get(), Work("side.jpg").c_str(), 95));
  Profile([](engine::AppState&) {}, "on.profile");
  const auto turn_off = [](engine::AppState& job) {
    job.settings.RotateByCameraOrientation = job.settings.KeepColourProfiles = engine::kFalse;
  };
  Profile(turn_off, "off.profile");
  std::string old = ReadWholeFile(Work("off.profile"));
  for (const std::string key : {"18=False", "19=False"}) old.erase(old.find(key), key.size() + 2);  // with its line end
  WriteWholeFile(Work("old.profile"), old);
  for (const std::string job : {"on", "off", "old"})
    ASSERT_EQ(std::get<0>(Run({"-q", "--profile", job + ".profile", "--output-folder", job, "side.jpg"})), 0);
  const imaging::Bitmap on = imaging::LoadImageFile(Work("on/side.jpg"), -1, 0),
                        off = imaging::LoadImageFile(Work("off/side.jpg"), -1, 0);
  ASSERT_TRUE(on && off);
  const auto facts = [](FIBITMAP* dib) {
    return std::tuple(FreeImage_GetWidth(dib), FreeImage_GetHeight(dib), imaging::CameraOrientation(dib),
                      FreeImage_GetICCProfile(dib)->size);
  };
  EXPECT_EQ(facts(on.get()), std::tuple(16u, 32u, 1, long(icc.size())));
  EXPECT_EQ(facts(off.get()), std::tuple(32u, 16u, 6, 0L));
  EXPECT_EQ(ReadWholeFile(Work("old/side.jpg")), ReadWholeFile(Work("off/side.jpg")));
}

// --upload ftp sends the run's files to the job's FTP server, a real one on 127.0.0.1, byte for byte. A file the server
// refuses (a folder stands under its name there: as root, a read-only folder would refuse nothing) is named, the others
// still arrive, the password is never printed, and the exit status says some file did not arrive.
TEST_F(Batch, UploadsTheRunsFilesByFtpAndNamesEachOneRefused) {
  fs::create_directories(Work("ftp/remote/b.jpg"));
  const std::string command = "exec /usr/bin/python3 " VELMORA_SOURCE_DIR "/tests/upload/test_server.py ftp ";
  std::FILE* server = ::popen((command + Work("ftp") + " - 2>/dev/null").c_str(), "r");
  int pid = 0, port = 0, tls_port = 0;
  ASSERT_TRUE(server && std::fscanf(server, "%d %d %d", &pid, &port, &tls_port) == 3 && port > 0) << "no pyftpdlib";
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) ASSERT_TRUE(samples::WritePhotoJpeg(Work(name), 24, 16));
  Profile([&](engine::AppState& state) {
    state.settings.FtpHost = "127.0.0.1", state.settings.FtpPort = std::to_string(port);  // active data connections
    state.settings.FtpLogin = "velmora", state.settings.FtpPassword = "s3cret", state.settings.FtpPath = "/remote";
  });
  const std::vector<std::string> job = {"--profile", "job.profile", "--output-folder", "out", "--upload", "ftp"};
  std::vector<std::string> good = job, with_refused = job;
  good.insert(good.end(), {"-q", "a.jpg", "c.jpg"}),
      with_refused.insert(with_refused.end(), {"a.jpg", "b.jpg", "c.jpg"});
  EXPECT_EQ(Run(good), (Result{0, "", ""}));  // every file arrives
  const auto [code, out, err] = Run(with_refused);
  ::kill(pid, SIGKILL), ::pclose(server);
  EXPECT_EQ(code, app::kExitNotUploaded) << err;
  EXPECT_TRUE(out.ends_with("Uploading: c.jpg\n2 of 3 file(s) uploaded.\n")) << out;
  EXPECT_TRUE(err.starts_with("velmora-batch: warning: not uploaded: out/b.jpg: ") && err.find("s3cret") == err.npos)
      << err;
  for (const std::string name : {"a.jpg", "c.jpg"})
    EXPECT_EQ(ReadWholeFile(Work("ftp/remote/" + name)), ReadWholeFile(Work("out/" + name))) << name;
}

// --upload album posts the run's files to the album --album names, through the window's sign-in, album and post code,
// against a service of the test's own. A post the service refuses is named with its answer and the file behind it
// is not sent; without --album, an account of two albums gets nothing and the titles are listed.
TEST_F(Batch, PostsTheRunsFilesToTheNamedAlbumAndNamesEachOneNotPosted) {
  for (const char* folder : {"http", "certs"}) fs::create_directories(Work(folder));
  WriteWholeFile(Work("http/signed-in.txt"), "SID=s\nAuth=TOKEN\n"),
      WriteWholeFile(Work("http/full.txt"), "album full");
  WriteWholeFile(Work("http/feed.xml"),
                 "<feed><entry><id>http://127.0.0.1/a/entry/111</id><title>Trip</title></entry>"
                 "<entry><id>http://127.0.0.1/a/entry/222</id><title>Garden</title></entry></feed>");
  WriteWholeFile(Work("http/routes.txt"),
                 "POST /accounts/ClientLogin 200 signed-in.txt\n"
                 "GET /data/feed/api/user/alice 200 feed.xml\n"
                 "POST /a/feed/222 201 -\nPOST /a/feed/222 403 full.txt\n");
  const std::string command = "exec /usr/bin/python3 " VELMORA_SOURCE_DIR "/tests/upload/test_server.py http ";
  std::FILE* server = ::popen((command + Work("http") + " " + Work("certs") + " 2>/dev/null").c_str(), "r");
  int pid = 0, port = 0, tls_port = 0;
  ASSERT_TRUE(server && std::fscanf(server, "%d %d %d", &pid, &port, &tls_port) == 3 && port > 0);
  const std::string service = "127.0.0.1 " + std::to_string(tls_port) + " " + std::to_string(port) + " ";
  ::setenv("VELMORA_ALBUM_SERVICE", (service + Work("certs/cert.pem")).c_str(), 1);
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) ASSERT_TRUE(samples::WritePhotoJpeg(Work(name), 24, 16));
  Profile([](engine::AppState& state) { state.settings.PicasaUsername = "alice"; });
  const std::vector<std::string> job = {"--profile", "job.profile", "--output-folder", "out", "--upload", "album"};
  std::vector<std::string> named = job, unnamed = job;
  named.insert(named.end(), {"--album", "Garden", "a.jpg", "b.jpg", "c.jpg"});
  unnamed.push_back("a.jpg");
  const auto [code, out, err] = Run(named);
  const auto [unnamed_code, unnamed_out, unnamed_err] = Run(unnamed);
  ::unsetenv("VELMORA_ALBUM_SERVICE"), ::kill(pid, SIGKILL), ::pclose(server);
  const auto has = [](const std::string& text, const std::string& part) { return text.find(part) != text.npos; };
  EXPECT_EQ(code, app::kExitNotUploaded);
  EXPECT_TRUE(out.ends_with("[1/3] Uploading: a.jpg\n[2/3] Uploading: b.jpg\n1 of 3 file(s) uploaded.\n")) << out;
  EXPECT_TRUE(has(err, "not uploaded: out/b.jpg: Failed to upload photo") && has(err, "403") && has(err, "album full"))
      << err;
  EXPECT_TRUE(has(err, "not uploaded: out/c.jpg: not sent after the refusal above\n") && !has(err, "out/a.jpg")) << err;
  const std::string first_post = ReadWholeFile(Work("http/requests/3"));
  EXPECT_EQ(first_post.substr(first_post.find("\r\n\r\n") + 4), ReadWholeFile(Work("out/a.jpg")));
  EXPECT_EQ(unnamed_code, app::kExitNotUploaded);
  EXPECT_TRUE(has(unnamed_err, "no album titled ''; give one with --album (the account has: Trip, Garden)"))
      << unnamed_err;
}

// Converting a folder into itself replaces every original with its conversion, at any --jobs; also crosswise, with the
// sources given in reverse order and named by counter, so that each output takes the name of another row's source.
TEST_F(Batch, ConvertingAFolderIntoItselfReplacesEveryOriginalWithItsConversion) {
  int run = 0;
  for (const bool crosswise : {false, true}) {
    Profile([&](engine::AppState& state) {
      if (crosswise) state.output.NameTemplate = "{Counter}.{OutputType}";
      state.blocks.Append(engine::NewBlock(engine::kResize));
    });
    std::string reference;  // the first run's output folder, one of its own
    for (const int jobs : {1, 1, 2, 8, 8}) {
      const std::string in = "photos" + std::to_string(run++), out = reference.empty() ? in + "-out" : in;
      SCOPED_TRACE(out);
      std::vector<std::string> arguments = {"--quiet", "--profile=job.profile", "--output-folder=" + out,
                                            "--jobs=" + std::to_string(jobs)};
      fs::create_directories(Work(in));
      for (int i = 0; i < 6; ++i) {
        const std::string name = in + "/00" + std::to_string(i) + ".jpg";
        ASSERT_TRUE(samples::WritePhotoJpeg(Work(name), 64 + 16 * i, 48, 90, static_cast<unsigned>(i + 1)));
        if (crosswise) arguments.insert(arguments.end() - i, name);
      }
      if (!crosswise) arguments.push_back(in);
      ASSERT_EQ(Run(arguments), (Result{0, "", ""}));
      if (reference.empty()) reference = out;
      EXPECT_TRUE(ReadFolderFiles(Work(out)) == ReadFolderFiles(Work(reference)));
    }
    for (unsigned i = 0; i < 6; ++i)  // the counter names the row, not the source
      EXPECT_EQ(ReadImageFacts(Work(reference + "/00" + std::to_string(i) + ".jpg")).width,
                32 + 8 * (crosswise ? 5 - i : i));
  }
}

// Runs a job (its options and sources) split into four shards to its end; gives what its last command did.
using RunSharded = std::function<Result(const std::vector<std::string>& job)>;

class BatchPlanned : public Batch {
 protected:
  // For each collision policy, with the index on: ~60 sources (a 3-page TIFF and a GIF written as page files, a later
  // source named like one of those pages, sources of the same title, an output already there) run by `run_sharded`
  // give the files, names, index and closing lines of one run of the same job.
  void ExpectShardedRunGivesOneRunsResult(const RunSharded& run_sharded) {
    for (const char* folder : {"src/b", "one", "sharded"}) fs::create_directories(Work(folder));
    for (unsigned i = 0; i < 54; ++i) {
      const std::string name = i < 44 ? "src/p" + std::to_string(i) : "src/b/p" + std::to_string(i - 44);
      ASSERT_TRUE(i % 3 == 0   ? samples::WritePhotoJpeg(Work(name + ".jpg"), 16 + i, 12, 90, i)
                  : i % 3 == 1 ? samples::WriteAlphaPng(Work(name + ".png"), 8 + i, 10)
                               : samples::WritePaletteBmp(Work(name + ".bmp"), 12, 8 + i));
    }
    ASSERT_TRUE(samples::WriteMultipageTiff(Work("src/scan.tif"), 20, 10, 3));
    ASSERT_TRUE(samples::WriteAnimatedGif(Work("src/spin.gif"), 10, 10, 2));
    ASSERT_TRUE(samples::WriteAlphaPng(Work("src/b/scan (page 1).png"), 9, 9));
    ASSERT_TRUE(samples::WriteIcon(Work("last.ico"), 16));
    for (int policy = 0; policy < 3; ++policy) {
      SCOPED_TRACE(policy);
      for (const char* folder : {"one", "sharded"}) {
        fs::remove_all(Work(folder));
        fs::create_directory(Work(folder));
        WriteWholeFile(Work(folder) + "/p3.jpg", "older");
      }
      Profile([&](engine::AppState& state) {
        state.settings.IfOutputFileExists = static_cast<std::int16_t>(policy);
        state.settings.GenerateHtmlIndex = engine::kTrue;
      });
      const auto [code, out, err] = Run({"--profile", "job.profile", "--output-folder", "one", "src", "last.ico"});
      ASSERT_EQ(code, 0) << err;
      // The command line's sources come first, then those read from standard input.
      WriteWholeFile(input_ = Work("list"), "\nlast.ico\n");
      const Result finished =
          run_sharded({"--profile", "job.profile", "--output-folder", "sharded", "src", "--sources-from", "-"});
      input_ = "/dev/null";
      // The closing lines: "Completed." and the counts, after the run's progress lines.
      EXPECT_EQ(finished, (Result{0, out.substr(out.rfind("Completed.")), ""}));
      const auto files = ReadFolderFiles(Work("one"));
      EXPECT_TRUE(files == ReadFolderFiles(Work("sharded")));
      EXPECT_TRUE(files.contains("scan (page 2).jpg") && files.contains("index.html")) << files.size();
    }
  }
};

// The plan, then a shard killed after its first output (the finish names what is missing), then all four shards in a
// shuffled order (the killed one finishes what it had not), each a process of its own; then the finish.
TEST_F(BatchPlanned, ShardsInAnyOrderGiveOneRunsFilesIndexAndClosingLines) {
  ExpectShardedRunGivesOneRunsResult([this](std::vector<std::string> job) {
    job.insert(job.begin(), {"-q", "--write-plan", "run.plan"});
    EXPECT_EQ(std::get<0>(Run(job)), 0);
    Run({"--from-plan", "run.plan", "--shard", "3/4", "--jobs", "1"}, [&](pid_t shard) {
      const auto outputs = [&] {
        const std::vector<std::string> names = Names(Work("sharded"));
        return std::count_if(names.begin(), names.end(), [](const std::string& name) { return name[0] != '.'; });
      };
      for (const auto give_up = Clock::now() + std::chrono::seconds(30); outputs() < 2 && Clock::now() < give_up;)
        std::this_thread::sleep_for(std::chrono::microseconds(200));
      ::kill(shard, SIGKILL);
    });
    const auto [unfinished, none, missing] = Run({"--finish-plan", "run.plan"});
    EXPECT_EQ(unfinished, app::kExitNotWritten);
    EXPECT_NE(missing.find("velmora-batch: missing: " + Work("sharded/")), std::string::npos);
    EXPECT_FALSE(fs::exists(Work("sharded/index.html")));
    std::vector<int> order = {0, 1, 2, 3};
    std::shuffle(order.begin(), order.end(), std::mt19937(7));
    for (const int k : order) {
      const auto [code, out, err] = Run({"--from-plan", "run.plan", "--shard", std::to_string(k) + "/4"});
      EXPECT_EQ(code, 0) << err;
    }
    return Run({"--finish-plan", "run.plan"});
  });
  // Only the version it knows, and only whole, said plainly.
  const std::string plan = ReadWholeFile(Work("run.plan"));
  const std::pair<std::string, std::string> refused[] = {
      {"velmora-plan\t2" + plan.substr(plan.find('\n')),
       "is a plan of version 2, which this velmora-batch does not know"},
      {plan.substr(0, plan.rfind("end")), "is damaged"}};
  for (const auto& [bytes, message] : refused) {
    WriteWholeFile(Work("other.plan"), bytes);
    const auto [code, out, err] = Run({"--from-plan", "other.plan"});
    EXPECT_TRUE(code == 1 && err.find("other.plan " + message) != std::string::npos) << err;
  }
}

// The same job by `--slurm 4` on a one-node Slurm of this machine (scripts/slurm-local, in a folder of its own).
TEST_F(BatchPlanned, SlurmJobArrayGivesOneRunsFilesIndexAndClosingLines) {
  if (::geteuid() != 0 || ::access("/usr/sbin/slurmctld", X_OK) != 0) GTEST_SKIP() << "needs root and slurmctld";
  // Ports of its own, so that a cluster a killed test left behind is not in the way.
  const std::string cluster = "VELMORA_SLURM_DIR=" + Work("slurm") +
                              " VELMORA_SLURM_PORT=" + std::to_string(20000 + ::getpid() % 20000 * 2) +
                              " bash " VELMORA_SOURCE_DIR "/scripts/slurm-local ";
  ASSERT_EQ(std::system((cluster + "up >/dev/null").c_str()), 0);
  ::setenv("SLURM_CONF", Work("slurm/slurm.conf").c_str(), 1);
  ExpectShardedRunGivesOneRunsResult([this](std::vector<std::string> job) {
    job.insert(job.begin(),
               {"--slurm", "4", "--slurm-args", "--time=10 --comment='two words'", "--write-plan", "run.plan"});
    auto [code, out, err] = Run(job);
    // The plan's line and the tasks' progress come before the closing lines.
    return Result{code, out.substr(std::min(out.rfind("Completed."), out.size())), err};
  });
  // A job sbatch refuses is named plainly.
  const auto [code, out, err] =
      Run({"--slurm", "2", "--slurm-args", "--no-such-option", "--write-plan", "other.plan", "last.ico"});
  EXPECT_TRUE(code == 1 && err.find("sbatch did not take the job") != std::string::npos) << err;
  ::unsetenv("SLURM_CONF");
  EXPECT_EQ(std::system((cluster + "down").c_str()), 0);
}

// A killed run and a full disk leave only complete files under final names: single-page TIFF files, or multipage ones
// appended page by page (32 bits, no compression: large files).
class BatchInterrupted : public Batch, public ::testing::WithParamInterface<bool> {};

TEST_P(BatchInterrupted, AKilledRunAndAFullDiskLeaveNoPartialFileUnderAFinalName) {
  Profile([&](engine::AppState& state) {
    state.output.MultipageMode = GetParam() ? 1 : 0;
    state.output.CompressionIndex = 0;
    state.blocks.Append(engine::NewBlock(engine::kResize));
  });
  // arguments[4], the output folder, changes from run to run.
  std::vector<std::string> arguments = {"--profile", "job.profile", "--format=tiff", "--output-folder", "reference"};
  for (int i = 0; i < (GetParam() ? 4 : 6); ++i) {
    arguments.push_back("s" + std::to_string(10 + i) + ".tif");
    ASSERT_TRUE(GetParam() ? samples::WriteMultipageTiff(Work(arguments.back()), 1200, 800, 3)
                           : samples::WritePhoto(Work(arguments.back()), 2400, 1600, static_cast<unsigned>(i + 1)));
  }
  ASSERT_EQ(std::get<0>(Run(arguments)), 0);
  const auto reference = ReadFolderFiles(Work("reference"));

  arguments[4] = "out";
  bool caught = false;
  Run(arguments, [&](pid_t child) {
    // Killed while a file is being written, once at least one is in place.
    for (const auto give_up = Clock::now() + std::chrono::seconds(60); !caught && Clock::now() < give_up;) {
      const std::vector<std::string> names = Names(Work("out"));
      caught = !names.empty() && names.front()[0] == '.' && names.back()[0] != '.';
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    ::kill(child, SIGKILL);
  });
  EXPECT_TRUE(caught);
  auto complete = ReadFolderFiles(Work("out"));
  std::erase_if(complete, [](const auto& file) { return file.first[0] == '.'; });  // the temporaries
  for (const auto& [name, bytes] : complete) EXPECT_TRUE(reference.count(name) && bytes == reference.at(name)) << name;
  EXPECT_LT(complete.size(), reference.size());

  // A small file system that fills up during the run (mounting one needs root), given one source at a time.
  arguments[4] = Work("full");
  arguments.push_back("--jobs=1");
  fs::create_directories(Work("full"));
  const std::string size = "size=" + std::to_string((reference.at("s10.tif").size() * 3 / 2 + 4095) / 4096 * 4) + "k";
  if (::mount("tmpfs", Work("full").c_str(), "tmpfs", 0, size.c_str()) != 0) GTEST_SKIP() << "cannot mount a tmpfs";
  const auto [code, out, err] = Run(arguments);
  const auto files = ReadFolderFiles(Work("full"));
  ::umount(Work("full").c_str());
  EXPECT_TRUE((files == decltype(files){{"s10.tif", reference.at("s10.tif")}}));
  EXPECT_TRUE(code == 3 && err.find("velmora-batch: warning: cannot write " + Work("full/s11.tif") + "\n") != err.npos)
      << code << err;
}

INSTANTIATE_TEST_SUITE_P(Output, BatchInterrupted, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "MultipageFiles" : "SingleFiles"; });

// A source that runs past --source-timeout is passed over and named; the sources around it are converted and the run
// ends as usual. (Workers that die are met in the crafted corpus below.)
TEST_F(Batch, ASourceThatRunsOutOfTimeIsPassedOver) {
  // A slow source between two quick ones: blurring 24 megapixels (a new effect block's kind) takes seconds.
  for (const char* name : {"a.jpg", "c.jpg"}) ASSERT_TRUE(samples::WritePhotoJpeg(Work(name), 64, 48));
  ASSERT_TRUE(samples::WritePhotoJpeg(Work("b_slow.jpg"), 6000, 4000));
  Profile([](engine::AppState& state) {
    for (int i = 0; i < 4; ++i) state.blocks.Append(engine::NewBlock(engine::kEffect));
  });
  EXPECT_EQ(Run({"-q", "--profile", "job.profile", "--output-folder", "out", "--jobs", "2", "--source-timeout", "1",
                 "a.jpg", "b_slow.jpg", "c.jpg"}),
            (Result{0, "", "velmora-batch: warning: cannot read " + Work("b_slow.jpg") + ": gave up after 1 s\n"}));
  EXPECT_EQ(Names(Work("out")), (std::vector<std::string>{"a.jpg", "c.jpg"}));
  EXPECT_EQ(ReadImageFacts(Work("out/c.jpg")).width, 64u);
}

// Files that crash FreeImage's decoders or that it refuses, files that corrupt its heap (crashing or not, as memory
// lies) and odd ones it reads (looping TIFF directories, a 0 x 0 GIF screen), between good photos: good and odd files
// are converted, bad ones named, heap ones either. A heap file that does not crash spoils its worker, so they go last.
TEST_F(Batch, EveryGoodFileOfTheCraftedCorpusIsConvertedAndEveryBadOneNamed) {
  const std::string corpus = VELMORA_SOURCE_DIR "/tests/fuzz/corpus/";
  const std::vector<std::string> bad = Names(corpus + "crafted", true), odd = Names(corpus + "odd", true),
                                 heap = Names(corpus + "heap", true);
  std::vector<std::string> arguments = {"--output-folder=out", "--template={Title}.png", "--format=png", "--jobs=2"},
                           readable;  // the good photos and the odd files
  for (std::size_t i = 0; i < bad.size(); ++i) {
    if (i % 6 == 0) {
      arguments.push_back(readable.emplace_back(Work("good" + std::to_string(i) + ".jpg")));
      ASSERT_TRUE(samples::WritePhotoJpeg(arguments.back(), 40, 30));
    }
    if (i < odd.size()) arguments.push_back(readable.emplace_back(odd[i]));
    arguments.push_back(bad[i]);
  }
  arguments.insert(arguments.end(), heap.begin(), heap.end());
  const auto [code, out, err] = Run(arguments);
  const std::string end = "Completed.\n" + std::to_string(arguments.size() - 4) + " file(s) processed.\n";
  EXPECT_TRUE(code == 0 && out.ends_with(end)) << code << "\n" << out << err;
  for (const std::string& path : bad)
    EXPECT_NE(err.find("velmora-batch: warning: cannot read " + path), std::string::npos) << path;
    // The PSD decoder, for one, dies of a segmentation fault on the crafted files; under AddressSanitizer the worker
    // reports the fault and exits with status 1 instead.
#ifdef __SANITIZE_ADDRESS__
  EXPECT_NE(err.find(": the decoder crashed (exit status 1)\n"), std::string::npos) << err;
#else
  EXPECT_NE(err.find(": the decoder crashed (segmentation fault)\n"), std::string::npos) << err;
#endif
  auto converted = [&](const std::string& path) {  // into one file, or a file per page
    const std::string title = Work("out/" + fs::path(path).stem().string());
    return ReadImageFacts(title + ".png").readable || ReadImageFacts(title + " (page 0).png").readable;
  };
  for (const std::string& path : readable) EXPECT_TRUE(converted(path) && err.find(path) == std::string::npos) << path;
  for (const std::string& path : heap)
    EXPECT_TRUE(converted(path) != (err.find("warning: cannot read " + path) != std::string::npos)) << path;
}

// On a terminal, where the runs above never are, the progress bar rewrites itself and is cleared for the closing lines.
TEST_F(Batch, OnATerminalTheBarRewritesItselfAndIsClearedAtTheEnd) {
  std::FILE* out = std::fopen(Work("terminal").c_str(), "w");
  app::BatchView view(out, true, false);
  view.SetProgressRange(0, 2);
  view.SetStatus("Processing...");
  view.SetFile("");
  view.SetProgressValue(2);
  const std::string long_name = "Current file: " + std::string(100, 'b') + ".png";  // wider than the bar's line
  view.SetFile(long_name);
  view.SetStatus("Completed.");
  view.SetFile("2 file(s) processed.");
  std::fclose(out);
  // A file is no terminal of any width: the bar takes 80 columns less the one the cursor needs.
  EXPECT_EQ(ReadWholeFile(Work("terminal")),
            "\r" + app::ProgressBarLine(2, 2, long_name, 79) + "\x1b[K\r\x1b[KCompleted.\n2 file(s) processed.\n");
  // The bar fills in proportion, and fits the width it is given.
  EXPECT_EQ(app::ProgressBarLine(0, 4, "f", 0), "[------------------------] 0/4  f");
  EXPECT_EQ(app::ProgressBarLine(5, 4, "f", 0), "[########################] 5/4  f");
  EXPECT_EQ(app::ProgressBarLine(1, 0, "f", 0), "[------------------------] 1/0  f");
  EXPECT_EQ(app::ProgressBarLine(3, 4, "Current file: a.jpg", 40), "[##################------] 3/4  Current ");
}

TEST(BatchOptions, FormatNamesInAnyLetterCase) {
  const std::vector<std::pair<const char*, int>> names = {{"bmp", 0}, {"jpeg", 1}, {"JPG", 1},  {"gif", 2},
                                                          {"png", 3}, {"tga", 4},  {"tiff", 5}, {"Tif", 5},
                                                          {"exr", 6}, {"webp", 7}, {"AVIF", 8}};
  for (const auto& [name, index] : names) EXPECT_EQ(app::OutputFormatFromName(name), index) << name;
  EXPECT_FALSE(app::OutputFormatFromName("heic") || app::OutputFormatFromName(""));
}

// The man page and the bash completion name every option the help names, and the completion offers a name for each
// output format and only names --format takes.
TEST(BatchOptions, ManPageAndCompletionKeepStepWithTheHelp) {
  const std::string help = app::BatchHelpText();
  std::string man = ReadWholeFile(VELMORA_SOURCE_DIR "/data/man/velmora-batch.1");
  std::erase(man, '\\');  // roff writes a hyphen as "\-"
  const std::string completion = ReadWholeFile(VELMORA_SOURCE_DIR "/data/completion/velmora-batch");
  int options = 0;
  for (std::size_t at = help.find(" --"); at != std::string::npos; at = help.find(" --", at + 1), ++options) {
    const std::string option = help.substr(at + 1, help.find_first_of(" ,\n", at + 1) - at - 1);
    EXPECT_NE(man.find(option), std::string::npos) << option;
    EXPECT_NE(completion.find(option + ' '), std::string::npos) << option;
  }
  EXPECT_GE(options, 9);
  const std::size_t list = completion.find("compgen -W \"") + 12;
  std::istringstream names(completion.substr(list, completion.find('"', list) - list));
  std::set<int> formats;
  for (std::string name; names >> name;) formats.insert(app::OutputFormatFromName(name).value_or(-1));
  EXPECT_TRUE(formats.size() == 9 && !formats.contains(-1)) << formats.size();
}

}  // namespace
}  // namespace velmora
