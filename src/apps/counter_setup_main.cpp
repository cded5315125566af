// counter-setup: the desktop tool.
#include "platform/qt/widgets/setup_program.h"

int main(int argc, char** argv) {
    return counter::RunSetupProgram(argc, argv);
}
