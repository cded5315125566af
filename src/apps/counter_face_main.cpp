// counter-face: the window of a simulated meter's face, started by counter-sim.
#include "apps/face_program.h"

int main(int argc, char** argv) {
    return counter::RunFaceProgram(argc, argv);
}
