#pragma once

// What every benchmark reports, so that scripts/bench.sh reads one figure from all of them.

#include <QtCore/qglobal.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace Velmora::Benchmarks {

// Repetitions whose median the script reads: one noisy run does not move it.
constexpr int repetitions = 5;

inline benchmark::internal::Benchmark *repeated(benchmark::internal::Benchmark *benchmark)
{
    return benchmark->Repetitions(repetitions)->ReportAggregatesOnly(true);
}

// Items per second, and "per_item": the measured seconds per item (node, file item, lock
// pair), which is the figure compared.
inline void reportPerItem(benchmark::State &state, qint64 itemsPerIteration)
{
    const double items = double(state.iterations()) * double(itemsPerIteration);
    state.SetItemsProcessed(qint64(items));
    state.counters["per_item"] =
        benchmark::Counter(items, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// The resident set in bytes, from /proc/self/statm; 0 where there is none.
inline qint64 residentBytes()
{
    long long size = 0;
    long long resident = 0;
    if (FILE *statm = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(statm, "%lld %lld", &size, &resident) != 2)
            resident = 0;
        std::fclose(statm);
    }
    return qint64(resident) * sysconf(_SC_PAGESIZE);
}

// Hands freed heap pages back, so that a later growth of the resident set is new memory and
// not pages an earlier benchmark left behind.
inline void releaseFreeMemory()
{
    malloc_trim(0);
}

// Keeps freed memory in the heap, large blocks included, until releaseFreeMemory() hands it
// back. Faulting a page in costs microseconds on a virtual machine, more than building a node:
// if the allocator gave pages back whenever a tree went, each run would pay for faults
// according to what ran before it, not to what it does.
inline void keepFreedMemory()
{
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
}

// Work for main to do once the benchmarks are done, while the application still exists:
// dropping the views and models that benchmarks keep between runs.
inline std::vector<std::function<void()>> &endRoutines()
{
    static std::vector<std::function<void()>> routines;
    return routines;
}

inline void atEnd(std::function<void()> routine)
{
    endRoutines().push_back(std::move(routine));
}

} // namespace Velmora::Benchmarks
