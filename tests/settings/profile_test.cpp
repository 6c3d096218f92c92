// Ini and profile files byte for byte: what a read gives back, which bytes a write changes, what
// loading makes of damaged values, and the caption and save-name rules.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "settings/ini_file.h"
#include "settings/profile_file.h"
#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

using engine::AppState;
using engine::Block;
using engine::kFalse;
using engine::kTrue;
using testing::ReadWholeFile;
using testing::TempFolder;

// "a;b;c" as the lines a, b and c, each ended by CR LF.
std::string Lines(std::string joined) {
  for (std::size_t at = 0; (at = joined.find(';', at)) != std::string::npos;) joined.replace(at, 1, "\r\n");
  return joined + "\r\n";
}

TEST(IniDocument, ReadsTrimBlanksAndOnePairOfQuotesAndCutLongValues) {
  const IniDocument document("[ S ]\n  k1 =  spaced out \t\nk2=\"quoted \"\nk3='single'\nk4=\"unbalanced\nk5=a=b\nk6=" +
                             std::string(300, 'x') + "\nk7=''\nk8=\"\nk1=second\n[s]\nk9=second section\n");
  std::string read;  // the values one after the other, each ended by '|'
  for (const char* key : {"K1", "k2", "k3", "k4", "k5", "k7", "k8", "k9", "k0"}) read += document.Get("s", key) + "|";
  EXPECT_EQ(read, "spaced out|quoted |single|\"unbalanced|a=b||\"|||");
  EXPECT_EQ(document.Get("S", "k6"), std::string(254, 'x'));
  EXPECT_EQ(document.Get("Nowhere", "k1"), "");
}

TEST(IniDocument, AWriteChangesOnlyTheLineOfItsKey) {
  IniDocument document("junk\r\n[A]\r\n  Key = old  \r\nforeign=keep\r\nno equals\r\n\r\n[Empty]\r\n\r\n[B]\r\ny=2");
  document.Set("a", "KEY", "new");
  document.Set("A", "z", "3");
  document.Set("empty", "e", "1");
  document.Set("B", "w", "4");
  document.Set("New", "k", "v");
  EXPECT_EQ(
      document.Serialize(),
      "junk\r\n[A]\r\nKey=new\r\nforeign=keep\r\nno equals\r\nz=3\r\n\r\n[Empty]\r\ne=1\r\n\r\n[B]\r\ny=2\r\nw=4\r\n"
      "[New]\r\nk=v\r\n");
  EXPECT_EQ(document.Get("A", "z") + document.Get("A", "key") + document.Get("empty", "e"), "3new1");

  // Lines added take the first line end of the file; a last line without one gets one.
  IniDocument hand_written("[A]\nx=1\r\nlast");
  hand_written.Set("B", "z", "3");
  hand_written.Set("A", "y", "2");
  EXPECT_EQ(hand_written.Serialize(), "[A]\nx=1\r\nlast\ny=2\n[B]\nz=3\n");
}

TEST(IniFile, WriteIniStoresEachValueFormInAFileItCreates) {
  TempFolder temp;
  const std::string file = temp.file("settings.ini");
  WriteIni("S", "short", static_cast<std::int16_t>(-1), file);
  WriteIni("S", "long", std::int32_t{2000000000}, file);
  WriteIni("S", "yes", true, file);
  WriteIni("S", "no", false, file);
  WriteIni("S", "text", "literal", file);
  WriteIni("S", "null", static_cast<const char*>(nullptr), file);
  EXPECT_EQ(ReadWholeFile(file),
            "[S]\r\nshort=-1\r\nlong=2000000000\r\nyes=True\r\nno=False\r\ntext=literal\r\nnull=\r\n");
  EXPECT_EQ(ReadIni("s", "LONG", file), "2000000000");
}

void LoadText(AppState& state, const std::string& text) {
  TempFolder temp;
  testing::WriteWholeFile(temp.file("hand.profile"), text);
  LoadProfile(state, temp.file("hand.profile"));
}

TEST(ProfileFile, ANewProfileResetsItsChoicesKeepsTheRestAndIsWrittenKeyByKey) {
  TempFolder temp;
  AppState state;
  state.AppDataFolder = "/data/Velmora";
  state.CurrentProfile = "/p/job.profile";
  state.settings.FtpHost = "kept";
  state.output = {3, 16, 0, 0, 5, 1, 10, "x", kFalse, "/old/"};
  state.blocks.Append(Block{});
  std::string caption;
  NewProfile(state, [&](const std::string& text) { caption = text; });
  EXPECT_EQ(caption, "Velmora - [Untitled]");
  ASSERT_TRUE(SaveProfile(state, temp.file("new.profile")));
  EXPECT_EQ(ReadWholeFile(temp.file("new.profile")),
            Lines("[Settings];1=True;2=;3=0;4=;5=;6=kept;7=False;8=1;9=False;10=;11=;12=;13=;14=False;15=False;16=;"
                  "17=False;[Profile];1=0;2=16;3=0;4=0;5=1;6=1;7=90;8={Title}_{Counter}.{OutputType};9=True;"
                  "10=/data/Velmora/Output/;ProcessTotal=0"));
}

