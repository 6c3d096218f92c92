// Synthetic sample images of every kind the converter reads: photos, alpha, multipage, animation,
// icons, 16-bit and float. Used by the bundled samples, the tests and the benchmarks.
#pragma once

#include <string>
#include <vector>

namespace velmora::samples {

// Writes a photo-like JPEG of the given size (smooth gradients, shapes and noise).
bool WritePhotoJpeg(const std::string& path, int width, int height, int quality = 90, unsigned seed = 1);
// Writes the same kind of photo in the format its extension names (PNG and TIFF losslessly).
bool WritePhoto(const std::string& path, int width, int height, unsigned seed = 1);
// Writes a 32-bit PNG with a soft alpha edge.
bool WriteAlphaPng(const std::string& path, int width, int height);
// Writes an 8-bit palettized BMP.
bool WritePaletteBmp(const std::string& path, int width, int height);
// Writes a TIFF with `pages` pages of different colours.
bool WriteMultipageTiff(const std::string& path, int width, int height, int pages);
// Writes an animated GIF with `frames` frames.
bool WriteAnimatedGif(const std::string& path, int width, int height, int frames);
// Writes a 32-bit icon with an alpha channel.
bool WriteIcon(const std::string& path, int size);
// Writes a 48-bit (16 bits a channel) PNG.
bool WriteDeepPng(const std::string& path, int width, int height);
// Writes a float RGB OpenEXR image.
bool WriteFloatExr(const std::string& path, int width, int height);

// Writes the bundled sample set into `folder` (which must exist) and returns the paths written.
std::vector<std::string> WriteSampleSet(const std::string& folder);

}  // namespace velmora::samples
