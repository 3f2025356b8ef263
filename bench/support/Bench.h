// One benchmark of the table: a row, and the side of it that is measured.
//
//   DAYWARD_BENCH(decode_event, ours) { for (auto _ : state) … }
//   DAYWARD_BENCH(decode_event, libplist) { … }
//   DAYWARD_BENCH_WALL(open_10000, ours, 1) { … }     wall time, one iteration in each repetition
//
// `rows.json` says which sides are compared and what their ratio must be. With the variable
// DAYWARD_BENCH_ITERATIONS each benchmark makes just so many iterations, for counting instructions.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace dayward::bench {

inline benchmark::internal::Benchmark* registered(const char* name, void (*function)(benchmark::State&)) {
    auto* made = benchmark::RegisterBenchmark(name, function);
    if (const char* count = std::getenv("DAYWARD_BENCH_ITERATIONS")) made->Iterations(std::atol(count));
    return made;
}

inline benchmark::internal::Benchmark* registeredWall(const char* name, void (*function)(benchmark::State&),
                                                      int iterations) {
    return benchmark::RegisterBenchmark(name, function)->Iterations(iterations)->UseRealTime();
}

}  // namespace dayward::bench

#define DAYWARD_BENCH(row, side)                                                                              \
    static void bench_##row##_##side(benchmark::State& state);                                                \
    [[maybe_unused]] static auto* const made_##row##_##side =                                                 \
        dayward::bench::registered(#row "/" #side, bench_##row##_##side);                                     \
    static void bench_##row##_##side(benchmark::State& state)

#define DAYWARD_BENCH_WALL(row, side, iterations)                                                             \
    static void bench_##row##_##side(benchmark::State& state);                                                \
    [[maybe_unused]] static auto* const made_##row##_##side =                                                 \
        dayward::bench::registeredWall(#row "/" #side, bench_##row##_##side, iterations);                     \
    static void bench_##row##_##side(benchmark::State& state)
