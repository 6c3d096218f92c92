// The eight rows of the "New Operation" dialog: title, description, icon and what OK adds;
// the two watermark rows add the same kind and then pick its type.
#pragma once

#include <cstdint>
#include <vector>

namespace velmora::shell {

struct NewOperationRow {
  const char* title;
  const char* body;
  int icon;            // index of the row's picture
  std::int16_t kind;   // the operation added
  int watermark_type;  // -1, or the row the new watermark's type list is set to
};

// Row 1 of the dialog is element 0.
const std::vector<NewOperationRow>& NewOperationRows();

}  // namespace velmora::shell
