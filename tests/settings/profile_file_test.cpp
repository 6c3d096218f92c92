// Profile files byte for byte, their round trip, and the caption and save-name rules.
#include "settings/profile_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "settings/ini_file.h"
#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

using engine::AppState;
using engine::kTrue;
using testing::ReadWholeFile;
using testing::TempFolder;
using testing::WriteWholeFile;

AppState NewState(const std::string& app_data) {
  AppState state;
  state.AppDataFolder = app_data;
  NewProfile(state);
  return state;
}

// "a;b;c" as the lines a, b and c, each ended by CR LF.
std::string Lines(const std::string& joined) {
  std::string text;
  std::size_t from = 0;
  for (std::size_t at; (at = joined.find(';', from)) != std::string::npos; from = at + 1)
    text += joined.substr(from, at - from) + "\r\n";
  return text + joined.substr(from) + "\r\n";
}

const std::string kDefaultSettings =
    Lines("[Settings];1=True;2=;3=0;4=;5=;6=;7=False;8=1;9=False;10=;11=;12=;13=;14=False;15=False;16=;17=False");

TEST(ProfileFile, ANewProfileIsWrittenKeyByKeyInFileOrder) {
  TempFolder temp;
  const AppState state = NewState("/data/Velmora");
  ASSERT_TRUE(SaveProfile(state, temp.file("default.profile")));
  EXPECT_EQ(ReadWholeFile(temp.file("default.profile")),
            kDefaultSettings + Lines("[Profile];1=0;2=0;3=0;4=0;5=1;6=0;7=90;8={Title}_{Counter}.{OutputType};9=True;"
                                     "10=/data/Velmora/Output/;ProcessTotal=0"));
}

TEST(ProfileFile, EveryFieldGoesUnderItsOwnKey) {
  TempFolder temp;
  AppState state = NewState("/d");
  state.settings.FtpLogin = "login";
  state.settings.FtpPassive = 1;
  state.settings.FtpPassword = "secret";
  state.settings.FtpPath = "/www";
  state.settings.FtpHost = "ftp.example.org";
  state.settings.GenerateHtmlIndex = kTrue;
  state.settings.IfOutputFileExists = 2;
  state.settings.ReservedFlag9 = kTrue;
  state.settings.PicasaUsername = "user";
  state.settings.PicasaPassword = "pw";
  state.settings.ProxyPort = "8080";
  state.settings.ProxyHost = "10.0.0.1";
  state.settings.StopOnError = kTrue;
  state.settings.UseProxy = kTrue;
  state.settings.FtpPort = "21";
  state.settings.FtpSecure = kTrue;
  state.output = {3, 256, 4, 5, 6, 1, 75, "{counter}-{title}.{outputtype}", engine::kFalse, "/out/"};
  engine::Block resize = engine::NewBlock(engine::kResize);
  engine::Block text = engine::NewBlock(engine::kWatermark, 0);
  text.WatermarkSource = "(c) me";
  text.HAlign = 1;
  text.VAlign = 2;
  text.HOffset = -10;
  text.VOffset = 20;
  text.ReservedBlock12 = 7;
  text.WatermarkAngle = 45;
  text.WatermarkFont = "255|True|False|False|DejaVu Sans|14|True";
  state.blocks.Append(resize);
  state.blocks.Append(text);

  ASSERT_TRUE(SaveProfile(state, temp.file("all.profile")));
  const std::string expected = Lines(
      "[Settings];1=True;2=login;3=1;4=secret;5=/www;6=ftp.example.org;7=True;8=2;9=True;10=user;11=pw;"
      "12=8080;13=10.0.0.1;14=True;15=True;16=21;17=True;"
      "[Profile];1=3;2=256;3=4;4=5;5=6;6=1;7=75;8={counter}-{title}.{outputtype};9=False;10=/out/;"
      "ProcessTotal=2;"
      "[Block_0];1=50;2=True;3=0;4=1;5=50;6=0;7=0;8=0;9=0;10=0;11=0;12=0;13=0;14=;15=0;16=0;17=0;18=0;"
      "19=0;20=0;21=0;22=;"
      "[Block_1];1=0;2=False;3=0;4=0;5=0;6=3;7=0;8=0;9=0;10=1;11=-10;12=7;13=45;14=(c) me;15=0;16=2;"
      "17=20;18=0;19=0;20=0;21=0;22=255|True|False|False|DejaVu Sans|14|True");
  EXPECT_EQ(ReadWholeFile(temp.file("all.profile")), expected);

  AppState loaded = NewState("/elsewhere");
  LoadProfile(loaded, temp.file("all.profile"));
  EXPECT_EQ(loaded.settings, state.settings);
  EXPECT_EQ(loaded.output, state.output);
  EXPECT_EQ(loaded.blocks, state.blocks);
}

