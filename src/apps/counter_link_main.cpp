// counter-link: lays down or changes Settings.SSS, and tries what it says.
#include "apps/link_program.h"

int main(int argc, char** argv) {
    return counter::RunLinkProgram(argc, argv);
}
