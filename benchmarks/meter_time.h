#ifndef BENCHMARKS_METER_TIME_H
#define BENCHMARKS_METER_TIME_H

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <gnu/libc-version.h>
#include <strings.h>
#include <utf8proc.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
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

// Outcomes are compared again before each repetition: no other measurement may change what this one reads.
template <class>
void enter(const char *routine, const Workload &workload, const char *name, auto call, auto body, auto compare) {
    const std::string title = std::string(routine) + '/' + workload.name + '/' + name;
    const auto run = [=, cases = workload.cases](benchmark::State &state) {
        compare();
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
    // Clang's version begins with its name.
    benchmark::AddCustomContext("compiler", std::isdigit(__VERSION__[0]) ? "GCC " __VERSION__ : __VERSION__);
    benchmark::AddCustomContext("glibc", gnu_get_libc_version());
    benchmark::AddCustomContext("fmt", fmt::format("{}.{}", FMT_VERSION / 10000, FMT_VERSION / 100 % 100));
    benchmark::AddCustomContext("utf8proc", utf8proc_version());
}

inline int finishMeter() { return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1; }

// Peers that only the host has, called with the arguments of ours.
namespace host {

template <class Call>
struct Peer {
    const char *name;
    Call call;
};

inline const Peer byMemccpy{"memccpy", [](char *destination, const char *source, int32_t count) {
                                if (memccpy(destination, source, 0, count) == nullptr) destination[count] = 0;
                                return destination;
                            }};
inline const Peer byStrncpy{"strncpy", [](char *destination, const char *source, int32_t count) {
                                strncpy(destination, source, count)[count] = 0;
                                return destination;
                            }};
inline const Peer byStrcasecmp{
    "strcasecmp", [](const char *first, const char *second, const uint8_t *) { return strcasecmp(first, second); }};

inline const Peer toupperInLine{"toupper in line", [](int32_t character) { return toupper(character); }};
inline const Peer isalphaInLine{"isalpha in line", [](int32_t character) { return isalpha(character); }};
inline const Peer isdigitInLine{"isdigit in line", [](int32_t character) { return isdigit(character); }};

inline const Peer fromChars{"from_chars", [](const char *text) {
                                int32_t value = 0;
                                std::from_chars(text, text + 11, value);
                                return value;
                            }};
inline const Peer toChars{"to_chars", [](int32_t value, char *buffer, int32_t size, int32_t) {
                              *std::to_chars(buffer, buffer + size - 1, value).ptr = 0;
                              return buffer;
                          }};

template <class... Values>
int32_t formatted(char *destination, uint32_t size, fmt::string_view format, const Values &...values) {
    const auto written = fmt::vformat_to_n(destination, size - 1, format, fmt::make_format_args(values...));
    *written.out = 0;
    return static_cast<int32_t>(written.size);
}

inline const Peer hexadecimal{"fmt", [](int32_t value, char *buffer, uint32_t size, int32_t) {
                                  formatted(buffer, size, "{:X}", value < 0 ? 0 - static_cast<uint32_t>(value) : value);
                                  return buffer;
                              }};

// What slots hold.
inline const char *text(intptr_t slot) { return reinterpret_cast<const char *>(slot); }
inline int32_t number(intptr_t slot) { return static_cast<int32_t>(slot); }
inline char character(intptr_t slot) { return static_cast<char>(slot); }

template <auto first, auto second, auto third>
auto printer(fmt::string_view format) {
    return [=](char *destination, uint32_t size, const char *, const intptr_t *slots) {
        return formatted(destination, size, format, first(slots[0]), second(slots[1]), third(slots[2]));
    };
}

inline const Peer printFields{"fmt", printer<number, text, character>("{}|{}|{}")};
inline const Peer printIntegers{"fmt", printer<number, number, number>("{},{},{}")};
inline const Peer printSentence{
    "fmt", printer<number, text, character>("The value {} of the sensor named {} is given in degrees {}.")};

inline const uint8_t *bytesOf(const char *text) { return reinterpret_cast<const uint8_t *>(text); }

inline const Peer encode{"utf8proc", [](uint32_t codePoint, char *buffer) {
                             const auto length = utf8proc_encode_char(codePoint, reinterpret_cast<uint8_t *>(buffer));
                             buffer[length] = 0;
                             return static_cast<int32_t>(length);
                         }};
inline const Peer decode{"utf8proc", [](const char *input, uint32_t *codePoint, int32_t *length) {
                             int32_t value = 0;
                             *length = utf8proc_iterate(bytesOf(input), -1, &value);
                             *codePoint = value;
                             return const_cast<char *>(input) + *length;
                         }};
inline const Peer readCharacter{"utf8proc", [](const char *input, int32_t *valid, char *character) {
                                    int32_t value = 0;
                                    const auto length = utf8proc_iterate(bytesOf(input), -1, &value);
                                    *valid = length > 0;
                                    memcpy(character, input, length);
                                    character[length] = 0;
                                    return const_cast<char *>(input) + length;
                                }};

}  // namespace host

#endif