TEST(ProfileFile, SavedLoadedAndSavedAgainIsByteIdentical) {
  TempFolder temp;
  AppState state = NewState("/d");
  state.settings.FtpHost = "host";
  state.output.OutputFolder = "/pictures/out/";
  for (std::int16_t kind = 0; kind <= 6; ++kind) state.blocks.Append(engine::NewBlock(kind, 1));
  ASSERT_TRUE(SaveProfile(state, temp.file("first.profile")));

  AppState reloaded;
  LoadProfile(reloaded, temp.file("first.profile"));
  ASSERT_TRUE(SaveProfile(reloaded, temp.file("second.profile")));
  ASSERT_TRUE(SaveProfile(reloaded, temp.file("first.profile")));  // over itself as well
  EXPECT_EQ(ReadWholeFile(temp.file("second.profile")), ReadWholeFile(temp.file("first.profile")));
  EXPECT_EQ(reloaded.blocks.UpperBound(), 7);
}

TEST(ProfileFile, AShorterChainLeavesTheOldBlockSectionsUnread) {
  TempFolder temp;
  const std::string path = temp.file("job.profile");
  AppState state = NewState("/d");
  for (int i = 0; i < 5; ++i) state.blocks.Append(engine::NewBlock(engine::kRotate));
  SaveProfile(state, path);
  state.blocks = engine::Blocks(
      {engine::NewBlock(engine::kMirror), engine::NewBlock(engine::kMirror), engine::NewBlock(engine::kMirror)});
  SaveProfile(state, path);

  EXPECT_EQ(ReadIni("Profile", "ProcessTotal", path), "3");
  EXPECT_EQ(ReadIni("Block_3", "6", path), "1");
  EXPECT_EQ(ReadIni("Block_4", "6", path), "1");
  AppState loaded;
  LoadProfile(loaded, path);
  ASSERT_EQ(loaded.blocks.UpperBound(), 3);
  EXPECT_EQ(loaded.blocks[2].Kind, engine::kMirror);
}

TEST(ProfileFile, SavingKeepsSectionsAndKeysItDoesNotKnow) {
  TempFolder temp;
  const std::string path = temp.file("foreign.profile");
  WriteWholeFile(path, "[Notes]\r\nauthor=me\r\n[Profile]\r\n5=3\r\nextra=kept\r\n");
  SaveProfile(NewState("/d"), path);
  const std::string saved = ReadWholeFile(path);
  EXPECT_EQ(saved.rfind("[Notes]\r\nauthor=me\r\n[Profile]\r\n5=1\r\nextra=kept\r\n1=0\r\n", 0), 0u) << saved;
  EXPECT_EQ(ReadIni("Notes", "author", path), "me");
}

