// Every controls test runs inside one offscreen QApplication, made before the first test.
#include "tests/support/qt_environment.h"
