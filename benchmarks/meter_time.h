#ifndef BENCHMARKS_METER_TIME_H
#define BENCHMARKS_METER_TIME_H

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <gnu/libc-version.h>
#include <utf8proc.h>

#include <algorithm>
#include <random>

inline constexpr bool measuresTime = true;
inline constexpr bool isBoard = false;

// What else runs on the machine only ever adds time, so of many short repetitions the fastest is what repeats.
inline double fastest(const std::vector<double> &times) { return *std::min_element(times.begin(), times.end()); }

// Of many cases so many in random order that no branch predictor learns them; a few long ones in turn.
inline std::vector<const Case *> inOrder(const std::vector<Case> &cases) {
    std::mt19937 random(1);
    std::vector<const Case *> order(cases.size() < 64 ? cases.size() : 4096);
    for (size_t next = 0; const Case *&given : order)
        given = &cases[cases.size() < 64 ? next++ : random() % cases.size()];
    return order;
}

template <class, class Call, class Body>
void enter(const char *routine, const Workload &workload, const char *name, const Call &call, const Body &body) {
    const std::string title = std::string(routine) + '/' + workload.name + '/' + name;
    const auto run = [=, cases = workload.cases](benchmark::State &state) {
        const std::vector<const Case *> order = inOrder(cases);
        for (auto _ : state)
            for (const Case *const given : order) benchmark::DoNotOptimize(body(call, *given));
        state.counters["calls"] = static_cast<double>(order.size());
    };
    benchmark::RegisterBenchmark(title.c_str(), run)->ComputeStatistics("fastest", fastest);
}

inline void startMeter(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) std::exit(1);
    benchmark::AddCustomContext("flags", STRLIB_BENCH_FLAGS);
    const std::string version = __VERSION__;  // Of clang, with its name.
    benchmark::AddCustomContext("compiler", std::isdigit(version[0]) ? "GCC " + version : version);
    benchmark::AddCustomContext("glibc", gnu_get_libc_version());
    benchmark::AddCustomContext("fmt", fmt::format("{}.{}", FMT_VERSION / 10000, FMT_VERSION / 100 % 100));
    benchmark::AddCustomContext("utf8proc", utf8proc_version());
}

inline int finishMeter() { return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1; }

#include "host_peers.h"

#endif
