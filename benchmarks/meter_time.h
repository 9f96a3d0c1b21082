#ifndef BENCHMARKS_METER_TIME_H
#define BENCHMARKS_METER_TIME_H

#include <benchmark/benchmark.h>
#include <fmt/core.h>
#include <gnu/libc-version.h>
#include <utf8proc.h>

#include <algorithm>
#include <exception>
#include <random>
#include <stdexcept>

#include "contenders.h"

inline constexpr bool measuresTime = true;

template <class Call>
struct Peer {
    const char *name;
    Call call;
};

// What else runs on the machine only ever adds time, so of many short repetitions the fastest is what repeats.
inline double fastest(const std::vector<double> &times) { return *std::min_element(times.begin(), times.end()); }

// Of many cases so many in random order that no branch predictor learns them; a few long ones in turn.
inline std::vector<uint32_t> orderOf(size_t calls) {
    std::mt19937 random(1);
    std::vector<uint32_t> order(calls < 64 ? calls : 4096);
    for (uint32_t next = 0; uint32_t & index : order)
        index = calls < 64 ? next++ : static_cast<uint32_t>(random() % calls);
    return order;
}

template <class Call, class Body>
void enter(const std::string &name, const Call &call, size_t calls, const Body &body) {
    const auto run = [=](benchmark::State &state) {
        const std::vector<uint32_t> order = orderOf(calls);
        for (auto _ : state) {
            for (const uint32_t index : order) {
                if constexpr (std::is_void_v<decltype(body(call, index))>)
                    body(call, index), benchmark::ClobberMemory();
                else
                    benchmark::DoNotOptimize(body(call, index));
            }
        }
        state.counters["calls"] = static_cast<double>(order.size());
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->ComputeStatistics("fastest", fastest);
}

// Registers our routine and its peers, once they have been seen to give the same results. A plain loop is a peer where
// there is no other, and of the worst inputs.
template <auto ours, auto glibc, auto newlib, auto plain, class Body, class... Others>
void measure(const Contenders<ours, glibc, newlib, plain> &contest, const std::string &workload, size_t calls,
             const Body &body, const Peer<Others> &...others) {
    const std::string title = contest.routine + ('/' + workload + '/');
    const auto expected = outcome::of(contest.same, Direct<ours>(), calls, body);
    const auto enterPeer = [&](const char *name, const auto &call) {
        if (outcome::of(contest.same, call, calls, body) != expected)
            throw std::runtime_error(title + name + " differs from our result");
        enter(title + name, call, calls, body);
    };
    enter(title + "ours", Direct<ours>(), calls, body);
    if constexpr (exists<glibc>) enterPeer("glibc", Direct<glibc>());
    (enterPeer(others.name, others.call), ...);
    if constexpr (exists<plain>)
        if (!exists<glibc> || contest.same == Same::nothing) enterPeer("plain", Direct<plain>());
}

inline int runMeter(int argc, char **argv, void (*enterAll)()) try {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::AddCustomContext("flags", STRLIB_BENCH_FLAGS);
#ifdef __clang__
    benchmark::AddCustomContext("compiler", __VERSION__);
#else
    benchmark::AddCustomContext("compiler", "GCC " __VERSION__);
#endif
    benchmark::AddCustomContext("glibc", gnu_get_libc_version());
    benchmark::AddCustomContext("fmt",
                                std::to_string(FMT_VERSION / 10000) + "." + std::to_string(FMT_VERSION / 100 % 100));
    benchmark::AddCustomContext("utf8proc", utf8proc_version());
    enterAll();
    const bool ran = benchmark::RunSpecifiedBenchmarks() > 0;
    benchmark::Shutdown();
    return ran ? 0 : 1;
} catch (const std::exception &problem) {
    std::fprintf(stderr, "strlib_benchmarks: %s\n", problem.what());
    return 1;
}

#include "host_peers.h"

#endif
