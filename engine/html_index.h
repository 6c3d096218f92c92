// The "index.html" page of a run: a table of thumbnails and links, three cells to a row,
// built as one string and written at the end of the run.
#pragma once

#include <string>

namespace velmora::engine {

std::string HtmlHeader();
std::string HtmlFooter();

class HtmlIndex {
 public:
  HtmlIndex();
  // Adds the cell of one page; `target_path` may be empty (a skipped source).
  void AddCell(const std::string& target_path);
  // The finished page.
  std::string Finish() const;
  const std::string& HtmlText() const { return HtmlText_; }

 private:
  std::string HtmlText_;
  int HtmlCellCount_ = 0;
};

// Replaces `path` with `text` and one line end, whole or not at all; false when it was not replaced.
bool WriteTextFile(const std::string& path, const std::string& text);

}  // namespace velmora::engine
