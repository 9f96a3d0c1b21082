#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "workloads.h"

/** The result of a comparison, of which only the sign is common to us and the C library. */
struct Order {
    int32_t difference;
    int32_t sign() const { return (difference > 0) - (difference < 0); }
    friend bool operator==(Order a, Order b) { return a.sign() == b.sign(); }
};

/** An expression over the fields of the case c, to be timed in place: a function of its own would cost a call. */
#define CALL(...) [](const Case &c) { return __VA_ARGS__; }

template <class Call>
struct Peer {
    std::string name;
    Call call;
};
template <class Call>
Peer(const char *, Call) -> Peer<Call>;

/** What each call returned and left at its destination as a string. The workload's memory is as before afterwards. */
template <class Call>
auto outcomes(Workload &workload, const Call &call) {
    // Numbers of any type are compared as one.
    using Raw = decltype(call(Case{}));
    using Result = std::conditional_t<std::is_integral_v<Raw>, int64_t, Raw>;
    const std::vector<char> before = workload.memory;
    std::vector<std::pair<Result, std::string>> seen;
    for (const Case &each : workload.cases) {
        const auto result = static_cast<Result>(call(each));
        seen.emplace_back(result, each.destination == nullptr ? "" : each.destination);
    }
    std::copy(before.begin(), before.end(), workload.memory.begin());
    return seen;
}

/** What else runs on the machine only ever adds time, so of many short repetitions the fastest is what repeats. */
inline double fastest(const std::vector<double> &times) { return *std::min_element(times.begin(), times.end()); }

template <class Call>
void enter(const std::string &name, const std::shared_ptr<Workload> &workload, const Call &call) {
    const auto measure = [workload, call](benchmark::State &state) {
        for (auto _ : state) {
            for (const Case &each : workload->cases) benchmark::DoNotOptimize(call(each));
        }
        state.counters["calls"] = static_cast<double>(workload->calls);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->ComputeStatistics("fastest", fastest);
}

/** Registers our routine and its peers on each workload, once they have been seen to give the same results. */
template <class Ours, class... Peers>
void contest(const std::string &routine, const Workloads &workloads, const Ours &ours, const Peer<Peers> &...peers) {
    for (const std::shared_ptr<Workload> &workload : workloads) {
        const std::string title = routine + '/' + workload->name + '/';
        const auto expected = outcomes(*workload, ours);
        const auto enterPeer = [&](const auto &peer) {
            if (outcomes(*workload, peer.call) != expected) {
                std::fprintf(stderr, "strlib_benchmarks: %s%s differs from our result\n", title.c_str(),
                             peer.name.c_str());
                std::exit(1);
            }
            enter(title + peer.name, workload, peer.call);
        };
        enter(title + "ours", workload, ours);
        (enterPeer(peers), ...);
    }
}
