// Ini and profile files byte for byte (what a read gives back, which bytes a write changes, what
// loading makes of damaged values), the caption and save-name rules, and start-up and exit against
// a temporary home folder.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <tuple>

#include "settings/data_folders.h"
#include "settings/ini_file.h"
#include "settings/profile_file.h"
#include "settings/session.h"
#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

using engine::AppState;
using engine::Block;
using engine::kFalse;
using engine::kTrue;
using testing::ReadWholeFile;
using testing::TempFolder;
using testing::WriteWholeFile;

// "a;b;c" as the lines a, b and c, each ended by CR LF.
std::string Lines(std::string joined) {
  for (std::size_t at = 0; (at = joined.find(';', at)) != std::string::npos;) joined.replace(at, 1, "\r\n");
  return joined + "\r\n";
}

TEST(IniDocument, ReadsTrimBlanksAndOnePairOfQuotesAndCutLongValues) {
  const IniDocument document("[ S ]\n  k1 =  spaced out \t\nk2=\"quoted \"\nk3='single'\nk4=\"unbalanced\nk5=a=b\nk6=" +
                             std::string(300, 'x') + "\nk7=''\nk8=\"\nk1=second\n[s]\nk9=second section\n");
  std::string read;  // the values one after the other, each ended by '|'
  for (const char* key : {"K1", "k2", "k3", "k4", "k5", "k6", "k7", "k8", "k9"}) read += document.Get("s", key) + "|";
  EXPECT_EQ(read + document.Get("Nowhere", "k1"),
            "spaced out|quoted |single|\"unbalanced|a=b|" + std::string(254, 'x') + "||\"||");
}

TEST(IniDocument, AWriteChangesOnlyTheLineOfItsKey) {
  IniDocument document("junk\r\n[A]\r\n  Key = old  \r\nforeign=keep\r\nno equals\r\n\r\n[Empty]\r\n\r\n[B]\r\ny=2");
  for (const auto& [section, key, value] :
       {std::tuple{"a", "KEY", "new"}, {"A", "z", "3"}, {"empty", "e", "1"}, {"New", "k", "v"}, {"B", "w", "4"}})
    document.Set(section, key, value);
  EXPECT_EQ(
      document.Serialize(),
      "junk\r\n[A]\r\nKey=new\r\nforeign=keep\r\nno equals\r\nz=3\r\n\r\n[Empty]\r\ne=1\r\n\r\n[B]\r\ny=2\r\nw=4\r\n"
      "[New]\r\nk=v\r\n");
  EXPECT_EQ(document.Get("A", "z") + document.Get("A", "key") + document.Get("empty", "e") + document.Get("A", ""),
            "3new1");

  // Lines added take the first line end of the file; a last line without one gets one.
  IniDocument hand_written("[A]\nx=1\r\nlast");
  hand_written.Set("A", "y", "2");
  hand_written.Set("B", "z", "3");
  EXPECT_EQ(hand_written.Serialize(), "[A]\nx=1\r\nlast\ny=2\n[B]\nz=3\n");
}

TEST(IniFile, WriteIniWritesEachValueFormAndKeepsTheRestOfTheFile) {
  TempFolder temp;
  const std::string file = temp.file("settings.ini");
  WriteWholeFile(file, "#");  // a file of one byte, read to the end
  WriteIni("S", "long", std::int32_t{-2000000000}, file);
  WriteIni("S", "yes", true, file);
  WriteIni("S", "no", false, file);
  WriteIni("S", "text", "literal", file);
  EXPECT_EQ(ReadWholeFile(file), "#\r\n[S]\r\nlong=-2000000000\r\nyes=True\r\nno=False\r\ntext=literal\r\n");
}

