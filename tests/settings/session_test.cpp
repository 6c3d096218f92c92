// Start-up and exit against a temporary home folder: the data folders, settings.ini, the start
// profile and its fallbacks.
#include "settings/session.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "settings/data_folders.h"
#include "settings/ini_file.h"
#include "tests/settings/scoped_environment.h"
#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

namespace fs = std::filesystem;
using engine::AppState;
using testing::ReadWholeFile;
using testing::TempFolder;
using testing::WriteWholeFile;

class SessionTest : public ::testing::Test {
 protected:
  SessionTest() {
    environment_.Set("HOME", home_.path().string());
    environment_.Unset("XDG_CONFIG_HOME");
  }
  std::string Velmora() const { return home_.file("Documents/Velmora"); }
  std::string DefaultProfile() const { return Velmora() + "/Profiles/default.profile"; }

  TempFolder home_;
  testing::ScopedEnvironment environment_;
};

// What a new profile writes into a file of its own, for comparison.
std::string DefaultProfileBytes(const std::string& app_data) {
  TempFolder temp;
  AppState fresh;
  fresh.AppDataFolder = app_data;
  NewProfile(fresh);
  SaveProfile(fresh, temp.file("reference.profile"));
  return ReadWholeFile(temp.file("reference.profile"));
}

TEST_F(SessionTest, FirstStartOnAnEmptyHomeMakesTheFoldersAndTheDefaultProfile) {
  AppState state;
  std::string caption;
  StartUp(state, [&](const std::string& text) { caption = text; });

  EXPECT_EQ(state.AppDataFolder, Velmora());
  EXPECT_EQ(state.SettingsFile, Velmora() + "/settings.ini");
  for (const char* folder : {"", "/Profiles", "/Output", "/Temp"})
    EXPECT_TRUE(fs::is_directory(Velmora() + folder)) << folder;
  EXPECT_EQ(state.CurrentProfile, DefaultProfile());
  EXPECT_EQ(ReadWholeFile(DefaultProfile()), DefaultProfileBytes(Velmora()));
  EXPECT_FALSE(fs::exists(state.SettingsFile));
  EXPECT_EQ(caption, "Velmora - [default.profile]");
  EXPECT_EQ(state.output.OutputFolder, Velmora() + "/Output/");
  EXPECT_EQ(state.settings.AlwaysCreateOutputFolder, engine::kTrue);

  SaveAtExit(state);
  EXPECT_EQ(ReadWholeFile(state.SettingsFile), "[Main]\r\nLastProfile=" + DefaultProfile() + "\r\n");
}

TEST_F(SessionTest, TheLastProfileComesBackAtTheNextStart) {
  AppState first;
  StartUp(first);
  first.CurrentProfile = Velmora() + "/Profiles/job.profile";
  SaveAtExit(first, [](AppState& state) {
    state.output.Quality = 60;
    state.blocks.Append(engine::NewBlock(engine::kMirror));
  });

  AppState second;
  StartUp(second);
  EXPECT_EQ(second.CurrentProfile, Velmora() + "/Profiles/job.profile");
  EXPECT_EQ(second.output.Quality, 60);
  ASSERT_EQ(second.blocks.UpperBound(), 1);
  EXPECT_EQ(second.blocks[0].Kind, engine::kMirror);
}

TEST_F(SessionTest, AVanishedLastProfileResetsTheDefaultProfile) {
  AppState first;
  StartUp(first);
  first.settings.FtpHost = "ftp.example.org";
  SaveAtExit(first);  // the user's work in default.profile
  ASSERT_EQ(ReadIni("Settings", "6", DefaultProfile()), "ftp.example.org");
  WriteIni("Main", "LastProfile", Velmora() + "/Profiles/deleted.profile", first.SettingsFile);

  AppState second;
  StartUp(second);
  EXPECT_EQ(second.CurrentProfile, DefaultProfile());
  EXPECT_EQ(second.settings.FtpHost, "");
  EXPECT_EQ(ReadWholeFile(DefaultProfile()), DefaultProfileBytes(Velmora()));
  EXPECT_FALSE(fs::exists(Velmora() + "/Profiles/deleted.profile"));
}

TEST_F(SessionTest, ALastProfileThatIsAFolderLoadsEmptyValues) {
  AppState first;
  StartUp(first);
  first.CurrentProfile = Velmora() + "/Profiles";
  SaveLastProfileName(first);

  AppState second;
  second.output.Quality = 90;
  std::string caption;
  StartUp(second, [&](const std::string& text) { caption = text; });
  EXPECT_EQ(second.CurrentProfile, Velmora() + "/Profiles");
  EXPECT_EQ(second.output.Quality, 0);
  EXPECT_EQ(second.output.NameTemplate, "");
  EXPECT_EQ(caption, "Velmora - [Profiles]");
}

TEST_F(SessionTest, NewProfileThenExitWritesNoProfileAndTheNextStartTakesTheDefault) {
  AppState first;
  StartUp(first);
  NewProfile(first);
  first.output.Quality = 10;  // unsaved work, lost at exit
  SaveAtExit(first);
  EXPECT_EQ(ReadIni("Main", "LastProfile", first.SettingsFile), "");
  EXPECT_EQ(ReadWholeFile(first.SettingsFile), "[Main]\r\nLastProfile=\r\n");

  AppState second;
  StartUp(second);
  EXPECT_EQ(second.CurrentProfile, DefaultProfile());
  EXPECT_EQ(second.output.Quality, 90);
  EXPECT_EQ(fs::directory_iterator(Velmora() + "/Profiles")->path().filename(), "default.profile");
}

TEST_F(SessionTest, TheDocumentsFolderComesFromTheUserDirsFile) {
  fs::create_directories(home_.path() / ".config");
  WriteWholeFile(home_.file(".config/user-dirs.dirs"),
                 "# written by xdg-user-dirs-update\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                 "XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Docs\\\"/\"\n");
  EXPECT_EQ(GetDocumentsFolder(), home_.path().string() + "/My \"Docs\"");

  TempFolder config;
  environment_.Set("XDG_CONFIG_HOME", config.path().string());
  WriteWholeFile(config.file("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n");
  EXPECT_EQ(GetDocumentsFolder(), "/srv/papers");

  WriteWholeFile(config.file("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"relative/not/allowed\"\n");
  EXPECT_EQ(GetDocumentsFolder(), home_.path().string() + "/Documents");
}

TEST_F(SessionTest, StartUpFindsTheDataFolderInTheConfiguredDocumentsFolder) {
  fs::create_directories(home_.path() / ".config");
  WriteWholeFile(home_.file(".config/user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  AppState state;
  StartUp(state);
  EXPECT_EQ(state.AppDataFolder, home_.file("Dokumente/Velmora"));
  EXPECT_TRUE(fs::exists(home_.file("Dokumente/Velmora/Profiles/default.profile")));
}

TEST(FileExists, AFolderCountsAndNothingDoesNot) {
  TempFolder temp;
  WriteWholeFile(temp.file("a.profile"), "");
  EXPECT_TRUE(FileExists(temp.file("a.profile")));
  EXPECT_TRUE(FileExists(temp.path().string()));
  EXPECT_FALSE(FileExists(temp.file("b.profile")));
  EXPECT_FALSE(FileExists(""));
}

}  // namespace
}  // namespace velmora::settings
