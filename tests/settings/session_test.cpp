// Start-up and exit against a temporary home folder: the data folders, settings.ini, the start
// profile and its fallbacks.
#include "settings/session.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "settings/data_folders.h"
#include "settings/ini_file.h"
#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

namespace fs = std::filesystem;
using engine::AppState;
using testing::ReadWholeFile;
using testing::WriteWholeFile;

class SessionTest : public ::testing::Test {
 protected:
  // Nothing else in this program reads HOME or XDG_CONFIG_HOME, so they are not given back.
  SessionTest() {
    ::setenv("HOME", home_.path().c_str(), 1);
    ::unsetenv("XDG_CONFIG_HOME");
  }
  std::string Velmora() const { return home_.file("Documents/Velmora"); }
  std::string Profile(const std::string& name) const { return Velmora() + "/Profiles/" + name; }
  testing::TempFolder home_;
};

// A first start makes the data folders and default.profile. Each exit names the current profile
// in settings.ini and saves it; the next start takes it, or default.profile reset to the defaults
// when it is gone.
TEST_F(SessionTest, EachStartTakesTheProfileOfTheLastExit) {
  AppState states[6], fresh;
  std::string caption;
  StartUp(states[0], [&](const std::string& text) { caption = text; });
  for (const char* folder : {"/Profiles", "/Output", "/Temp"})
    EXPECT_TRUE(fs::is_directory(Velmora() + folder)) << folder;
  EXPECT_FALSE(fs::exists(Velmora() + "/settings.ini"));
  EXPECT_EQ(states[0].CurrentProfile, Profile("default.profile"));
  EXPECT_EQ(caption, "Velmora - [default.profile]");
  fresh.AppDataFolder = Velmora();
  NewProfile(fresh);  // read back from default.profile, the defaults must have gone through the file
  EXPECT_EQ(states[0].settings, fresh.settings);
  EXPECT_EQ(states[0].output, fresh.output);
  states[0].settings.FtpHost = "ftp.example.org";
  SaveAtExit(states[0]);
  EXPECT_EQ(ReadWholeFile(Velmora() + "/settings.ini"), "[Main]\r\nLastProfile=" + Profile("default.profile") + "\r\n");

  StartUp(states[1]);
  EXPECT_EQ(states[1].settings.FtpHost, "ftp.example.org");
  states[1].CurrentProfile = Profile("job.profile");
  SaveAtExit(states[1], [](AppState& state) { state.output.Quality = 60; });  // the window's state goes in
  StartUp(states[2]);
  EXPECT_EQ(states[2].CurrentProfile, Profile("job.profile"));
  EXPECT_EQ(states[2].output.Quality, 60);

  fs::remove(Profile("job.profile"));
  StartUp(states[3]);
  EXPECT_EQ(states[3].CurrentProfile, Profile("default.profile"));
  EXPECT_EQ(ReadIni("Settings", "6", Profile("default.profile")), "");

  NewProfile(states[3]);
  states[3].output.Quality = 10;  // unsaved work, lost at exit
  SaveAtExit(states[3]);
  EXPECT_EQ(ReadWholeFile(Velmora() + "/settings.ini"), "[Main]\r\nLastProfile=\r\n");
  StartUp(states[4]);
  EXPECT_EQ(states[4].output.Quality, 90);

  // A last profile that is a folder reads as empty values.
  WriteIni("Main", "LastProfile", Velmora() + "/Profiles", Velmora() + "/settings.ini");
  StartUp(states[5], [&](const std::string& text) { caption = text; });
  EXPECT_EQ(states[5].output.Quality, 0);
  EXPECT_EQ(caption, "Velmora - [Profiles]");
}

TEST_F(SessionTest, TheDataFolderLivesInTheDocumentsFolderOfTheUserDirsFile) {
  fs::create_directories(home_.path() / ".config");
  WriteWholeFile(home_.file(".config/user-dirs.dirs"),
                 "# written by xdg-user-dirs-update\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                 "XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Docs\\\"/\"\n");
  AppState state;
  StartUp(state);
  EXPECT_EQ(state.AppDataFolder, home_.file("My \"Docs\"/Velmora"));
  EXPECT_TRUE(fs::exists(home_.file("My \"Docs\"/Velmora/Profiles/default.profile")));

  testing::TempFolder config;
  ::setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
  WriteWholeFile(config.file("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n");
  EXPECT_EQ(GetDocumentsFolder(), "/srv/papers");
  WriteWholeFile(config.file("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"relative/not/allowed\"\n");
  EXPECT_EQ(GetDocumentsFolder(), home_.path().string() + "/Documents");
}

}  // namespace
}  // namespace velmora::settings
