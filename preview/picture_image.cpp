// DisplayPicture to QImage.
#include "preview/picture_image.h"

namespace velmora::preview {

QImage ToQImage(const imaging::DisplayPicture& picture) {
  const int width = static_cast<int>(picture.width), height = static_cast<int>(picture.height);
  if (width <= 0 || height <= 0 || picture.rgba.size() < static_cast<std::size_t>(width) * height * 4) return {};
  const QImage view(picture.rgba.data(), width, height, width * 4, QImage::Format_RGBA8888);
  return view.copy();
}

}  // namespace velmora::preview
