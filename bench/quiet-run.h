#pragma once

#include <benchmark/benchmark.h>

#include <iostream>

/// Runs the benchmarks of a program whose transport tells of each exchange on standard output: that is shut, and the
/// figures go to standard error.
inline void quietRun(int argc, char** argv)
{
    std::cout.setstate(std::ios::failbit);
    benchmark::Initialize(&argc, argv);
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_None);
    reporter.SetOutputStream(&std::cerr);
    reporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
}
