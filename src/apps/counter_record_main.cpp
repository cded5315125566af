// counter-record: what counterctl becomes for record and readings.
#include "apps/command_line.h"
#include "record_cli/record_cli.h"

int main(int argc, char** argv) {
    return counter::RunCommandLine(argc, argv, {counter::RunRecord, counter::RunReadings});
}
