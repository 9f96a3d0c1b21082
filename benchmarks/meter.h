#ifndef BENCHMARKS_METER_H
#define BENCHMARKS_METER_H

// What the workloads see of the meter that they are compiled for: time on the host, instructions under emulation, or
// the cycles of a board's own counter.

#if defined(STRLIB_BENCHMARK_TIME)
#include "meter_time.h"
#else
#include "meter_count.h"
#endif

#endif