TEST(ProfileFile, EveryFieldGoesUnderItsOwnKeyAndComesBackAndANewProfileResetsItsChoices) {
  TempFolder temp;
  const std::string path = temp.file("all.profile");
  AppState state, loaded;
  state.AppDataFolder = "/data";
  state.CurrentProfile = "/x/job.profile";
  state.settings = {kFalse, "login", 1,      "secret", "/www", "ftp.example.org", kFalse,
                    2,      kTrue,   "user", "pw",     "8080", "10.0.0.1",        kFalse,
                    kTrue,  "21",    kTrue,  kTrue,    kFalse};
  state.output = {3, 256, 4, 5, 6, 1, 75, "{counter}-{title}.{outputtype}", kFalse, "/out/"};
  state.blocks.Append({6, 2, 3, 4, 5, kTrue, 7, 8, 9, 10, "(c) me", 11, 12, -13, 14, 15, 16, 17, 18, 19, 20, "font"});
  WriteWholeFile(path, "[Notes]\r\nauthor=me\r\n");
  ASSERT_TRUE(SaveProfile(state, path));
  const std::string all = ReadWholeFile(path);
  EXPECT_EQ(all, Lines("[Notes];author=me;[Settings];1=False;2=login;3=1;4=secret;5=/www;6=ftp.example.org;7=False;8=2;"
                       "9=True;10=user;11=pw;12=8080;13=10.0.0.1;14=False;15=True;16=21;17=True;18=True;19=False;"
                       "[Profile];1=3;2=256;3=4;4=5;5=6;6=1;7=75;8={counter}-{title}.{outputtype};9=False;10=/out/;"
                       "ProcessTotal=1;[Block_0];1=3;2=True;3=4;4=5;5=2;6=6;7=7;8=8;9=9;10=11;11=-13;12=15;13=16;"
                       "14=(c) me;15=10;16=12;17=14;18=17;19=18;20=19;21=20;22=font"));
  LoadProfile(loaded, path);
  EXPECT_EQ(loaded.settings, state.settings);
  EXPECT_EQ(loaded.output, state.output);
  EXPECT_EQ(loaded.blocks, state.blocks);

  // A new profile saved over it: the rest of the file, [Block_0] included, stays.
  std::string caption;
  NewProfile(state, [&](const std::string& text) { caption = text; });
  EXPECT_EQ(caption, "Velmora - [Untitled]");
  ASSERT_TRUE(SaveProfile(state, path));
  EXPECT_EQ(
      ReadWholeFile(path),
      Lines("[Notes];author=me;[Settings];1=True;2=login;3=1;4=secret;5=/www;6=ftp.example.org;7=False;8=1;9=True;"
            "10=user;11=pw;12=8080;13=10.0.0.1;14=False;15=True;16=21;17=True;18=True;19=True;[Profile];1=0;2=256;3=4;"
            "4=5;5=1;6=1;"
            "7=90;8={Title}_{Counter}.{OutputType};9=True;10=/data/Output/;ProcessTotal=0") +
          all.substr(all.find("[Block_0]")));
  // A profile saved before keys 18 and 19 existed reads them as off, whatever the state held.
  WriteWholeFile(path, "[Settings]\r\n1=True\r\n");
  LoadProfile(state, path);
  EXPECT_EQ(state.settings.RotateByCameraOrientation + state.settings.KeepColourProfiles, 2 * kFalse);
}

