#ifndef BENCHMARKS_METER_H
#define BENCHMARKS_METER_H

// Measures a routine beside its peers by the meter that this is compiled for: time on the host, instructions under
// emulation, or the cycles of a board's own counter.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <type_traits>
#include <vector>

#include "contests.h"

// What one call may need: a text, another one or a room to write to, the length of the first, and a number.
struct Case {
    char *text;
    char *other = nullptr;
    uint32_t length = 0;
    int32_t number = 0;
};

struct Workload {
    std::string name;
    std::vector<Case> cases = {};
};

// A call that the compiler can see through, of a routine with its own signature.
template <auto routine>
struct Direct {
    template <class... Arguments>
    auto operator()(Arguments... arguments) const {
        if constexpr (std::is_void_v<decltype(routine(arguments...))>)
            return routine(arguments...), 0;
        else
            return routine(arguments...);
    }
};

template <auto routine>
inline constexpr bool exists = !std::is_null_pointer_v<decltype(routine)>;

#if defined(STRLIB_BENCHMARK_TIME)
#include "meter_time.h"
#else
#include "meter_count.h"
#endif

inline int64_t comparable(Same same, int64_t result) {
    if (same == Same::sign) return (result > 0) - (result < 0);
    return same == Same::truth ? result != 0 : same == Same::output ? 0 : result;
}
inline int64_t comparable(Same, const volatile void *result) { return reinterpret_cast<intptr_t>(result); }

// What a call may have left behind an argument.
inline std::string left(char *text) { return text; }
template <class Value>
requires(!std::is_const_v<Value> && !std::is_void_v<Value>) std::string left(Value *value) {
    return std::to_string(comparable(Same::result, *value));
}
template <class Other>
std::string left(Other) {
    return "";
}

// The result of each call and what it leaves behind its arguments.
template <class Call, class Body>
std::vector<std::string> outcomes(Same same, const Call &call, const Workload &workload, const Body &body) {
    std::vector<std::string> seen;
    const auto observed = [&](auto... arguments) {
        const auto result = call(arguments...);
        seen.push_back((std::to_string(comparable(same, result)) + ... + (' ' + left(arguments))));
        return result;
    };
    if (same != Same::nothing)
        for (const Case &given : workload.cases) body(observed, given);
    return seen;
}

// Measures our routine, and its peers once they have been seen to give the same results. Where time is measured, a
// plain loop is a peer only where there is no other, and of the worst inputs. A board has newlib alone, without its
// prefix.
template <auto &...others, auto ours, auto plain, auto glibc, auto newlib, class Body>
void measureBody(const Contest<ours, plain, glibc, newlib> &contest, const Workload &workload, const Body &body) {
    const auto expected = outcomes(contest.same, Direct<ours>(), workload, body);
    const auto take = [&](const char *name, const auto &call, bool isRoutine = true) {
        const auto compare = [=] {
            if (!isRoutine || outcomes(contest.same, call, workload, body) == expected) return;
            std::fprintf(stderr, "%s, %s: %s differs from our result\n", contest.routine, workload.name.c_str(), name);
            std::exit(1);
        };
        compare();
        enter<decltype(ours)>(contest.routine, workload, name, call, body, compare);
    };
    if constexpr (!measuresTime) take("empty", Direct<emptyLike(ours)>(), false);
    take("ours", Direct<ours>());
    if constexpr (exists<glibc>) take(isBoard ? "newlib" : "glibc", Direct<glibc>());
    if constexpr (exists<newlib> && !isBoard && !measuresTime) take("newlib", Direct<newlib>());
    if constexpr (measuresTime) (take(others.name, others.call), ...);
    if constexpr (exists<plain>)
        if (!measuresTime || !exists<glibc> || contest.same == Same::nothing) take("plain", Direct<plain>());
}

// Arguments are what a case holds, given by these or by a function like them, or the same in all cases.
namespace of {
inline constexpr auto text = [](const Case &given) { return given.text; };
inline constexpr auto other = [](const Case &given) { return given.other; };
inline constexpr auto length = [](const Case &given) { return given.length; };
inline constexpr auto number = [](const Case &given) { return given.number; };
}  // namespace of

template <class Argument>
auto valueOf(const Argument &argument, const Case &given) {
    if constexpr (std::is_invocable_v<Argument, const Case &>)
        return argument(given);
    else
        return argument;
}

template <auto &...others>
void measure(const auto &contest, const Workload &workload, auto... arguments) {
    measureBody<others...>(contest, workload,
                           [=](auto call, const Case &given) { return call(valueOf(arguments, given)...); });
}

#endif
