// Owning pointers for libheif's objects.
#pragma once

#include <libheif/heif.h>

#include "imaging/owned_by.h"

namespace velmora::imaging {

using HeifContext = OwnedBy<heif_context, heif_context_free>;
using HeifImageHandle = OwnedBy<heif_image_handle, heif_image_handle_release>;
using HeifImage = OwnedBy<heif_image, heif_image_release>;
using HeifEncoder = OwnedBy<heif_encoder, heif_encoder_release>;

}  // namespace velmora::imaging