// A save whose process is killed part-way (here by the file-size limit, at the 100th byte), or
// whose write is refused there, leaves the old file whole; its permissions survive a save.
TEST(ProfileFile, ASaveKilledPartWayLeavesTheOldFileWhole) {
  TempFolder temp;
  const std::string path = temp.file("job.profile");
  AppState state = NewState("/d");
  SaveProfile(state, path);
  ::chmod(path.c_str(), 0600);
  const std::string before = ReadWholeFile(path);
  for (int n = 0; n < 50; ++n) state.blocks.Append(engine::NewBlock(engine::kRotate));
  const std::vector<std::function<bool()>> saves = {
      [&] { return SaveProfile(state, path); },
      [&] { return StoreIniDocument(IniDocument(std::string(300, 'x') + "=1\r\n"), path); }};
  for (const bool refused : {false, true}) {
    for (const auto& save : saves) {
      const pid_t child = ::fork();
      if (child == 0) {
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        if (refused) ::signal(SIGXFSZ, SIG_IGN);
        ::_exit(save() ? 0 : 3);
      }
      int status = 0;
      ASSERT_EQ(::waitpid(child, &status, 0), child);
      EXPECT_TRUE(refused ? WIFEXITED(status) && WEXITSTATUS(status) == 3
                          : WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ);
      EXPECT_EQ(ReadWholeFile(path), before);
    }
  }
  ASSERT_TRUE(SaveProfile(state, path));
  EXPECT_NE(ReadWholeFile(path), before);
  struct stat info {};
  ::stat(path.c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST(ProfileFile, AnEmptyPathWritesNothing) {
  const AppState state = NewState("/d");
  EXPECT_FALSE(SaveProfile(state, ""));
}

TEST(ProfileFile, CaptionFollowsTheCurrentProfile) {
  AppState state = NewState("/d");
  std::vector<std::string> captions;
  const CaptionSink sink = [&](const std::string& caption) { captions.push_back(caption); };
  NewProfile(state, sink);
  EXPECT_EQ(UpdateCaption(state), "Velmora - [Untitled]");
  state.CurrentProfile = "/x/job.profile";
  EXPECT_EQ(UpdateCaption(state), "Velmora - [job.profile]");
  TempFolder temp;
  SaveProfile(state, temp.file("other.profile"), sink);
  LoadProfile(state, temp.file("other.profile"), sink);
  EXPECT_EQ(captions,
            (std::vector<std::string>{"Velmora - [Untitled]", "Velmora - [job.profile]", "Velmora - [job.profile]"}));
}

TEST(ProfileFile, SaveNamesGetTheProfileExtensionUnlessTheyHaveIt) {
  EXPECT_EQ(ProfileSaveName("job"), "job.profile");
  EXPECT_EQ(ProfileSaveName("job.PROFILE"), "job.PROFILE");
  EXPECT_EQ(ProfileSaveName("job.txt"), "job.txt.profile");
  EXPECT_EQ(ProfileSaveName("/p/a.profile"), "/p/a.profile");
  EXPECT_EQ(ProfileSaveName(std::string("cut\0rest", 8)), "cut.profile");
}

TEST(ProfileFile, NewProfileSetsItsDefaultsAndKeepsTheRest) {
  AppState state;
  state.AppDataFolder = "/home/u/Documents/Velmora";
  state.CurrentProfile = "/p/job.profile";
  state.settings.FtpHost = "kept";
  state.settings.GenerateHtmlIndex = kTrue;
  state.settings.IfOutputFileExists = 0;
  state.output.ColorsCount = 16;
  state.output.MultipageMode = 1;
  state.output.OutputFormat = 5;
  state.output.ColorDepth = 3;
  state.blocks.Append(engine::NewBlock(engine::kGamma));
  NewProfile(state);
  EXPECT_EQ(state.CurrentProfile, "");
  EXPECT_EQ(state.output.OutputFolder, "/home/u/Documents/Velmora/Output/");
  EXPECT_EQ(state.output.OutputFormat, 1);
  EXPECT_EQ(state.output.ColorDepth, 0);
  EXPECT_EQ(state.output.Quality, 90);
  EXPECT_EQ(state.output.OpenTargetFolder, kTrue);
  EXPECT_EQ(state.settings.IfOutputFileExists, 1);
  EXPECT_EQ(state.settings.AlwaysCreateOutputFolder, kTrue);
  EXPECT_EQ(state.blocks.UpperBound(), 0);
  EXPECT_EQ(state.settings.FtpHost, "kept");
  EXPECT_EQ(state.settings.GenerateHtmlIndex, kTrue);
  EXPECT_EQ(state.output.ColorsCount, 16);
  EXPECT_EQ(state.output.MultipageMode, 1);
}

}  // namespace
}  // namespace velmora::settings
