// Placeholder until the back end lands.
#include "imaging/imaging_library.h"
