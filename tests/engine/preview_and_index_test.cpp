// The preview's fit rule and the thumbnail index text.
#include <gtest/gtest.h>

#include <array>

#include "engine/html_index.h"
#include "engine/preview_fit.h"
#include "tests/support/test_support.h"

namespace velmora::engine {
namespace {

// The first rule that holds decides, even where it enlarges the page.
TEST(FitPreview, PagesLargerThanTheFrameFitOneSide) {
  // page and frame sizes, then the fitted size; 0 x 0 when the page keeps its size
  const std::array<int, 6> cases[] = {
      {800, 400, 400, 300, 400, 200}, {500, 500, 400, 300, 400, 400},  // wide and square: the width
      {300, 600, 400, 300, 150, 300},                                  // tall: the height
      {350, 340, 400, 300, 400, 389},  // wide, taller than the frame: the width (388.57)
      {500, 600, 400, 700, 583, 700},  // tall, wider than the frame only: the height (583.33)
      {100, 50, 400, 300, 0, 0},       // smaller than the frame
  };
  for (const auto& [width, height, frame_width, frame_height, fit_width, fit_height] : cases) {
    const FitResult fit = FitPreview(width, height, frame_width, frame_height);
    EXPECT_EQ((std::array<int, 3>{fit.rescale, fit.width, fit.height}),
              (std::array<int, 3>{fit_width != 0, fit_width, fit_height}))
        << width << " x " << height;
  }
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
