// Pixel effects that FreeImage lacks, written for this program.
// Each works in place on a 24- or 32-bit FIT_BITMAP and returns false (image untouched) for anything else.
#pragma once

#include <FreeImage.h>

namespace velmora::imaging::effects {

bool Blur(FIBITMAP* dib, bool strong);
bool Distort(FIBITMAP* dib);
bool Emboss(FIBITMAP* dib, bool strong, int direction);
bool Etch(FIBITMAP* dib, bool strong, int direction);
bool Grayscale(FIBITMAP* dib);
bool Mosaic(FIBITMAP* dib, int size);
bool Motion(FIBITMAP* dib, bool strong);
bool Sharpen(FIBITMAP* dib, bool strong);

}  // namespace velmora::imaging::effects
