// Generators for the synthetic sample images.
#include "scripts/sample_images.h"

#include <FreeImage.h>

#include <cmath>
#include <memory>
#include <random>

namespace velmora::samples {
namespace {

struct BitmapDeleter {
  void operator()(FIBITMAP* dib) const { FreeImage_Unload(dib); }
};
using Bitmap = std::unique_ptr<FIBITMAP, BitmapDeleter>;

// A 24-bit picture with gradients, a disc and a little noise, tinted by `hue`.
Bitmap MakePhoto(int width, int height, unsigned seed, int hue = 0) {
  Bitmap dib(FreeImage_Allocate(width, height, 24));
  if (!dib) return dib;
  std::mt19937 noise(seed);
  std::uniform_int_distribution<int> jitter(-6, 6);
  const double cx = width * 0.6, cy = height * 0.4, radius = std::min(width, height) / 4.0;
  for (int y = 0; y < height; ++y) {
    BYTE* row = FreeImage_GetScanLine(dib.get(), y);
    for (int x = 0; x < width; ++x) {
      int r = 255 * x / std::max(1, width - 1);
      int g = 255 * y / std::max(1, height - 1);
      int b = (hue * 60 + 128) % 256;
      if (std::hypot(x - cx, y - cy) < radius) {
        r = 255 - r;
        b = 220;
      }
      auto clamp = [](int v) { return static_cast<BYTE>(std::max(0, std::min(255, v))); };
      row[FI_RGBA_RED] = clamp(r + jitter(noise));
      row[FI_RGBA_GREEN] = clamp(g + jitter(noise));
      row[FI_RGBA_BLUE] = clamp(b + jitter(noise));
      row += 3;
    }
  }
  return dib;
}

bool WriteMultipage(FREE_IMAGE_FORMAT format, const std::string& path, int width, int height, int pages,
                    bool quantize) {
  FIMULTIBITMAP* multi = FreeImage_OpenMultiBitmap(format, path.c_str(), TRUE, FALSE, TRUE);
  if (!multi) return false;
  for (int page = 0; page < pages; ++page) {
    Bitmap photo = MakePhoto(width, height, 7 + page, page + 1);
    if (quantize) photo.reset(FreeImage_ColorQuantize(photo.get(), FIQ_WUQUANT));
    if (photo) FreeImage_AppendPage(multi, photo.get());
  }
  return FreeImage_CloseMultiBitmap(multi, 0) != FALSE;
}

}  // namespace

bool WritePhotoJpeg(const std::string& path, int width, int height, int quality, unsigned seed) {
  Bitmap photo = MakePhoto(width, height, seed);
  return photo && FreeImage_Save(FIF_JPEG, photo.get(), path.c_str(), quality);
}

bool WritePhoto(const std::string& path, int width, int height, unsigned seed) {
  const FREE_IMAGE_FORMAT format = FreeImage_GetFIFFromFilename(path.c_str());
  if (format == FIF_JPEG) return WritePhotoJpeg(path, width, height, 90, seed);
  Bitmap photo = MakePhoto(width, height, seed);
  return photo && format != FIF_UNKNOWN && FreeImage_Save(format, photo.get(), path.c_str(), 0);
}

bool WriteAlphaPng(const std::string& path, int width, int height) {
  Bitmap photo = MakePhoto(width, height, 3, 2);
  if (!photo) return false;
  Bitmap rgba(FreeImage_ConvertTo32Bits(photo.get()));
  for (int y = 0; y < height; ++y) {
    BYTE* row = FreeImage_GetScanLine(rgba.get(), y);
    for (int x = 0; x < width; ++x) row[x * 4 + FI_RGBA_ALPHA] = static_cast<BYTE>(255 * x / std::max(1, width - 1));
  }
  return FreeImage_Save(FIF_PNG, rgba.get(), path.c_str(), 0);
}

bool WritePaletteBmp(const std::string& path, int width, int height) {
  Bitmap photo = MakePhoto(width, height, 4, 3);
  Bitmap indexed(photo ? FreeImage_ColorQuantize(photo.get(), FIQ_WUQUANT) : nullptr);
  return indexed && FreeImage_Save(FIF_BMP, indexed.get(), path.c_str(), 0);
}

bool WriteMultipageTiff(const std::string& path, int width, int height, int pages) {
  return WriteMultipage(FIF_TIFF, path, width, height, pages, false);
}

bool WriteAnimatedGif(const std::string& path, int width, int height, int frames) {
  return WriteMultipage(FIF_GIF, path, width, height, frames, true);
}

bool WriteIcon(const std::string& path, int size) {
  Bitmap rgba(FreeImage_Allocate(size, size, 32));
  if (!rgba) return false;
  for (int y = 0; y < size; ++y) {
    BYTE* row = FreeImage_GetScanLine(rgba.get(), y);
    for (int x = 0; x < size; ++x) {
      const bool inside = std::hypot(x - size / 2.0 + 0.5, y - size / 2.0 + 0.5) < size / 2.0 - 1;
      row[FI_RGBA_RED] = static_cast<BYTE>(40 + 200 * x / size);
      row[FI_RGBA_GREEN] = 120;
      row[FI_RGBA_BLUE] = static_cast<BYTE>(240 - 200 * y / size);
      row[FI_RGBA_ALPHA] = inside ? 255 : 0;
      row += 4;
    }
  }
  return FreeImage_Save(FIF_ICO, rgba.get(), path.c_str(), 0);
}

bool WriteDeepPng(const std::string& path, int width, int height) {
  Bitmap deep(FreeImage_AllocateT(FIT_RGB16, width, height));
  if (!deep) return false;
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<FIRGB16*>(FreeImage_GetScanLine(deep.get(), y));
    for (int x = 0; x < width; ++x) {
      row[x].red = static_cast<WORD>(65535.0 * x / std::max(1, width - 1));
      row[x].green = static_cast<WORD>(65535.0 * y / std::max(1, height - 1));
      row[x].blue = 30000;
    }
  }
  return FreeImage_Save(FIF_PNG, deep.get(), path.c_str(), 0);
}

