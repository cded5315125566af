// Figures: how times are taken, what becomes of many rounds, and how a line of the output looks.
#pragma once

#include <sys/resource.h>

#include <functional>
#include <vector>

// Milliseconds of a clock that never goes back.
double SteadyMs();
// Milliseconds of processor time, user and system.
double CpuMs(const rusage& usage);

double Median(std::vector<double> values);

// Milliseconds that `action` takes, once and in each of `rounds`.
double TimeOf(const std::function<void()>& action);
std::vector<double> TimesOf(int rounds, const std::function<void()>& action);

// "name   12.34 ms"
void Print(const char* name, double value, const char* unit = "ms");
