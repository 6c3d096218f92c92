// libtiff comes in with FreeImage, without headers of its own here: its two handler setters are
// looked up by name in the running process.
#include "imaging/tiff_messages.h"

#include <dlfcn.h>

#include <cstdarg>
#include <mutex>

namespace velmora::imaging {
namespace {

using TiffHandler = void (*)(const char* module, const char* format, va_list arguments);
using SetTiffHandler = TiffHandler (*)(TiffHandler handler);

void Silent(const char*, const char*, va_list) {}

void Install(const char* setter_name) {
  if (void* symbol = dlsym(RTLD_DEFAULT, setter_name)) reinterpret_cast<SetTiffHandler>(symbol)(&Silent);
}

}  // namespace

void SilenceTiffMessages() {
  static std::once_flag once;
  std::call_once(once, [] {
    Install("TIFFSetErrorHandler");
    Install("TIFFSetWarningHandler");
  });
}

}  // namespace velmora::imaging