// A save lands whole or not at all (here the file-size limit refuses the write at the 100th byte)
// and keeps the file's permissions.
TEST(ProfileFile, ASaveThatCannotBeWrittenLeavesTheOldFileWhole) {
  TempFolder temp;
  const std::string path = temp.file("job.profile");
  AppState state;
  ASSERT_TRUE(SaveProfile(state, path));
  ::chmod(path.c_str(), 0600);
  const std::string before = ReadWholeFile(path);
  state.output.Quality = 1;
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{100, limit.rlim_max};
  ::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &small);
  const bool stored = SaveProfile(state, path);
  ::setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_FALSE(stored);
  EXPECT_EQ(ReadWholeFile(path), before);
  EXPECT_FALSE(SaveProfile(state, "") || SaveProfile(state, temp.path().string()));  // no name, a folder
  ASSERT_TRUE(SaveProfile(state, path));
  EXPECT_EQ(ReadIni("Profile", "7", path), "1");
  struct stat info {};
  ::stat(path.c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST(ProfileFile, SaveNamesGetTheProfileExtensionUnlessTheyHaveIt) {
  const std::pair<std::string, std::string> cases[] = {
      {"job", "job.profile"},   {"job.PROFILE", "job.PROFILE"}, {"job.txt", "job.txt.profile"},
      {".profile", ".profile"}, {"rofile", "rofile.profile"},   {std::string("cut\0rest", 8), "cut.profile"}};
  for (const auto& [chosen, saved] : cases) EXPECT_EQ(ProfileSaveName(chosen), saved);
}

// What can't be read keeps its field: booleans that are no boolean, numbers too large for their
// field, a chain that "ProcessTotal" can't make. A missing integer reads 0, a missing string empty.
TEST(ProfileReading, ValuesThatCannotBeReadKeepTheirFields) {
  TempFolder temp;
  AppState state;
  const auto load = [&](const std::string& text) {
    WriteWholeFile(temp.file("hand.profile"), text);
    LoadProfile(state, temp.file("hand.profile"));
  };
  state.settings = {kTrue, "", 1, "", "", "old host", kTrue, 2, kFalse, "", "", "", "", kTrue, kFalse, "", kTrue};
  state.output = {3, 4, 5, 6, 7, 8, 55, "x", kFalse, "/out/"};
  load(
      "[Settings]\n1=\n2=someone\n7=maybe\n9=1\n14=0\n15=true\n17=FALSE\n[Profile]\n1=-32769\n2=32767\n7=70000\n9=-"
      "7\n");
  EXPECT_EQ(state.settings, (engine::Settings{kTrue, "someone", 0, "", "", "", kTrue, 0, kTrue, "", "", "", "", kFalse,
                                              kTrue, "", kFalse}));
  EXPECT_EQ(state.output, (engine::OutputChoices{3, 32767, 0, 0, 0, 0, 55, "", kTrue, ""}));

  Block old, fresh, kept;  // only an unreadable value keeps the old width
  old.Width = kept.Width = 7;
  old.KeepProportions = kept.KeepProportions = kTrue;
  fresh.Kind = kept.Kind = 42;
  fresh.Angle = kept.Angle = 180;
  const auto chain = [&](const std::string& total) {
    state.blocks = engine::Blocks({old});
    load("[Profile]\n" + total + "\n[Block_0]\n5=3000000000\n6=42\n7=180\n[Block_1]\n6=5\n");
    return state.blocks;
  };
  EXPECT_EQ(chain("ProcessTotal=1"), engine::Blocks({fresh}));  // made afresh, the spare left blank
  EXPECT_EQ(chain("").UpperBound(), 0);
  EXPECT_EQ(chain("ProcessTotal=100000").UpperBound(), 100000);
  for (const char* total : {"-1", "99999999999", "100001"})
    EXPECT_EQ(chain(std::string("ProcessTotal=") + total), engine::Blocks({kept})) << total;
}

// A first start makes the data folders and default.profile. Each exit names the current profile
// in settings.ini and saves it; the next start takes it, or default.profile reset to the defaults
// when it is gone.
TEST(Session, EachStartTakesTheProfileOfTheLastExit) {
  TempFolder home;  // nothing else in this program reads HOME or XDG_CONFIG_HOME: they are not given back
  ::setenv("HOME", home.path().c_str(), 1);
  ::unsetenv("XDG_CONFIG_HOME");
  const std::string velmora = home.file("Documents/Velmora"), default_profile = velmora + "/Profiles/default.profile";
  AppState states[7], fresh;
  std::string caption;
  StartUp(states[0], [&](const std::string& text) { caption = text; });
  for (const char* folder : {"/Profiles", "/Output", "/Temp"})
    EXPECT_TRUE(std::filesystem::is_directory(velmora + folder)) << folder;
  EXPECT_FALSE(std::filesystem::exists(velmora + "/settings.ini"));
  EXPECT_EQ(states[0].CurrentProfile, default_profile);
  EXPECT_EQ(caption, "Velmora - [default.profile]");
  fresh.AppDataFolder = velmora;
  NewProfile(fresh);  // read back from default.profile, the defaults must have gone through the file
  EXPECT_EQ(states[0].settings, fresh.settings);
  EXPECT_EQ(states[0].output, fresh.output);
  states[0].settings.FtpHost = "ftp.example.org";
  SaveAtExit(states[0]);
  EXPECT_EQ(ReadWholeFile(velmora + "/settings.ini"), "[Main]\r\nLastProfile=" + default_profile + "\r\n");

  StartUp(states[1]);
  EXPECT_EQ(states[1].settings.FtpHost, "ftp.example.org");
  states[1].CurrentProfile = velmora + "/Profiles/job.profile";
  SaveAtExit(states[1], [](AppState& state) { state.output.Quality = 60; });  // the window's state goes in
  StartUp(states[2]);
  EXPECT_EQ(states[2].CurrentProfile, velmora + "/Profiles/job.profile");
  EXPECT_EQ(states[2].output.Quality, 60);

  std::filesystem::remove(velmora + "/Profiles/job.profile");
  StartUp(states[3]);
  EXPECT_EQ(states[3].CurrentProfile, default_profile);
  EXPECT_EQ(ReadIni("Settings", "6", default_profile), "");

  NewProfile(states[3]);
  states[3].output.Quality = 10;  // unsaved work, lost at exit
  SaveAtExit(states[3]);
  EXPECT_EQ(ReadWholeFile(velmora + "/settings.ini"), "[Main]\r\nLastProfile=\r\n");
  StartUp(states[4]);
  EXPECT_EQ(states[4].output.Quality, 90);

  // A last profile that is a folder reads as empty values.
  WriteIni("Main", "LastProfile", velmora + "/Profiles", velmora + "/settings.ini");
  StartUp(states[5], [&](const std::string& text) { caption = text; });
  EXPECT_EQ(states[5].output.Quality, 0);
  EXPECT_EQ(caption, "Velmora - [Profiles]");

  // The documents folder comes from the user-dirs file of ~/.config, or of XDG_CONFIG_HOME if set.
  std::filesystem::create_directories(home.file(".config"));
  WriteWholeFile(home.file(".config/user-dirs.dirs"),
                 "# written by xdg-user-dirs-update\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                 "XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Docs\\\"/\"\n");
  StartUp(states[6]);
  EXPECT_TRUE(std::filesystem::exists(home.file("My \"Docs\"/Velmora/Profiles/default.profile")));
  ::setenv("XDG_CONFIG_HOME", home.path().c_str(), 1);
  WriteWholeFile(home.file("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n");
  EXPECT_EQ(GetDocumentsFolder(), "/srv/papers");
  WriteWholeFile(home.file("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"relative/not/allowed\"\n");
  EXPECT_EQ(GetDocumentsFolder(), home.file("Documents"));
}

}  // namespace
}  // namespace velmora::settings
