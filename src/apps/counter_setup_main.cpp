// counter-setup: the desktop tool.
#include "apps/setup_program.h"

int main(int argc, char** argv) {
    return counter::RunSetupProgram(argc, argv);
}
