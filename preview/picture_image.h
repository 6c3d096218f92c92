// Turning the back end's RGBA display picture into a QImage the preview boxes can show; the
// copy is deep, so a picture made on the worker thread can travel to the window's.
#pragma once

#include <QImage>

#include "imaging/imaging_library.h"

namespace velmora::preview {

// A deep copy, safe to hand from the worker thread to the window.
QImage ToQImage(const imaging::DisplayPicture& picture);

}  // namespace velmora::preview
