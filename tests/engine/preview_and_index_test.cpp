// The preview's fit rule and the thumbnail index text.
#include <gtest/gtest.h>

#include "engine/html_index.h"
#include "engine/preview_fit.h"
#include "tests/support/test_support.h"

namespace velmora::engine {
namespace {

TEST(FitPreview, WideAndSquarePagesFitTheWidth) {
  const FitResult wide = FitPreview(800, 400, 400, 300);
  EXPECT_TRUE(wide.rescale);
  EXPECT_EQ(wide.width, 400);
  EXPECT_EQ(wide.height, 200);
  const FitResult square = FitPreview(500, 500, 400, 300);
  EXPECT_EQ(square.width, 400);  // a square page follows the width even when taller than the frame
  EXPECT_EQ(square.height, 400);
}

TEST(FitPreview, TallPagesFitTheHeight) {
  const FitResult tall = FitPreview(300, 600, 400, 300);
  EXPECT_TRUE(tall.rescale);
  EXPECT_EQ(tall.width, 150);
  EXPECT_EQ(tall.height, 300);
}

TEST(FitPreview, WidePageTallerThanFrameFitsTheWidth) {
  const FitResult fit = FitPreview(350, 340, 400, 300);
  EXPECT_EQ(fit.width, 400);   // never mind that this enlarges: the rule says so
  EXPECT_EQ(fit.height, 389);  // 340/350 of 400 is 388.57
}

TEST(FitPreview, SmallPagesAreNeverEnlarged) {
  EXPECT_FALSE(FitPreview(100, 50, 400, 300).rescale);
}

TEST(HtmlIndex, FourCellsGiveOneClosedRowAndOneOpenRow) {
  HtmlIndex index;
  for (const char* name : {"/o/a.jpg", "/o/b.jpg", "", "/o/d.jpg"}) index.AddCell(name);
  const std::string cell_a = "\r\n<br><img src='a.jpg' border=0 width='200px'><br><a href='a.jpg'>a.jpg</a></p></td>";
  const std::string empty_cell = "\r\n<br><img src='' border=0 width='200px'><br><a href=''></a></p></td>";
  const std::string expected =
      HtmlHeader() + "<table cellpadding='0' cellspacing='0'>" + "<tr><td width='20%'><p align='center'>" + cell_a +
      "<td width='20%'><p align='center'>" +
      "\r\n<br><img src='b.jpg' border=0 width='200px'><br><a href='b.jpg'>b.jpg</a></p></td>" +
      "<td width='20%'><p align='center'>" + empty_cell + "</tr>" + "<tr><td width='20%'><p align='center'>" +
      "\r\n<br><img src='d.jpg' border=0 width='200px'><br><a href='d.jpg'>d.jpg</a></p></td>" + "</table>" +
      "</body>\r\n</html>";
  EXPECT_EQ(index.Finish(), expected);
  EXPECT_EQ(HtmlHeader().substr(0, 14), "<html>\r\n<head>");
}

TEST(HtmlIndex, WriteTextFileReplacesAndEndsWithOneLineEnd) {
  testing::TempFolder temp;
  testing::WriteWholeFile(temp.file("index.html"), "old and longer content");
  WriteTextFile(temp.file("index.html"), "new");
  EXPECT_EQ(testing::ReadWholeFile(temp.file("index.html")), "new\r\n");
}

}  // namespace
}  // namespace velmora::engine