TEST(ProfileFile, EveryFieldGoesUnderItsOwnKeyAndComesBack) {
  TempFolder temp;
  const std::string path = temp.file("all.profile");
  AppState state, loaded;
  state.settings = {kTrue,      "login", 1,     "secret", "/www", "ftp.example.org",
                    kFalse,     2,       kTrue, "user",   "pw",   "8080",
                    "10.0.0.1", kFalse,  kTrue, "21",     kTrue};
  state.output = {3, 256, 4, 5, 6, 1, 75, "{counter}-{title}.{outputtype}", kFalse, "/out/"};
  state.blocks.Append({6, 2, 3, 4, 5, kTrue, 7, 8, 9, 10, "(c) me", 11, 12, -13, 14, 15, 16, 17, 18, 19, 20, "font"});
  ASSERT_TRUE(SaveProfile(state, path));
  EXPECT_EQ(ReadWholeFile(path),
            Lines("[Settings];1=True;2=login;3=1;4=secret;5=/www;6=ftp.example.org;7=False;8=2;9=True;10=user;11=pw;"
                  "12=8080;13=10.0.0.1;14=False;15=True;16=21;17=True;"
                  "[Profile];1=3;2=256;3=4;4=5;5=6;6=1;7=75;8={counter}-{title}.{outputtype};9=False;10=/out/;"
                  "ProcessTotal=1;[Block_0];1=3;2=True;3=4;4=5;5=2;6=6;7=7;8=8;9=9;10=11;11=-13;12=15;13=16;"
                  "14=(c) me;15=10;16=12;17=14;18=17;19=18;20=19;21=20;22=font"));
  LoadProfile(loaded, path);
  EXPECT_EQ(loaded.settings, state.settings);
  EXPECT_EQ(loaded.output, state.output);
  EXPECT_EQ(loaded.blocks, state.blocks);
}

// A save writes the keys it knows and leaves the rest of the file, [Block_n] sections behind a
// shorter chain included. It lands whole or not at all (here the file-size limit refuses the
// write at the 100th byte), and keeps the file's permissions.
TEST(ProfileFile, ASaveChangesOnlyItsOwnKeysAndOnlyWhenItCanWriteThemAll) {
  TempFolder temp;
  const std::string path = temp.file("job.profile");
  testing::WriteWholeFile(path, "[Notes]\r\nauthor=me\r\n[Profile]\r\nextra=kept\r\n");
  ::chmod(path.c_str(), 0600);
  AppState state;
  for (int i = 0; i < 5; ++i) state.blocks.Append(engine::NewBlock(engine::kRotate));
  ASSERT_TRUE(SaveProfile(state, path));
  const std::string before = ReadWholeFile(path);
  state.blocks = engine::Blocks({engine::NewBlock(engine::kMirror), engine::NewBlock(engine::kMirror)});
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{100, limit.rlim_max};
  ::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &small);
  const bool stored = SaveProfile(state, path);
  ::setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_FALSE(stored);
  EXPECT_EQ(ReadWholeFile(path), before);

  ASSERT_TRUE(SaveProfile(state, path));
  EXPECT_EQ(ReadIni("Notes", "author", path) + ReadIni("Profile", "extra", path), "mekept");
  EXPECT_EQ(ReadIni("Profile", "ProcessTotal", path), "2");
  EXPECT_EQ(ReadIni("Block_4", "6", path), "1");
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
// field. A missing integer reads 0, a missing string empty.
TEST(ProfileReading, ValuesThatCannotBeReadKeepTheirFields) {
  AppState state;
  state.settings = {kTrue, "", 1, "", "", "old host", kTrue, 2, kFalse, "", "", "", "", kTrue, kFalse, "", kTrue};
  state.output = {3, 4, 5, 6, 7, 8, 55, "x", kFalse, "/out/"};
  LoadText(state,
           "[Settings]\n1=\n2=someone\n7=maybe\n9=1\n14=0\n15=true\n17=FALSE\n[Profile]\n1=-32769\n2=32767\n"
           "7=70000\n9=-7\n");
  EXPECT_EQ(state.settings, (engine::Settings{kTrue, "someone", 0, "", "", "", kTrue, 0, kTrue, "", "", "", "", kFalse,
                                              kTrue, "", kFalse}));
  EXPECT_EQ(state.output, (engine::OutputChoices{3, 32767, 0, 0, 0, 0, 55, "", kTrue, ""}));
}

TEST(ProfileReading, TheChainIsMadeAfreshFromProcessTotalUnlessItCannotBe) {
  Block old, fresh, kept;  // only an unreadable value keeps the old width
  old.Width = kept.Width = 7;
  old.KeepProportions = kept.KeepProportions = kTrue;
  fresh.Kind = kept.Kind = 42;
  fresh.Angle = kept.Angle = 180;
  const auto load = [&](const std::string& profile) {
    AppState state;
    state.blocks.Append(old);
    LoadText(state, profile + "\n[Block_0]\n5=3000000000\n6=42\n7=180\n[Block_1]\n6=5\n");
    return state.blocks;
  };
  EXPECT_EQ(load("[Profile]\nProcessTotal=1"), engine::Blocks({fresh}));
  EXPECT_EQ(load("[Profile]").UpperBound(), 0);
  EXPECT_EQ(load("[Profile]\nProcessTotal=100000").UpperBound(), 100000);
  for (const char* total : {"-1", "99999999999", "100001"})
    EXPECT_EQ(load(std::string("[Profile]\nProcessTotal=") + total), engine::Blocks({kept})) << total;
}

}  // namespace
}  // namespace velmora::settings
