// Whole processes, timed from outside.
#pragma once

#include <string>
#include <vector>

struct RunFigures {
    double WallMs = 0;
    double CpuMs = 0;  // user and system
    long PeakKb = 0;   // resident memory
    int Status = 0;
};

// Runs the program with its output thrown away and waits for it.
RunFigures RunProcess(const std::vector<std::string>& command);
