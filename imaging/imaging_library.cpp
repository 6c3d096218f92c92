// The imaging object's life, its handles, queries, blank images, metadata and display pictures.
// Files, depth conversions, transforms and effects are in the imaging_library_*.cpp files.
#include "imaging/imaging_library.h"

#include "imaging/display_picture.h"
#include "imaging/library_state.h"
#include "imaging/tiff_messages.h"

namespace velmora::imaging {

ImagingLibrary::ImagingLibrary() : state_(std::make_unique<State>()) {
  SilenceTiffMessages();
}

ImagingLibrary::~ImagingLibrary() = default;

// The calls below report nothing, so a failure inside them (the table's lock) only gives the
// empty answer.
void ImagingLibrary::Release(Handle image) {
  try {
    state_->images.Release(image);
  } catch (...) {
  }
}

std::size_t ImagingLibrary::LiveImageCount() const {
  try {
    return state_->images.Count();
  } catch (...) {
    return 0;
  }
}

namespace {

// A number read from the page behind `image`, or 0 when there is no such page.
template <typename Read>
std::uint32_t Query(const HandleTable& images, Handle image, Read read) {
  try {
    FIBITMAP* dib = images.Find(image);
    return dib ? read(dib) : 0;
  } catch (...) {
    return 0;
  }
}

}  // namespace

void ImagingLibrary::FreeImage_GetWidth(Handle image, std::uint32_t& width) {
  width = Query(state_->images, image, [](FIBITMAP* dib) { return ::FreeImage_GetWidth(dib); });
}

void ImagingLibrary::FreeImage_GetHeight(Handle image, std::uint32_t& height) {
  height = Query(state_->images, image, [](FIBITMAP* dib) { return ::FreeImage_GetHeight(dib); });
}

void ImagingLibrary::FreeImage_GetBPP(Handle image, std::uint32_t& bpp) {
  bpp = Query(state_->images, image, [](FIBITMAP* dib) { return ::FreeImage_GetBPP(dib); });
}

namespace {

// Ordinary bitmaps for the usual depths; the deeper ones that pages loaded from 16-bit and float
// files report (48, 64, 96, 128) become the matching FreeImage type, so a blank of a page's size
// and depth can always be made.
Bitmap AllocateBlank(int width, int height, int bpp, unsigned red, unsigned green, unsigned blue) {
  switch (bpp) {
    case 1:
    case 4:
    case 8:
    case 16:
    case 24:
    case 32: return Bitmap(::FreeImage_Allocate(width, height, bpp, red, green, blue));
    case 48: return Bitmap(FreeImage_AllocateT(FIT_RGB16, width, height));
    case 64: return Bitmap(FreeImage_AllocateT(FIT_RGBA16, width, height));
    case 96: return Bitmap(FreeImage_AllocateT(FIT_RGBF, width, height));
    case 128: return Bitmap(FreeImage_AllocateT(FIT_RGBAF, width, height));
    default: return nullptr;
  }
}

}  // namespace

void ImagingLibrary::FreeImage_Allocate(Handle& out, std::int32_t width, std::int32_t height, std::int32_t bpp,
                                        std::uint32_t red_mask, std::uint32_t green_mask, std::uint32_t blue_mask,
                                        CallResult& result) {
  Report(result, [&] {
    out = 0;
    if (width <= 0 || height <= 0) return false;
    out = state_->images.Add(AllocateBlank(width, height, bpp, red_mask, green_mask, blue_mask));
    return out != 0;
  });
}

void ImagingLibrary::CopyMetadata(Handle source, Handle destination, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* from = state_->images.Find(source);
    FIBITMAP* to = state_->images.Find(destination);
    if (!from || !to) return false;
    // Cloning onto itself would clear what it copies from.
    if (from == to) return true;
    return FreeImage_CloneMetadata(to, from) != FALSE;
  });
}

void ImagingLibrary::CopyColourProfile(Handle source, Handle destination, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* from = state_->images.Find(source);
    FIBITMAP* to = state_->images.Find(destination);
    return from && to && CloneColourProfile(to, from);
  });
}

void ImagingLibrary::DropProfileAndBackground(Handle image, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    if (!dib) return false;
    FreeImage_DestroyICCProfile(dib);
    FreeImage_SetBackgroundColor(dib, nullptr);
    return true;
  });
}

void ImagingLibrary::MakeDisplayPicture(Handle image, DisplayPicture& picture, CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    return dib && FillDisplayPicture(dib, picture);
  });
}

}  // namespace velmora::imaging
