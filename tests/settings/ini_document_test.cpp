// The in-memory ini document: what a read gives back and exactly which bytes a write changes.
#include "settings/ini_document.h"

#include <gtest/gtest.h>

namespace velmora::settings {
namespace {

TEST(IniDocument, MissingSectionOrKeyGivesEmpty) {
  const IniDocument document("[Main]\nkey=value\n");
  EXPECT_EQ(document.Get("Main", "other"), "");
  EXPECT_EQ(document.Get("Nowhere", "key"), "");
  EXPECT_EQ(IniDocument().Get("Main", "key"), "");
}

TEST(IniDocument, TrimsBlanksAndOnePairOfQuotes) {
  const IniDocument document("[ S ]\n  k1 =  spaced out \t\nk2=\"quoted \"\nk3='single'\nk4=\"unbalanced\nk5=a=b\n");
  EXPECT_EQ(document.Get("S", "k1"), "spaced out");
  EXPECT_EQ(document.Get("S", "k2"), "quoted ");
  EXPECT_EQ(document.Get("S", "k3"), "single");
  EXPECT_EQ(document.Get("S", "k4"), "\"unbalanced");
  EXPECT_EQ(document.Get("S", "k5"), "a=b");
}

TEST(IniDocument, WriteAppendsAKeyBehindTheLastLineOfItsSection) {
  IniDocument document("[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n");
  document.Set("A", "z", "3");
  document.Set("B", "w", "4");
  EXPECT_EQ(document.Serialize(), "[A]\r\nx=1\r\nz=3\r\n\r\n[B]\r\ny=2\r\nw=4\r\n");
  EXPECT_EQ(document.Get("A", "z"), "3");
  EXPECT_EQ(document.Get("B", "y"), "2");
}

TEST(IniDocument, WriteAppendsAMissingSectionToTheEnd) {
  IniDocument document("[A]\r\nx=1\r\n");
  document.Set("New", "k", "v");
  EXPECT_EQ(document.Serialize(), "[A]\r\nx=1\r\n[New]\r\nk=v\r\n");
}

TEST(IniDocument, AHandWrittenFileKeepsItsOwnLineEnds) {
  IniDocument document("[A]\nx=1");  // LF lines, no line end after the last one
  document.Set("A", "y", "2");
  document.Set("B", "z", "3");
  EXPECT_EQ(document.Serialize(), "[A]\nx=1\ny=2\n[B]\nz=3\n");
}

TEST(IniDocument, ForeignKeysSectionsAndOddLinesStayByteForByte) {
  const std::string original =
      "junk before\r\n[Mine]\r\n  Key = old  \r\nforeign=keep me\r\nno equals here\r\n\r\n[Foreign]\r\n1=x\r\n";
  IniDocument document(original);
  EXPECT_EQ(document.Serialize(), original);
  document.Set("MINE", "key", "new");
  EXPECT_EQ(document.Serialize(),
            "junk before\r\n[Mine]\r\nKey=new\r\nforeign=keep me\r\nno equals here\r\n\r\n[Foreign]\r\n1=x\r\n");
}

}  // namespace
}  // namespace velmora::settings