bool WriteFloatExr(const std::string& path, int width, int height) {
  Bitmap hdr(FreeImage_AllocateT(FIT_RGBF, width, height));
  if (!hdr) return false;
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<FIRGBF*>(FreeImage_GetScanLine(hdr.get(), y));
    for (int x = 0; x < width; ++x) {
      row[x].red = 2.0f * x / std::max(1, width - 1);
      row[x].green = 1.0f * y / std::max(1, height - 1);
      row[x].blue = 0.25f;
    }
  }
  return FreeImage_Save(FIF_EXR, hdr.get(), path.c_str(), 0);
}

std::vector<std::string> WriteSampleSet(const std::string& folder) {
  const std::string base = folder.empty() || folder.back() == '/' ? folder : folder + "/";
  std::vector<std::string> written;
  auto keep = [&](bool ok, const std::string& name) {
    if (ok) written.push_back(base + name);
  };
  keep(WritePhotoJpeg(base + "harbour.jpg", 640, 480), "harbour.jpg");
  keep(WriteAlphaPng(base + "badge.png", 320, 200), "badge.png");
  keep(WritePaletteBmp(base + "poster.bmp", 300, 220), "poster.bmp");
  keep(WriteMultipageTiff(base + "scan.tif", 240, 320, 3), "scan.tif");
  keep(WriteAnimatedGif(base + "spinner.gif", 120, 90, 4), "spinner.gif");
  keep(WriteIcon(base + "app.ico", 48), "app.ico");
  keep(WriteDeepPng(base + "deep16.png", 256, 160), "deep16.png");
  keep(WriteFloatExr(base + "sky.exr", 200, 120), "sky.exr");
  return written;
}

}  // namespace velmora::samples
