#include <benchmark/benchmark.h>
#include <fmt/core.h>
#include <gnu/libc-version.h>
#include <utf8proc.h>

#include <exception>

void enterStrings();
void enterNumbers();
void enterTexts();

int main(int argc, char **argv) try {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::AddCustomContext("flags", STRLIB_BENCH_FLAGS);
#ifdef __clang__
    benchmark::AddCustomContext("compiler", __VERSION__);
#else
    benchmark::AddCustomContext("compiler", "GCC " __VERSION__);
#endif
    benchmark::AddCustomContext("glibc", gnu_get_libc_version());
    benchmark::AddCustomContext(
        "fmt", fmt::format("{}.{}.{}", FMT_VERSION / 10000, FMT_VERSION / 100 % 100, FMT_VERSION % 100));
    benchmark::AddCustomContext("utf8proc", utf8proc_version());
    enterStrings();
    enterNumbers();
    enterTexts();
    const bool ran = benchmark::RunSpecifiedBenchmarks() > 0;
    benchmark::Shutdown();
    return ran ? 0 : 1;
} catch (const std::exception &problem) {
    fmt::print(stderr, "strlib_benchmarks: {}\n", problem.what());
    return 1;
}
