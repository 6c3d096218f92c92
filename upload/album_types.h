// The web album as the album feed describes it: the record the chooser lists and the upload
// turns into the path it posts photos to.
#pragma once

#include <string>

namespace velmora::upload {

struct Album {
  std::string id;     // content of the entry's "id" element: the album's entry URL
  std::string title;  // content of its "title" element

  bool operator==(const Album&) const = default;
};

}  // namespace velmora::upload
