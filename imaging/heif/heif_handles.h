// Owning pointers for libheif's objects.
#pragma once

#include <libheif/heif.h>

#include <memory>

namespace velmora::imaging {

struct HeifContextFree {
  void operator()(heif_context* context) const { heif_context_free(context); }
};
struct HeifHandleRelease {
  void operator()(heif_image_handle* handle) const { heif_image_handle_release(handle); }
};
struct HeifImageRelease {
  void operator()(heif_image* image) const { heif_image_release(image); }
};
struct HeifEncoderRelease {
  void operator()(heif_encoder* encoder) const { heif_encoder_release(encoder); }
};

using HeifContext = std::unique_ptr<heif_context, HeifContextFree>;
using HeifImageHandle = std::unique_ptr<heif_image_handle, HeifHandleRelease>;
using HeifImage = std::unique_ptr<heif_image, HeifImageRelease>;
using HeifEncoder = std::unique_ptr<heif_encoder, HeifEncoderRelease>;

}  // namespace velmora::imaging
