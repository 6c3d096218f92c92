// The velmora program: the window of the batch image converter.
#include "shell/start_up.h"

int main(int argc, char** argv) { return velmora::shell::Main(argc, argv); }
