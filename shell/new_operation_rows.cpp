// The new-operation table.
#include "shell/new_operation_rows.h"

namespace velmora::shell {

const std::vector<NewOperationRow>& NewOperationRows() {
  static const std::vector<NewOperationRow> rows = {
      {"Resize", "Adjust image size using pixels or percents", 0, 0, -1},
      {"Rotate", "Rotate image by a specific number of degrees", 1, 1, -1},
      {"Mirror", "Flip image in vertical or horisontal direction", 2, 2, -1},
      {"Text Watermark", "Integrate a custom watermark text into your pictures", 3, 3, 0},
      {"Image Watermark", "Integrate a custom watermark image into your pictures", 4, 3, 1},
      {"Effects", "Apply effects (blur, distort, emboss, etch, grayscale, invert, mosaic, motion, sharpen)", 5, 4, -1},
      {"Brightness/Contrast", "Adjust contrast and brightness", 6, 5, -1},
      {"Gamma", "Gamma correction", 7, 6, -1},
  };
  return rows;
}

}  // namespace velmora::shell
